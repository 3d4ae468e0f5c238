#pragma once

#include <string>

#include "ap/DocumentList.h"

/// What stands around a running command: its document's lock, mark of history, and state. The end of the scope puts
/// them back as they were, whatever the command did to them; the document may have been closed meanwhile.
class CommandFrame {
public:
    /// `document` may be null when none is open.
    CommandFrame(Document* document, Adesk::Int32 commandFlags, const std::wstring& commandName);
    ~CommandFrame();
    CommandFrame(const CommandFrame&) = delete;
    CommandFrame& operator=(const CommandFrame&) = delete;

    /// Locks and marks that the command made and did not end, in French; empty when there are none.
    std::wstring leftBehind() const;

private:
    bool documentStays() const { return m_document && m_documents.isOpen(m_document); }

    DocumentList& m_documents = DocumentList::instance();
    Document* m_document;
    bool m_inDocument; ///< not for commands of the session
    std::size_t m_locksBefore = 0, m_locksInside = 0;
    int m_marksBefore = 0, m_marksInside = 0;
};
