#include "db/Colors.h"
#include "db/DatabaseImpl.h"
#include "db/entities/EntityText.h"
#include "db/ObjectExtras.h"

#include "dbapserv.h"
#include "dbents.h"
#include "dbmain.h"
#include "dbsymtb.h"
#include "gemat3d.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbEntity, AcDbObject)

namespace {

/// The database that names are looked up in: the entity's own, else the program's working one.
AcDbDatabase* databaseOf(const AcDbEntity& entity)
{
    AcDbDatabase* own = entity.database();
    return own ? own : acdbHostApplicationServices()->workingDatabase();
}

/// Finds a record of a symbol table by its name.
Acad::ErrorStatus findNamed(const AcDbEntity& entity, NameKind kind, const ACHAR* name, AcDbObjectId& id)
{
    if (!name)
        return Acad::eInvalidInput;
    const AcDbDatabase* database = databaseOf(entity);
    if (!database)
        return Acad::eNoDatabase;
    id = AcDbObjectId(database->impl().named(kind, name));
    return id.isNull() ? Acad::eKeyNotFound : Acad::eOk;
}

std::wstring nameOf(AcDbObjectId id, const wchar_t* otherwise)
{
    return id.isNull() ? otherwise : AcDbDatabaseImpl::of(id.stub()).recordName(id.stub());
}

/// Does to the vertices of a polyline or mesh what was done to it. Attributes keep properties of their own.
template <class Change>
void changeVertices(const AcDbObjectIdArray& ids, const std::vector<AcDbEntity*>& pending, const Change& change)
{
    for (AcDbEntity* vertex : pending)
        if (vertex->isKindOf(AcDbVertex::desc()))
            change(*vertex);
    if (ids.isEmpty() || !isOfClass(ids.first(), AcDbVertex::desc()))
        return;
    for (const AcDbObjectId& id : ids) {
        AcDbObjectPointer<AcDbVertex> vertex(id, AcDb::kForWrite, false, true);
        if (vertex.openStatus() == Acad::eOk)
            change(*vertex.object());
    }
}

} // namespace

// ---- colour, layer, linetype

Adesk::UInt16 AcDbEntity::colorIndex() const
{
    assertReadEnabled();
    return static_cast<Adesk::UInt16>(m_color);
}

