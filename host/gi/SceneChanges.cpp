#include "gi/SceneChanges.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "db/DatabaseImpl.h"
#include "db/Ownership.h"

#include "dbents.h"
#include "dbsymtb.h"

namespace {

/// Variables of the drawing that change its picture.
constexpr std::array<std::wstring_view, 5> shownVariables = {L"LTSCALE", L"PDMODE", L"PDSIZE", L"ATTMODE", L"FILLMODE"};

} // namespace

SceneChanges::SceneChanges(AcDbDatabase& database) : m_database(&database)
{
    database.addReactor(this);
}

SceneChanges::~SceneChanges()
{
    if (m_database)
        m_database->removeReactor(this);
}

void SceneChanges::goodbye(const AcDbDatabase*)
{
    m_database = nullptr;
    const auto last = std::move(onGoodbye); // this object may end in it
    if (last)
        last();
}

void SceneChanges::tell()
{
    ++count;
    if (onChange)
        onChange();
}

void SceneChanges::headerSysVarChanged(const AcDbDatabase*, const ACHAR* name, Adesk::Boolean)
{
    if (std::ranges::find(shownVariables, std::wstring_view(name)) == shownVariables.end())
        return;
    header = true;
    tell();
}

void SceneChanges::note(const AcDbObject& object)
{
    if (const auto* entity = AcDbEntity::cast(&object))
        return noteEntity(*entity);
    if (object.isKindOf(AcDbBlockTableRecord::desc()))
        blocks.insert(object.objectId().stub());
    else if (object.isKindOf(AcDbSymbolTableRecord::desc()))
        tables = true;
    else
        return;
    tell();
}

/// An attribute or a vertex counts as a change of what owns it. Owners are asked for without opening them.
void SceneChanges::noteEntity(const AcDbEntity& entity)
{
    AcDbStub* shown = entity.objectId().stub();
    AcDbStub* owner = entity.ownerId().stub();
    constexpr int deepest = 4; // a vertex, its polyline, the block; no drawing nests owners further
    for (int i = 0; owner && i < deepest; ++i) {
        if (isOfClass(AcDbObjectId(owner), AcDbBlockTableRecord::desc())) {
            blocks.insert(owner);
            if (!entity.isKindOf(AcDbBlockBegin::desc()))
                entities.insert(shown);
            return tell();
        }
        shown = owner;
        owner = AcDbDatabaseImpl::of(owner).ownership().ownerOf(*recordOf(owner));
    }
}
