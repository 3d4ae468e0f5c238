#pragma once

#include <string>
#include <string_view>
#include <vector>

struct variableFormule {
    std::string nom;
    double valeur = 0.0;
    std::string commentaire;

    bool operator==(const variableFormule&) const = default;
};

/// The named constants that formulas may use, in the order defined. Names count to the letter.
class tableVariables {
public:
    const std::vector<variableFormule>& variables() const { return m_variables; }

    /// Position of the first variable of that name, or -1.
    int indice(std::string_view nom) const;
    /// Value at a position; 0 outside the table.
    double valeur(int indice) const;

    /// Adds a variable; one of that name takes the new value and comment instead.
    void definir(variableFormule variable);
    void remplacer(int indice, variableFormule variable)
    {
        m_variables.at(static_cast<std::size_t>(indice)) = std::move(variable);
    }
    void supprimer(int indice) { m_variables.erase(m_variables.begin() + indice); }
    void vider() { m_variables.clear(); }

    bool operator==(const tableVariables&) const = default;

private:
    std::vector<variableFormule> m_variables;
};

/// A name as the user typed it, without blanks, full stops, semicolons and commas at both ends.
std::string nomDeVariable(std::string_view saisi);
/// Whether a new variable may have this name: not empty, not in the table yet.
bool nomDeVariableLibre(const tableVariables& table, std::string_view nom);
