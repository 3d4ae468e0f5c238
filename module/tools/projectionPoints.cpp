#include "tools/projectionPoints.h"

#include "services/formatNombres.h"
#include "tools/rapportOutils.h"

std::vector<pointProjete> projeterPoints(const axe& ligne, const abscisses& numerotation,
                                         std::span<const pointNomme> points)
{
    std::vector<point2> lieux;
    lieux.reserve(points.size());
    for (const pointNomme& point : points)
        lieux.push_back(point.place.plan());
    std::vector<pointProjete> projetes(points.size());
    for (const std::size_t i : ordreDeProximite(lieux)) {
        pointProjete& p = projetes[i];
        p.point = points[i];
        p.pied = ligne.projeter(lieux[i]);
        p.abscisse = numerotation.abscisseA(p.pied.longueur);
        p.denivelee = (grandeur(p.point.place.z) - grandeur(p.pied.pied.z)).valeur();
    }
    return projetes;
}

htmlDocument rapportProjection(const axe& ligne, const abscisses& numerotation, std::span<const pointProjete> points)
{
    rapportOutils rapport(L"Projection de points sur une polyligne");
    rapport.paragraphe(L"Longueur de la polyligne : " + formaterFixe(ligne.longueur(), 3) +
                       L" ; abscisse de départ : " + formaterAbscisse(numerotation.origine(), 3, 2));
    rapport.paragraphe(L"Décalages : positifs à droite dans le sens de la polyligne. Distances : du point à son pied, "
                       L"en plan. Dénivelées : du point au-dessus de la polyligne.");
    htmlTable table = rapport.tableau(
        {L"Point", L"Abscisse", L"Décalage", L"Distance", L"Dénivelée", L"X du pied", L"Y du pied", L"Z du pied", L""});
    for (const pointProjete& p : points) {
        table.beginRow();
        rapportOutils::texte(table, p.point.nom);
        rapportOutils::nombreEcrit(table, formaterAbscisse(p.abscisse, 3, 2));
        for (const double valeur :
             {p.pied.decalage, p.pied.distance, p.denivelee, p.pied.pied.x, p.pied.pied.y, p.pied.pied.z})
            rapportOutils::nombre(table, valeur);
        rapportOutils::texte(table, p.pied.auDela ? L"au-delà de la polyligne" : L"");
    }
    rapport.ajouter(table);
    return rapport.document();
}
