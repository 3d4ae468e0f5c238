#pragma once

#include "points/exportation.h"

#include "afx.h"

/// Tags of the four attributes of a point's symbol.
struct attribsPoints {
    CString numero = L"NUMPT";    ///< the point's name
    CString code = L"CODE";       ///< its code number
    CString altitude = L"Z";      ///< its altitude, empty when unknown
    CString observation = L"OBS"; ///< a free text
};

/// The module's own, there from its loading on.
extern VELA_EXPORT const attribsPoints attribsDuModule;
