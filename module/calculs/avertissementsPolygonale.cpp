#include "calculs/avertissementsPolygonale.h"

#include "calculs/grandeur.h"
#include "calculs/reelDeTexte.h"
#include "calculs/texteAnsi.h"
#include "calculs/uniteAngulaire.h"

#include <algorithm>
#include <cmath>

namespace {

using phrases = std::vector<std::wstring>;

std::wstring cite(const std::wstring& texte)
{
    return L"« " + texte + L" »";
}

void signalerCellule(std::size_t ligne, const wchar_t* colonne, const std::wstring& cellule, phrases& resultat)
{
    bool nombre = false;
    reelDeTexte(cellule, &nombre);
    if (nombre)
        return;
    std::wstring phrase = L"Ligne " + std::to_wstring(ligne) + L" : " + colonne + L" " + cite(cellule) +
                          L" n'est pas un nombre ; seul ce qui précède la faute est lu, ou 0.";
    if (cellule.find(L',') != std::wstring::npos)
        phrase += L" Le séparateur décimal est le point.";
    resultat.push_back(phrase);
}

void signalerDistances(const resultatPolygonaleFermee& r, phrases& resultat)
{
    const auto douteuse = [](const viseeFermee& v) { return !(v.observation.distance > 0.0); };
    const auto premiere = std::find_if(r.visees.begin(), r.visees.end(), douteuse);
    if (premiere == r.visees.end())
        return;
    const auto nombre = std::count_if(premiere, r.visees.end(), douteuse);
    resultat.push_back(L"Distance nulle ou négative : " + std::to_wstring(nombre) + L" ligne(s), dont la ligne " +
                       std::to_wstring(premiere - r.visees.begin() + 1) + L" (" + cite(premiere->observation.nom) +
                       L").");
}

void signalerSommes(const resultatPolygonaleFermee& r, phrases& resultat)
{
    if (r.longueur == 0.0)
        resultat.push_back(L"La longueur totale des côtés est nulle : la fermeture ne peut pas être répartie.");
    if ((r.mode == nivellementDistance || r.mode == nivellementRacine) && r.nivellement.sommePoids == 0.0)
        resultat.push_back(L"Les stations compensées sont toutes au même endroit : la fermeture altimétrique ne peut "
                           L"pas être répartie selon les distances.");
}

void signalerResultats(const resultatPolygonaleFermee& r, phrases& resultat)
{
    const auto tous = [&r](auto condition) {
        return std::all_of(r.stations.begin(), r.stations.end(), [&](const stationCorrigee& s) {
            return condition(s.x) && condition(s.y) && condition(s.z);
        });
    };
    if (!tous([](double valeur) { return std::isfinite(valeur); }))
        resultat.push_back(L"Le calcul ne donne pas de coordonnées finies : vérifiez les distances et les angles.");
    if (!tous([](double valeur) { return valeur != inconnu; }))
        resultat.push_back(L"Une donnée est inconnue (1E38) : les coordonnées qui en dépendent le sont aussi.");
}

void signalerRetour(const resultatPolygonaleFermee& r, phrases& resultat)
{
    const std::wstring depart = r.depart.nom.substr(0, longueurNomStation);
    const std::wstring& retour = r.visees.back().observation.nom;
    if (enMinuscules(depart) != enMinuscules(retour))
        resultat.push_back(L"La dernière ligne vise " + cite(retour) + L" et non la station de départ " + cite(depart) +
                           L" : la boucle doit s'y refermer.");
}

void signalerErreurAngulaire(const resultatPolygonaleFermee& r, phrases& resultat)
{
    const double tours = r.erreurAngulaire / tourComplet(r.unite);
    const double entiers = std::round(tours);
    // A fortieth of a turn: far more than any observation error, far less than a turn.
    const bool proche = entiers != 0.0 && std::abs(tours - entiers) < 1.0 / 40.0;
    if (!proche)
        return;
    if (entiers == 2.0) {
        resultat.push_back(L"L'erreur angulaire est proche de deux tours : les angles saisis semblent être les angles "
                           L"intérieurs, ou la boucle est parcourue dans l'autre sens. Il faut les angles extérieurs, "
                           L"boucle parcourue dans le sens des aiguilles d'une montre.");
        return;
    }
    resultat.push_back(L"L'erreur angulaire est proche d'un nombre entier de tours : un angle est sans doute saisi à "
                       L"un tour près.");
}

} // namespace

std::vector<std::wstring> avertissementsObservations(const std::vector<ligneObservation>& lignes)
{
    phrases resultat;
    for (std::size_t i = 0; i < lignes.size(); ++i) {
        signalerCellule(i + 1, L"l'angle", lignes[i].angle, resultat);
        signalerCellule(i + 1, L"la distance", lignes[i].distance, resultat);
        signalerCellule(i + 1, L"l'altitude", lignes[i].altitude, resultat);
    }
    return resultat;
}

std::vector<std::wstring> avertissementsPolygonaleFermee(const resultatPolygonaleFermee& resultat)
{
    if (resultat.visees.size() < 2)
        return {donneesInsuffisantes};
    phrases avertissements;
    signalerRetour(resultat, avertissements);
    signalerDistances(resultat, avertissements);
    signalerSommes(resultat, avertissements);
    signalerErreurAngulaire(resultat, avertissements);
    signalerResultats(resultat, avertissements);
    return avertissements;
}
