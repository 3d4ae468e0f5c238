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
    // A name with blanks is typed between quotes, which the host hands over with the rest.
    if (mot.size() >= 2 && mot.front() == L'"' && mot.back() == L'"')
        return mot.substr(1, mot.size() - 2);
    return mot;
}
