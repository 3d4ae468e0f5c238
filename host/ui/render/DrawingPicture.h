#pragma once

#include <optional>
#include <QString>

#include "ed/PlotHook.h"
#include "gi/Box2d.h"

#include "dbid.h"

class AcDbDatabase;

/// What `vela apercu` makes: model space, or a layout, as a picture of so many pixels. A VelaApplication must live:
/// fonts need it.
struct OverviewRequest {
    QString file;
    int width = 1200, height = 800; ///< pixels; of a vector picture, at 96 to an inch
    std::optional<Box2d> window;    ///< what is seen at least; the extents when there is none
    bool darkGround = false;
    AcDbObjectId layout; ///< block of the layout that is seen; null for model space
};

/// @return what went wrong, in French; empty when all went well
QString writeOverview(AcDbDatabase& database, const OverviewRequest& request);

/// A plot on paper: the same, with line weights and a scale. A window too large for the paper at its scale is cut.
QString writePlot(AcDbDatabase& database, const PlotRequest& request);
/// Makes writePlot known to the kernel's PLOT, and forgotten again.
void installPlotHook();
void removePlotHook();
