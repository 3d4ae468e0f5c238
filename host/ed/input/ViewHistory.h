#pragma once

#include <vector>

#include "ed/input/CurrentView.h"

#include "acdocman.h"

/// The views that a document showed before the present one, for ZOOM Previous.
class ViewHistory {
public:
    static ViewHistory& of(AcApDocument& document);

    /// Keeps the present view, the document being the current one: to be called before another one is set; once at the
    /// start of a gesture such as the turning of a wheel.
    void remember();
    /// Shows the last one kept, and forgets it. False when there is none.
    bool goBack();

private:
    std::vector<CurrentView> m_former; // the oldest first
};
