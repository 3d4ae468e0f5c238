#include <algorithm>
#include <functional>
#include <numbers>

#include "calculs/avertissementsPolygonale.h"
#include "calculs/calculPolygonaleFermee.h"
#include "calculs/calculPolygonaleOuverte.h"
#include "calculs/fichierPolygonale.h"
#include "calculs/reseau/compensation.h"
#include "calculs/reseau/fichierReseau.h"
#include "implantation/donneesStation.h"
#include "platform/CodePage.h"
#include "tools/transformationPlane.h"

#include "casPublies.h"
#include "erreurProgramme.h"

namespace {

using grandeurs = std::map<std::string, std::vector<double>>;

[[noreturn]] void refuser(const casPublie& cas, const std::string& raison)
{
    throw erreurProgramme("cas « " + cas.nom + " » : " + raison);
}

template <class Element>
std::vector<double> colonne(const std::vector<Element>& elements, double Element::*membre)
{
    std::vector<double> valeurs;
    for (const Element& e : elements)
        valeurs.push_back(e.*membre);
    return valeurs;
}

grandeurs grandeursCommunes(const cheminement& c)
{
    return {{"erreur-angulaire", {c.erreurAngulaire}},
            {"correction-angulaire", {c.correctionAngulaire}},
            {"longueur", {c.longueur}},
            {"fermeture-x", {c.fermetureX}},
            {"fermeture-y", {c.fermetureY}},
            {"fermeture-relative", {c.fermetureRelative}},
            {"gisements", colonne(c.cotes, &cotePolygonale::gisement)},
            {"dx", colonne(c.cotes, &cotePolygonale::dx)},
            {"dy", colonne(c.cotes, &cotePolygonale::dy)},
            {"dx-corriges", colonne(c.cotes, &cotePolygonale::dxCorrige)},
            {"dy-corriges", colonne(c.cotes, &cotePolygonale::dyCorrige)},
            {"longueurs-corrigees", colonne(c.cotes, &cotePolygonale::longueurCorrigee)},
            {"corrections-z", colonne(c.nivellement.denivelees, &deniveleeCompensee::correction)},
            {"x", colonne(c.stations, &stationCorrigee::x)},
            {"y", colonne(c.stations, &stationCorrigee::y)},
            {"z", colonne(c.stations, &stationCorrigee::z)}};
}

/// @param ajouter what the kind of traverse has of its own, into the quantities
template <class Donnees, class Ajouter>
grandeurs polygonale(const casPublie& cas, const Ajouter& ajouter)
{
    Donnees donnees;
    const bilanLecture bilan = chargerPolygonale(cas.fichier, donnees);
    if (!bilan.lisible)
        refuser(cas, cas.fichier.string() + " : cette polygonale n'a pas pu être lue.");
    const auto resultat = compenserPolygonale(donnees);
    grandeurs calculees = grandeursCommunes(resultat);
    calculees["remarques"] = {static_cast<double>(bilan.remarques.size() + avertissementsPolygonale(resultat).size())};
    ajouter(resultat, calculees);
    return calculees;
}

grandeurs polygonaleFermee(const casPublie& cas)
{
    return polygonale<donneesPolygonaleFermee>(cas, [](const resultatPolygonaleFermee& r, grandeurs& calculees) {
        calculees["exterieurs-corriges"] = colonne(r.angles, &angleFerme::exterieurCorrige);
    });
}

grandeurs polygonaleOuverte(const casPublie& cas)
{
    return polygonale<donneesPolygonaleOuverte>(cas, [](const resultatPolygonaleOuverte& r, grandeurs& calculees) {
        calculees["gisements-portes"] = colonne(r.angles, &anglePorte::gisementReduit);
    });
}

/// Of points that were sought; standard deviations in millimetres.
grandeurs reseauCompense(const casPublie& cas)
{
    const reseauLu lu = chargerReseau(cas.fichier);
    if (!lu.lisible)
        refuser(cas, cas.fichier.string() + " : ce réseau n'a pas pu être lu.");
    const resultatReseau resultat = compenser(lu.r);
    grandeurs calculees{{"s0", {resultat.s0}},
                        {"degres-de-liberte", {static_cast<double>(resultat.degresDeLiberte)}},
                        {"remarques", {static_cast<double>(lu.remarques.size())}}};
    const auto noter = [&](const char* nom, double valeur) { calculees[nom].push_back(valeur); };
    for (const pointCompense& p : resultat.points) {
        if (p.planCherche) {
            noter("x", p.x);
            noter("y", p.y);
            noter("sx", p.sx * 1000.0);
            noter("sy", p.sy * 1000.0);
        }
        if (p.altitudeCherchee) {
            noter("z", p.z);
            noter("sz", p.sz * 1000.0);
        }
    }
    return calculees;
}

grandeurs transformation(const casPublie& cas, typeTransformation type)
{
    std::vector<couplePoints> couples;
    for (const casPublie::couple& c : cas.couples)
        couples.push_back({platform::wideFromUtf8(c.nom), {c.x, c.y}, {c.cibleX, c.cibleY}});
    const auto calcul = calculerTransformation(couples, type);
    if (const auto* raison = std::get_if<std::wstring>(&calcul))
        refuser(cas, platform::utf8FromWide(*raison));
    const auto& r = std::get<resultatTransformation>(calcul);
    const transformationPlane& t = r.transformation;
    const double tour = t.rotation() < 0.0 ? 360.0 : 0.0;
    grandeurs calculees{{"tx", {t.translation().x}},
                        {"ty", {t.translation().y}},
                        {"a", {t.xx}},
                        {"b", {type == typeTransformation::affine ? t.xy : t.yx}},
                        {"c", {t.translation().x}},
                        {"d", {t.yx}},
                        {"e", {t.yy}},
                        {"f", {t.translation().y}},
                        {"echelle", {t.echelle()}},
                        {"rotation-degres", {t.rotation() * 180.0 / std::numbers::pi + tour}},
                        {"degres-de-liberte", {static_cast<double>(r.degresDeLiberte)}}};
    if (r.s0) {
        calculees["s0"] = {*r.s0};
        calculees["sa"] = {*r.s0 * r.sigmaX};
        calculees["sb"] = {*r.s0 * (type == typeTransformation::affine ? r.sigmaY : r.sigmaX)};
        calculees["stx"] = {*r.s0 * r.sigmaTranslation};
        calculees["sty"] = calculees["stx"];
    }
    return calculees;
}

grandeurs visee(const casPublie& cas)
{
    const auto donnee = [&](const char* mot, std::size_t nombre) {
        const auto trouvee = cas.donnees.find(mot);
        if (trouvee == cas.donnees.end() || trouvee->second.size() != nombre)
            refuser(cas, "il manque « donnee " + std::string(mot) + " » et ses valeurs.");
        return trouvee->second;
    };
    const auto point = donnee("point", 2), origine = donnee("station", 2);
    donneesStation station;
    station.station = {L"S", origine[0], origine[1]};
    station.visee = true;
    if (cas.donnees.contains("reference")) {
        const auto reference = donnee("reference", 2);
        station.reference = {L"R", reference[0], reference[1]};
    } else {
        const double gisement = donnee("reference-gisement", 1)[0] * std::numbers::pi / 200.0;
        station.reference = {L"R", origine[0] + 1000.0 * std::sin(gisement), origine[1] + 1000.0 * std::cos(gisement)};
    }
    return {{"gisement", {enGrades(gisementVers(station, point[0], point[1]))}},
            {"angle", {enGrades(angleVers(station, point[0], point[1]))}},
            {"distance", {distanceVers(station, point[0], point[1])}}};
}

} // namespace

std::map<std::string, std::vector<double>> calculerCas(const casPublie& cas)
{
    using enum typeTransformation;
    const std::map<std::string, std::function<grandeurs()>> calculs{
        {"polygonale-fermee", [&] { return polygonaleFermee(cas); }},
        {"polygonale-ouverte", [&] { return polygonaleOuverte(cas); }},
        {"reseau", [&] { return reseauCompense(cas); }},
        {"translation", [&] { return transformation(cas, translation); }},
        {"similitude", [&] { return transformation(cas, similitude); }},
        {"affine", [&] { return transformation(cas, affine); }},
        {"visee", [&] { return visee(cas); }}};
    const auto calcul = calculs.find(cas.calcul);
    if (calcul == calculs.end())
        refuser(cas, "« calcul " + cas.calcul + " » n'est pas un calcul connu.");
    return calcul->second();
}
