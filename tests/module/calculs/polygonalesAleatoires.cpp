#include "polygonalesAleatoires.h"

#include <cmath>
#include <regex>

#include "calculs/gisement.h"
#include "calculs/uniteAngulaire.h"

namespace {

constexpr double bruitAngle = 0.003 / 400.0; // of a turn
constexpr double bruitDistance = 0.005;

double signe(Alea& alea, double ampleur)
{
    return alea.entre(-ampleur, ampleur);
}

/// Observes the legs through `p.vraies`; the angle of row 0 is measured from `gisementAvant`, that of the line that
/// arrives at the departure.
void observer(polygonaleTiree& p, Alea& alea, double gisementAvant, std::size_t cotes)
{
    const double tour = tourComplet(p.unite);
    for (std::size_t i = 0; i < cotes; ++i) {
        const stationCorrigee &de = p.vraies[i], &a = p.vraies[(i + 1) % p.vraies.size()];
        const double g = gisement(de.x, de.y, a.x, a.y, p.unite);
        const double angle = normaliser(g - gisementAvant - tour / 2.0 + signe(alea, bruitAngle * tour), tour);
        p.lignes.push_back({a.nom, angle, std::hypot(a.x - de.x, a.y - de.y) + signe(alea, bruitDistance), 0.0});
        gisementAvant = g;
    }
    p.depart.nom = p.vraies.front().nom;
    p.depart.x = p.vraies.front().x;
    p.depart.y = p.vraies.front().y;
}

bool atteint(const std::vector<stationCorrigee>& stations, const std::vector<stationCorrigee>& vraies)
{
    for (std::size_t i = 0; i < vraies.size(); ++i)
        if (!(std::hypot(stations[i].x - vraies[i].x, stations[i].y - vraies[i].y) < 0.5))
            return false;
    return true;
}

/// Types what a sentence says. @return false when it says nothing to type
bool saisir(const std::wstring& phrase, polygonaleTiree& p)
{
    const double tour = tourComplet(p.unite);
    std::wsmatch trouve;
    bool saisi = true;
    const auto chaque = [&](auto change) {
        for (std::size_t k = 0; k < p.angles(); ++k)
            p.angle(k) = change(p.angle(k));
    };
    if (std::regex_search(phrase, trouve, std::wregex(L"saisissez ([0-9.]+) moins chaque angle")))
        chaque([&](double a) { return normaliser(std::stod(trouve[1]) - a, tour); });
    else if (std::regex_search(phrase, trouve, std::wregex(L"ajoutez ([0-9.]+) à chacun")))
        chaque([&](double a) { return normaliser(a + std::stod(trouve[1]), tour); });
    else
        saisi = false;
    const std::wregex valeur(L"(-?[0-9.]+) au lieu de -?[0-9.]+ (à la première ligne|à la ligne ([0-9]+)|comme "
                             L"dernier angle|comme gisement de départ|comme gisement d'arrivée)");
    for (std::wsregex_iterator it(phrase.begin(), phrase.end(), valeur), fin; it != fin; ++it) {
        const double nouveau = std::stod((*it)[1]);
        const std::wstring ou = (*it)[2];
        if (ou == L"comme gisement de départ")
            p.depart.gisement = nouveau;
        else if (ou == L"comme gisement d'arrivée")
            p.arrivee.gisement = nouveau;
        else if (ou == L"comme dernier angle")
            p.dernierAngle = nouveau;
        else
            p.angle(ou == L"à la première ligne" ? 0 : std::stoul((*it)[3]) - 1) = nouveau;
        saisi = true;
    }
    return saisi;
}

/// The explanations that a text gives: "Soit A. Soit B."
std::vector<std::wstring> explications(const std::wstring& conseil)
{
    static const std::wstring soit = L"Soit ";
    std::vector<std::wstring> toutes;
    for (std::size_t debut = conseil.find(soit); debut != std::wstring::npos;) {
        const std::size_t suivant = conseil.find(soit, debut + 1);
        toutes.push_back(conseil.substr(debut, suivant - debut));
        debut = suivant;
    }
    return toutes.empty() ? std::vector<std::wstring>{conseil} : toutes;
}

/// The part meant for those who walked the loop in that sense, when the text tells them apart.
std::wstring pourLeSens(const std::wstring& explication, bool antihoraire)
{
    static const std::wstring horaire = L"Boucle parcourue dans le sens des aiguilles d'une montre : ";
    static const std::wstring autre = L"Boucle parcourue dans l'autre sens : ";
    const std::size_t h = explication.find(horaire), a = explication.find(autre);
    if (h == std::wstring::npos || a == std::wstring::npos)
        return explication;
    return antihoraire ? explication.substr(a) : explication.substr(h, a - h);
}

template <class Essai>
suite suivre(const std::wstring& conseil, Essai essai)
{
    if (conseil.empty())
        return suite::muet;
    const auto toutes = explications(conseil);
    bool aSaisir = false;
    for (const std::wstring& explication : toutes) {
        const auto [saisi, bon] = essai(explication);
        aSaisir = aSaisir || saisi;
        if (bon)
            return toutes.size() == 1 ? suite::juste : suite::parmi;
    }
    return aSaisir ? suite::faux : suite::sansSuite;
}

} // namespace

