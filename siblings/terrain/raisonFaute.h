#pragma once

#include <exception>
#include <new>
#include <stdexcept>
#include <string>

#include "services/codages.h"

/// Why a model could not be made, for the command line: French where it is for want of memory.
inline std::wstring raisonDe(const std::exception& faute)
{
    if (dynamic_cast<const std::bad_alloc*>(&faute) || dynamic_cast<const std::length_error*>(&faute))
        return L"il n'y a pas assez de m\u00e9moire";
    return depuisAnsi(faute.what());
}
