#include "gi/EntityGraphics.h"

#include <algorithm>
#include <unordered_map>

#include "db/DatabaseImpl.h"
#include "gi/ReferenceClip.h"

#include "dbdim.h"
#include "dbelipse.h"
#include "dbhatch.h"
#include "dbmtext.h"
#include "dbproxy.h"
#include "dbspline.h"

namespace {

using Add = void (*)(const AcDbEntity& entity, Standing standing, DisplayList& list);

/// A function of one kind, for the table.
template <class Entity, void (*AddKind)(const Entity&, DisplayList&)>
void kind(const AcDbEntity& entity, Standing, DisplayList& list)
{
    AddKind(static_cast<const Entity&>(entity), list);
}

void addPoint(const AcDbPoint& point, DisplayList& list)
{
    list.add(PointMark{point.position(), point.ecsRotation()});
}

void addPlainText(const AcDbText& text, DisplayList& list)
{
    addText(text, text.textStringConst(), list);
}

void addDefinition(const AcDbEntity& entity, Standing standing, DisplayList& list)
{
    const auto& definition = static_cast<const AcDbAttributeDefinition&>(entity);
    if (standing == Standing::open)
        return addText(definition, definition.tagConst(), list);
    list.current().isHidden = definition.isInvisible() != Adesk::kFalse;
    if (definition.isConstant())
        addText(definition, definition.textStringConst(), list);
}

void addAttributes(const AcDbBlockReference& reference, DisplayList& list)
{
    const std::unique_ptr<AcDbObjectIterator> attributes(reference.attributeIterator());
    for (attributes->start(); !attributes->done(); attributes->step()) {
        AcDbObjectPointer<AcDbAttribute> opened(attributes->objectId());
        const AcDbAttribute* attribute =
            attributes->entity() ? AcDbAttribute::cast(attributes->entity()) : opened.object();
        if (!attribute || attribute->visibility() == AcDb::kInvisible)
            continue;
        DisplayPart& part = list.begin(*attribute);
        part.isAttribute = true;
        part.isHidden = attribute->isInvisible() != Adesk::kFalse;
        addText(*attribute, attribute->textStringConst(), list);
    }
}

void addReference(const AcDbBlockReference& reference, DisplayList& list)
{
    BlockUse use;
    use.block = reference.blockTableRecord().stub();
    use.toOwner = reference.blockTransform();
    use.clip = clipOf(reference);
    if (const auto* array = AcDbMInsertBlock::cast(&reference)) {
        const AcGeMatrix3d turned =
            planeOf(reference.normal()) * AcGeMatrix3d::rotation(reference.rotation(), AcGeVector3d::kZAxis);
        use.rows = std::max<int>(array->rows(), 1);
        use.columns = std::max<int>(array->columns(), 1);
        use.rowStep = turned * AcGeVector3d(0.0, array->rowSpacing(), 0.0);
        use.columnStep = turned * AcGeVector3d(array->columnSpacing(), 0.0, 0.0);
    }
    list.add(Anchor{reference.position()});
    list.add(use);
    addAttributes(reference, list);
}

bool showsAnything(AcDbStub* block)
{
    if (!block || isErased(*recordOf(block)))
        return false;
    const std::vector<AcDbStub*>& entities = AcDbDatabaseImpl::of(block).blocks().of(block).entities;
    return std::ranges::any_of(entities, [](AcDbStub* entity) { return !isErased(*recordOf(entity)); });
}

/// The block of a dimension is drawn in the world, and moved by as much as the dimension was since.
void addDimension(const AcDbDimension& dimension, DisplayList& list)
{
    BlockUse use;
    use.block = dimension.dimBlockId().stub();
    if (!showsAnything(use.block))
        return addBareDimension(dimension, list);
    use.toOwner = AcGeMatrix3d::translation(dimension.dimBlockPosition().asVector());
    list.add(use);
}

const std::unordered_map<const AcRxClass*, Add>& kinds()
{
    static const std::unordered_map<const AcRxClass*, Add> table = {
        {AcDbPoint::desc(), kind<AcDbPoint, addPoint>},
        {AcDbLine::desc(), kind<AcDbLine, addLine>},
        {AcDbCircle::desc(), kind<AcDbCircularCurve, addCircular>},
        {AcDbArc::desc(), kind<AcDbCircularCurve, addCircular>},
        {AcDbEllipse::desc(), kind<AcDbEllipse, addEllipse>},
        {AcDbSpline::desc(), kind<AcDbSpline, addSpline>},
        {AcDbPolyline::desc(), kind<AcDbPolyline, addPolyline>},
        {AcDb2dPolyline::desc(), kind<AcDb2dPolyline, add2dPolyline>},
        {AcDb3dPolyline::desc(), kind<AcDb3dPolyline, add3dPolyline>},
        {AcDbText::desc(), kind<AcDbText, addPlainText>},
        {AcDbAttribute::desc(), kind<AcDbText, addPlainText>},
        {AcDbAttributeDefinition::desc(), addDefinition},
        {AcDbMText::desc(), kind<AcDbMText, addMText>},
        {AcDbBlockReference::desc(), kind<AcDbBlockReference, addReference>},
        {AcDbMInsertBlock::desc(), kind<AcDbBlockReference, addReference>},
        {AcDbFace::desc(), kind<AcDbFace, addFace>},
        {AcDbSolid::desc(), kind<AcDbFilledQuad, addQuad>},
        {AcDbTrace::desc(), kind<AcDbFilledQuad, addQuad>},
        {AcDbPolygonMesh::desc(), kind<AcDbVertexMesh, addMesh>},
        {AcDbPolyFaceMesh::desc(), kind<AcDbVertexMesh, addMesh>},
        {AcDbHatch::desc(), kind<AcDbHatch, addHatch>},
        {AcDbDimension::desc(), kind<AcDbDimension, addDimension>},
        {AcDbProxyEntity::desc(), kind<AcDbEntity, addByTags>},
    };
    return table;
}

/// The row of a class, or that of the nearest class it derives from.
Add kindOf(const AcRxClass* type)
{
    for (; type; type = type->myParent())
        if (const auto found = kinds().find(type); found != kinds().end())
            return found->second;
    return nullptr;
}

} // namespace

AcGeMatrix3d planeOf(const AcGeVector3d& normal)
{
    const bool worldly = normal.x == 0.0 && normal.y == 0.0 && !(normal.z < 0.0);
    return worldly ? AcGeMatrix3d() : AcGeMatrix3d::planeToWorld(normal.normal());
}

void addEntity(const AcDbEntity& entity, Standing standing, DisplayList& list)
{
    const Add add = kindOf(entity.isA());
    if (!add || entity.visibility() == AcDb::kInvisible)
        return;
    if (entity.isKindOf(AcDbProxyEntity::desc()) && !isShownByTags(entity))
        return;
    list.begin(entity);
    add(entity, standing, list);
}
