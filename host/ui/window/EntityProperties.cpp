#include "ui/window/EntityProperties.h"

#include <algorithm>
#include <memory>

#include "db/Colors.h"
#include "ui/window/DrawingEdit.h"
#include "ui/window/PropertyRows.h"

#include "dbents.h"
#include "dbentvrt.h"
#include "dbmtext.h"
#include "dbpl.h"
#include "dbsymtb.h"

namespace {

/// What a row says of all entities; nothing when one of them lacks it.
std::optional<EntityProperty> gathered(const PropertyRow& row, const std::vector<AcDbObjectId>& entities)
{
    EntityProperty property{QString::fromUtf8(row.group), QString::fromUtf8(row.name), row.kind};
    property.readOnly = !row.write;
    property.set = row.write;
    bool first = true;
    for (const AcDbObjectId id : entities) {
        const AcDbObjectPointer<AcDbEntity> entity(id);
        if (entity.openStatus() != Acad::eOk)
            continue;
        if (!row.has(*entity.object()))
            return std::nullopt;
        const QString value = row.read(*entity.object());
        property.differs = property.differs || (!first && value != property.value);
        property.value = value;
        property.entities.push_back(id);
        first = false;
    }
    return property.entities.empty() ? std::nullopt : std::optional(std::move(property));
}

Acad::ErrorStatus setAttribute(AcDbEntity& entity, const QString& value)
{
    auto& attribute = static_cast<AcDbAttribute&>(entity);
    const Acad::ErrorStatus status = attribute.setTextString(value.toStdWString().c_str());
    attribute.adjustAlignment();
    return status;
}

void addAttributes(AcDbObjectId id, std::vector<EntityProperty>& properties)
{
    const AcDbObjectPointer<AcDbBlockReference> reference(id);
    if (reference.openStatus() != Acad::eOk)
        return;
    const std::unique_ptr<AcDbObjectIterator> at(reference->attributeIterator());
    for (; !at->done(); at->step()) {
        const AcDbObjectPointer<AcDbAttribute> attribute(at->objectId());
        if (attribute.openStatus() != Acad::eOk)
            continue;
        EntityProperty property{QStringLiteral("Attributs"), QString::fromWCharArray(attribute->tagConst())};
        property.value = QString::fromWCharArray(attribute->textStringConst());
        property.readOnly = attribute->isConstant();
        property.set = setAttribute;
        property.entities = {at->objectId()};
        properties.push_back(std::move(property));
    }
}

/// Beyond, a list of vertices is of no help.
constexpr unsigned mostVertices = 200;

using VertexSetter = std::function<Acad::ErrorStatus(AcDbEntity& entity, double value)>;

void addVertexRow(AcDbObjectId id, unsigned vertex, const char* axis, double value, VertexSetter set,
                  std::vector<EntityProperty>& properties)
{
    EntityProperty property{QStringLiteral("Sommets"),
                            QStringLiteral("Sommet %1 %2").arg(vertex + 1).arg(QLatin1String(axis)),
                            EntityProperty::Kind::number};
    property.value = numberText(value);
    property.set = [set = std::move(set)](AcDbEntity& entity, const QString& text) {
        double number = 0.0;
        const Acad::ErrorStatus status = readNumber(text, number);
        return status == Acad::eOk ? set(entity, number) : status;
    };
    property.entities = {id};
    properties.push_back(std::move(property));
}

/// In the polyline's own plane; its elevation is a row for all.
void addVertices(AcDbObjectId id, const AcDbPolyline& polyline, std::vector<EntityProperty>& properties)
{
    for (unsigned i = 0; i < std::min(polyline.numVerts(), mostVertices); ++i) {
        AcGePoint2d place;
        polyline.getPointAt(i, place);
        for (const auto& [axis, member] : {std::pair{"X", &AcGePoint2d::x}, {"Y", &AcGePoint2d::y}})
            addVertexRow(
                id, i, axis, place.*member,
                [i, member = member](AcDbEntity& entity, double value) {
                    auto& own = static_cast<AcDbPolyline&>(entity);
                    AcGePoint2d moved;
                    const Acad::ErrorStatus status = own.getPointAt(i, moved);
                    moved.*member = value;
                    return status == Acad::eOk ? own.setPointAt(i, moved) : status;
                },
                properties);
    }
}

/// Vertices that are entities of their own: of 3D polylines, and of the older 2D ones, whose elevation counts instead
/// of their Z.
void addVertices(const AcDbVertexCurve& polyline, std::vector<EntityProperty>& properties)
{
    const std::unique_ptr<AcDbObjectIterator> at(polyline.vertexIterator());
    for (unsigned i = 0; !at->done() && i < mostVertices; at->step(), ++i) {
        const AcDbObjectPointer<AcDbVertex> vertex(at->objectId());
        if (vertex.openStatus() != Acad::eOk)
            continue;
        const AcGePoint3d place = vertex->position();
        for (const auto& [axis, member] :
             {std::pair{"X", &AcGePoint3d::x}, {"Y", &AcGePoint3d::y}, {"Z", &AcGePoint3d::z}}) {
            if (member == &AcGePoint3d::z && polyline.isKindOf(AcDb2dPolyline::desc()))
                continue;
            addVertexRow(
                at->objectId(), i, axis, place.*member,
                [member = member](AcDbEntity& entity, double value) {
                    auto& own = static_cast<AcDbVertex&>(entity);
                    AcGePoint3d moved = own.position();
                    moved.*member = value;
                    return own.setPosition(moved);
                },
                properties);
        }
    }
}

void addVertices(AcDbObjectId id, std::vector<EntityProperty>& properties)
{
    const AcDbObjectPointer<AcDbEntity> entity(id);
    if (entity.openStatus() != Acad::eOk)
        return;
    if (const auto* const light = AcDbPolyline::cast(entity.object()))
        addVertices(id, *light, properties);
    else if (entity->isKindOf(AcDb3dPolyline::desc()) || entity->isKindOf(AcDb2dPolyline::desc()))
        addVertices(static_cast<const AcDbVertexCurve&>(*entity.object()), properties);
}

QString reasonOf(Acad::ErrorStatus status)
{
    switch (status) {
    case Acad::eInvalidInput:
        return QStringLiteral("cette valeur n'est pas permise.");
    case Acad::eKeyNotFound:
        return QStringLiteral("ce nom n'existe pas dans le dessin.");
    case Acad::eOnLockedLayer:
        return QStringLiteral("l'objet est sur un calque verrouillé.");
    case Acad::eWasOpenForRead:
    case Acad::eWasOpenForWrite:
        return QStringLiteral("l'objet est en cours d'utilisation.");
    default:
        return QString::fromWCharArray(acadErrorStatusText(status));
    }
}

template <class Table>
QStringList namesIn(AcDbObjectId table)
{
    QStringList names;
    const AcDbObjectPointer<Table> opened(table);
    AcDbSymbolTableIterator* made = nullptr;
    if (opened.openStatus() != Acad::eOk || opened->newIterator(made) != Acad::eOk)
        return names;
    const std::unique_ptr<AcDbSymbolTableIterator> at(made);
    for (; !at->done(); at->step()) {
        AcDbObjectId id;
        at->getRecordId(id);
        const AcDbObjectPointer<AcDbSymbolTableRecord> record(id);
        const ACHAR* name = nullptr;
        if (record.openStatus() == Acad::eOk && record->getName(name) == Acad::eOk)
            names.append(QString::fromWCharArray(name));
    }
    names.sort(Qt::CaseInsensitive);
    return names;
}

} // namespace

