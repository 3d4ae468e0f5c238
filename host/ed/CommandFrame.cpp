#include "ed/CommandFrame.h"

#include "accmd.h"

namespace {

AcAp::DocLockMode lockFor(Adesk::Int32 flags)
{
    if ((flags & (ACRX_CMD_SESSION | ACRX_CMD_NOINTERNALLOCK)) != 0)
        return AcAp::kNone;
    if ((flags & ACRX_CMD_DOCEXCLUSIVELOCK) != 0)
        return AcAp::kXWrite;
    return (flags & ACRX_CMD_DOCREADLOCK) != 0 ? AcAp::kRead : AcAp::kWrite;
}

} // namespace

CommandFrame::CommandFrame(Document* document, Adesk::Int32 commandFlags, const std::wstring& commandName) :
    m_document(document),
    m_inDocument((commandFlags & ACRX_CMD_SESSION) == 0)
{
    if (!m_document)
        return;
    m_locksBefore = m_document->lockCount();
    m_marksBefore = m_document->undoMarks();
    if (m_inDocument)
        m_document->commandStarts();
    if (const AcAp::DocLockMode mode = lockFor(commandFlags); mode != AcAp::kNone)
        m_documents.lockDocument(m_document, mode, commandName.c_str(), nullptr, true);
    if ((commandFlags & ACRX_CMD_NO_UNDO_MARKER) == 0)
        m_document->startUndoMark();
    m_locksInside = m_document->lockCount();
    m_marksInside = m_document->undoMarks();
}

CommandFrame::~CommandFrame()
{
    if (!documentStays())
        return;
    while (m_document->undoMarks() > m_marksBefore)
        m_document->endUndoMark();
    while (m_document->lockCount() > m_locksBefore)
        m_documents.unlockDocument(m_document);
    if (m_inDocument)
        m_document->commandEnds();
}

std::wstring CommandFrame::leftBehind() const
{
    if (!documentStays())
        return L"";
    std::wstring left;
    if (m_document->lockCount() > m_locksInside)
        left = std::to_wstring(m_document->lockCount() - m_locksInside) + L" verrou(s) du dessin";
    if (m_document->undoMarks() > m_marksInside)
        left += (left.empty() ? L"" : L", ") + std::to_wstring(m_document->undoMarks() - m_marksInside) +
                L" marque(s) d'annulation";
    return left;
}
