#include <cmath>

#include "commands/ArcGeometry.h"
#include "commands/CommandFailed.h"
#include "commands/Commands.h"
#include "commands/Drawing.h"
#include "commands/NumberTexts.h"
#include "commands/Prompt.h"
#include "commands/Variables.h"

#include "dbents.h"

namespace {

void draw(const AcGePoint3d& center, double radius)
{
    if (!(radius > 0.0))
        throw CommandFailed(L"Le rayon doit être positif");
    addToDrawing(std::make_unique<AcDbCircle>(center, AcGeVector3d::kZAxis, radius));
    setVariable(L"CIRCLERAD", radius);
}

void throughTwo()
{
    const AcGePoint3d a = askPoint(L"Spécifiez la première extrémité du diamètre du cercle : ");
    const AcGePoint3d b = askPoint(L"Spécifiez la seconde extrémité du diamètre du cercle : ", a);
    draw({(a.x + b.x) / 2.0, (a.y + b.y) / 2.0, a.z}, std::hypot(b.x - a.x, b.y - a.y) / 2.0);
}

void throughThree()
{
    const AcGePoint3d a = askPoint(L"Spécifiez le premier point du cercle : ");
    const AcGePoint3d b = askPoint(L"Spécifiez le deuxième point du cercle : ", a);
    const AcGePoint3d c = askPoint(L"Spécifiez le troisième point du cercle : ", b);
    const auto circle = circleThrough({a.x, a.y}, {b.x, b.y}, {c.x, c.y});
    if (!circle)
        throw CommandFailed(L"Aucun cercle ne passe par ces points");
    draw({circle->center.x, circle->center.y, a.z}, circle->radius);
}

void about(const AcGePoint3d& center)
{
    const double former = variable<double>(L"CIRCLERAD");
    const std::wstring otherwise = former > 0.0 ? L" <" + lengthText(former) + L">" : L"";
    Prompt byRadius(L"Spécifiez le rayon du cercle ou [Diamètre]" + otherwise + L" : ");
    byRadius.from(center).positive().keywords(L"Diamètre _ Diameter");
    if (former <= 0.0)
        byRadius.required();
    const auto radius = byRadius.distance();
    if (!radius.is(L"Diameter"))
        return draw(center, radius.value.value_or(former));
    const std::wstring diameter = former > 0.0 ? L" <" + lengthText(2.0 * former) + L">" : L"";
    Prompt byDiameter(L"Spécifiez le diamètre du cercle" + diameter + L" : ");
    byDiameter.from(center).positive();
    if (former <= 0.0)
        byDiameter.required();
    draw(center, byDiameter.distance().value.value_or(2.0 * former) / 2.0);
}

} // namespace

void commands::circle()
{
    const auto center =
        Prompt(L"Spécifiez le centre du cercle ou [3P/2P] : ").required().keywords(L"3P 2P _ 3P 2P").point();
    if (center.is(L"2P"))
        return throughTwo();
    if (center.is(L"3P"))
        return throughThree();
    about(*center.value);
}
