#include "services/nomDessin.h"

#include "services/variablesHote.h"

CString nomDessin()
{
    CString dossier, nom;
    if (!lireVariable(L"DWGPREFIX", dossier) || !lireVariable(L"DWGNAME", nom))
        return {};
    return dossier + nom.SpanExcluding(L".");
}
