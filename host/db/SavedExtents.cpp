#include "db/SavedExtents.h"

#include <algorithm>

#include "db/DatabaseImpl.h"
#include "db/entities/BlockExtents.h"
#include "db/fields/DxfFields.h"
#include "db/Ownership.h"

#include "dbents.h"

namespace {

constexpr const char* kLeast = "$EXTMIN";
constexpr const char* kMost = "$EXTMAX";

bool holds(const AcDbExtents& outer, const AcDbExtents& inner)
{
    if (outer.isEmpty())
        return false;
    const AcGePoint3d low = outer.minPoint(), high = outer.maxPoint();
    const AcGePoint3d from = inner.minPoint(), to = inner.maxPoint();
    return low.x <= from.x && low.y <= from.y && low.z <= from.z && to.x <= high.x && to.y <= high.y && to.z <= high.z;
}

/// Adds entities up. The boxes of blocks are kept from one reference to the next: a survey has few and shows them
/// often.
class GrowingExtents {
public:
    explicit GrowingExtents(AcDbExtents& extents) : m_extents(extents) {}

    void add(AcDbStub* stub)
    {
        if (isErased(*recordOf(stub)))
            return;
        const AcDbObjectPointer<AcDbEntity> entity{AcDbObjectId(stub)};
        AcDbExtents own;
        if (const auto* reference = AcDbBlockReference::cast(entity.object()))
            own = boxOf(*reference);
        else if (!entity.object() || entity->getGeomExtents(own) != Acad::eOk)
            return;
        if (!own.isEmpty())
            m_extents.addExt(own);
    }

private:
    /// The smallest box is worth its walk only where it may reach out of what is known.
    AcDbExtents boxOf(const AcDbBlockReference& reference)
    {
        const AcDbExtents around = m_blocks.around(reference);
        return around.isEmpty() || holds(m_extents, around) ? around : m_blocks.of(reference);
    }

    AcDbExtents& m_extents;
    BlockExtents m_blocks;
};

bool same(const AcGePoint3d& a, const AcGePoint3d& b)
{
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

/// The entities of model space that edits of the file made what they are: of attributes and vertices, whether they
/// changed or came, the one that they belong to.
std::vector<AcDbStub*> changedEntities(AcDbDatabaseImpl& database, const AcDbStub* model)
{
    const auto ownership = database.ownership();
    std::vector<AcDbStub*> changed;
    for (const std::uint32_t position : database.edits()) {
        DxfRecord& record = database.file().records()[position];
        const AcDbObject* const object = residentObject(record);
        const bool gained = object && !ownership.addedSubentities(*object).empty();
        if (!gained && (record.flags & RecordFlags::modified) == 0)
            continue;
        AcDbStub* entity = stubOf(&record);
        AcDbStub* owner = ownership.ownerOf(record);
        if (owner && database.classOf(record).isEntity && database.classOf(*recordOf(owner)).isEntity) {
            entity = owner;
            owner = ownership.ownerOf(*recordOf(entity));
        }
        if (owner == model)
            changed.push_back(entity);
    }
    std::ranges::sort(changed);
    changed.erase(std::unique(changed.begin(), changed.end()), changed.end()); // once for all attributes
    return changed;
}

} // namespace

std::optional<AcDbExtents> extentsToSave(AcDbDatabaseImpl& database)
{
    AcDbStub* const model = database.blocks().modelSpace();
    HeaderVariables& header = database.header();
    if (!model || !header.has(kLeast) || !header.has(kMost))
        return std::nullopt;
    const AcGePoint3d least = header.point(kLeast, AcGePoint3d::kOrigin);
    const AcGePoint3d most = header.point(kMost, AcGePoint3d::kOrigin);
    AcDbExtents extents;
    const bool stated = extents.set(least, most) == Acad::eOk;
    GrowingExtents growing(extents);
    const BlockContent& content = database.blocks().of(model);
    for (std::size_t i = stated ? content.fromFile : 0; i < content.entities.size(); ++i)
        growing.add(content.entities[i]);
    if (stated)
        for (AcDbStub* const entity : changedEntities(database, model))
            growing.add(entity);
    if (extents.isEmpty() || (stated && same(extents.minPoint(), least) && same(extents.maxPoint(), most)))
        return std::nullopt;
    return extents;
}
