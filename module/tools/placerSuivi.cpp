#include "tools/placerSuivi.h"

#include <cmath>
#include <memory>
#include <numbers>
#include <optional>
#include <vector>

#include "services/donneesObjet.h"

#include "dbdim.h"
#include "dbentvrt.h"
#include "dbhatch.h"
#include "dbmtext.h"
#include "dbpl.h"
#include "dbsymtb.h"

namespace {

AcGePoint3d imageDe(const AcGePoint3d& place, const AcGeMatrix3d& matrice)
{
    AcGePoint3d image = place;
    return image.transformBy(matrice);
}

/// Whether its places stay numbers: with others the drawing could not be saved.
bool resteFini(const AcDbEntity& entite, const AcGeMatrix3d& matrice)
{
    AcDbExtents etendue;
    if (entite.getGeomExtents(etendue) != Acad::eOk)
        return true;
    const AcGePoint3d bas = etendue.minPoint(), haut = etendue.maxPoint();
    const auto fini = [&matrice](double x, double y) {
        const AcGePoint3d image = imageDe({x, y, 0.0}, matrice);
        return std::isfinite(image.x) && std::isfinite(image.y);
    };
    return fini(bas.x, bas.y) && fini(bas.x, haut.y) && fini(haut.x, bas.y) && fini(haut.x, haut.y);
}

/// Where the entity stands, of those that may follow by their place. A circle that bears data of programs does too: an
/// ellipse in its stead would leave the data behind, and the tree or the post that it is an obstacle for.
std::optional<AcGePoint3d> placeDe(const AcDbEntity& entite)
{
    if (const auto* const texte = AcDbText::cast(&entite))
        return texte->isDefaultAlignment() ? texte->position() : texte->alignmentPoint();
    if (const auto* const paragraphe = AcDbMText::cast(&entite))
        return paragraphe->location();
    if (const auto* const bloc = AcDbBlockReference::cast(&entite))
        return bloc->position();
    if (const auto* const rond = dynamic_cast<const AcDbCircularCurve*>(&entite); rond && porteDesDonnees(entite))
        return rond->center();
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

/// A line with arcs: its vertices, and its bulges as those of the arcs through where ends and middle go.
struct ligneEnArcs {
    std::vector<AcGePoint3d> sommets;
    std::vector<double> bombements;

    /// @param milieu gives the middle of the arc that leaves a vertex; false when none does
    template <typename Milieu>
    void suivre(const AcGeMatrix3d& matrice, Milieu&& milieu)
    {
        for (AcGePoint3d& sommet : sommets)
            sommet = imageDe(sommet, matrice);
        for (std::size_t i = 0; i < sommets.size(); ++i)
            if (AcGePoint3d auMilieu; bombements[i] != 0.0 && milieu(static_cast<double>(i) + 0.5, auMilieu))
                bombements[i] = bombementPar(sommets[i], imageDe(auMilieu, matrice), sommets[(i + 1) % sommets.size()]);
    }
};

/// Of the curve as it still stands; the last vertex of an open line has no arc.
auto milieuxDe(const AcDbCurve& courbe)
{
    return [&courbe](double parametre, AcGePoint3d& milieu) {
        return courbe.getPointAtParam(parametre, milieu) == Acad::eOk;
    };
}

void suivreParSesArcs(AcDbPolyline& ligne, const AcGeMatrix3d& matrice)
{
    const unsigned int nombre = ligne.numVerts();
    ligneEnArcs arcs{std::vector<AcGePoint3d>(nombre), std::vector<double>(nombre)};
    for (unsigned int i = 0; i < nombre; ++i) {
        ligne.getPointAt(i, arcs.sommets[i]);
        ligne.getBulgeAt(i, arcs.bombements[i]);
    }
    arcs.suivre(matrice, milieuxDe(ligne));
    for (unsigned int i = 0; i < nombre; ++i) {
        ligne.setPointAt(i, {arcs.sommets[i].x, arcs.sommets[i].y});
        ligne.setBulgeAt(i, arcs.bombements[i]);
    }
}

/// Calls `prendre` with each vertex of an old-style line.
template <typename Prendre>
void surSommets(const AcDb2dPolyline& ligne, AcDb::OpenMode mode, Prendre&& prendre)
{
    const std::unique_ptr<AcDbObjectIterator> it(ligne.vertexIterator());
    for (it->start(); !it->done(); it->step()) {
        const AcDbObjectPointer<AcDb2dVertex> sommet(it->objectId(), mode);
        if (sommet.openStatus() == Acad::eOk)
            prendre(*sommet.object());
    }
}

void suivreParSesArcs(const AcDb2dPolyline& ligne, const AcGeMatrix3d& matrice)
{
    ligneEnArcs arcs;
    surSommets(ligne, AcDb::kForRead, [&](const AcDb2dVertex& sommet) {
        arcs.sommets.push_back(ligne.vertexPosition(sommet));
        arcs.bombements.push_back(sommet.bulge());
    });
    arcs.suivre(matrice, milieuxDe(ligne));
    std::size_t i = 0;
    surSommets(ligne, AcDb::kForWrite, [&](AcDb2dVertex& sommet) {
        sommet.setPosition({arcs.sommets[i].x, arcs.sommets[i].y, sommet.position().z});
        sommet.setBulge(arcs.bombements[i++]);
    });
}

bool estVueDeDessus(const AcGeVector3d& normale)
{
    return normale.x == 0.0 && normale.y == 0.0 && normale.z > 0.0;
}

/// Lines with arcs that lie in the plane; old-style ones that are smoothed have vertices that no arc joins.
bool aDesArcsAPlat(const AcDbEntity& entite)
{
    if (const auto* const ligne = AcDbPolyline::cast(&entite))
        return ligne->hasBulges() && estVueDeDessus(ligne->normal());
    const auto* const ancienne = AcDb2dPolyline::cast(&entite);
    return ancienne && ancienne->polyType() == AcDb::k2dSimplePoly && estVueDeDessus(ancienne->normal());
}

/// Lines of patterns keep their angles among themselves, and a dimension is drawn anew from its points, its text in its
/// own size: they follow, and not to the letter.
bool suitAuPlusPres(const AcDbEntity& entite, const AcGeMatrix3d& m)
{
    constexpr double memeForme = 1e-9;
    const double echelle = std::hypot(m(0, 0), m(1, 0)) + std::hypot(m(0, 1), m(1, 1));
    const double sens = m(0, 0) * m(1, 1) - m(0, 1) * m(1, 0) < 0.0 ? -1.0 : 1.0;
    if (std::hypot(m(0, 0) - sens * m(1, 1), m(1, 0) + sens * m(0, 1)) <= memeForme * echelle)
        return false;
    const auto* const hachures = AcDbHatch::cast(&entite);
    return AcDbDimension::cast(&entite) || (hachures && !hachures->isSolidFill());
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
    return placeDe(entite) || aDesArcsAPlat(entite);
}

suivi sansChangerDeGenre(const AcDbEntity& entite, const AcGeMatrix3d& matrice)
{
    return suitAuPlusPres(entite, matrice) ? suivi::approche : suivi::exact;
}

} // namespace

suivi suiviDe(const AcDbEntity& entite, const AcGeMatrix3d& matrice)
{
    if (!resteFini(entite, matrice))
        return suivi::aucun;
    AcDbEntity* copie = nullptr;
    const bool suit = entite.getTransformedCopy(matrice, copie) == Acad::eOk && copie;
    const std::unique_ptr<AcDbEntity> jumelle(copie);
    if (suit && jumelle->isA() == entite.isA())
        return sansChangerDeGenre(entite, matrice);
    return peutApprocher(entite) ? suivi::approche : suit ? suivi::ellipse : suivi::aucun;
}

suivi suivre(AcDbEntity& entite, const AcGeMatrix3d& matrice)
{
    if (!resteFini(entite, matrice))
        return suivi::aucun;
    const suivi fidele = sansChangerDeGenre(entite, matrice);
    if (entite.transformBy(matrice) == Acad::eOk)
        return fidele;
    if (const auto place = placeDe(entite))
        return entite.transformBy(similitudeProche(matrice, *place)) == Acad::eOk ? suivi::approche : suivi::aucun;
    AcDbEntity* copie = nullptr;
    if (entite.getTransformedCopy(matrice, copie) == Acad::eOk && copie)
        return remplacer(entite, copie) ? suivi::ellipse : suivi::aucun;
    if (!aDesArcsAPlat(entite))
        return suivi::aucun;
    if (auto* const ligne = AcDbPolyline::cast(&entite))
        suivreParSesArcs(*ligne, matrice);
    else
        suivreParSesArcs(static_cast<const AcDb2dPolyline&>(entite), matrice);
    return suivi::approche;
}
