#include "services/lispTextes.h"

#include <string>
#include <vector>

#include "services/argumentsLisp.h"
#include "services/lettres.h"
#include "services/listeLisp.h"

#include "aced.h"
#include "afx.h"

namespace {

/// A list of texts, as the value of the call.
template <class Textes>
int rendreListe(const Textes& textes)
{
    listeLisp liste;
    for (const auto& texte : textes)
        liste.ajouter(std::wstring(texte).c_str());
    return liste.rendre();
}

} // namespace

int lispAnalyse()
{
    argumentsLisp arguments;
    std::wstring texte;
    if (!arguments.lireTexte(texte) || !arguments.fini())
        return refuserParametres();
    return rendreListe(parties(texte, L" ,\t\n"));
}

int lispVldelfile()
{
    argumentsLisp arguments;
    std::wstring chemin;
    if (!arguments.lireTexte(chemin) || !arguments.fini())
        return refuserParametres();
    return DeleteFileW(chemin.c_str()) ? acedRetT() : acedRetNil();
}

int lispVelatext()
{
    argumentsLisp arguments;
    std::vector<std::wstring> textes;
    for (std::wstring texte; arguments.lireTexte(texte);)
        textes.emplace_back(CString(texte.c_str()).MakeUpper()); // of any alphabet, as the host has them
    if (textes.empty() || !arguments.fini())
        return refuserParametres();
    return textes.size() == 1 ? acedRetStr(textes.front().c_str()) : rendreListe(textes);
}
