#include "calculs/reseau/choixObservations.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "calculs/reseau/placesRobustes.h"
#include "services/formatNombres.h"

namespace {

/// What keeps an observation from its point; empty when nothing does.
std::wstring obstacle(const reseau& r, const approcheReseau& a, const observationReseau& o, int point)
{
    if (point < 0)
        return L"sans point";
    const auto p = static_cast<std::size_t>(point);
    const std::wstring nom = L"le point « " + r.points[p].nom + L" » ";
    if (estPlanimetrique(o.genre) && (r.points[p].plan == tenue::ignoree || !a.enPlan[p]))
        return nom + L"n'a pas de place en plan";
    if (estAltimetrique(o.genre) && (r.points[p].altitude == tenue::ignoree || !a.enAltitude[p]))
        return nom + L"n'a pas d'altitude";
    return {};
}

std::wstring obstacle(const reseau& r, const approcheReseau& a, const observationReseau& o)
{
    const bool seule = o.genre == genreObservation::coordonneeX || o.genre == genreObservation::coordonneeY ||
                       o.genre == genreObservation::coordonneeZ;
    std::wstring raison = obstacle(r, a, o, o.de);
    if (raison.empty() && !seule)
        raison = obstacle(r, a, o, o.vers);
    if (raison.empty() && o.genre == genreObservation::angle)
        raison = obstacle(r, a, o, o.vers2);
    return raison;
}

std::wstring metres(double valeur)
{
    return formaterFixe(valeur, 3) + L" m";
}

/// The misclosure with the approximate places as a length: of angles, across the longest sight.
double ecartEnMetres(const observationReseau& o, const coordonneesReseau& c, double ecart)
{
    if (!estAngulaire(o.genre))
        return std::abs(ecart);
    double longueur = 0.0;
    for (const int vers : {o.vers, o.vers2})
        if (vers >= 0) {
            const auto i = static_cast<std::size_t>(o.de), j = static_cast<std::size_t>(vers);
            longueur = std::max(longueur, std::hypot(c.x[j] - c.x[i], c.y[j] - c.y[i]));
        }
    return std::abs(ecart) * longueur;
}

} // namespace

std::vector<int> observationsRetenues(const reseau& r, const approcheReseau& a, const std::vector<double>& ecarts,
                                      resultatReseau& resultat)
{
    std::vector<int> retenues;
    std::map<std::wstring, int> raisons;
    for (std::size_t k = 0; k < r.observations.size(); ++k) {
        const observationReseau& o = r.observations[k];
        std::wstring raison;
        if (!o.active)
            raison = L"mise hors calcul";
        else if (raison = obstacle(r, a, o); raison.empty()) {
            if (!(ecarts[k] > 0.0))
                raison = L"sans poids : écart-type ou formule manquent, ou donnent zéro";
            else if (!equationDe(o, a.c).possible)
                raison = L"ses points sont au même endroit";
        }
        if (raison.empty()) {
            retenues.push_back(static_cast<int>(k));
            continue;
        }
        resultat.mesures[k].raison = raison;
        if (o.active)
            ++raisons[raison];
    }
    for (const auto& [raison, nombre] : raisons)
        resultat.messages.push_back(std::to_wstring(nombre) + L" observation(s) hors calcul : " + raison + L".");
    return retenues;
}

void ecarterHorsTolerance(const reseau& r, const approcheReseau& a, const std::vector<double>& ecarts,
                          std::vector<int>& retenues, resultatReseau& resultat)
{
    if (!estConnue(r.toleranceAbsolue))
        return;
    const auto dehors = [&](int k, const coordonneesReseau& c) {
        const observationReseau& o = r.observations[static_cast<std::size_t>(k)];
        return ecartEnMetres(o, c, equationDe(o, c).ecart) > r.toleranceAbsolue;
    };
    const bool toutDedans = std::ranges::none_of(retenues, [&](int k) { return dehors(k, a.c); });
    if (toutDedans)
        return;
    const coordonneesReseau c = placesRobustes(r, a.c, ecarts, retenues, 25);
    std::erase_if(retenues, [&](int k) {
        if (!dehors(k, c))
            return false;
        const observationReseau& o = r.observations[static_cast<std::size_t>(k)];
        const double ecart = ecartEnMetres(o, c, equationDe(o, c).ecart);
        resultat.mesures[static_cast<std::size_t>(k)].raison = L"hors tolérance absolue";
        resultat.messages.push_back(L"Mise de côté, à " + metres(ecart) + L" de ce qu'elle devrait être (tolérance " +
                                    metres(r.toleranceAbsolue) + L") : " + nomObservation(r, o) +
                                    (o.ligne > 0 ? L", ligne " + std::to_wstring(o.ligne) : L"") + L".");
        return true;
    });
}

std::wstring phraseRienACalculer(const reseau& r, const resultatReseau& resultat)
{
    std::wstring phrase =
        r.observations.empty() ? L"aucune observation." : L"aucune observation ne peut être calculée.";
    for (const std::wstring& message : resultat.messages)
        phrase += L"\n" + message;
    return phrase;
}
