#include "services/lispTextes.h"

#include <vector>

#include "services/argumentsLisp.h"
#include "services/listeLisp.h"

#include "aced.h"

namespace {

int rendreListe(const std::vector<CString>& textes)
{
    listeLisp liste;
    for (const CString& texte : textes)
        liste.ajouter(texte);
    return liste.rendre();
}

std::vector<CString> parties(const CString& texte)
{
    std::vector<CString> resultat;
    int debut = 0;
    for (CString partie = texte.Tokenize(L" ,\t\n", debut); debut >= 0; partie = texte.Tokenize(L" ,\t\n", debut))
        resultat.push_back(partie);
    return resultat;
}

} // namespace

int lispAnalyse()
{
    argumentsLisp arguments;
    CString texte;
    if (!arguments.lireTexte(texte) || !arguments.fini())
        return refuserParametres();
    return rendreListe(parties(texte));
}

int lispVldelfile()
{
    argumentsLisp arguments;
    CString chemin;
    if (!arguments.lireTexte(chemin) || !arguments.fini())
        return refuserParametres();
    return DeleteFileW(chemin) ? acedRetT() : acedRetNil();
}

int lispVelatext()
{
    argumentsLisp arguments;
    std::vector<CString> textes;
    for (CString texte; arguments.lireTexte(texte);)
        textes.push_back(texte.MakeUpper());
    if (textes.empty() || !arguments.fini())
        return refuserParametres();
    return textes.size() == 1 ? acedRetStr(textes.front()) : rendreListe(textes);
}
