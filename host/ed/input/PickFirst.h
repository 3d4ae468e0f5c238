#pragma once

#include <functional>
#include <vector>

#include "acdocman.h"
#include "dbid.h"

/// What of a document is selected, for the window to show: between commands, what the user picked to be taken by the
/// next one; while a command asks for a selection, what is in it so far, and
/// what the host's own commands then work on.
class PickFirst {
public:
    static PickFirst& of(AcApDocument& document);

    /// Each once, in the order of picking. Those erased meanwhile are left out.
    std::vector<AcDbObjectId> objects() const;
    /// Entities given twice are taken once.
    void set(const std::vector<AcDbObjectId>& objects);
    void clear() { set({}); }

    /// What is shown as selected: the selection being made, or else objects(), and what acedRedraw highlights.
    std::vector<AcDbObjectId> highlighted() const;
    /// Of the selection being made, or that the command under way works on; none once it is done.
    void setBeingMade(std::vector<AcDbObjectId> objects);
    void setHighlighted(AcDbObjectId entity, bool highlighted);

    /// Called at each change: to ask for a repaint later, nothing else. One function for all documents.
    static void onChange(std::function<void(AcApDocument&)> changed);

private:
    void changed();

    AcApDocument* m_document = nullptr;
    std::vector<AcDbObjectId> m_objects;
    std::vector<AcDbObjectId> m_beingMade;
    std::vector<AcDbObjectId> m_highlighted;
};
