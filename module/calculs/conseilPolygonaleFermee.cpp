#include <algorithm>

#include "calculs/conseilAngulaire.h"
#include "calculs/fermeturePolygonale.h"
#include "calculs/hypothesesAngulaires.h"
#include "calculs/phrasesConseil.h"
#include "calculs/uniteAngulaire.h"

namespace {

constexpr wchar_t sensHoraire[] = L"Boucle parcourue dans le sens des aiguilles d'une montre : ";
constexpr wchar_t autreSens[] = L"Boucle parcourue dans l'autre sens : ";
// Exterior angles of a loop walked anticlockwise make two turns less than those of one walked clockwise.
constexpr int demiToursAutreSens = 4;

/// Half turns left when every angle is booked by our rule, within the turn.
int demiToursSelon(const resultatPolygonaleFermee& r, regleAngles regle)
{
    std::vector<observationPolygonale> lignes = observationsDuCheminement(r);
    for (observationPolygonale& ligne : lignes)
        ligne.angle = angleHoraire(ligne.angle, regle, tourComplet(r.unite));
    return demiToursProches(compenserPolygonaleFermee(r.depart, nivellementAucun, r.unite, lignes));
}

double premierAngle(const resultatPolygonaleFermee& r)
{
    return r.cotes.front().observation.angle;
}

/// "349.98 au lieu de 50.02 à la première ligne", half turns added that its angle gives to the closure and to no leg.
std::wstring premiereLigne(const resultatPolygonaleFermee& r, double angle, int demiTours)
{
    return auLieuDe(angle + demiTours * tourComplet(r.unite) / 2.0, premierAngle(r)) + L" à la première ligne";
}

/// The rows whose angle is a turn or more, or below zero, and what to type there; empty when there are none.
std::wstring anglesHorsDuTour(const resultatPolygonaleFermee& r)
{
    constexpr int cites = 3;
    const double tour = tourComplet(r.unite);
    std::wstring lignes;
    int nombre = 0;
    for (std::size_t i = 0; i < r.cotes.size(); ++i) {
        const double angle = r.cotes[i].observation.angle;
        if (angle >= 0.0 && angle < tour)
            continue;
        if (++nombre <= cites)
            lignes += (nombre > 1 ? L", " : L"") + (L"à la ligne " + std::to_wstring(i + 1)) + L", saisissez " +
                      auLieuDe(normaliser(angle, tour), angle);
    }
    return nombre > cites ? L"ramenez chaque angle entre 0 et " + saisi(tour) : lignes;
}

/// Angles by our rule, or measured the other way: the legs close, and only turns are to be counted.
std::wstring parLeSens(const resultatPolygonaleFermee& r)
{
    const double tour = tourComplet(r.unite);
    const int demis = demiToursProches(r);
    const int dansLeTour = demiToursSelon(r, regleAngles::horaires);
    if (dansLeTour == 0)
        return anglesHorsDuTour(r);
    if (dansLeTour == demiToursAutreSens)
        return L"les angles saisis semblent être les angles intérieurs. " + std::wstring(sensHoraire) +
               L"il faut les angles extérieurs, " + complements(tour) + L", soit " +
               premiereLigne(r, tour - premierAngle(r), 0) + L". " + autreSens + L"gardez-les et saisissez seulement " +
               premiereLigne(r, premierAngle(r), demis);
    return L"la boucle se croise sans doute ; saisissez " + premiereLigne(r, premierAngle(r), demis) +
           L", dont l'angle ne sert qu'à cette fermeture";
}

/// "ajoutez 200 à chacun, soit 349.98 au lieu de 149.98 à la première ligne"
std::wstring saisieDeviations(const resultatPolygonaleFermee& r, regleAngles regle, int demiTours)
{
    const double tour = tourComplet(r.unite);
    const bool droite = regle == regleAngles::deviationsADroite;
    const auto saute = [&](const cotePolygonale& c) {
        const double brut = droite ? c.observation.angle + tour / 2.0 : tour / 2.0 - c.observation.angle;
        return brut < 0.0 || brut >= tour;
    };
    std::wstring phrase = droite ? L"ajoutez " + saisi(tour / 2.0) + L" à chacun" : complements(tour / 2.0);
    if (std::ranges::any_of(r.cotes, saute))
        phrase += L", ramené entre 0 et " + saisi(tour);
    return phrase + (demiTours == 0 ? L", soit " : L", mais ") +
           premiereLigne(r, angleHoraire(premierAngle(r), regle, tour), demiTours);
}

/// Deflections to the right or to the left: the way the loop was walked decides.
std::wstring parLesDeviations(const resultatPolygonaleFermee& r)
{
    const std::wstring debut = L"les angles saisis semblent être des angles de déviation";
    regleAngles horaire = regleAngles::deviationsADroite, antihoraire = regleAngles::deviationsAGauche;
    if (demiToursSelon(r, horaire) != 0)
        std::swap(horaire, antihoraire);
    if (demiToursSelon(r, horaire) != 0) { // neither: the loop crosses itself
        const regleAngles droite = regleAngles::deviationsADroite;
        return debut + L" ; " + saisieDeviations(r, droite, demiToursSelon(r, droite));
    }
    return debut + L". " + sensHoraire + saisieDeviations(r, horaire, 0) + L". " + autreSens +
           saisieDeviations(r, antihoraire, demiToursSelon(r, antihoraire));
}

/// One angle half a turn off.
std::wstring parUnAngle(const resultatPolygonaleFermee& r, std::size_t rang)
{
    const double tour = tourComplet(r.unite);
    std::vector<observationPolygonale> lignes = observationsDuCheminement(r);
    double& angle = lignes[rang].angle;
    const double avant = angle;
    angle = normaliser(angle + tour / 2.0, tour);
    const std::wstring station = (rang == 0 ? r.cotes.back() : r.cotes[rang - 1]).observation.nom;
    std::wstring phrase =
        angleRetourne(station, rang) + auLieuDe(angle, avant) + L" à la ligne " + std::to_wstring(rang + 1);
    // Whole turns are left when the loop was walked the other way, or its angles are the interior ones.
    if (demiToursProches(compenserPolygonaleFermee(r.depart, nivellementAucun, r.unite, lignes)) != 0)
        phrase += L", puis calculez de nouveau : il restera des tours entiers à expliquer";
    return phrase;
}

std::wstring explication(const resultatPolygonaleFermee& r, const hypotheseAngulaire& h)
{
    if (!h.retournes.empty())
        return parUnAngle(r, h.retournes.front());
    return h.regle == regleAngles::horaires ? parLeSens(r) : parLesDeviations(r);
}

/// What the size of the error alone suggests; nothing that was tried closes the traverse.
std::wstring soupcon(const resultatPolygonaleFermee& r, int demis)
{
    if (const std::wstring lignes = anglesHorsDuTour(r); !lignes.empty())
        return lignes + L".";
    if (demis == demiToursAutreSens)
        return L"les angles saisis semblent être les angles intérieurs, ou la boucle est parcourue dans l'autre sens. "
               L"Il faut les angles extérieurs, boucle parcourue dans le sens des aiguilles d'une montre.";
    if (demis % 2 == 0)
        return L"un angle est saisi à un tour près, ou la boucle se croise.";
    return L"un angle est sans doute lu à un demi-tour près (cercle droite pour cercle gauche), mais aucun ne ferme à "
           L"lui seul la polygonale. Vérifiez aussi les distances.";
}

} // namespace

std::wstring conseilAngulaire(const resultatPolygonaleFermee& r)
{
    if (r.cotes.size() < 2 || fermetureAdmise(r))
        return {};
    const int demis = demiToursProches(r);
    std::vector<std::wstring> explications;
    for (const hypotheseAngulaire& h : hypothesesAngulaires(r))
        explications.push_back(explication(r, h));
    const std::wstring debut = constatAngulaire(demis, r.unite);
    if (!explications.empty())
        return debut + direExplications(explications);
    return demis == 0 ? std::wstring() : debut + soupcon(r, demis);
}
