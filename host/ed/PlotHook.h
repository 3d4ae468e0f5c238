#pragma once

#include <functional>
#include <optional>
#include <string>

#include "gi/Box2d.h"

class AcDbDatabase;

/// What to plot, and on which paper. Millimetres of paper.
struct PlotRequest {
    std::wstring file; ///< its extension tells the form: .pdf, .svg or .png
    double paperWidth = 297.0, paperHeight = 210.0;
    double margin = 5.0;
    std::optional<Box2d> window; ///< the extents of what shows when there is none
    /// Millimetres of paper for one drawing unit: 2 is 1:500 for a drawing in metres. 0 fits the window to the paper.
    double scale = 0.0;
    bool darkGround = false;
    bool monochrome = false;
    int dotsPerInch = 200; ///< of a .png
};

/// Where the command PLOT meets what paints. Empty where no windows library is there.
struct PlotHook {
    static PlotHook& instance();

    /// Set by the windows: plots model space. Gives what went wrong, in French; empty when all went well.
    std::function<std::wstring(AcDbDatabase& database, const PlotRequest& request)> plot;
};
