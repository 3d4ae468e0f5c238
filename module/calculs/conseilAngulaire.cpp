#include "calculs/conseilAngulaire.h"

#include <cmath>
#include <optional>

#include "calculs/uniteAngulaire.h"
#include "services/grandeur.h"
#include "services/nombreFixe.h"

namespace {

using observations = std::vector<observationPolygonale>;

// A fortieth of a turn (10 gr): far more than any observation error, far less than half a turn.
constexpr double tolerance = 1.0 / 40.0;
// A traverse that closes within a twentieth of its length is no longer a wrong figure.
constexpr double fermetureAdmise = 1.0 / 20.0;

/// Half turns that the error is near to; 0 for an error near none of them, or near zero.
int demiToursProches(const cheminement& c)
{
    const double demis = c.erreurAngulaire / (tourComplet(c.unite) / 2.0);
    const double entiers = std::round(demis);
    // The bound also leaves out what is unknown or not finite.
    if (!(std::abs(entiers) < 1e6) || std::abs(demis - entiers) > 2.0 * tolerance)
        return 0;
    return static_cast<int>(entiers);
}

bool ferme(const cheminement& c)
{
    return std::abs(c.erreurAngulaire) < tourComplet(c.unite) * tolerance &&
           c.fermeturePlanimetrique < c.longueur * fermetureAdmise;
}

/// An angle as one would type it: a hundredth of a second at least, in radians too.
std::wstring saisi(double angle)
{
    constexpr int decimales = 8;
    std::string texte = nombreFixe(angle, decimales);
    texte.erase(texte.find_last_not_of('0') + 1);
    if (texte.ends_with('.'))
        texte.pop_back();
    return std::wstring(texte.begin(), texte.end());
}

/// "L'erreur angulaire vaut un tour entier (400 gr) : "
std::wstring constat(int demiTours, int unite)
{
    const int n = std::abs(demiTours);
    std::wstring nombre;
    if (n == 1)
        nombre = L"un demi-tour";
    else if (n == 2)
        nombre = L"un tour entier";
    else if (n % 2 == 0)
        nombre = std::to_wstring(n / 2) + L" tours entiers";
    else
        nombre = n == 3 ? L"un tour et demi" : std::to_wstring(n / 2) + L" tours et demi";
    const wchar_t* const espace = unite == uniteDegres ? L"" : L" ";
    return L"L'erreur angulaire vaut " + nombre + L" (" + saisi(demiTours * tourComplet(unite) / 2.0) + espace +
           symboleUniteAngulaire(unite) + L") : ";
}

observations observationsDuCheminement(const cheminement& c)
{
    observations lignes;
    lignes.reserve(c.cotes.size());
    for (const cotePolygonale& cote : c.cotes)
        lignes.push_back(cote.observation);
    return lignes;
}

template <class Changement>
observations anglesChanges(const cheminement& c, Changement changement)
{
    observations lignes = observationsDuCheminement(c);
    for (observationPolygonale& ligne : lignes)
        ligne.angle = changement(ligne.angle);
    return lignes;
}

// --- Closed --------------------------------------------------------------------------------------------------------

bool fermeAvec(const resultatPolygonaleFermee& r, const observations& lignes)
{
    return ferme(compenserPolygonaleFermee(r.depart, nivellementAucun, r.unite, lignes));
}

/// "349.98 au lieu de 50.02 à la première ligne"
std::wstring premiereLigne(const resultatPolygonaleFermee& r, const observations& lignes)
{
    return saisi(lignes.front().angle) + L" au lieu de " + saisi(r.cotes.front().observation.angle) +
           L" à la première ligne";
}

/// The same rows with half turns added to the first angle, which turns no leg: it enters only the closure.
observations fermetureDecalee(const resultatPolygonaleFermee& r, int demiTours)
{
    observations lignes = observationsDuCheminement(r);
    lignes.front().angle += demiTours * tourComplet(r.unite) / 2.0;
    return lignes;
}

/// The first row whose angle is a turn or more, or below zero: what to type there; empty when there is none.
std::wstring angleHorsDuTour(const resultatPolygonaleFermee& r)
{
    const double tour = tourComplet(r.unite);
    for (std::size_t i = 0; i < r.cotes.size(); ++i) {
        const double angle = r.cotes[i].observation.angle;
        if (angle < 0.0 || angle >= tour)
            return L"à la ligne " + std::to_wstring(i + 1) + L", saisissez " + saisi(normaliser(angle, tour)) +
                   L" au lieu de " + saisi(angle) + L".";
    }
    return {};
}

// --- Open ----------------------------------------------------------------------------------------------------------

/// How the angles of an open traverse may have been booked.
enum class anglesNotes { deLArriereVersLAvant, inverses, deviations };

/// A way of booking an open traverse other than ours, and what the computation gives for it.
struct essaiOuvert {
    anglesNotes angles;
    bool departInverse;
    double gisementDepart, gisementArrivee; // to type
    resultatPolygonaleOuverte resultat;
};

essaiOuvert essayer(const resultatPolygonaleOuverte& r, anglesNotes angles, bool departInverse)
{
    const double tour = tourComplet(r.unite);
    const auto angle = [&](double a) {
        if (angles == anglesNotes::inverses)
            return normaliser(tour - a, tour);
        return angles == anglesNotes::deviations ? normaliser(a + tour / 2.0, tour) : a;
    };
    essaiOuvert essai{angles, departInverse, r.depart.gisement, r.arrivee.gisement, {}};
    if (departInverse)
        essai.gisementDepart = normaliser(r.depart.gisement + tour / 2.0, tour);
    const observations lignes = anglesChanges(r, angle);
    stationPolygonale depart = r.depart, arrivee = r.arrivee;
    depart.gisement = essai.gisementDepart;
    const auto calculer = [&] {
        return compenserPolygonaleOuverte(depart, arrivee, angle(r.dernierAngle), nivellementAucun, r.unite, lignes);
    };
    essai.resultat = calculer();
    if (const int demis = demiToursProches(essai.resultat); demis != 0) {
        essai.gisementArrivee = arrivee.gisement = r.arrivee.gisement + demis * tour / 2.0;
        essai.resultat = calculer();
    }
    return essai;
}

/// The way under which the traverse closes, if one does. Simple ways are tried first, and a later one is preferred only
/// when it closes far better: short legs may close by chance.
std::optional<essaiOuvert> essaiQuiFerme(const resultatPolygonaleOuverte& r)
{
    constexpr double bienMieux = 0.1;
    std::optional<essaiOuvert> meilleur;
    for (const anglesNotes angles : {anglesNotes::deLArriereVersLAvant, anglesNotes::inverses, anglesNotes::deviations})
        for (const bool departInverse : {false, true}) {
            essaiOuvert essai = essayer(r, angles, departInverse);
            const double fermeture = essai.resultat.fermeturePlanimetrique;
            if (ferme(essai.resultat) &&
                (!meilleur || fermeture < bienMieux * meilleur->resultat.fermeturePlanimetrique))
                meilleur = std::move(essai);
        }
    return meilleur;
}

std::wstring auLieuDe(double nouveau, double ancien, const wchar_t* quoi)
{
    return L"saisissez " + saisi(nouveau) + L" au lieu de " + saisi(ancien) + L" comme gisement " + quoi;
}

/// What to type for the bearings, "" when nothing changes.
std::wstring gisementsASaisir(const resultatPolygonaleOuverte& r, const essaiOuvert& essai)
{
    std::wstring phrase;
    if (essai.departInverse)
        phrase = auLieuDe(essai.gisementDepart, r.depart.gisement, L"de départ");
    if (essai.gisementArrivee != r.arrivee.gisement)
        phrase += (phrase.empty() ? L"" : L" et ") + auLieuDe(essai.gisementArrivee, r.arrivee.gisement, L"d'arrivée");
    return phrase;
}

/// Why the arrival bearing misses, when nothing else does.
std::wstring raisonArrivee(int demiTours)
{
    if (demiTours % 2 == 0)
        return L"le gisement porté compte les tours faits en chemin, celui d'arrivée doit les compter aussi ; ";
    return L"le gisement d'arrivée est donné dans l'autre sens, il le faut de la station d'arrivée vers sa référence "
           L"; ";
}

std::wstring phraseEssai(const resultatPolygonaleOuverte& r, const essaiOuvert& essai, int demiTours)
{
    std::wstring phrase = demiTours != 0 ? constat(demiTours, r.unite) : L"La polygonale ne se ferme pas : ";
    const double tour = tourComplet(r.unite);
    if (essai.angles == anglesNotes::inverses)
        phrase += L"les angles semblent mesurés dans l'autre sens, saisissez " + saisi(tour) +
                  L" moins chaque angle, le dernier compris ; ";
    else if (essai.angles == anglesNotes::deviations)
        phrase += L"les angles saisis semblent être des angles de déviation, ajoutez " + saisi(tour / 2.0) +
                  L" à chacun, le dernier compris ; ";
    else if (!essai.departInverse)
        phrase += raisonArrivee(demiTours);
    if (essai.departInverse)
        phrase += L"le gisement de départ est donné dans l'autre sens, il le faut de la référence vers la station de "
                  L"départ ; ";
    const std::wstring gisements = gisementsASaisir(r, essai);
    if (gisements.empty())
        phrase.erase(phrase.size() - 3); // the last " ; "
    return phrase + gisements + L".";
}

} // namespace