std::vector<EntityProperty> propertiesOf(const std::vector<AcDbObjectId>& entities)
{
    std::vector<EntityProperty> properties;
    for (const PropertyRow& row : propertyRows())
        if (auto property = gathered(row, entities))
            properties.push_back(std::move(*property));
    if (entities.size() == 1) {
        addAttributes(entities.front(), properties);
        addVertices(entities.front(), properties);
    }
    return properties;
}

QString setProperty(Document& document, const EntityProperty& property, const QString& value)
{
    const DrawingEdit step(document);
    QString refused;
    for (const AcDbObjectId id : property.entities) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        const Acad::ErrorStatus status =
            entity.openStatus() == Acad::eOk ? property.set(*entity.object(), value) : entity.openStatus();
        if (status != Acad::eOk)
            refused = reasonOf(status);
    }
    return refused;
}

QStringList choicesOf(EntityProperty::Kind kind, AcDbDatabase& database)
{
    using Kind = EntityProperty::Kind;
    if (kind == Kind::layer)
        return namesIn<AcDbLayerTable>(database.layerTableId());
    QStringList names;
    if (kind == Kind::linetype) {
        for (const QString& name : namesIn<AcDbLinetypeTable>(database.linetypeTableId()))
            names.append(linetypeText(name));
        return names;
    }
    if (kind != Kind::color)
        return names;
    for (const int color : {+colorByLayer, +colorByBlock, 1, 2, 3, 4, 5, 6, +contrastingColor})
        names.append(QString::fromStdWString(colorName(color)));
    return names;
}
