#include "services/motSaisi.h"

#include "aced.h"
#include "acutmem.h"

std::wstring motSaisi()
{
    ACHAR* texte = nullptr;
    if (acedGetFullInput(texte) != RTNORM || !texte)
        return {};
    std::wstring mot = texte;
    acutDelString(texte);
    return mot;
}
