#include "frame/nomDessin.h"

#include "frame/variablesHote.h"

CString nomDessin()
{
    CString dossier, nom;
    if (!lireVariable(L"DWGPREFIX", dossier) || !lireVariable(L"DWGNAME", nom))
        return {};
    return dossier + nom.SpanExcluding(L".");
}
