#include "db/DrawingAudit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <functional>

#include "db/DatabaseImpl.h"

#include "dbdim.h"
#include "dbents.h"

namespace {

/// "INSERT 1F3": as users find it, by its handle.
std::string nameOf(const AcDbDatabaseImpl& drawing, const DxfRecord& record)
{
    char handle[20];
    std::snprintf(handle, sizeof handle, "%llX", static_cast<unsigned long long>(record.handle));
    return drawing.typeName(record) + " " + handle;
}

/// The marks that open and close sections are no objects.
bool standsOutside(const AcDbDatabaseImpl& drawing, const DxfRecord& record)
{
    const std::string& type = drawing.typeName(record);
    return type != "ENDSEC" && type != "EOF" && !drawing.file().isInSection(drawing.positionOf(record));
}

void forEachRecord(AcDbDatabaseImpl& drawing, const std::function<void(DxfRecord&)>& look)
{
    const std::size_t count = drawing.file().records().size(); // decoding may add some
    for (std::size_t i = 0; i < count; ++i) {
        DxfRecord& record = drawing.file().records()[i];
        if (drawing.holdsObject(record) && !isErased(record) && !standsOutside(drawing, record))
            look(record);
    }
    const NewRecords& made = drawing.newRecords();
    for (std::size_t i = 0; i < made.size(); ++i)
        if (!isErased(made[i]))
            look(made[i]);
}

bool leadsNowhere(AcDbObjectId id)
{
    return id.isNull() || isErased(*recordOf(id));
}

bool isFinite(const AcGePoint3d& point)
{
    return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

/// What is wrong with an entity that was read; empty when nothing is.
std::string faultOf(const AcDbEntity& entity)
{
    const char* const notNumbers = "ses coordonnées ne sont pas des nombres";
    if (leadsNowhere(entity.layerId()))
        return "son calque n'existe pas";
    if (const auto* const reference = AcDbBlockReference::cast(&entity); reference) {
        if (leadsNowhere(reference->blockTableRecord()))
            return "son bloc n'existe pas";
        const AcGeScale3d scale = reference->scaleFactors();
        if (scale.sx == 0.0 || scale.sy == 0.0 || scale.sz == 0.0)
            return "une de ses échelles est nulle";
        return isFinite(reference->position()) ? "" : notNumbers;
    }
    // What a block shows is looked at where it is defined: blocks within blocks would be walked from each of them.
    if (const auto* const dimension = AcDbDimension::cast(&entity); dimension && !dimension->dimBlockId().isNull())
        return {};
    AcDbExtents box;
    if (entity.getGeomExtents(box) == Acad::eOk && !(isFinite(box.minPoint()) && isFinite(box.maxPoint())))
        return notNumbers;
    return {};
}

/// Definitions, dictionaries and what gives the file its structure stay: other objects lead to them.
bool mayGo(const AcDbDatabaseImpl& drawing, const DxfRecord& record)
{
    const std::string& type = drawing.typeName(record);
    const auto isType = [&](const char* name) { return type == name; };
    return drawing.holdsObject(record) && !tableNamed(type) &&
           std::ranges::none_of(std::array{"TABLE", "DICTIONARY", "BLOCK", "ENDBLK", "SEQEND"}, isType);
}

bool erase(DxfRecord& record)
{
    const AcDbObjectPointer<AcDbObject> object(AcDbObjectId(stubOf(&record)), AcDb::kForWrite, false, true);
    return object.openStatus() == Acad::eOk && object->erase() == Acad::eOk;
}

} // namespace

DrawingAudit audit(AcDbDatabase& drawing)
{
    AcDbDatabaseImpl& inner = drawing.impl();
    DrawingAudit found;
    std::vector<std::string> own;
    forEachRecord(inner, [&](DxfRecord& record) {
        ++found.objects;
        const AcDbObjectPointer<AcDbObject> object{AcDbObjectId(stubOf(&record))};
        const AcDbEntity* const entity = object.object() ? AcDbEntity::cast(object.object()) : nullptr;
        if (const std::string fault = entity ? faultOf(*entity) : std::string(); !fault.empty())
            own.push_back(nameOf(inner, record) + " : " + fault);
    });
    found.faults = inner.problems().all(); // reading adds to them
    found.faults.insert(found.faults.end(), own.begin(), own.end());
    return found;
}

DrawingRepair repair(AcDbDatabase& drawing)
{
    AcDbDatabaseImpl& inner = drawing.impl();
    DrawingRepair done;
    for (DxfRecord& record : inner.file().records()) {
        const bool bare = (record.flags & DxfRecord::pseudo) != 0; // bytes of no object
        if (isErased(record) || (bare && record.offset == 0))
            continue;
        const bool spoiled = (record.flags & DxfRecord::spoiled) != 0;
        if (standsOutside(inner, record)) {
            record.flags |= RecordFlags::erased;
            inner.noteEdit(record);
            if (!bare) // a problem of the file tells of them
                done.astray.push_back(nameOf(inner, record) + " : hors de toute section, il n'est pas repris");
        } else if (!bare && spoiled && mayGo(inner, record) && erase(record)) {
            done.gone.push_back(nameOf(inner, record) + " : abîmé, il n'est pas repris");
        } else if (!bare && spoiled) {
            record.flags |= RecordFlags::mended;
            inner.noteEdit(record);
            done.mended.push_back(nameOf(inner, record) + " : abîmé, ce qui peut en être lu est gardé");
        }
    }
    const NewRecords& made = inner.newRecords();
    for (std::size_t i = 0; i < made.size(); ++i)
        made[i].flags &= static_cast<std::uint16_t>(~RecordFlags::madeUp);
    return done;
}