resultatPolygonaleOuverte polygonaleTiree::ouverte() const
{
    return compenserPolygonaleOuverte(depart, arrivee, dernierAngle, 0, unite, lignes);
}

resultatPolygonaleFermee polygonaleTiree::fermee() const
{
    return compenserPolygonaleFermee(depart, 0, unite, lignes);
}

polygonaleTiree ouverteAleatoire(Alea& alea)
{
    polygonaleTiree p;
    p.unite = static_cast<int>(alea.entre(0.0, 3.0));
    const double tour = tourComplet(p.unite), k = facteurRadians(p.unite);
    const std::size_t cotes = 3 + static_cast<std::size_t>(alea.entre(0.0, 10.0));
    double x = 1000.0, y = 2000.0;
    double direction = alea.entre(0.0, tour);
    const double avant = normaliser(direction - alea.entre(0.1, 0.9) * tour + tour / 2.0, tour);
    for (std::size_t i = 0; i <= cotes; ++i) {
        p.vraies.push_back({L"S" + std::to_wstring(i), x, y, 0.0});
        const double longueur = alea.entre(30.0, 250.0);
        x += longueur * std::sin(k * direction);
        y += longueur * std::cos(k * direction);
        direction += alea.entre(0.1, 0.9) * tour - tour / 2.0;
    }
    observer(p, alea, avant, cotes);
    p.depart.gisement = avant;
    const stationCorrigee &derniere = p.vraies[cotes], &precedente = p.vraies[cotes - 1];
    const double dernier = gisement(precedente.x, precedente.y, derniere.x, derniere.y, p.unite);
    p.dernierAngle = alea.entre(0.1, 0.9) * tour;
    p.arrivee = {derniere.nom, derniere.x, derniere.y, 0.0, 0.0};
    p.arrivee.gisement = normaliser(dernier + p.dernierAngle + tour / 2.0, tour);
    p.arrivee.gisement += std::round(p.ouverte().erreurAngulaire / tour) * tour;
    return p;
}

polygonaleTiree boucleAleatoire(Alea& alea, sensBoucle sens)
{
    polygonaleTiree p;
    p.unite = static_cast<int>(alea.entre(0.0, 3.0));
    const std::size_t n = 4 + static_cast<std::size_t>(alea.entre(0.0, 9.0));
    const double pas = (sens == sensBoucle::horaire ? 400.0 : -400.0) / static_cast<double>(n);
    const double premier = alea.entre(0.0, 400.0);
    for (std::size_t i = 0; i < n; ++i) {
        const double vue = (premier + pas * (static_cast<double>(i) + signe(alea, 0.35))) * facteurRadians(uniteGrades);
        const double rayon = alea.entre(80.0, 200.0);
        p.vraies.push_back({L"S" + std::to_wstring(i), rayon * std::sin(vue), rayon * std::cos(vue), 0.0});
    }
    const stationCorrigee &premiere = p.vraies[0], &derniere = p.vraies[n - 1];
    observer(p, alea, gisement(derniere.x, derniere.y, premiere.x, premiere.y, p.unite), n);
    p.depart.gisement = gisement(premiere.x, premiere.y, p.vraies[1].x, p.vraies[1].y, p.unite);
    return p;
}

suite suivreOuverte(const std::wstring& conseil, const polygonaleTiree& p)
{
    return suivre(conseil, [&](const std::wstring& explication) {
        polygonaleTiree essai = p;
        const bool saisi = saisir(explication, essai);
        return std::pair(saisi, saisi && atteint(essai.ouverte().stations, p.vraies));
    });
}

suite suivreFermee(const std::wstring& conseil, const polygonaleTiree& p, bool antihoraire)
{
    return suivre(conseil, [&](const std::wstring& explication) {
        polygonaleTiree essai = p;
        const bool saisi = saisir(pourLeSens(explication, antihoraire), essai);
        return std::pair(saisi, saisi && atteint(essai.fermee().stations, p.vraies));
    });
}
