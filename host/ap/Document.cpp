#include "ap/Document.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "ap/DocumentAutomation.h"
#include "ap/UndoMarks.h"
#include "platform/CodePage.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcApDocument, AcRxObject)

namespace {

std::size_t nameStart(const std::wstring& path)
{
    return path.find_last_of(L"/\\") + 1; // npos + 1 is 0
}

} // namespace

Document::Document(std::unique_ptr<AcDbDatabase> database, std::wstring path, std::wstring title) :
    m_database(std::move(database)),
    m_path(std::move(path)),
    m_title(std::move(title)),
    m_automation(new DocumentAutomation(this))
{
    ::undoMarks().documentOpened(*m_database);
}

Document::~Document()
{
    m_data.clear(); // may still look at the database
    m_automation->documentClosed();
    m_automation->Release();
}

AcAp::DocLockMode Document::lockMode(bool includeMyLocks) const
{
    return includeMyLocks ? myLockMode() : AcAp::kNotLocked;
}

AcAp::DocLockMode Document::myLockMode() const
{
    constexpr std::array strongestFirst{AcAp::kXWrite, AcAp::kWrite, AcAp::kProtectedAutoWrite, AcAp::kAutoWrite,
                                        AcAp::kRead};
    for (const AcAp::DocLockMode mode : strongestFirst)
        if (std::find(m_locks.begin(), m_locks.end(), mode) != m_locks.end())
            return mode;
    return AcAp::kNotLocked;
}

bool Document::popLock()
{
    if (m_locks.empty())
        return false;
    m_locks.pop_back();
    return true;
}

IDispatch* Document::GetIDispatch(bool addRef)
{
    if (addRef)
        m_automation->AddRef();
    return m_automation;
}

std::wstring Document::folder() const
{
    if (!m_path.empty())
        return m_path.substr(0, nameStart(m_path));
    return platform::wideFromUtf8((std::filesystem::current_path() / "").string());
}

void Document::setFile(const std::wstring& path)
{
    m_path = path;
    m_title = path.substr(nameStart(path));
}

void Document::setUntitled(const std::wstring& title)
{
    m_path.clear();
    m_title = title;
}

void Document::startUndoMark()
{
    ++m_undoMarks;
    ::undoMarks().startMark(*m_database);
}

bool Document::endUndoMark()
{
    if (m_undoMarks == 0)
        return false;
    --m_undoMarks;
    ::undoMarks().endMark(*m_database);
    return true;
}
