#pragma once

#include "drawable.h"
#include "geintarr.h"

/// Graphics shown over a drawing without being of it: previews, markers.

/// How it is shown.
enum AcGiTransientDrawingMode {
    kAcGiMain = 0,        ///< as the drawing itself
    kAcGiSprite,          ///< moving, above the drawing
    kAcGiDirectShortTerm, ///< above it, forgotten when the drawing is next drawn anew
    kAcGiHighlight,       ///< highlighted
    kAcGiDirectTopmost,   ///< above everything
    kAcGiContrast,        ///< so that it stands out
    kAcGiTransientDrawingModeCount
};

/// The transient graphics of the current document. Drawables stay their makers', who erase them here before they delete
/// them. What is in a drawing already may be shown too. Viewport numbers are not looked at: there is one view.
class AcGiTransientManager {
public:
    virtual ~AcGiTransientManager() = default;
    /// False when the drawable is null, shown already, or without a document.
    virtual bool addTransient(AcGiDrawable* drawable, AcGiTransientDrawingMode mode, int subDrawingMode,
                              const AcGeIntArray& viewportNumbers) = 0;
    /// Shows it as it is now. False when it is not shown.
    virtual bool updateTransient(AcGiDrawable* drawable, const AcGeIntArray& viewportNumbers) = 0;
    virtual bool eraseTransient(AcGiDrawable* drawable, const AcGeIntArray& viewportNumbers) = 0;
    /// All of a mode.
    virtual bool eraseTransients(AcGiTransientDrawingMode mode, int subDrawingMode,
                                 const AcGeIntArray& viewportNumbers) = 0;
};

AcGiTransientManager* acgiGetTransientManager();