std::wstring conseilAngulaire(const resultatPolygonaleFermee& r)
{
    const int demis = demiToursProches(r);
    if (demis == 0 || r.cotes.size() < 2)
        return {};
    const double tour = tourComplet(r.unite);
    const std::wstring debut = constat(demis, r.unite);
    const observations interieurs = anglesChanges(r, [tour](double a) { return tour - a; });
    const observations deviations = anglesChanges(r, [tour](double a) { return normaliser(a + tour / 2.0, tour); });
    const observations decalees = fermetureDecalee(r, demis);
    // A loop and its image in a mirror close alike: only the user knows which way it was walked.
    if (fermeAvec(r, interieurs))
        return debut +
               L"les angles saisis semblent être les angles intérieurs. Boucle parcourue dans le sens des aiguilles "
               L"d'une montre : il faut les angles extérieurs, saisissez " +
               saisi(tour) + L" moins chaque angle, soit " + premiereLigne(r, interieurs) +
               L". Boucle parcourue dans l'autre sens : gardez-les et saisissez seulement " +
               premiereLigne(r, decalees) + L".";
    if (fermeAvec(r, deviations))
        return debut + L"les angles saisis semblent être des angles de déviation ; ajoutez " + saisi(tour / 2.0) +
               L" à chacun, soit " + premiereLigne(r, deviations) + L".";
    if (const std::wstring ligne = angleHorsDuTour(r); !ligne.empty())
        return debut + ligne;
    if (demis % 2 == 0 && fermeAvec(r, decalees))
        return debut + L"la boucle se croise sans doute ; saisissez " + premiereLigne(r, decalees) +
               L", dont l'angle ne sert qu'à cette fermeture.";
    if (demis == 4)
        return debut +
               L"les angles saisis semblent être les angles intérieurs, ou la boucle est parcourue dans l'autre "
               L"sens. Il faut les angles extérieurs, boucle parcourue dans le sens des aiguilles d'une montre.";
    if (demis % 2 == 0)
        return debut + L"un angle est saisi à un tour près, ou la boucle se croise.";
    return debut + L"un angle est sans doute lu à un demi-tour près (cercle droite pour cercle gauche).";
}

std::wstring conseilAngulaire(const resultatPolygonaleOuverte& r)
{
    if (r.cotes.empty() || ferme(r))
        return {};
    const int demis = demiToursProches(r);
    if (const auto essai = essaiQuiFerme(r))
        return phraseEssai(r, *essai, demis);
    if (demis == 0)
        return {};
    const double arrivee = r.arrivee.gisement + demis * tourComplet(r.unite) / 2.0;
    return constat(demis, r.unite) + raisonArrivee(demis) + auLieuDe(arrivee, r.arrivee.gisement, L"d'arrivée") +
           L". Vérifiez aussi les coordonnées et les distances : la polygonale ne se ferme pas pour autant.";
}
