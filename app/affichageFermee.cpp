#include "calculs/nivellement.h"
#include "calculs/uniteAngulaire.h"
#include "nombres.h"
#include "platform/CodePage.h"
#include "tableTexte.h"
#include "traitementFermee.h"

#include <cmath>
#include <iostream>

using cote = tableTexte::cote;
using platform::utf8FromWide;

namespace {

constexpr int decimales = 4;       // a tenth of a millimetre
constexpr int decimalesAngles = 5; // as the report writes closures

std::string symboleUnite(int unite)
{
    return unite == uniteDegres ? "°" : unite == uniteRadians ? "rad" : "gr";
}

std::string nomUnite(int unite)
{
    return unite == uniteDegres ? "degrés" : unite == uniteRadians ? "radians" : "grades";
}

/// "1/12 500"; a perfect loop has none.
std::string fermetureRelative(double inverse)
{
    if (std::isnan(inverse))
        return "non définie";
    if (std::isinf(inverse))
        return "nulle";
    std::string chiffres = nombreTexte(inverse, 0);
    for (std::size_t place = chiffres.size(); place > 3; place -= 3)
        chiffres.insert(place - 3, " ");
    return "1/" + chiffres;
}

void afficherFermetures(const resultatPolygonaleFermee& r)
{
    const std::string unite = symboleUnite(r.unite);
    tableTexte table({cote::gauche, cote::droite, cote::gauche});
    table.ajouter({"Erreur angulaire", nombreTexte(r.erreurAngulaire, decimalesAngles), unite});
    table.ajouter({"Correction par station", nombreTexte(r.correctionAngulaire, decimalesAngles), unite});
    table.ajouter({"Fx", nombreTexte(r.fermetureX, decimales), ""});
    table.ajouter({"Fy", nombreTexte(r.fermetureY, decimales), ""});
    table.ajouter({"Fz", nombreTexte(r.nivellement.fermeture, decimales), ""});
    table.ajouter({"Fermeture planimétrique", nombreTexte(r.fermeturePlanimetrique, decimales), ""});
    table.ajouter({"Longueur", nombreTexte(r.longueur, decimales), ""});
    table.ajouter({"Fermeture relative", fermetureRelative(r.fermetureRelative), ""});
    std::cout << "\nFermetures\n";
    table.ecrire(std::cout, "  ");
}

void afficherStations(const resultatPolygonaleFermee& r)
{
    tableTexte table({cote::gauche, cote::droite, cote::droite, cote::droite});
    table.ajouter({"Station", "X", "Y", "Z"});
    for (const stationCorrigee& s : r.stations)
        table.ajouter({utf8FromWide(s.nom), nombreTexte(s.x, decimales), nombreTexte(s.y, decimales),
                       nombreTexte(s.z, decimales)});
    std::cout << "\nStations compensées\n";
    table.ecrire(std::cout, "  ");
}

nlohmann::ordered_json fermeturesJson(const resultatPolygonaleFermee& r)
{
    return {{"erreurAngulaire", nombreJson(r.erreurAngulaire)},
            {"correctionAngulaire", nombreJson(r.correctionAngulaire)},
            {"sommeInterieurs", nombreJson(r.sommeInterieurs)},
            {"fx", nombreJson(r.fermetureX)},
            {"fy", nombreJson(r.fermetureY)},
            {"fz", nombreJson(r.nivellement.fermeture)},
            {"planimetrique", nombreJson(r.fermeturePlanimetrique)},
            {"longueur", nombreJson(r.longueur)},
            {"relative", nombreJson(r.fermetureRelative)}};
}

nlohmann::ordered_json viseeJson(const viseeFermee& v, const deniveleeCompensee& d)
{
    return {{"station", utf8FromWide(v.observation.nom)},
            {"angle", nombreJson(v.observation.angle)},
            {"distance", nombreJson(v.observation.distance)},
            {"dz", nombreJson(v.observation.dz)},
            {"interieur", nombreJson(v.interieur)},
            {"interieurCorrige", nombreJson(v.interieurCorrige)},
            {"exterieurCorrige", nombreJson(v.exterieurCorrige)},
            {"gisement", nombreJson(v.gisement)},
            {"dx", nombreJson(v.dx)},
            {"dy", nombreJson(v.dy)},
            {"dxCorrige", nombreJson(v.dxCorrige)},
            {"dyCorrige", nombreJson(v.dyCorrige)},
            {"longueurCorrigee", nombreJson(v.longueurCorrigee)},
            {"correctionDz", nombreJson(d.correction)},
            {"dzCorrige", nombreJson(d.dz)},
            {"x", nombreJson(v.x)},
            {"y", nombreJson(v.y)},
            {"z", nombreJson(d.z)}};
}

nlohmann::ordered_json fichierJson(const std::string& nom)
{
    return nom.empty() ? nlohmann::ordered_json(nullptr) : nlohmann::ordered_json(nom);
}

} // namespace

