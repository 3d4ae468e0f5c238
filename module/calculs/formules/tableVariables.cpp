#include "calculs/formules/tableVariables.h"

#include <algorithm>

#include "services/lettres.h"

int tableVariables::indice(std::string_view nom) const
{
    const auto v = std::ranges::find(m_variables, nom, &variableFormule::nom);
    return v == m_variables.end() ? -1 : static_cast<int>(v - m_variables.begin());
}

double tableVariables::valeur(int indice) const
{
    return indice >= 0 && indice < static_cast<int>(m_variables.size())
               ? m_variables[static_cast<std::size_t>(indice)].valeur
               : 0.0;
}

void tableVariables::definir(variableFormule variable)
{
    if (const int place = indice(variable.nom); place >= 0)
        remplacer(place, std::move(variable));
    else
        m_variables.push_back(std::move(variable));
}

std::string nomDeVariable(std::string_view saisi)
{
    return std::string(sansBlancs(saisi, " .;,")); // a tab is no blank here
}

bool nomDeVariableLibre(const tableVariables& table, std::string_view nom)
{
    return !nom.empty() && table.indice(nom) < 0;
}
