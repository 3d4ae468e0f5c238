#include "calculs/avertissementsPolygonale.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

#include "calculs/conseilAngulaire.h"
#include "calculs/fauteUnique.h"
#include "calculs/fermeturePolygonale.h"
#include "calculs/phrasesConseil.h"
#include "services/codages.h"
#include "services/grandeur.h"
#include "services/lettres.h"
#include "services/reelDeTexte.h"

namespace {

using listePhrases = std::vector<std::wstring>;

void signalerCellule(std::size_t ligne, const wchar_t* colonne, const std::wstring& cellule, listePhrases& resultat)
{
    if (const std::wstring remarque = remarqueNombre(colonne, cellule); !remarque.empty())
        resultat.push_back(L"Ligne " + std::to_wstring(ligne) + L" : " + remarque);
}

void signalerDistances(const cheminement& c, listePhrases& resultat)
{
    const auto douteuse = [](const cotePolygonale& cote) { return !(cote.observation.distance > 0.0); };
    const auto premiere = std::find_if(c.cotes.begin(), c.cotes.end(), douteuse);
    if (premiere == c.cotes.end())
        return;
    const auto nombre = std::count_if(premiere, c.cotes.end(), douteuse);
    resultat.push_back(L"Distance nulle ou négative : " + std::to_wstring(nombre) + L" ligne(s), dont la ligne " +
                       std::to_wstring(premiere - c.cotes.begin() + 1) + L" (" + cite(premiere->observation.nom) +
                       L").");
}

void signalerSommes(const cheminement& c, listePhrases& resultat)
{
    if (c.longueur == 0.0)
        resultat.push_back(L"La longueur totale des côtés est nulle : la fermeture ne peut pas être répartie.");
    if ((c.mode == nivellementDistance || c.mode == nivellementRacine) && c.nivellement.sommePoids == 0.0)
        resultat.push_back(L"Les stations compensées sont toutes au même endroit : la fermeture altimétrique ne peut "
                           L"pas être répartie selon les distances.");
}

void signalerResultats(const cheminement& c, listePhrases& resultat)
{
    const auto tous = [&c](auto condition) {
        return std::all_of(c.stations.begin(), c.stations.end(), [&](const stationCorrigee& s) {
            return condition(s.x) && condition(s.y) && condition(s.z);
        });
    };
    if (!tous([](double valeur) { return std::isfinite(valeur); }))
        resultat.push_back(L"Le calcul ne donne pas de coordonnées finies : vérifiez les distances et les angles.");
    if (!tous([](double valeur) { return valeur != inconnu; }))
        resultat.push_back(L"Une donnée est inconnue (1E38) : les coordonnées qui en dépendent le sont aussi.");
}

/// Where the last row must arrive.
struct finAttendue {
    const std::wstring& nom;
    const wchar_t* role;
    const wchar_t* suite; ///< what the sentence ends with
};

void signalerFin(const cheminement& c, const finAttendue& fin, listePhrases& resultat)
{
    const std::wstring attendue = fin.nom.substr(0, longueurNomStation);
    const std::wstring& atteinte = c.cotes.back().observation.nom;
    if (enMinuscules(attendue) != enMinuscules(atteinte))
        resultat.push_back(L"La dernière ligne vise " + cite(atteinte) + L" et non la station " + fin.role + L" " +
                           cite(attendue) + L" : " + fin.suite);
}

listePhrases avertissements(const cheminement& c, const finAttendue& fin, const std::wstring& conseil)
{
    listePhrases resultat;
    signalerFin(c, fin, resultat);
    signalerDistances(c, resultat);
    signalerSommes(c, resultat);
    if (std::wstring fermeture = remarqueFermeture(c); !fermeture.empty())
        resultat.push_back(std::move(fermeture));
    if (!conseil.empty())
        resultat.push_back(conseil);
    signalerResultats(c, resultat);
    return resultat;
}

} // namespace

std::vector<std::wstring> avertissementsObservations(const std::vector<ligneObservation>& lignes)
{
    listePhrases resultat;
    for (std::size_t i = 0; i < lignes.size(); ++i) {
        signalerCellule(i + 1, L"l'angle", lignes[i].angle, resultat);
        signalerCellule(i + 1, L"la distance", lignes[i].distance, resultat);
        signalerCellule(i + 1, L"l'altitude", lignes[i].altitude, resultat);
    }
    return resultat;
}

std::wstring conseilPolygonale(const resultatPolygonaleFermee& resultat)
{
    std::wstring conseil = conseilAngulaire(resultat);
    return conseil.empty() ? conseilFaute(resultat) : conseil;
}

std::wstring conseilPolygonale(const resultatPolygonaleOuverte& resultat)
{
    std::wstring conseil = conseilAngulaire(resultat);
    return conseil.empty() ? conseilFaute(resultat) : conseil;
}

std::vector<std::wstring> avertissementsPolygonale(const resultatPolygonaleFermee& resultat)
{
    if (resultat.cotes.size() < 2)
        return {donneesInsuffisantes};
    return avertissements(resultat, {resultat.depart.nom, L"de départ", L"la boucle doit s'y refermer."},
                          conseilPolygonale(resultat));
}

std::vector<std::wstring> avertissementsPolygonale(const resultatPolygonaleOuverte& resultat)
{
    if (resultat.cotes.size() < 2)
        return {donneesInsuffisantes};
    return avertissements(resultat, {resultat.arrivee.nom, L"d'arrivée", L"la polygonale doit y finir."},
                          conseilPolygonale(resultat));
}

std::vector<std::wstring> avertissementsNoms(const std::vector<std::wstring>& noms, std::size_t longueur,
                                             const std::wstring& ou)
{
    listePhrases resultat;
    std::set<std::wstring> vus;
    std::map<std::string, std::wstring> tenus; // the first name that is kept so
    for (const std::wstring& nom : noms) {
        if (!vus.insert(nom).second)
            continue;
        const std::string entier = versAnsi(nom), tenu = entier.substr(0, longueur);
        if (depuisAnsi(entier) != nom)
            resultat.push_back(L"Le nom " + cite(nom) + L" devient " + cite(depuisAnsi(tenu)) + L" " + ou +
                               L" : un de ses caractères n'est pas dans la page de codes Windows-1252.");
        else if (tenu.size() < entier.size())
            resultat.push_back(L"Le nom " + cite(nom) + L" est coupé à " + std::to_wstring(longueur) + L" caractères " +
                               ou + L".");
        if (const auto [autre, nouveau] = tenus.emplace(tenu, nom); !nouveau)
            resultat.push_back(L"Les stations " + cite(autre->second) + L" et " + cite(nom) +
                               L" y portent le même nom, " + cite(depuisAnsi(tenu)) + L".");
    }
    return resultat;
}

std::vector<std::wstring> avertissementsNoms(const std::vector<stationCorrigee>& stations, std::size_t longueur,
                                             const std::wstring& ou)
{
    std::vector<std::wstring> noms;
    for (const stationCorrigee& station : stations)
        noms.push_back(station.nom);
    return avertissementsNoms(noms, longueur, ou);
}

std::vector<std::wstring> premieresPhrases(std::vector<std::wstring> phrases, std::size_t nombre)
{
    if (phrases.size() <= nombre || nombre == 0)
        return phrases;
    const std::size_t tues = phrases.size() - nombre + 1;
    phrases.resize(nombre - 1);
    phrases.push_back(L"... et " + std::to_wstring(tues) + L" autres remarques.");
    return phrases;
}
