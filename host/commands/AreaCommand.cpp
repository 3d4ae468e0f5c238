#include <cmath>
#include <vector>

#include "commands/CommandFailed.h"
#include "commands/Commands.h"
#include "commands/CommandTexts.h"
#include "commands/Drawing.h"
#include "commands/NumberTexts.h"
#include "commands/PointArray.h"
#include "commands/Prompt.h"
#include "commands/Variables.h"
#include "ed/input/InputTexts.h"

#include "acedads.h"
#include "dbads.h"
#include "dbents.h"

namespace {

struct Measured {
    double area = 0.0, perimeter = 0.0;
    const wchar_t* lengthName = L"Périmètre";
};

void tell(const Measured& measured)
{
    say(L"Aire = " + lengthText(measured.area) + L",  " + measured.lengthName + L" = " +
        lengthText(measured.perimeter));
    ::setVariable(L"AREA", measured.area);
    ::setVariable(L"PERIMETER", measured.perimeter);
}

/// Of the polygon of some points, seen from above. Counted from the first one: survey coordinates are large.
Measured measuredPolygon(const std::vector<AcGePoint3d>& points)
{
    Measured measured;
    double twice = 0.0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const AcGePoint3d& next = points[(i + 1) % points.size()];
        const AcGeVector3d a = points[i] - points.front(), b = next - points.front();
        twice += a.x * b.y - a.y * b.x;
        measured.perimeter += (next - points[i]).length();
    }
    measured.area = std::fabs(twice) / 2.0;
    return measured;
}

Measured askPolygon(const AcGePoint3d& first)
{
    std::vector<AcGePoint3d> points{first};
    for (;;) {
        Prompt prompt(points.size() > 1 ? command_texts::nextPointOrUndo : input_texts::nextPoint);
        prompt.from(points.back());
        if (points.size() > 1)
            prompt.keywords(command_texts::undoKeyword);
        const auto next = prompt.point();
        if (next.is(L"Undo"))
            points.pop_back();
        else if (next.value)
            points.push_back(*next.value);
        else
            break;
    }
    if (points.size() < 3)
        throw CommandFailed(L"Trois points au moins sont nécessaires");
    return measuredPolygon(points);
}

/// Of a curve; an open one is closed by a straight line for its area, which its length leaves out.
std::optional<Measured> measuredCurve(const AcDbCurve& curve)
{
    Measured measured;
    double start = 0.0, end = 0.0, from = 0.0, to = 0.0;
    if (curve.getArea(measured.area) != Acad::eOk || curve.getStartParam(start) != Acad::eOk ||
        curve.getEndParam(end) != Acad::eOk || curve.getDistAtParam(start, from) != Acad::eOk ||
        curve.getDistAtParam(end, to) != Acad::eOk)
        return std::nullopt;
    measured.perimeter = to - from;
    if (curve.isKindOf(AcDbCircle::desc()))
        measured.lengthName = L"Circonférence";
    else if (!curve.isClosed())
        measured.lengthName = L"Longueur";
    return measured;
}

/// Nothing, told, when what is picked has no area.
std::optional<Measured> askObject(const std::wstring& prompt)
{
    ads_name name = {0, 0};
    PointArray at;
    acedInitGet(0, L"");
    const int status = acedEntSel(prompt.c_str(), name, at.data);
    if (status == RTCAN)
        throw CommandCancelled();
    AcDbObjectId id;
    if (status != RTNORM || acdbGetObjectId(id, name) != Acad::eOk)
        return std::nullopt;
    const AcDbObjectPointer<AcDbCurve> curve(id);
    const auto measured = curve.object() ? measuredCurve(*curve.object()) : std::nullopt;
    if (!measured)
        say(L"Cet objet n'a pas d'aire.");
    return measured;
}

/// Adds or takes away areas until Enter; the total is told each time.
class AreaTotal {
public:
    /// Gives the word that ended this mode: the other one, or nothing for the end.
    std::wstring run(bool adding)
    {
        const wchar_t* const words = adding ? L"Objet Soustraire _ Object Subtract" : L"Objet Ajouter _ Object Add";
        const std::wstring prompt = adding ? L"(Mode ajout) Spécifiez le premier coin ou [Objet/Soustraire] : "
                                           : L"(Mode soustraction) Spécifiez le premier coin ou [Objet/Ajouter] : ";
        for (;;) {
            const auto first = Prompt(prompt).keywords(words).point();
            if (first.value)
                count(askPolygon(*first.value), adding);
            else if (first.is(L"Object"))
                while (count(askObject(adding ? L"(Mode ajout) Sélectionnez un objet : "
                                              : L"(Mode soustraction) Sélectionnez un objet : "),
                             adding)) {
                }
            else
                return first.keyword;
        }
    }

private:
    bool count(const std::optional<Measured>& measured, bool adding)
    {
        if (!measured)
            return false;
        tell(*measured);
        m_total += adding ? measured->area : -measured->area;
        say(L"Aire totale = " + lengthText(m_total));
        ::setVariable(L"AREA", m_total);
        return true;
    }
    double m_total = 0.0;
};

} // namespace

void commands::area()
{
    const auto first = Prompt(L"Spécifiez le premier coin ou [Objet/Ajouter/Soustraire] <Objet> : ")
                           .keywords(L"Objet Ajouter Soustraire _ Object Add Subtract")
                           .point();
    if (first.is(L"Add") || first.is(L"Subtract")) {
        AreaTotal total;
        for (std::wstring word = first.keyword; !word.empty();)
            word = total.run(word == L"Add");
        return;
    }
    const auto measured = first.value ? askPolygon(*first.value) : askObject(L"Sélectionnez un objet : ");
    if (!measured)
        throw CommandFailed(L"Rien n'a été mesuré");
    tell(*measured);
}
