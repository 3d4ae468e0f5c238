#include "exchange/tableObsXYZ.h"

#include "exchange/formatXYZ.h"
#include "services/codages.h"
#include "services/dialogueMessage.h"
#include "services/fichierEntier.h"
#include "services/lettres.h"

#include "tchar.h"

namespace {

int refuser()
{
    afficherAvertissement(L"erreur", erreurOuverture);
    return 0;
}

bool existe(const std::wstring& chemin)
{
    return !sourceFichier(_wfopen(chemin.c_str(), L"rb")).enEchec();
}

/// The file's own name in lower case; its folder is found whatever the letter case.
std::wstring nomMinuscule(const std::wstring& chemin)
{
    const std::size_t nom = chemin.find_last_of(L"/\\") + 1; // 0 without a folder
    return chemin.substr(0, nom) + enMinuscules(chemin.substr(nom));
}

} // namespace

int tableObsXYZ::lire(const wchar_t* fichier, bool vider)
{
    const std::wstring lu = cheminPointsElague(fichier ? fichier : chemin);
    if (lu.empty())
        return 0;
    if (vider)
        points.clear();
    sourceFichier source(_wfopen(lu.c_str(), L"rb"));
    pointsLus lus;
    lus.points.swap(points);
    lecteurXYZ().lire(source, lus);
    points.swap(lus.points);
    return source.enEchec() ? refuser() : 1;
}

int tableObsXYZ::ecrire(const wchar_t* fichier) const
{
    std::wstring ecrit = cheminPointsElague(fichier ? fichier : chemin);
    if (ecrit.empty())
        return 0;
    ecrit = cheminAvecXYZ(ecrit);
    if (!existe(ecrit))
        ecrit = nomMinuscule(ecrit);
    return remplacerFichier(ecrit.c_str(), contenuXYZ(points)) ? 1 : refuser();
}
