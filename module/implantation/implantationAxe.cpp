#include "implantation/implantationAxe.h"

#include "geometrie/axeDeCourbe.h"
#include "implantation/pointsDuProjet.h"
#include "implantation/terrainDuDessin.h"
#include "implantation/travailImplantation.h"
#include "points/nomValable.h"
#include "points/numeroteur.h"
#include "points/projetDansDessin.h"
#include "services/CAcadUndoGroup.h"

namespace {

/// As many names that the survey has not yet; the numbering then stands after them.
std::vector<std::wstring> nomsLibres(const listePointsDuDessin& table, std::size_t nombre,
                                     numerotationImplantation& numerotation)
{
    std::vector<std::wstring> noms;
    while (noms.size() < nombre) {
        std::wstring nom = numerotation.nom();
        ++numerotation.numero;
        int deja = -1;
        if (nom.size() > pointDuDessin::longueurNom || !table.existPoint(nom.c_str(), deja))
            noms.push_back(std::move(nom));
    }
    return noms;
}

} // namespace

parametresAxe& parametresDuDernierAxe()
{
    static parametresAxe parametres;
    return parametres;
}

bilanAxe implanterAxe(travailImplantation& travail, const AcDbObjectId& courbe, parametresAxe& parametres)
{
    listePointsDuDessin* const table = tableCourante();
    if (!table)
        return {0, projetAbsent};
    const axe a = axeDeEntite(courbe);
    if (a.vide())
        return {0, L"Aucun point : ce n'est pas un axe"};
    const std::vector<double> longueurs = longueursAImplanter(a, parametres.choix);
    if (longueurs.empty())
        return {0, L"Aucun point : il en faudrait plus de " + std::to_wstring(pointsAxeAuPlus)};
    numerotationImplantation suite = parametres.noms;
    const std::vector<std::wstring> noms = nomsLibres(*table, longueurs.size(), suite);
    if (std::wstring refus = refusDuNom(noms.back()); !refus.empty()) // of all, it is the longest
        return {0, std::move(refus)};
    parametres.noms = suite;
    const CAcadUndoGroup groupe;
    const auto sol = terrainDuDessin();
    for (std::size_t i = 0; i < noms.size(); ++i) {
        const point2 place = a.pointA(longueurs[i]);
        double z = a.altitudeA(longueurs[i]);
        if (z == inconnu && sol)
            sol->altitude(place, z);
        pointDuDessin point;
        point.setParams(noms[i].c_str(), {place.x, place.y, z}, parametres.code);
        point.creer(true);
        table->Ajouter(point);
        travail.ajouterPoint(lieuDe(point));
    }
    if (parametres.prefixeSuivant) {
        parametres.noms.prefixe = lettresSuivantes(parametres.noms.prefixe);
        parametres.noms.numero = 1;
    }
    return {noms.size(), {}};
}
