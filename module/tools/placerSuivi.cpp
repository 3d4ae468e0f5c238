#include "tools/placerSuivi.h"

#include <cmath>
#include <memory>
#include <numbers>
#include <optional>
#include <vector>

#include "dbmtext.h"
#include "dbpl.h"
#include "dbsymtb.h"

namespace {

AcGePoint3d imageDe(const AcGePoint3d& place, const AcGeMatrix3d& matrice)
{
    AcGePoint3d image = place;
    return image.transformBy(matrice);
}

/// Where the entity stands, of those that may follow by their place.
std::optional<AcGePoint3d> placeDe(const AcDbEntity& entite)
{
    if (const auto* const texte = AcDbText::cast(&entite))
        return texte->isDefaultAlignment() ? texte->position() : texte->alignmentPoint();
    if (const auto* const paragraphe = AcDbMText::cast(&entite))
        return paragraphe->location();
    if (const auto* const bloc = AcDbBlockReference::cast(&entite))
        return bloc->position();
    return std::nullopt;
}

/// The similarity that is closest to the transformation, and agrees with it at a place; it mirrors where that does.
AcGeMatrix3d similitudeProche(const AcGeMatrix3d& m, const AcGePoint3d& place)
{
    const double sens = m(0, 0) * m(1, 1) - m(0, 1) * m(1, 0) < 0.0 ? -1.0 : 1.0;
    const double a = (m(0, 0) + sens * m(1, 1)) / 2.0, b = (m(1, 0) - sens * m(0, 1)) / 2.0;
    const AcGePoint3d la = imageDe(place, m);
    AcGeMatrix3d proche;
    proche.setCoordSystem({la.x - a * place.x + sens * b * place.y, la.y - b * place.x - sens * a * place.y, 0.0},
                          {a, b, 0.0}, {-sens * b, sens * a, 0.0}, {0.0, 0.0, 1.0});
    return proche;
}

/// The bulge of the arc from `a` to `b` through `milieu`.
double bombementPar(const AcGePoint3d& a, const AcGePoint3d& milieu, const AcGePoint3d& b)
{
    const AcGeVector3d versA = a - milieu, versB = b - milieu;
    const double produit = versA.x * versB.y - versA.y * versB.x;
    const double angle = std::atan2(std::abs(produit), versA.x * versB.x + versA.y * versB.y);
    return std::copysign(std::tan((std::numbers::pi - angle) / 2.0), -produit);
}

void suivreParSesArcs(AcDbPolyline& ligne, const AcGeMatrix3d& matrice)
{
    const unsigned int nombre = ligne.numVerts();
    std::vector<AcGePoint3d> sommets(nombre);
    std::vector<double> bombements(nombre);
    for (unsigned int i = 0; i < nombre; ++i) {
        AcGePoint3d la, milieu, fin;
        ligne.getPointAt(i, la);
        sommets[i] = imageDe(la, matrice);
        ligne.getBulgeAt(i, bombements[i]);
        if (bombements[i] == 0.0 || ligne.getPointAtParam(i + 0.5, milieu) != Acad::eOk)
            continue; // the last vertex of an open line has no arc
        ligne.getPointAt((i + 1) % nombre, fin);
        bombements[i] = bombementPar(sommets[i], imageDe(milieu, matrice), imageDe(fin, matrice));
    }
    for (unsigned int i = 0; i < nombre; ++i) {
        ligne.setPointAt(i, {sommets[i].x, sommets[i].y});
        ligne.setBulgeAt(i, bombements[i]);
    }
}

bool estAPlat(const AcDbPolyline& ligne)
{
    return ligne.normal().x == 0.0 && ligne.normal().y == 0.0 && ligne.normal().z > 0.0;
}

/// An entity that cannot follow as it is may have a twin of another kind that can, as the ellipse of a circle.
bool remplacer(AcDbEntity& entite, AcDbEntity* copie)
{
    std::unique_ptr<AcDbEntity> jumelle(copie);
    const AcDbObjectPointer<AcDbBlockTableRecord> espace(entite.blockId(), AcDb::kForWrite);
    if (espace.openStatus() != Acad::eOk || espace->appendAcDbEntity(jumelle.get()) != Acad::eOk)
        return false;
    jumelle.release()->close();
    return entite.erase() == Acad::eOk;
}

bool peutApprocher(const AcDbEntity& entite)
{
    const auto* const ligne = AcDbPolyline::cast(&entite);
    return placeDe(entite) || (ligne && ligne->hasBulges() && estAPlat(*ligne));
}

} // namespace

suivi suiviDe(const AcDbEntity& entite, const AcGeMatrix3d& matrice)
{
    AcDbEntity* copie = nullptr;
    const bool suit = entite.getTransformedCopy(matrice, copie) == Acad::eOk && copie;
    const std::unique_ptr<AcDbEntity> jumelle(copie);
    if (!suit)
        return peutApprocher(entite) ? suivi::approche : suivi::aucun;
    return jumelle->isA() == entite.isA() ? suivi::exact : suivi::ellipse;
}

suivi suivre(AcDbEntity& entite, const AcGeMatrix3d& matrice)
{
    if (entite.transformBy(matrice) == Acad::eOk)
        return suivi::exact;
    AcDbEntity* copie = nullptr;
    if (entite.getTransformedCopy(matrice, copie) == Acad::eOk && copie)
        return remplacer(entite, copie) ? suivi::ellipse : suivi::aucun;
    if (const auto place = placeDe(entite))
        return entite.transformBy(similitudeProche(matrice, *place)) == Acad::eOk ? suivi::approche : suivi::aucun;
    auto* const ligne = AcDbPolyline::cast(&entite);
    if (!ligne || !peutApprocher(entite))
        return suivi::aucun;
    suivreParSesArcs(*ligne, matrice);
    return suivi::approche;
}
