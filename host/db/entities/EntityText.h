#pragma once

#include <string>

#include "acutmem.h"
#include "adesk.h"

/// A new text for the caller of the interface, who releases it (acutDelString).
inline ACHAR* newText(const std::wstring& text)
{
    ACHAR* copy = nullptr;
    acutNewString(text.c_str(), copy);
    return copy;
}

/// A text given by a caller; null counts as empty.
inline std::wstring givenText(const ACHAR* text)
{
    return text ? std::wstring(text) : std::wstring();
}
