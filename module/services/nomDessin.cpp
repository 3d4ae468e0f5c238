#include "services/nomDessin.h"

#include "services/variablesHote.h"

std::wstring nomDessin()
{
    std::wstring dossier, nom;
    if (!lireVariable(L"DWGPREFIX", dossier) || !lireVariable(L"DWGNAME", nom))
        return {};
    return dossier + nom.substr(0, nom.find(L'.'));
}
