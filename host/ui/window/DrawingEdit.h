#pragma once

#include "ap/DocumentList.h"

/// A change that a panel makes: the document is locked meanwhile, and what changes is one step for U. It may stand
/// within a command that waits; then it is part of that command's step.
class DrawingEdit {
public:
    explicit DrawingEdit(Document& document) : m_document(document)
    {
        DocumentList::instance().lockDocument(&m_document, AcAp::kWrite, L"", L"", false);
        m_document.startUndoMark();
    }
    ~DrawingEdit()
    {
        m_document.endUndoMark();
        DocumentList::instance().unlockDocument(&m_document);
    }
    DrawingEdit(const DrawingEdit&) = delete;
    DrawingEdit& operator=(const DrawingEdit&) = delete;

private:
    Document& m_document;
};
