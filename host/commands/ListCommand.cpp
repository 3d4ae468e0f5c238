#include <cmath>

#include "commands/Commands.h"
#include "commands/Drawing.h"
#include "commands/NumberTexts.h"
#include "commands/Prompt.h"
#include "db/Colors.h"
#include "db/entities/KindNames.h"
#include "platform/LetterCase.h"

#include "acutmem.h"
#include "dbelipse.h"
#include "dbents.h"
#include "dbhatch.h"
#include "dbmtext.h"
#include "dbspline.h"

namespace {

void field(const std::wstring& name, const std::wstring& value)
{
    say(L"      " + name + L" : " + value);
}

std::wstring owned(ACHAR* text)
{
    std::wstring kept = text ? text : L"";
    if (text)
        acutDelString(text);
    return kept;
}

// ---- what each kind tells of itself

void tellPoint(const AcDbPoint& point)
{
    field(L"au point", pointText(point.position()));
}

void tellLine(const AcDbLine& line)
{
    const AcGeVector3d along = line.endPoint() - line.startPoint();
    field(L"du point", pointText(line.startPoint()));
    field(L"au point", pointText(line.endPoint()));
    field(L"longueur", lengthText(along.length()));
    field(L"angle dans le plan XY", directionText(std::atan2(along.y, along.x)));
    field(L"delta", L"X = " + lengthText(along.x) + L"  Y = " + lengthText(along.y) + L"  Z = " + lengthText(along.z));
}

void tellMeasures(const AcDbCurve& curve)
{
    double area = 0.0, end = 0.0, length = 0.0;
    if (curve.getEndParam(end) == Acad::eOk && curve.getDistAtParam(end, length) == Acad::eOk)
        field(L"longueur", lengthText(length));
    if (curve.isPlanar() && curve.getArea(area) == Acad::eOk)
        field(L"aire", lengthText(area));
}

void tellCircle(const AcDbCircle& circle)
{
    field(L"centre", pointText(circle.center()));
    field(L"rayon", lengthText(circle.radius()));
    tellMeasures(circle);
}

void tellArc(const AcDbArc& arc)
{
    field(L"centre", pointText(arc.center()));
    field(L"rayon", lengthText(arc.radius()));
    field(L"angle de départ", directionText(arc.startAngle()));
    field(L"angle de fin", directionText(arc.endAngle()));
    field(L"longueur", lengthText(arc.length()));
}

void tellPolyline(const AcDbPolyline& polyline)
{
    constexpr unsigned most = 50;
    field(polyline.isClosed() ? L"fermée, sommets" : L"ouverte, sommets", std::to_wstring(polyline.numVerts()));
    tellMeasures(polyline);
    for (unsigned i = 0; i < polyline.numVerts() && i < most; ++i) {
        AcGePoint3d vertex;
        double bulge = 0.0;
        polyline.getPointAt(i, vertex);
        polyline.getBulgeAt(i, bulge);
        field(L"sommet", pointText(vertex) + (bulge == 0.0 ? L"" : L"  courbure " + lengthText(bulge)));
    }
    if (polyline.numVerts() > most)
        say(L"      ...");
}

void tellCurve(const AcDbCurve& curve)
{
    AcGePoint3d start, end;
    if (curve.getStartPoint(start) == Acad::eOk && curve.getEndPoint(end) == Acad::eOk) {
        field(L"départ", pointText(start));
        field(L"fin", pointText(end));
    }
    tellMeasures(curve);
}

void tellText(const AcDbText& text)
{
    field(L"texte", text.textStringConst());
    field(L"point", pointText(text.isDefaultAlignment() ? text.position() : text.alignmentPoint()));
    field(L"hauteur", lengthText(text.height()));
    field(L"rotation", directionText(text.rotation()));
    field(L"style", recordName(text.textStyle()));
}

void tellMText(const AcDbMText& text)
{
    field(L"texte", owned(text.contents()));
    field(L"point", pointText(text.location()));
    field(L"hauteur", lengthText(text.textHeight()));
}

void tellReference(const AcDbBlockReference& reference)
{
    const AcGeScale3d scale = reference.scaleFactors();
    field(L"bloc", recordName(reference.blockTableRecord()));
    field(L"au point", pointText(reference.position()));
    field(L"facteurs d'échelle", lengthText(scale.sx) + L"  " + lengthText(scale.sy) + L"  " + lengthText(scale.sz));
    field(L"rotation", directionText(reference.rotation()));
    const std::unique_ptr<AcDbObjectIterator> each(reference.attributeIterator());
    for (; !each->done(); each->step()) {
        const AcDbObjectPointer<AcDbAttribute> attribute(each->objectId());
        if (attribute.object())
            field(L"attribut " + std::wstring(attribute->tagConst()), attribute->textStringConst());
    }
}

/// The most special kinds first.
struct Kind {
    AcRxClass* (*desc)();
    void (*tell)(const AcDbEntity&);
};

template <class Entity, void (*Tell)(const Entity&)>
void telling(const AcDbEntity& entity)
{
    Tell(static_cast<const Entity&>(entity));
}

void nothingMore(const AcDbEntity&) {}

const Kind kKinds[] = {
    {AcDbPoint::desc, telling<AcDbPoint, tellPoint>},
    {AcDbLine::desc, telling<AcDbLine, tellLine>},
    {AcDbCircle::desc, telling<AcDbCircle, tellCircle>},
    {AcDbArc::desc, telling<AcDbArc, tellArc>},
    {AcDbPolyline::desc, telling<AcDbPolyline, tellPolyline>},
    {AcDbCurve::desc, telling<AcDbCurve, tellCurve>},
    {AcDbText::desc, telling<AcDbText, tellText>},
    {AcDbMText::desc, telling<AcDbMText, tellMText>},
    {AcDbBlockReference::desc, telling<AcDbBlockReference, tellReference>},
    {AcDbEntity::desc, nothingMore},
};

std::wstring handleText(const AcDbObject& object)
{
    AcDbHandle handle;
    object.getAcDbHandle(handle);
    ACHAR text[32] = {};
    handle.getIntoAsciiBuffer(text, 32);
    return text;
}

void tellCommon(const AcDbEntity& entity)
{
    say(L"  " + platform::upperCase(kindName(entity)) + L"  Calque : « " + recordName(entity.layerId()) +
        L" »  Maintien = " + handleText(entity));
    if (entity.colorIndex() != colorByLayer)
        field(L"couleur", colorText(entity.colorIndex()));
    if (entity.linetypeId() != entity.database()->byLayerLinetype())
        field(L"type de ligne", recordName(entity.linetypeId()));
}

} // namespace

void commands::list()
{
    for (const AcDbObjectId id : askObjects()) {
        const AcDbObjectPointer<AcDbEntity> entity(id);
        if (!entity.object())
            continue;
        for (const Kind& kind : kKinds)
            if (entity->isKindOf(kind.desc())) {
                tellCommon(*entity.object());
                kind.tell(*entity.object());
                break;
            }
    }
}
