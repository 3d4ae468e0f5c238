#pragma once

#include "services/grandeur.h"

#include "afx.h"

/// A survey point outside any drawing, as point files hold it.
/// x, y, z in drawing units; `inconnu` when not known.
struct pointXYZ {
    int code = 1;
    CString nom;
    double x = inconnu;
    double y = inconnu;
    double z = inconnu;
};
