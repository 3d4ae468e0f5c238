#include "implantation/implantationAxe.h"

#include "geometrie/axeDeCourbe.h"
#include "implantation/pointsDuProjet.h"
#include "implantation/terrainDuDessin.h"
#include "implantation/travailImplantation.h"
#include "points/nomsDoubles.h"
#include "points/numeroteur.h"
#include "points/projetDansDessin.h"
#include "services/CAcadUndoGroup.h"

parametresAxe& parametresDuDernierAxe()
{
    static parametresAxe parametres;
    return parametres;
}

int implanterAxe(travailImplantation& travail, const AcDbObjectId& courbe, parametresAxe& parametres)
{
    listePointsDuDessin* const table = tableCourante();
    const axe a = axeDeEntite(courbe);
    const std::vector<double> longueurs = longueursAImplanter(a, parametres.choix);
    if (longueurs.empty() || !table)
        return 0;
    const CAcadUndoGroup groupe;
    const auto sol = terrainDuDessin();
    const int avant = table->nbPoint();
    for (const double longueur : longueurs) {
        const point2 place = a.pointA(longueur);
        double z = a.altitudeA(longueur);
        if (z == inconnu && sol)
            sol->altitude(place, z);
        int deja = -1;
        while (table->existPoint(parametres.noms.nom().c_str(), deja)) // a survey has one point of a name
            ++parametres.noms.numero;
        pointDuDessin point;
        point.setParams(parametres.noms.nom().c_str(), {place.x, place.y, z}, parametres.code);
        ++parametres.noms.numero;
        point.creer(true);
        table->Ajouter(point);
        travail.ajouterPoint(lieuDe(point));
    }
    direNomsDoubles(*table, avant);
    if (parametres.prefixeSuivant) {
        parametres.noms.prefixe = lettresSuivantes(parametres.noms.prefixe);
        parametres.noms.numero = 1;
    }
    return static_cast<int>(longueurs.size());
}
