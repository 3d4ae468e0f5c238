#pragma once

#include <functional>

#include "acdocman.h"
#include "gepnt2d.h"

/// What of the current document is looked at, from above: the system variables VIEWCTR, VIEWSIZE (height) and
/// SCREENSIZE (pixels). A window follows it, and sets it when the user pans and zooms; commands and modules set it
/// whether or not there is one.
class CurrentView {
public:
    AcGePoint2d center;
    double height = 1.0; ///< drawing units
    AcGePoint2d screen;  ///< pixels

    /// Of the current document; the one of a new drawing when none is open.
    static CurrentView get();
    /// Shows it. Heights below 1e-12 and what is no number change nothing: false.
    static bool set(const AcGePoint2d& center, double height);
    /// So that a box is seen whole, with `margin` (a share of the picture) left around it. A box without extent shows
    /// as one unit. False when it is empty: a minimum exceeds its maximum.
    static bool show(const AcGePoint2d& min, const AcGePoint2d& max, double margin = 0.0);
    /// The window's size in pixels.
    static void setScreen(double width, double height);

    double width() const { return screen.y > 0.0 ? height * screen.x / screen.y : height; }
    /// Size of a pixel in drawing units.
    double pixel() const { return screen.y > 0.0 ? height / screen.y : height; }

    /// Called when it was set, by whomever: to repaint later. One function; null takes it away.
    static void onChange(std::function<void(AcApDocument&)> changed);
};
