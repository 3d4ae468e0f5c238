#pragma once

#include <string>
#include <vector>

#include "gepnt2d.h"

/// What a block's drawing file shows, as plain lines and areas: enough to recognise the symbol in a small picture.
/// Curves are broken finely for a picture of some hundred pixels; texts and hatches are left out.
struct dessinBloc {
    using trace = std::vector<AcGePoint2d>;

    std::vector<trace> lignes;
    std::vector<trace> aplats; ///< filled

    bool vide() const { return lignes.empty() && aplats.empty(); }
};

/// Reads a DXF file. Empty when it cannot be read, or holds more than a symbol does: a plan is not drawn small.
dessinBloc lireDessinBloc(const std::wstring& fichier);
