#include "db/SavedExtents.h"

#include "db/DatabaseImpl.h"

namespace {

constexpr const char* kLeast = "$EXTMIN";
constexpr const char* kMost = "$EXTMAX";

void add(AcDbStub* stub, AcDbExtents& extents)
{
    if (isErased(*recordOf(stub)))
        return;
    const AcDbObjectPointer<AcDbEntity> entity{AcDbObjectId(stub)};
    AcDbExtents own;
    if (entity.object() && entity->getGeomExtents(own) == Acad::eOk)
        extents.addExt(own);
}

bool same(const AcGePoint3d& a, const AcGePoint3d& b)
{
    return a.x == b.x && a.y == b.y && a.z == b.z;
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
    const BlockContent& content = database.blocks().of(model);
    for (std::size_t i = stated ? content.fromFile : 0; i < content.entities.size(); ++i)
        add(content.entities[i], extents);
    if (stated)
        for (const std::uint32_t position : database.edits()) {
            DxfRecord& record = database.file().records()[position];
            if ((record.flags & RecordFlags::modified) != 0 && database.ownerOf(record) == model)
                add(stubOf(&record), extents);
        }
    if (extents.isEmpty() || (stated && same(extents.minPoint(), least) && same(extents.maxPoint(), most)))
        return std::nullopt;
    return extents;
}
