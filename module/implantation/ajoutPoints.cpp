#include "implantation/ajoutPoints.h"

#include <optional>

#include "geometrie/axeDeCourbe.h"
#include "implantation/pointsDuProjet.h"
#include "points/altitudeDuSol.h"

#include "aced.h"
#include "dbads.h"
#include "dbelipse.h"
#include "dbents.h"
#include "dbspline.h"

namespace {

void ajouterLibre(travailImplantation& travail, point2 place, double z = inconnu)
{
    travail.ajouterPoint({travail.nomLibre(), place.x, place.y, z == inconnu ? altitudeDuSol(place.x, place.y) : z});
}

/// Whether a curve is staked out by its ends alone: the straights that stand for it are nothing that was designed.
bool sansSommets(const AcDbObjectId& id)
{
    const AcDbObjectPointer<AcDbEntity> entite(id);
    return entite.openStatus() == Acad::eOk &&
           (AcDbSpline::cast(entite.object()) || AcDbEllipse::cast(entite.object()));
}

/// Ends of straights and arcs, each once.
bool ajouterCourbe(travailImplantation& travail, const AcDbObjectId& id)
{
    const axe a = axeDeEntite(id);
    if (a.vide())
        return false;
    std::vector<double> longueurs = sansSommets(id) ? std::vector{0.0, a.longueur()} : a.sommets();
    if (a.ferme() && longueurs.size() > 1)
        longueurs.pop_back();
    for (const double longueur : longueurs)
        ajouterLibre(travail, a.pointA(longueur), a.altitudeA(longueur));
    return true;
}

/// The one place of an entity that has one: where it stands, or its centre.
std::optional<AcGePoint3d> placeDe(const AcDbObjectId& id)
{
    const AcDbObjectPointer<AcDbEntity> entite(id);
    if (entite.openStatus() != Acad::eOk)
        return std::nullopt;
    if (const auto* const point = AcDbPoint::cast(entite.object()))
        return point->position();
    if (const auto* const bloc = AcDbBlockReference::cast(entite.object()))
        return bloc->position();
    if (const auto* const cercle = AcDbCircle::cast(entite.object()))
        return cercle->center();
    if (const auto* const ellipse = AcDbEllipse::cast(entite.object()); ellipse && ellipse->isClosed())
        return ellipse->center();
    return std::nullopt;
}

bool ajouterPlace(travailImplantation& travail, const AcDbObjectId& id)
{
    const auto place = placeDe(id);
    if (place)
        ajouterLibre(travail, {place->x, place->y}, place->z != 0.0 ? place->z : inconnu);
    return place.has_value();
}

void ajouterElement(travailImplantation& travail, const AcDbObjectId& id)
{
    if (const auto point = pointDuBloc(id)) {
        if (!travail.ajouterPoint(*point))
            acutPrintf(L"\nLe point %s est d\u00e9j\u00e0 dans la liste", point->nom.c_str());
    } else if (!ajouterPlace(travail, id) && !ajouterCourbe(travail, id)) {
        acutPrintf(L"\nCet \u00e9l\u00e9ment n'a pas de point \u00e0 implanter");
    }
}

enum class saisie { elements, positions, fin };

saisie demanderElement(travailImplantation& travail)
{
    constexpr int rienDessous = 7; // ERRNO: a miss is asked again
    ads_name nom;
    ads_point place;
    AcDbObjectId id;
    acedInitGet(0, L"Point");
    const int statut = acedEntSel(L"\nSelectionnez l'element [Point]", nom, place);
    if (statut == RTKWORD)
        return saisie::positions;
    if (statut == RTERROR) {
        resbuf erreur{};
        const bool manque = acedGetVar(L"ERRNO", &erreur) == RTNORM && erreur.resval.rint == rienDessous;
        return manque ? saisie::elements : saisie::fin;
    }
    if (statut != RTNORM || acdbGetObjectId(id, nom) != Acad::eOk)
        return saisie::fin;
    ajouterElement(travail, id);
    return saisie::elements;
}

saisie demanderPosition(travailImplantation& travail)
{
    ads_point place;
    acedInitGet(0, L"Select");
    const int statut = acedGetPoint(nullptr, L"\nPoint a implanter [Select]", place);
    if (statut == RTKWORD)
        return saisie::elements;
    if (statut != RTNORM)
        return saisie::fin;
    ajouterLibre(travail, {place[0], place[1]});
    return saisie::positions;
}

} // namespace

void demanderPoints(travailImplantation& travail)
{
    saisie suivante = saisie::elements;
    while (suivante != saisie::fin)
        suivante = suivante == saisie::elements ? demanderElement(travail) : demanderPosition(travail);
}
