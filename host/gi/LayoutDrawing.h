#pragma once

#include <string>
#include <vector>

#include "gi/Scene.h"

/// A layout as it is seen on paper: what stands in its paper space, and model space through its viewports.
/// The tabs of a drawing.
struct LayoutTab {
    std::wstring name;
    AcDbObjectId block; ///< of its paper space
};
/// Those of paper, in the order of the drawing; model space is none.
std::vector<LayoutTab> paperLayouts(AcDbDatabase& database);

/// @param paper the scene of the layout's block; the view is in its coordinates
void drawLayout(Scene& paper, const SceneView& view, GraphicsSink& sink);
