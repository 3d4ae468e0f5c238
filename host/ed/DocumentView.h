#pragma once

#include <functional>
#include <vector>

#include "ap/DocumentData.h"
#include "gepnt3d.h"

/// What part of a drawing is shown: the middle of the view, and its height in drawing units.
struct ViewedArea {
    AcGePoint3d center;
    double height = 0.0;
    bool operator==(const ViewedArea& other) const
    {
        return center.x == other.center.x && center.y == other.center.y && height == other.height;
    }
};

/// The views of documents: the present one (the system variables VIEWCTR and VIEWSIZE) and those before it, for
/// ZOOM Previous. Windows follow them, and tell the size of their canvas by the variable SCREENSIZE.
class DocumentViews {
public:
    static DocumentViews& instance();

    /// Of the current document, which there must be.
    ViewedArea current() const;
    /// Pixels across one pixel down: the width of a view is its height times this.
    double aspect() const;

    enum class Former { kept, forgotten };
    /// Shows another part; a height that is not positive, or no number, is refused. A wheel that turns keeps the view
    /// it starts from and forgets those on its way.
    bool show(const ViewedArea& area, Former former = Former::kept);
    /// False when there is no former view.
    bool showFormer();

    /// Called with each change, the document current: for the window.
    void onChange(std::function<void(AcApDocument&)> changed) { m_changed = std::move(changed); }

private:
    void assign(const ViewedArea& area) const;

    DocumentData<std::vector<ViewedArea>> m_former; // the oldest first
    std::function<void(AcApDocument&)> m_changed;
};