Acad::ErrorStatus AcDbEntity::setColorIndex(Adesk::UInt16 index, bool doSubents)
{
    assertWriteEnabled();
    if (index > colorByLayer)
        return Acad::eInvalidInput;
    m_color = static_cast<Adesk::Int16>(index);
    m_trueColor = -1;
    if (doSubents)
        changeVertices(subentities(), pendingSubentities(), [&](AcDbEntity& e) { e.setColorIndex(index); });
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setColor(const AcCmColor& color, bool doSubents)
{
    if (!color.isByColor())
        return setColorIndex(color.colorIndex(), doSubents);
    assertWriteEnabled();
    m_trueColor = color.red() << 16 | color.green() << 8 | color.blue();
    if (doSubents)
        changeVertices(subentities(), pendingSubentities(), [&](AcDbEntity& e) { e.setColor(color); });
    return Acad::eOk;
}

ACHAR* AcDbEntity::layer() const
{
    assertReadEnabled();
    return newText(nameOf(AcDbObjectId(m_layer), L"0"));
}

AcDbObjectId AcDbEntity::layerId() const
{
    assertReadEnabled();
    const AcDbDatabase* own = database();
    return m_layer || !own ? AcDbObjectId(m_layer) : own->layerZero();
}

Acad::ErrorStatus AcDbEntity::setLayer(const ACHAR* name, bool doSubents)
{
    AcDbObjectId id;
    const Acad::ErrorStatus es = findNamed(*this, NameKind::layer, name, id);
    return es == Acad::eOk ? setLayer(id, doSubents) : es;
}

Acad::ErrorStatus AcDbEntity::setLayer(AcDbObjectId id, bool doSubents)
{
    assertWriteEnabled();
    if (id.isNull())
        return Acad::eNullObjectId;
    m_layer = id.stub();
    if (doSubents)
        changeVertices(subentities(), pendingSubentities(), [&](AcDbEntity& e) { e.setLayer(id); });
    return Acad::eOk;
}

ACHAR* AcDbEntity::linetype() const
{
    assertReadEnabled();
    return newText(nameOf(AcDbObjectId(m_linetype), L"ByLayer"));
}

AcDbObjectId AcDbEntity::linetypeId() const
{
    assertReadEnabled();
    const AcDbDatabase* own = database();
    return m_linetype || !own ? AcDbObjectId(m_linetype) : own->byLayerLinetype();
}

Acad::ErrorStatus AcDbEntity::setLinetype(const ACHAR* name, bool doSubents)
{
    AcDbObjectId id;
    const Acad::ErrorStatus es = findNamed(*this, NameKind::linetype, name, id);
    return es == Acad::eOk ? setLinetype(id, doSubents) : es;
}

Acad::ErrorStatus AcDbEntity::setLinetype(AcDbObjectId id, bool doSubents)
{
    assertWriteEnabled();
    if (id.isNull())
        return Acad::eNullObjectId;
    m_linetype = id == id.database()->byLayerLinetype() ? nullptr : id.stub();
    if (doSubents)
        changeVertices(subentities(), pendingSubentities(), [&](AcDbEntity& e) { e.setLinetype(id); });
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setLinetypeScale(double scale, bool doSubents)
{
    assertWriteEnabled();
    if (!(scale > 0.0))
        return Acad::eInvalidInput;
    m_linetypeScale = scale;
    if (doSubents)
        changeVertices(subentities(), pendingSubentities(), [&](AcDbEntity& e) { e.setLinetypeScale(scale); });
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setLineWeight(AcDb::LineWeight weight, bool doSubents)
{
    assertWriteEnabled();
    m_lineWeight = static_cast<Adesk::Int16>(weight);
    if (doSubents)
        changeVertices(subentities(), pendingSubentities(), [&](AcDbEntity& e) { e.setLineWeight(weight); });
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setVisibility(AcDb::Visibility visibility, bool doSubents)
{
    assertWriteEnabled();
    m_invisible = visibility == AcDb::kInvisible;
    if (doSubents)
        changeVertices(subentities(), pendingSubentities(), [&](AcDbEntity& e) { e.setVisibility(visibility); });
    return Acad::eOk;
}

void AcDbEntity::setDatabaseDefaults(AcDbDatabase* database)
{
    assertWriteEnabled();
    if (!database)
        database = databaseOf(*this);
    if (!database)
        return;
    setLayer(database->clayer());
    if (const AcDbObjectId linetype = database->celtype(); !linetype.isNull())
        setLinetype(linetype);
    m_linetypeScale = database->celtscale();
    setColorIndex(static_cast<Adesk::UInt16>(database->impl().header().integer("$CECOLOR", colorByLayer)));
}

Acad::ErrorStatus AcDbEntity::setPropertiesFrom(const AcDbEntity* other, bool doSubents)
{
    if (!other)
        return Acad::eNullEntityPointer;
    assertWriteEnabled();
    other->assertReadEnabled();
    m_layer = other->m_layer;
    m_linetype = other->m_linetype;
    m_linetypeScale = other->m_linetypeScale;
    m_trueColor = other->m_trueColor;
    m_color = other->m_color;
    m_lineWeight = other->m_lineWeight;
    m_invisible = other->m_invisible;
    if (doSubents)
        changeVertices(subentities(), pendingSubentities(), [&](AcDbEntity& e) { e.setPropertiesFrom(other); });
    return Acad::eOk;
}

// ---- what a kind without geometry of its own answers

Acad::ErrorStatus AcDbEntity::getGeomExtents(AcDbExtents&) const
{
    return Acad::eInvalidExtents;
}
Acad::ErrorStatus AcDbEntity::transformBy(const AcGeMatrix3d&)
{
    return Acad::eNotApplicable;
}
Acad::ErrorStatus AcDbEntity::explode(AcDbVoidPtrArray&) const
{
    return Acad::eNotApplicable;
}

Acad::ErrorStatus AcDbEntity::intersectWith(const AcDbEntity*, AcDb::Intersect, AcGePoint3dArray&, Adesk::GsMarker,
                                            Adesk::GsMarker) const
{
    return Acad::eNotApplicable;
}

Acad::ErrorStatus AcDbEntity::getTransformedCopy(const AcGeMatrix3d& matrix, AcDbEntity*& copy) const
{
    copy = nullptr;
    assertReadEnabled();
    std::unique_ptr<AcDbEntity> twin(static_cast<AcDbEntity*>(clone()));
    if (!twin)
        return Acad::eNotApplicable;
    twin->m_extras.reset(); // what the original owns and who watches it stay with the original
    const auto append = [&](const AcDbEntity& subentity) {
        AcDbObjectId none;
        twin->appendSubentity(none, static_cast<AcDbEntity*>(subentity.clone()));
    };
    for (const AcDbEntity* subentity : pendingSubentities())
        append(*subentity);
    for (const AcDbObjectId& id : subentities()) {
        AcDbObjectPointer<AcDbEntity> subentity(id);
        if (subentity.openStatus() != Acad::eOk)
            return subentity.openStatus();
        append(*subentity.object());
    }
    const Acad::ErrorStatus es = twin->transformBy(matrix);
    if (es == Acad::eOk)
        copy = twin.release();
    return es;
}
