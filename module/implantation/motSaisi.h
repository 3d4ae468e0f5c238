#pragma once

#include <string>

#include "aced.h"
#include "acutmem.h"

/// What was typed at the last prompt in place of what it asks for; empty when nothing was.
inline std::wstring motSaisi()
{
    ACHAR* texte = nullptr;
    if (acedGetFullInput(texte) != RTNORM || !texte)
        return {};
    std::wstring mot = texte;
    acutDelString(texte);
    return mot;
}
