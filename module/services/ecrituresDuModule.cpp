#include "services/ecrituresDuModule.h"

#include <algorithm>
#include <cmath>

#include "services/chaineResbuf.h"
#include "services/lireNombre.h"

#include "dbents.h"

namespace {

bool porteLaMarque(const AcDbEntity& entite, const wchar_t* application)
{
    return chaineResbuf(entite.xData(application)).tete() != nullptr;
}

/// Labels of rows stand half a letter below their line, those of columns half a letter right of theirs.
bool ditSaPlace(const AcDbText& texte)
{
    constexpr double tolerance = 1e-6; // of a drawing unit: no altitude is so near by chance
    double valeur = 0.0;
    if (lireNombre(texte.textStringConst(), valeur) == 0)
        return false;
    const AcGePoint3d place = texte.isDefaultAlignment() ? texte.position() : texte.alignmentPoint();
    const double demi = texte.height() / 2.0;
    const bool couche = std::abs(std::sin(texte.rotation())) < 0.5;
    return std::abs(valeur - (couche ? place.y + demi : place.x - demi)) < tolerance;
}

} // namespace

bool ditDesCoordonnees(const AcDbEntity& texte)
{
    const wchar_t* const applications[] = {applicationCarroyage, applicationTable, applicationImplantation};
    if (std::ranges::any_of(applications, [&](const wchar_t* a) { return porteLaMarque(texte, a); }))
        return true;
    const auto* const ligne = AcDbText::cast(&texte);
    return ligne && ditSaPlace(*ligne);
}
