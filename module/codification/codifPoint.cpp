#include "codification/codifPoint.h"

#include "services/dossierSupport.h"

codifPoint::codifPoint() : chemin(cheminBiblio(L"velablk1.dwg")) {}

std::wstring cheminBiblio(const wchar_t* fichier)
{
    return cheminSupport(fichier, L"biblio");
}
