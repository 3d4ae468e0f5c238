#pragma once

#include "afx.h"

/// A survey point outside any drawing, as point files hold it.
/// x, y, z in drawing units; z = 1e38 when the altitude is unknown.
struct pointXYZ {
    int code = 1;
    CString nom;
    double x = 1e38;
    double y = 1e38;
    double z = 1e38;
};
