#include "db/UndoRecorder.h"

#include <algorithm>
#include <iterator>

#include "db/DatabaseImpl.h"
#include "db/ObjectExtras.h"
#include "db/ObjectOpening.h"

#include "dbmain.h"

UndoRecorder::UndoRecorder(AcDbDatabaseImpl& database) : m_database(database) {}

UndoRecorder::~UndoRecorder() = default;

void UndoRecorder::clear()
{
    m_history.done.clear();
    m_history.undone.clear();
    m_history.bookmarks.clear();
    m_history.setStart.reset();
    m_history.open = false;
}

void UndoRecorder::startMark(const std::wstring& name)
{
    if (m_history.depth++ > 0)
        return;
    m_history.open = false; // what follows is a group of its own
    m_history.name = name;
}

void UndoRecorder::endMark()
{
    if (m_history.depth == 0 || --m_history.depth > 0)
        return;
    m_history.open = false;
    m_history.name.clear();
}

void UndoRecorder::beginSet()
{
    m_history.open = false;
    m_history.setStart = m_history.done.size();
}

bool UndoRecorder::endSet(const std::wstring& name)
{
    if (!m_history.setStart)
        return false;
    const std::size_t start = *m_history.setStart;
    m_history.setStart.reset();
    m_history.open = false;
    if (m_history.done.size() <= start)
        return true;
    Group& set = m_history.done[start];
    for (std::size_t i = start + 1; i < m_history.done.size(); ++i)
        std::ranges::move(m_history.done[i].steps, std::back_inserter(set.steps));
    set.revision = m_history.done.back().revision;
    set.name = name;
    m_history.done.erase(m_history.done.begin() + static_cast<std::ptrdiff_t>(start) + 1, m_history.done.end());
    while (!m_history.bookmarks.empty() &&
           m_history.bookmarks.back() > start) // there is nothing to come back to within the set
        m_history.bookmarks.pop_back();
    return true;
}

void UndoRecorder::placeBookmark()
{
    m_history.open = false;
    m_history.bookmarks.push_back(m_history.done.size());
}

void UndoRecorder::forgetPassed()
{
    while (!m_history.bookmarks.empty() && m_history.bookmarks.back() > m_history.done.size())
        m_history.bookmarks.pop_back();
    if (m_history.setStart && *m_history.setStart > m_history.done.size())
        m_history.setStart.reset();
}

UndoRecorder::Group* UndoRecorder::current()
{
    if (!m_recording || m_replaying)
        return nullptr;
    if (!m_history.open) {
        m_history.done.emplace_back().name = m_history.name;
        m_history.undone.clear();
        m_history.open = true;
        ++m_history.groupNumber;
    }
    m_history.done.back().revision = ++m_history.revision;
    return &m_history.done.back();
}

void UndoRecorder::beforeChange(AcDbObject& object)
{
    Group* group = current();
    if (!group || object.m_undoGroup == m_history.groupNumber)
        return;
    object.m_undoGroup = m_history.groupNumber;
    Step step;
    step.stub = object.m_stub;
    step.other.reset(static_cast<AcDbObject*>(object.clone()));
    if (step.other) {
        step.other->m_stub = object.m_stub;
        step.other->m_owner = object.m_owner;
        step.other->m_extras = object.m_extras ? object.m_extras->copyForUndo() : nullptr;
    }
    step.flags = recordOf(object.m_stub)->flags;
    group->steps.push_back(std::move(step));
}

void UndoRecorder::created(AcDbStub* stub)
{
    Group* group = current();
    if (!group)
        return;
    DxfRecord& record = *recordOf(stub);
    if (AcDbObject* object = residentObject(record))
        object->m_undoGroup = m_history.groupNumber;
    Step step;
    step.stub = stub;
    step.made = true;
    step.flags = static_cast<std::uint16_t>(record.flags | RecordFlags::erased | RecordFlags::unmade);
    group->steps.push_back(std::move(step));
}

void UndoRecorder::beforeHeaderChange(const std::string& name)
{
    Group* group = current();
    if (!group || !group->variables.insert(name).second)
        return;
    Step step;
    step.variable = name;
    step.tags = m_database.header().tags(name);
    group->steps.push_back(std::move(step));
}

void UndoRecorder::swapSides(Step& step)
{
    if (!step.stub) {
        const std::string now(m_database.header().tags(step.variable));
        m_database.header().restore(step.variable, step.tags);
        step.tags = now;
        return;
    }
    DxfRecord& record = *recordOf(step.stub);
    constexpr std::uint16_t swapped =
        RecordFlags::erased | RecordFlags::withOwner | RecordFlags::modified | RecordFlags::unmade;
    const std::uint16_t now = record.flags;
    record.flags = static_cast<std::uint16_t>((now & ~swapped) | (step.flags & swapped));
    step.flags = now;
    if (step.other)
        swapObjects(record, step.other);
    AcDbObject& object = m_database.object(record);
    const bool erased = isErased(record);
    if (((now & RecordFlags::erased) != 0) == erased)
        ObjectOpening::tellUndone(object);
    else if (step.made)
        ObjectOpening::tellAppendUndone(object, erased);
    else
        ObjectOpening::tellErased(object, erased);
}

void UndoRecorder::swapObjects(DxfRecord& record, std::unique_ptr<AcDbObject>& other)
{
    AcDbObject* const incoming = other.release();
    other.reset(residentObject(record));
    record.object = incoming;
    incoming->m_undoGroup = 0;
    if (other->m_extras && !other->m_extras->reactors.empty())
        incoming->extras().reactors = std::move(other->m_extras->reactors);
}

void UndoRecorder::swapSides(Group& group, bool undoing)
{
    m_replaying = true;
    if (undoing)
        for (auto step = group.steps.rbegin(); step != group.steps.rend(); ++step)
            swapSides(*step);
    else
        for (Step& step : group.steps)
            swapSides(step);
    for (const NameKind kind : nameKinds)
        m_database.names(kind).forgetIndex();
    m_replaying = false;
}

bool UndoRecorder::undo()
{
    m_history.open = false;
    if (m_history.done.empty())
        return false;
    Group group = std::move(m_history.done.back());
    m_history.done.pop_back();
    swapSides(group, true);
    m_history.undone.push_back(std::move(group));
    forgetPassed();
    return true;
}

bool UndoRecorder::redo()
{
    if (m_history.undone.empty())
        return false;
    Group group = std::move(m_history.undone.back());
    m_history.undone.pop_back();
    swapSides(group, false);
    m_history.done.push_back(std::move(group));
    return true;
}
