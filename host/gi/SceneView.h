#pragma once

#include <unordered_set>

#include "gi/Box2d.h"

#include "dbid.h"

/// What is looked at, from above: a box of the world, and how fine its picture is.
struct SceneView {
    AcGePoint2d center;
    double width = 1.0, height = 1.0; ///< of the box, in drawing units
    double pixel = 1.0;               ///< size of a pixel in drawing units: curves deviate by at most a quarter of it

    /// Of the picture that this view is a strip of: point figures of relative size are reckoned from it. 0: its own.
    double wholeHeight = 0.0;

    bool dashes = true;        ///< linetypes are cut into dashes; picking wants whole lines
    bool simplified = true;    ///< what is smaller than a pixel becomes a dot
    bool solidHatches = false; ///< patterns are drawn as filled areas

    const std::unordered_set<AcDbStub*>* frozen = nullptr; ///< layers that do not show in it; null for none

    Box2d box() const
    {
        return {center.x - width / 2.0, center.y - height / 2.0, center.x + width / 2.0, center.y + height / 2.0};
    }

    /// The view that shows a box in a picture of so many pixels, with `margin` (a share of the picture) left around it.
    /// A box without extent is shown one unit wide.
    static SceneView showing(const Box2d& box, int pixelsAcross, int pixelsDown, double margin = 0.0);
};