void afficherTexte(const demandeFermee& demande, const traitementFermee& traitement)
{
    const resultatPolygonaleFermee& r = traitement.resultat;
    for (const std::string& avertissement : traitement.avertissements)
        std::cerr << "Attention : " << avertissement << '\n';
    std::cout << "Polygonale fermée : " << demande.observations << '\n'
              << r.visees.size() << " côtés, angles en " << nomUnite(r.unite)
              << ", nivellement : " << utf8FromWide(motNivellement(r.mode)) << '\n';
    afficherFermetures(r);
    afficherStations(r);
    if (!traitement.rapport.empty())
        std::cout << "\nRapport : " << traitement.rapport << '\n';
    if (traitement.dessin.empty())
        return;
    std::cout << "\nDessin : " << traitement.dessin << " (" << traitement.pointsPlaces
              << " points placés dans la table « " << traitement.table << " », code " << traitement.code << ")\n";
    if (!traitement.ancienDessin.empty())
        std::cout << "Le dessin d'avant est gardé : " << traitement.ancienDessin << '\n';
}

void afficherJson(const demandeFermee& demande, const traitementFermee& traitement)
{
    const resultatPolygonaleFermee& r = traitement.resultat;
    nlohmann::ordered_json json{{"fichier", demande.observations},
                                {"unite", utf8FromWide(motUniteAngulaire(r.unite))},
                                {"nivellement", utf8FromWide(motNivellement(r.mode))},
                                {"depart",
                                 {{"nom", utf8FromWide(r.depart.nom)},
                                  {"x", nombreJson(r.depart.x)},
                                  {"y", nombreJson(r.depart.y)},
                                  {"z", nombreJson(r.depart.z)},
                                  {"gisement", nombreJson(r.depart.gisement)}}},
                                {"fermetures", fermeturesJson(r)}};
    auto& visees = json["visees"] = nlohmann::ordered_json::array();
    for (std::size_t i = 0; i < r.visees.size(); ++i)
        visees.push_back(viseeJson(r.visees[i], r.nivellement.denivelees[i]));
    auto& stations = json["stations"] = nlohmann::ordered_json::array();
    for (const stationCorrigee& s : r.stations)
        stations.push_back(
            {{"nom", utf8FromWide(s.nom)}, {"x", nombreJson(s.x)}, {"y", nombreJson(s.y)}, {"z", nombreJson(s.z)}});
    json["avertissements"] = traitement.avertissements;
    json["rapport"] = fichierJson(traitement.rapport);
    json["dessin"] = fichierJson(traitement.dessin);
    json["ancienDessin"] = fichierJson(traitement.ancienDessin);
    json["table"] = fichierJson(traitement.table);
    json["pointsPlaces"] = traitement.pointsPlaces;
    json["code"] = traitement.code;
    ecrireJson(json);
}
