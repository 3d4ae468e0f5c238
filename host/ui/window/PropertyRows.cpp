#include "ui/window/PropertyRows.h"

#include <cmath>

#include "db/Colors.h"
#include "ge/Angles.h"

#include "acutmem.h"
#include "dbents.h"
#include "dbentvrt.h"
#include "dbmtext.h"
#include "dbpl.h"
#include "dbsymtb.h"

using Kind = EntityProperty::Kind;

QString numberText(double value)
{
    constexpr int decimals = 6;
    if (!std::isfinite(value))
        return QString::number(value);
    QString text = QString::number(value, 'f', decimals);
    while (text.endsWith(u'0'))
        text.chop(1);
    if (text.endsWith(u'.'))
        text.chop(1);
    return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

Acad::ErrorStatus readNumber(const QString& text, double& value)
{
    bool understood = false;
    const double number = text.trimmed().replace(u',', u'.').toDouble(&understood);
    if (!understood || !std::isfinite(number))
        return Acad::eInvalidInput;
    value = number;
    return Acad::eOk;
}

namespace {

/// Takes over a text that the interface gives away.
QString taken(ACHAR* text)
{
    const QString copy = QString::fromWCharArray(text ? text : L"");
    acutDelString(text);
    return copy;
}

QString length(double value)
{
    return numberText(value);
}

QString angle(double radians)
{
    return numberText(radians / oneDegree);
}

QString symbolName(AcDbObjectId record)
{
    const AcDbObjectPointer<AcDbSymbolTableRecord> opened(record);
    ACHAR* name = nullptr;
    if (opened.openStatus() == Acad::eOk)
        opened->getName(name);
    return taken(name);
}

template <class Entity>
bool isA(const AcDbEntity& entity)
{
    return entity.isKindOf(Entity::desc());
}
/// What circles and arcs share has no class of its own in the interface.
template <>
bool isA<AcDbCircularCurve>(const AcDbEntity& entity)
{
    return isA<AcDbCircle>(entity) || isA<AcDbArc>(entity);
}

// ---- reading and writing through the members of the interface

template <class Entity, double (Entity::*Get)() const>
QString readLength(const AcDbEntity& entity)
{
    return length((static_cast<const Entity&>(entity).*Get)());
}
template <class Entity, Acad::ErrorStatus (Entity::*Set)(double)>
Acad::ErrorStatus writeLength(AcDbEntity& entity, const QString& text)
{
    double value = 0.0;
    const Acad::ErrorStatus status = readNumber(text, value);
    return status == Acad::eOk ? (static_cast<Entity&>(entity).*Set)(value) : status;
}

template <class Entity, double (Entity::*Get)() const>
QString readAngle(const AcDbEntity& entity)
{
    return angle((static_cast<const Entity&>(entity).*Get)());
}
template <class Entity, Acad::ErrorStatus (Entity::*Set)(double)>
Acad::ErrorStatus writeAngle(AcDbEntity& entity, const QString& text)
{
    double value = 0.0;
    const Acad::ErrorStatus status = readNumber(text, value);
    return status == Acad::eOk ? (static_cast<Entity&>(entity).*Set)(value * oneDegree) : status;
}

template <class Entity, AcGePoint3d (Entity::*Get)() const, double AcGePoint3d::*Axis>
QString readAxis(const AcDbEntity& entity)
{
    return length((static_cast<const Entity&>(entity).*Get)().*Axis);
}
template <class Entity, AcGePoint3d (Entity::*Get)() const, Acad::ErrorStatus (Entity::*Set)(const AcGePoint3d&),
          double AcGePoint3d::*Axis>
Acad::ErrorStatus writeAxis(AcDbEntity& entity, const QString& text)
{
    auto& own = static_cast<Entity&>(entity);
    AcGePoint3d point = (own.*Get)();
    const Acad::ErrorStatus status = readNumber(text, point.*Axis);
    return status == Acad::eOk ? (own.*Set)(point) : status;
}

/// Moves the entity as a whole, its attributes too.
template <class Entity, AcGePoint3d (Entity::*Get)() const, double AcGePoint3d::*Axis>
Acad::ErrorStatus moveAxis(AcDbEntity& entity, const QString& text)
{
    const AcGePoint3d from = (static_cast<const Entity&>(entity).*Get)();
    AcGePoint3d to = from;
    const Acad::ErrorStatus status = readNumber(text, to.*Axis);
    return status == Acad::eOk ? entity.transformBy(AcGeMatrix3d::translation(to - from)) : status;
}

// ---- what needs more than one call

QString readLayer(const AcDbEntity& entity)
{
    return taken(entity.layer());
}
Acad::ErrorStatus writeLayer(AcDbEntity& entity, const QString& name)
{
    return entity.setLayer(name.toStdWString().c_str());
}

constexpr std::pair<QLatin1String, QLatin1String> linetypesOfOthers[] = {
    {QLatin1String("ByLayer"), QLatin1String("DuCalque")}, {QLatin1String("ByBlock"), QLatin1String("DuBloc")}};

QString readColor(const AcDbEntity& entity)
{
    return QString::fromStdWString(colorName(entity.colorIndex()));
}
Acad::ErrorStatus writeColor(AcDbEntity& entity, const QString& name)
{
    const auto color = colorNamed(name.trimmed().toStdWString());
    return color ? entity.setColorIndex(*color) : Acad::eInvalidInput;
}

QString readLinetype(const AcDbEntity& entity)
{
    return linetypeText(taken(entity.linetype()));
}
Acad::ErrorStatus writeLinetype(AcDbEntity& entity, const QString& text)
{
    QString name = text;
    for (const auto& [stored, shown] : linetypesOfOthers)
        if (text.compare(shown, Qt::CaseInsensitive) == 0)
            name = stored;
    return entity.setLinetype(name.toStdWString().c_str());
}

Acad::ErrorStatus writeLinetypeScale(AcDbEntity& entity, const QString& text)
{
    double scale = 0.0;
    const Acad::ErrorStatus status = readNumber(text, scale);
    return status == Acad::eOk ? entity.setLinetypeScale(scale) : status;
}

QString readHandle(const AcDbEntity& entity)
{
    AcDbHandle handle;
    entity.getAcDbHandle(handle);
    return QString::number(static_cast<Adesk::UInt64>(handle), 16).toUpper();
}

QString readCurveLength(const AcDbEntity& entity)
{
    const auto& curve = static_cast<const AcDbCurve&>(entity);
    double end = 0.0, distance = 0.0;
    if (curve.getEndParam(end) != Acad::eOk || curve.getDistAtParam(end, distance) != Acad::eOk)
        return {};
    return length(distance);
}

QString readArea(const AcDbEntity& entity)
{
    double area = 0.0;
    return static_cast<const AcDbCurve&>(entity).getArea(area) == Acad::eOk ? length(area) : QString();
}

QString readVertices(const AcDbEntity& entity)
{
    return QString::number(static_cast<const AcDbPolyline&>(entity).numVerts());
}

QString readClosed(const AcDbEntity& entity)
{
    return static_cast<const AcDbPolyline&>(entity).isClosed() ? QStringLiteral("oui") : QStringLiteral("non");
}
Acad::ErrorStatus writeClosed(AcDbEntity& entity, const QString& text)
{
    const bool yes = text.compare(QLatin1String("oui"), Qt::CaseInsensitive) == 0;
    if (!yes && text.compare(QLatin1String("non"), Qt::CaseInsensitive) != 0)
        return Acad::eInvalidInput;
    static_cast<AcDbPolyline&>(entity).setClosed(yes);
    return Acad::eOk;
}

QString readText(const AcDbEntity& entity)
{
    return QString::fromWCharArray(static_cast<const AcDbText&>(entity).textStringConst());
}
Acad::ErrorStatus writeText(AcDbEntity& entity, const QString& text)
{
    return static_cast<AcDbText&>(entity).setTextString(text.toStdWString().c_str());
}

QString readContents(const AcDbEntity& entity)
{
    return taken(static_cast<const AcDbMText&>(entity).contents());
}
Acad::ErrorStatus writeContents(AcDbEntity& entity, const QString& text)
{
    return static_cast<AcDbMText&>(entity).setContents(text.toStdWString().c_str());
}

QString readTextStyle(const AcDbEntity& entity)
{
    return symbolName(static_cast<const AcDbText&>(entity).textStyle());
}

QString readBlock(const AcDbEntity& entity)
{
    return symbolName(static_cast<const AcDbBlockReference&>(entity).blockTableRecord());
}

template <double AcGeScale3d::*Axis>
QString readScale(const AcDbEntity& entity)
{
    return length(static_cast<const AcDbBlockReference&>(entity).scaleFactors().*Axis);
}
template <double AcGeScale3d::*Axis>
Acad::ErrorStatus writeScale(AcDbEntity& entity, const QString& text)
{
    auto& reference = static_cast<AcDbBlockReference&>(entity);
    AcGeScale3d scale = reference.scaleFactors();
    const Acad::ErrorStatus status = readNumber(text, scale.*Axis);
    return status == Acad::eOk ? reference.setScaleFactors(scale) : status;
}

// Three rows, one for each axis of a point.
#define POINT_ROWS(GROUP, NAME, ENTITY, GET, SET)                                                                      \
    {GROUP,                                                                                                            \
     NAME " X",                                                                                                        \
     Kind::number,                                                                                                     \
     isA<ENTITY>,                                                                                                      \
     readAxis<ENTITY, &ENTITY::GET, &AcGePoint3d::x>,                                                                  \
     writeAxis<ENTITY, &ENTITY::GET, &ENTITY::SET, &AcGePoint3d::x>},                                                  \
        {GROUP,                                                                                                        \
         NAME " Y",                                                                                                    \
         Kind::number,                                                                                                 \
         isA<ENTITY>,                                                                                                  \
         readAxis<ENTITY, &ENTITY::GET, &AcGePoint3d::y>,                                                              \
         writeAxis<ENTITY, &ENTITY::GET, &ENTITY::SET, &AcGePoint3d::y>},                                              \
    {                                                                                                                  \
        GROUP, NAME " Z", Kind::number, isA<ENTITY>, readAxis<ENTITY, &ENTITY::GET, &AcGePoint3d::z>,                  \
            writeAxis<ENTITY, &ENTITY::GET, &ENTITY::SET, &AcGePoint3d::z>                                             \
    }
#define MOVED_POINT_ROWS(GROUP, NAME, ENTITY, GET)                                                                     \
    {GROUP,                                                                                                            \
     NAME " X",                                                                                                        \
     Kind::number,                                                                                                     \
     isA<ENTITY>,                                                                                                      \
     readAxis<ENTITY, &ENTITY::GET, &AcGePoint3d::x>,                                                                  \
     moveAxis<ENTITY, &ENTITY::GET, &AcGePoint3d::x>},                                                                 \
        {GROUP,                                                                                                        \
         NAME " Y",                                                                                                    \
         Kind::number,                                                                                                 \
         isA<ENTITY>,                                                                                                  \
         readAxis<ENTITY, &ENTITY::GET, &AcGePoint3d::y>,                                                              \
         moveAxis<ENTITY, &ENTITY::GET, &AcGePoint3d::y>},                                                             \
    {                                                                                                                  \
        GROUP, NAME " Z", Kind::number, isA<ENTITY>, readAxis<ENTITY, &ENTITY::GET, &AcGePoint3d::z>,                  \
            moveAxis<ENTITY, &ENTITY::GET, &AcGePoint3d::z>                                                            \
    }
#define LENGTH_ROW(GROUP, NAME, ENTITY, GET, SET)                                                                      \
    {                                                                                                                  \
        GROUP, NAME, Kind::number, isA<ENTITY>, readLength<ENTITY, &ENTITY::GET>, writeLength<ENTITY, &ENTITY::SET>    \
    }
#define ANGLE_ROW(GROUP, NAME, ENTITY, GET, SET)                                                                       \
    {                                                                                                                  \
        GROUP, NAME, Kind::number, isA<ENTITY>, readAngle<ENTITY, &ENTITY::GET>, writeAngle<ENTITY, &ENTITY::SET>      \
    }

constexpr const char* general = "Général";
constexpr const char* geometry = "Géométrie";
constexpr const char* contents = "Contenu";

const PropertyRow rows[] = {
    {general, "Calque", Kind::layer, isA<AcDbEntity>, readLayer, writeLayer},
    {general, "Couleur", Kind::color, isA<AcDbEntity>, readColor, writeColor},
    {general, "Type de ligne", Kind::linetype, isA<AcDbEntity>, readLinetype, writeLinetype},
    {general, "Échelle du type de ligne", Kind::number, isA<AcDbEntity>,
     readLength<AcDbEntity, &AcDbEntity::linetypeScale>, writeLinetypeScale},
    {general, "Maintien", Kind::text, isA<AcDbEntity>, readHandle, nullptr},

    POINT_ROWS(geometry, "Position", AcDbPoint, position, setPosition),
    POINT_ROWS(geometry, "Départ", AcDbLine, startPoint, setStartPoint),
    POINT_ROWS(geometry, "Fin", AcDbLine, endPoint, setEndPoint),
    POINT_ROWS(geometry, "Centre", AcDbCircularCurve, center, setCenter),
    LENGTH_ROW(geometry, "Rayon", AcDbCircularCurve, radius, setRadius),
    ANGLE_ROW(geometry, "Angle de départ", AcDbArc, startAngle, setStartAngle),
    ANGLE_ROW(geometry, "Angle de fin", AcDbArc, endAngle, setEndAngle),
    {geometry, "Sommets", Kind::text, isA<AcDbPolyline>, readVertices, nullptr},
    {geometry, "Fermée", Kind::text, isA<AcDbPolyline>, readClosed, writeClosed},
    LENGTH_ROW(geometry, "Élévation (Z)", AcDbPolyline, elevation, setElevation),
    LENGTH_ROW(geometry, "Élévation (Z)", AcDb2dPolyline, elevation, setElevation),
    {geometry, "Longueur", Kind::number, isA<AcDbCurve>, readCurveLength, nullptr},
    {geometry, "Aire", Kind::number, isA<AcDbCurve>, readArea, nullptr},

    {contents, "Texte", Kind::text, isA<AcDbText>, readText, writeText},
    {contents, "Style", Kind::text, isA<AcDbText>, readTextStyle, nullptr},
    LENGTH_ROW(contents, "Hauteur", AcDbText, height, setHeight),
    ANGLE_ROW(geometry, "Rotation", AcDbText, rotation, setRotation),
    LENGTH_ROW(contents, "Facteur de largeur", AcDbText, widthFactor, setWidthFactor),
    MOVED_POINT_ROWS(geometry, "Position", AcDbText, position),

    {contents, "Texte", Kind::text, isA<AcDbMText>, readContents, writeContents},
    LENGTH_ROW(contents, "Hauteur", AcDbMText, textHeight, setTextHeight),
    LENGTH_ROW(contents, "Largeur", AcDbMText, width, setWidth),
    ANGLE_ROW(geometry, "Rotation", AcDbMText, rotation, setRotation),
    POINT_ROWS(geometry, "Position", AcDbMText, location, setLocation),

    {contents, "Bloc", Kind::text, isA<AcDbBlockReference>, readBlock, nullptr},
    MOVED_POINT_ROWS(geometry, "Position", AcDbBlockReference, position),
    {geometry, "Échelle X", Kind::number, isA<AcDbBlockReference>, readScale<&AcGeScale3d::sx>,
     writeScale<&AcGeScale3d::sx>},
    {geometry, "Échelle Y", Kind::number, isA<AcDbBlockReference>, readScale<&AcGeScale3d::sy>,
     writeScale<&AcGeScale3d::sy>},
    {geometry, "Échelle Z", Kind::number, isA<AcDbBlockReference>, readScale<&AcGeScale3d::sz>,
     writeScale<&AcGeScale3d::sz>},
    ANGLE_ROW(geometry, "Rotation", AcDbBlockReference, rotation, setRotation),
};

#undef POINT_ROWS
#undef MOVED_POINT_ROWS
#undef LENGTH_ROW
#undef ANGLE_ROW

} // namespace

QString linetypeText(const QString& name)
{
    for (const auto& [stored, shown] : linetypesOfOthers)
        if (name.compare(stored, Qt::CaseInsensitive) == 0)
            return shown;
    return name;
}

std::span<const PropertyRow> propertyRows()
{
    return rows;
}
