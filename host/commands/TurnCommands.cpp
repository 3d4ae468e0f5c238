#include <cmath>

#include "commands/CommandFailed.h"
#include "commands/Commands.h"
#include "commands/CommandTexts.h"
#include "commands/Drawing.h"
#include "commands/NumberTexts.h"
#include "commands/Prompt.h"
#include "commands/Transforming.h"
#include "ed/input/TypedPoint.h"

#include "dbents.h"
#include "dbmtext.h"

/// Commands that turn, scale and mirror about a base.

namespace {

/// A number asked for with the options of copying and of a reference.
struct AboutBase {
    std::vector<AcDbObjectId> objects;
    AcGePoint3d base;
    bool copies = false; ///< the objects stay, copies of them go

    void transform(const AcGeMatrix3d& matrix) const
    {
        if (copies)
            transformCopies(objects, matrix);
        else
            transformObjects(objects, matrix);
    }
};

AboutBase askObjectsAndBase()
{
    AboutBase about{askEditable(), {}, false};
    about.base = askPoint(L"Spécifiez le point de base : ");
    return about;
}

/// Turned until `reference`, an angle from ANGBASE, points at the place.
Ghost turning(const AboutBase& about, double reference)
{
    const double from = reference + AngleUnits::ofDrawing().base;
    return Ghost(about.objects, about.base, [base = about.base, from](const AcGePoint3d& place) {
        const double angle = std::atan2(place.y - base.y, place.x - base.x);
        return AcGeMatrix3d::rotation(angle - from, AcGeVector3d::kZAxis, base);
    });
}

/// Scaled until `reference` reaches to the place.
Ghost scaling(const AboutBase& about, double reference)
{
    return Ghost(about.objects, about.base, [base = about.base, reference](const AcGePoint3d& place) {
        return AcGeMatrix3d::scaling(base.distanceTo(place) / reference, base);
    });
}

double askAngle(AboutBase& about)
{
    for (;;) {
        const Ghost ghost = turning(about, 0.0);
        const auto given = Prompt(L"Spécifiez l'angle de rotation ou [Copier/Référence] <" + angleText(0.0) + L"> : ")
                               .keywords(command_texts::copyOrReference)
                               .from(about.base)
                               .angle();
        if (given.is(L"Copy")) {
            about.copies = true;
            continue;
        }
        if (!given.is(L"Reference"))
            return given.value.value_or(0.0);
        const double reference =
            Prompt(L"Spécifiez l'angle de référence <" + angleText(0.0) + L"> : ").angle().value.value_or(0.0);
        const Ghost turned = turning(about, reference);
        return *Prompt(L"Spécifiez le nouvel angle : ").required().from(about.base).angle().value - reference;
    }
}

double askFactor(AboutBase& about)
{
    for (;;) {
        const Ghost ghost = scaling(about, 1.0);
        const auto given = Prompt(L"Spécifiez le facteur d'échelle ou [Copier/Référence] <1> : ")
                               .keywords(command_texts::copyOrReference)
                               .positive()
                               .from(about.base)
                               .distance();
        if (given.is(L"Copy")) {
            about.copies = true;
            continue;
        }
        if (!given.is(L"Reference"))
            return given.value.value_or(1.0);
        const double reference =
            Prompt(L"Spécifiez la longueur de référence <1> : ").positive().distance().value.value_or(1.0);
        const Ghost scaled = scaling(about, reference);
        return *Prompt(L"Spécifiez la nouvelle longueur : ").required().positive().from(about.base).distance().value /
               reference;
    }
}

/// Nothing when two points, seen from above, are one.
std::optional<AcGeMatrix3d> mirrorThrough(const AcGePoint3d& first, const AcGePoint3d& second)
{
    const AcGeVector3d across = AcGeVector3d::kZAxis.crossProduct(second - first);
    if (across.isZeroLength())
        return std::nullopt;
    return AcGeMatrix3d::mirroring(AcGePlane(first, across));
}

/// The second point of the line of symmetry.
AcGePoint3d askSecond(const std::vector<AcDbObjectId>& objects, const AcGePoint3d& first)
{
    const Ghost ghost(objects, first, [first](const AcGePoint3d& place) {
        return mirrorThrough(first, place).value_or(AcGeMatrix3d::kIdentity);
    });
    return askPoint(L"Spécifiez le deuxième point de la ligne de symétrie : ", first);
}

/// A mirrored text would be read from behind. So it is turned over about its own middle as well, along or across its
/// line, whichever leaves it upright: the two together only turn and shift it.
AcGeMatrix3d readable(const AcDbEntity& text, const AcGeVector3d& along, const AcGeMatrix3d& mirror)
{
    AcDbExtents box;
    if (text.getGeomExtents(box) != Acad::eOk)
        return mirror;
    const AcGePoint3d middle = box.minPoint() + (box.maxPoint() - box.minPoint()) / 2.0;
    const AcGeVector3d shown = mirror * along;
    const bool backwards = shown.x < -1e-9 || (std::fabs(shown.x) <= 1e-9 && shown.y < 0.0);
    const AcGeVector3d up = AcGeVector3d::kZAxis.crossProduct(along);
    return mirror * AcGeMatrix3d::mirroring(AcGePlane(middle, backwards ? along : up));
}

Acad::ErrorStatus mirrorObject(AcDbEntity& entity, const AcGeMatrix3d& mirror)
{
    if (const AcDbText* text = AcDbText::cast(&entity))
        return transformed(
            entity,
            readable(entity, AcGeVector3d(std::cos(text->rotation()), std::sin(text->rotation()), 0.0), mirror));
    if (const AcDbMText* text = AcDbMText::cast(&entity))
        return transformed(entity, readable(entity, text->direction(), mirror));
    return transformed(entity, mirror);
}

} // namespace

void commands::rotate()
{
    AboutBase about = askObjectsAndBase();
    const double angle = askAngle(about);
    about.transform(AcGeMatrix3d::rotation(angle, AcGeVector3d::kZAxis, about.base));
}

void commands::scale()
{
    AboutBase about = askObjectsAndBase();
    const double factor = askFactor(about);
    about.transform(AcGeMatrix3d::scaling(factor, about.base));
}

void commands::mirror()
{
    const auto originals = askEditable();
    const AcGePoint3d first = askPoint(L"Spécifiez le premier point de la ligne de symétrie : ");
    const auto mirror = mirrorThrough(first, askSecond(originals, first));
    if (!mirror)
        throw CommandFailed(L"Les deux points sont confondus");
    const bool replaces = askYes(L"Effacer les objets source ?", false);
    const auto objects = replaces ? originals : copyObjects(originals);
    std::size_t refused = 0;
    for (const AcDbObjectId id : objects) {
        if (change<AcDbEntity>(id, [&](AcDbEntity& entity) { return mirrorObject(entity, *mirror); }) == Acad::eOk)
            continue;
        ++refused;
        if (!replaces) // its copy would lie on it
            eraseObject(id);
    }
    constexpr wchar_t withoutMirror[] = L" sans symétrique.";
    tellRefused(refused, objects.size(), withoutMirror, withoutMirror);
}
