#include <iostream>

#include "calculs/fermeturePolygonale.h"
#include "calculs/nivellement.h"
#include "calculs/uniteAngulaire.h"
#include "platform/CodePage.h"

#include "fichierDessin.h"
#include "lignesConsole.h"
#include "nombres.h"
#include "tableTexte.h"
#include "traitementPolygonale.h"

using cote = tableTexte::cote;
using platform::utf8FromWide;

namespace {

constexpr int decimales = 4;       // a tenth of a millimetre
constexpr int decimalesAngles = 5; // as the report writes closures

std::string nomUnite(int unite)
{
    return unite == uniteDegres ? "degrés" : unite == uniteRadians ? "radians" : "grades";
}

/// @param part what has a share of the angular error
void afficherFermetures(const cheminement& c, const char* part)
{
    const std::string unite = utf8FromWide(symboleUniteAngulaire(c.unite));
    tableTexte table({cote::gauche, cote::droite, cote::gauche});
    table.ajouter({"Erreur angulaire", nombreTexte(c.erreurAngulaire, decimalesAngles), unite});
    table.ajouter({std::string("Correction par ") + part, nombreTexte(c.correctionAngulaire, decimalesAngles), unite});
    table.ajouter({"Fx", nombreTexte(c.fermetureX, decimales), ""});
    table.ajouter({"Fy", nombreTexte(c.fermetureY, decimales), ""});
    table.ajouter({"Fz", nombreTexte(c.nivellement.fermeture, decimales), ""});
    table.ajouter({"Fermeture planimétrique", nombreTexte(c.fermeturePlanimetrique, decimales), ""});
    table.ajouter({"Longueur", nombreTexte(c.longueur, decimales), ""});
    table.ajouter({"Fermeture relative", utf8FromWide(texteFermetureRelative(c.fermetureRelative)), ""});
    std::cout << "\nFermetures\n";
    table.ecrire(std::cout, "  ");
}

void afficherStations(const cheminement& c)
{
    tableTexte table({cote::gauche, cote::droite, cote::droite, cote::droite});
    table.ajouter({"Station", "X", "Y", "Z"});
    for (const stationCorrigee& s : c.stations)
        table.ajouter({utf8FromWide(s.nom), nombreTexte(s.x, decimales), nombreTexte(s.y, decimales),
                       nombreTexte(s.z, decimales)});
    std::cout << "\nStations compensées\n";
    table.ecrire(std::cout, "  ");
}

objetJson stationConnueJson(const stationPolygonale& s)
{
    return {{"nom", utf8FromWide(s.nom)},
            {"x", nombreJson(s.x)},
            {"y", nombreJson(s.y)},
            {"z", nombreJson(s.z)},
            {"gisement", nombreJson(s.gisement)}};
}

objetJson fermeturesJson(const cheminement& c)
{
    return {{"erreurAngulaire", nombreJson(c.erreurAngulaire)},
            {"correctionAngulaire", nombreJson(c.correctionAngulaire)},
            {"sommeDx", nombreJson(c.sommeX)},
            {"sommeDy", nombreJson(c.sommeY)},
            {"sommeDz", nombreJson(c.nivellement.sommeDz)},
            {"fx", nombreJson(c.fermetureX)},
            {"fy", nombreJson(c.fermetureY)},
            {"fz", nombreJson(c.nivellement.fermeture)},
            {"planimetrique", nombreJson(c.fermeturePlanimetrique)},
            {"longueur", nombreJson(c.longueur)},
            {"relative", nombreJson(c.fermetureRelative)}};
}

objetJson fermeturesJson(const resultatPolygonaleFermee& r)
{
    objetJson json = fermeturesJson(static_cast<const cheminement&>(r));
    json["sommeInterieurs"] = nombreJson(r.sommeInterieurs);
    return json;
}

objetJson fermeturesJson(const resultatPolygonaleOuverte& r)
{
    objetJson json = fermeturesJson(static_cast<const cheminement&>(r));
    json["deltaX"] = nombreJson(r.deltaX);
    json["deltaY"] = nombreJson(r.deltaY);
    json["deltaZ"] = nombreJson(r.deltaZ);
    return json;
}

/// What was observed of a leg, then what became of it; `angles` stands between them.
objetJson viseeJson(const cotePolygonale& c, const deniveleeCompensee& d, const objetJson& angles)
{
    objetJson json{{"station", utf8FromWide(c.observation.nom)},
                   {"angle", nombreJson(c.observation.angle)},
                   {"distance", nombreJson(c.observation.distance)},
                   {"dz", nombreJson(c.observation.dz)}};
    json.update(angles);
    json.update({{"gisement", nombreJson(c.gisement)},
                 {"dx", nombreJson(c.dx)},
                 {"dy", nombreJson(c.dy)},
                 {"dxCorrige", nombreJson(c.dxCorrige)},
                 {"dyCorrige", nombreJson(c.dyCorrige)},
                 {"longueurCorrigee", nombreJson(c.longueurCorrigee)},
                 {"poidsDz", nombreJson(d.poids)},
                 {"correctionDz", nombreJson(d.correction)},
                 {"dzCorrige", nombreJson(d.dz)},
                 {"x", nombreJson(c.x)},
                 {"y", nombreJson(c.y)},
                 {"z", nombreJson(d.z)}});
    return json;
}

objetJson angleJson(const angleFerme& a)
{
    return {{"interieur", nombreJson(a.interieur)},
            {"interieurCorrige", nombreJson(a.interieurCorrige)},
            {"exterieurCorrige", nombreJson(a.exterieurCorrige)}};
}

objetJson angleJson(const anglePorte& a)
{
    return {{"angleNormalise", nombreJson(a.angle)},
            {"gisementPorte", nombreJson(a.gisement)},
            {"gisementReduit", nombreJson(a.gisementReduit)},
            {"partErreur", nombreJson(a.part)},
            {"gisementCompense", nombreJson(a.corrige)}};
}

/// What is known beside the rows.
void ajouterDonneesJson(objetJson& json, const resultatPolygonaleFermee& r)
{
    json["depart"] = stationConnueJson(r.depart);
}

void ajouterDonneesJson(objetJson& json, const resultatPolygonaleOuverte& r)
{
    json["depart"] = stationConnueJson(r.depart);
    json["arrivee"] = stationConnueJson(r.arrivee);
    // Measured at the arrival: it belongs to no leg.
    objetJson dernier{{"angle", nombreJson(r.dernierAngle)}};
    dernier.update(angleJson(r.angles.back()));
    json["dernierAngle"] = dernier;
}

template <class Resultat>
void montrerJson(const demandePolygonale& demande, const traitementPolygonale<Resultat>& t)
{
    const Resultat& r = t.resultat;
    objetJson json{{"fichier", demande.observations},
                   {"unite", utf8FromWide(motUniteAngulaire(r.unite))},
                   {"nivellement", utf8FromWide(motNivellement(r.mode))}};
    ajouterDonneesJson(json, r);
    json["fermetures"] = fermeturesJson(r);
    auto& visees = json["visees"] = objetJson::array();
    for (std::size_t i = 0; i < r.cotes.size(); ++i)
        visees.push_back(viseeJson(r.cotes[i], r.nivellement.denivelees[i], angleJson(r.angles[i])));
    auto& stations = json["stations"] = objetJson::array();
    for (const stationCorrigee& s : r.stations)
        stations.push_back(
            {{"nom", utf8FromWide(s.nom)}, {"x", nombreJson(s.x)}, {"y", nombreJson(s.y)}, {"z", nombreJson(s.z)}});
    json["avertissements"] = t.avertissements;
    json["rapport"] = fichierJson(t.rapport);
    json["dessin"] = fichierJson(t.dessin);
    json["ancienDessin"] = fichierJson(t.ancienDessin);
    json["table"] = fichierJson(t.table);
    json["pointsPlaces"] = t.pointsPlaces;
    json["code"] = t.code;
    ecrireJson(json);
}

/// @param genre what the traverse is; @param part what has a share of the angular error
void montrerTexte(const demandePolygonale& demande, const cheminement& c, const suitesPolygonale& suites,
                  const char* genre, const char* part)
{
    avertirDesPremiers(suites.avertissements);
    std::cout << "Polygonale " << genre << " : " << demande.observations << '\n'
              << c.cotes.size() << " côtés, angles en " << nomUnite(c.unite)
              << ", nivellement : " << utf8FromWide(motNivellement(c.mode)) << '\n';
    afficherFermetures(c, part);
    afficherStations(c);
    if (!suites.rapport.empty())
        std::cout << "\nRapport : " << suites.rapport << '\n';
    if (suites.dessin.empty())
        return;
    std::cout << "\nDessin : " << suites.dessin << " (" << phrasePointsPlaces(suites.pointsPlaces, suites.table)
              << ", code " << suites.code << ")\n";
    direAncienDessin(suites.ancienDessin);
}

} // namespace

void afficherTexte(const demandePolygonale& demande, const traitementFermee& traitement)
{
    montrerTexte(demande, traitement.resultat, traitement, "fermée", "station");
}

void afficherTexte(const demandePolygonale& demande, const traitementOuverte& traitement)
{
    montrerTexte(demande, traitement.resultat, traitement, "ouverte", "angle");
}

void afficherJson(const demandePolygonale& demande, const traitementFermee& traitement)
{
    montrerJson(demande, traitement);
}

void afficherJson(const demandePolygonale& demande, const traitementOuverte& traitement)
{
    montrerJson(demande, traitement);
}
