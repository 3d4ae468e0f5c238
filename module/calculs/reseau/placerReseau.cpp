#include "calculs/reseau/placerReseau.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "calculs/placerPolygonale.h"
#include "points/projetDansDessin.h"
#include "services/CAcadUndoGroup.h"
#include "services/calqueNomme.h"
#include "services/espaceObjet.h"
#include "services/grandeur.h"

#include "dbapserv.h"
#include "dbelipse.h"
#include "dbents.h"
#include "dbsymtb.h"

namespace {

constexpr Adesk::UInt16 bleu = 5, rouge = 1;
/// Flatter than that an ellipse is drawn as its major axis: hosts refuse it.
constexpr double aplatissementMinimal = 1e-5;

AcDbObjectId calque(const wchar_t* nom, Adesk::UInt16 couleur)
{
    return calqueNomme(acdbHostApplicationServices()->workingDatabase(), nom, couleur);
}

void dessiner(std::unique_ptr<AcDbEntity> entite, const AcDbObjectId& sur)
{
    if (!sur.isNull())
        entite->setLayer(sur);
    ajouterEspaceObjet(std::move(entite));
}

void dessinerEllipse(const figurePlane::ellipse& e, const AcDbObjectId& sur)
{
    const AcGePoint3d centre(e.centre.x, e.centre.y, 0.0);
    const AcGeVector3d axe(e.a * std::sin(e.gisement), e.a * std::cos(e.gisement), 0.0);
    if (!(e.a > 0.0))
        return;
    if (e.b < aplatissementMinimal * e.a)
        dessiner(std::make_unique<AcDbLine>(centre - axe, centre + axe), sur);
    else
        dessiner(std::make_unique<AcDbEllipse>(centre, AcGeVector3d(0.0, 0.0, 1.0), axe, std::min(e.b / e.a, 1.0)),
                 sur);
}

void dessinerFigure(const figurePlane& figure)
{
    const AcDbObjectId ellipses = calque(calqueEllipses, bleu), vecteurs = calque(calqueVecteurs, rouge);
    for (const figurePlane::ellipse& e : figure.ellipses)
        dessinerEllipse(e, ellipses);
    for (const figurePlane::vecteur& v : figure.vecteurs)
        if (v.de.x != v.vers.x || v.de.y != v.vers.y)
            dessiner(std::make_unique<AcDbLine>(AcGePoint3d(v.de.x, v.de.y, 0.0), AcGePoint3d(v.vers.x, v.vers.y, 0.0)),
                     vecteurs);
}

} // namespace

int placerReseau(const reseau& r, const resultatReseau& resultat, const figurePlane& figure,
                 const placementReseau& placement)
{
    listePointsDuDessin* const table = tableCourante();
    const CAcadUndoGroup groupe;
    int places = 0;
    for (std::size_t i = 0; placement.points && table && i < r.points.size(); ++i) {
        const pointCompense& p = resultat.points[i];
        if (!estPlace(p) || !(p.planCherche || placement.connus))
            continue;
        pointDuDessin point;
        point.setParams(r.points[i].nom.c_str(), {p.x, p.y, placement.altitudes && estConnue(p.z) ? p.z : inconnu},
                        codeDesStations(placement.code));
        point.creer(true);
        table->Ajouter(point);
        ++places;
    }
    if (placement.ellipses)
        dessinerFigure(figure);
    return places;
}
