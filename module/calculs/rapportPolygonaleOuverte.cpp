#include "calculs/rapportPolygonaleOuverte.h"

#include "calculs/calculPolygonaleOuverte.h"
#include "calculs/rapportPolygonale.h"

using namespace rapportPolygonale;

namespace {

/// Names of the stations in the order walked, ready for the report: the departure, then that of each row.
std::vector<std::string> nomsStations(const resultatPolygonaleOuverte& r)
{
    std::vector<std::string> noms;
    noms.reserve(r.cotes.size() + 1);
    noms.push_back(nomHtml(r.depart.nom));
    for (const cotePolygonale& cote : r.cotes)
        noms.push_back(nomHtml(cote.observation.nom));
    return noms;
}

std::string deDepartAArrivee(const resultatPolygonaleOuverte& r)
{
    return nomHtml(r.depart.nom) + "-" + nomHtml(r.arrivee.nom);
}

/// A row that begins with a name.
void ouvrirLigne(htmlTable& table, std::string_view nom)
{
    table.beginRow();
    table.addCell(nom, celluleNomGauche);
}

/// A row that begins with a label over some columns.
void ouvrirLibelle(htmlTable& table, std::string_view libelle, const char* attributs)
{
    table.beginRow();
    table.addCell(libelle, attributs);
}

void rapporterDonnees(const resultatPolygonaleOuverte& r, htmlDocument& document)
{
    ouvrirRapport(document);
    // The first heading is empty: it stands over "Départ" and "Arrivée".
    htmlTable table = tableau({L"&nbsp", L"Station", L"X", L"Y", L"Z", L"Gis"});
    const auto station = [&table](const char* role, const stationPolygonale& s) {
        ouvrirLibelle(table, role, celluleEnTeteGauche);
        table.addCell(nomHtml(s.nom), celluleNomGauche);
        for (const double valeur : {s.x, s.y, s.z, s.gisement})
            ajouterNombre(table, valeur);
    };
    station("D\xE9part", r.depart);
    station("Arriv\xE9"
            "e",
            r.arrivee);
    ouvrirLibelle(table, "Fermeture", celluleLibelle5Colonnes);
    ajouterNombre(table, r.dernierAngle);
    document.append(table.render());
}

void rapporterAngles(const resultatPolygonaleOuverte& r, const std::vector<std::string>& noms, htmlDocument& document)
{
    ajouterTitre(document, L"Fermeture angulaire");
    htmlTable table = tableau({L"Station", L"Angle", L"Gisement", L"Erreur", L"Gis.Compensé"});
    ouvrirLigne(table, "Ref");
    ajouterVides(table, 3);
    ajouterNombre(table, r.depart.gisement);
    for (std::size_t i = 0; i < r.angles.size(); ++i) {
        const anglePorte& a = r.angles[i];
        const bool arrivee = i + 1 == r.angles.size();
        // An angle belongs to the station it was measured at. The arrival shows its bearing as carried.
        ouvrirLigne(table, arrivee ? nomHtml(r.stations.back().nom) : noms[i]);
        for (const double valeur : {a.angle, arrivee ? a.gisement : a.gisementReduit, a.part, a.corrige})
            ajouterNombre(table, valeur);
    }
    ouvrirLibelle(table, "Erreur :", celluleLibelle3Colonnes);
    ajouterNombre(table, r.erreurAngulaire);
    ajouterVides(table, 1);
    document.append(table.render());
}

void rapporterDistances(const resultatPolygonaleOuverte& r, const std::vector<std::string>& noms,
                        htmlDocument& document)
{
    // Intended spelling: users compare reports.
    ajouterTitre(document, L"Comprensation des distances");
    htmlTable table =
        tableau({L"Station", L"Gisement", L"Distance", L"DX", L"DY", L"DX.Corrigé", L"DY.Corrigé", L"X", L"Y"});
    for (std::size_t i = 0; i < r.cotes.size(); ++i) {
        const cotePolygonale& c = r.cotes[i];
        ouvrirLigne(table, noms[i + 1]);
        for (const double valeur : {c.gisement, c.observation.distance, c.dx, c.dy, c.dxCorrige, c.dyCorrige, c.x, c.y})
            ajouterNombre(table, valeur);
    }
    const auto somme = [&table](std::string_view libelle, std::initializer_list<double> valeurs, int videsAvant) {
        ouvrirLibelle(table, libelle, celluleLibelle2Colonnes);
        ajouterVides(table, videsAvant);
        for (const double valeur : valeurs)
            ajouterNombre(table, valeur);
        ajouterVides(table, 7 - videsAvant - static_cast<int>(valeurs.size()));
    };
    somme("Total", {r.longueur, r.sommeX, r.sommeY, r.sommeXCorrigee, r.sommeYCorrigee}, 0);
    somme(deDepartAArrivee(r), {r.deltaX, r.deltaY}, 1);
    somme("Erreur", {r.fermetureX, r.fermetureY}, 1);
    document.append(table.render());
}

void rapporterNivellement(const resultatPolygonaleOuverte& r, const std::vector<std::string>& noms,
                          htmlDocument& document)
{
    if (!ajouterTitreNivellement(document, r.mode))
        return;
    htmlTable table = tableau({L"Station", L"Vise", L"X", L"Y", L"d.Z"});
    const bool avecPoids = ajouterEnTetesNivellement(table, r.mode);
    for (std::size_t i = 0; i < r.cotes.size(); ++i) {
        const cotePolygonale& c = r.cotes[i];
        ouvrirLigne(table, noms[i]);
        table.addCell(noms[i + 1], celluleNomGauche);
        for (const double valeur : {c.x, c.y, c.observation.dz})
            ajouterNombre(table, valeur);
        ajouterDenivelee(table, r.nivellement.denivelees[i], avecPoids);
    }
    ouvrirLibelle(table, "Total", celluleLibelle4Colonnes);
    ajouterSommesNivellement(table, r.nivellement, avecPoids);
    const auto denivelee = [&](std::string_view libelle, double valeur) {
        ouvrirLibelle(table, libelle, celluleLibelle4Colonnes);
        ajouterNombre(table, valeur);
        ajouterVides(table, avecPoids ? 4 : 3);
    };
    denivelee(deDepartAArrivee(r), r.deltaZ);
    denivelee("Erreur", r.nivellement.fermeture);
    document.append(table.render());
}

} // namespace

void rapporterPolygonale(const resultatPolygonaleOuverte& resultat, htmlDocument& document)
{
    const std::vector<std::string> noms = nomsStations(resultat);
    declarerClassesRapport(document);
    rapporterDonnees(resultat, document);
    rapporterAngles(resultat, noms, document);
    rapporterDistances(resultat, noms, document);
    rapporterNivellement(resultat, noms, document);
    ajouterTitre(document, L"Résultats finaux :");
    ajouterCoordonnees(document, resultat.stations);
}
