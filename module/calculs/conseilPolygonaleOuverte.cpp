#include "calculs/conseilAngulaire.h"
#include "calculs/fermeturePolygonale.h"
#include "calculs/hypothesesAngulaires.h"
#include "calculs/phrasesConseil.h"
#include "calculs/uniteAngulaire.h"

namespace {

/// What to type instead of the data of a traverse.
struct donneesCorrigees {
    double gisementDepart, gisementArrivee, dernierAngle;
    std::vector<observationPolygonale> lignes;
};

donneesCorrigees donneesDe(const resultatPolygonaleOuverte& r, regleAngles regle)
{
    const double tour = tourComplet(r.unite);
    donneesCorrigees d{r.depart.gisement, r.arrivee.gisement, r.dernierAngle, observationsDuCheminement(r)};
    if (regle == regleAngles::horaires)
        return d;
    d.dernierAngle = angleHoraire(d.dernierAngle, regle, tour);
    for (observationPolygonale& ligne : d.lignes)
        ligne.angle = angleHoraire(ligne.angle, regle, tour);
    return d;
}

/// Makes the arrival bearing count the half turns that are left.
void compterTours(donneesCorrigees& d, const resultatPolygonaleOuverte& r)
{
    stationPolygonale depart = r.depart;
    depart.gisement = d.gisementDepart;
    const auto essai =
        compenserPolygonaleOuverte(depart, r.arrivee, d.dernierAngle, nivellementAucun, r.unite, d.lignes);
    d.gisementArrivee = r.arrivee.gisement + demiToursProches(essai) * tourComplet(r.unite) / 2.0;
}

/// "350 au lieu de 150 comme gisement de départ et 600 au lieu de 400 comme gisement d'arrivée", whichever change.
std::wstring gisementsASaisir(const resultatPolygonaleOuverte& r, const donneesCorrigees& d)
{
    std::wstring phrase;
    if (d.gisementDepart != r.depart.gisement)
        phrase = auLieuDe(d.gisementDepart, r.depart.gisement) + L" comme gisement de départ";
    if (d.gisementArrivee != r.arrivee.gisement)
        phrase += (phrase.empty() ? L"" : L" et ") + auLieuDe(d.gisementArrivee, r.arrivee.gisement) +
                  L" comme gisement d'arrivée";
    return phrase;
}

constexpr wchar_t departInverse[] = L"le gisement de départ semble donné dans l'autre sens, il le faut de la référence "
                                    L"vers la station de départ";
constexpr wchar_t arriveeInverse[] = L"le gisement d'arrivée semble donné dans l'autre sens, il le faut de la station "
                                     L"d'arrivée vers sa référence";
constexpr wchar_t toursComptes[] =
    L"le gisement porté compte les tours faits en chemin, celui d'arrivée doit les compter aussi";

constexpr wchar_t leDernierCompris[] = L", le dernier compris";

/// Bearings that explain a hypothesis; the angles are right but for their rule.
std::wstring parLesGisements(const resultatPolygonaleOuverte& r, const hypotheseAngulaire& h)
{
    const double tour = tourComplet(r.unite);
    donneesCorrigees d = donneesDe(r, h.regle);
    const bool depart = !h.retournes.empty() && h.retournes.front() == 0;
    const bool arrivee = !h.retournes.empty() && h.retournes.back() == r.cotes.size();
    if (depart)
        d.gisementDepart = normaliser(r.depart.gisement + tour / 2.0, tour);
    compterTours(d, r);
    std::wstring phrase;
    const auto ajouter = [&phrase](const std::wstring& raison) { phrase += (phrase.empty() ? L"" : L" ; ") + raison; };
    if (h.regle == regleAngles::antihoraires)
        ajouter(L"les angles semblent mesurés dans l'autre sens, " + complements(tour) + leDernierCompris);
    else if (h.regle == regleAngles::deviationsADroite)
        ajouter(L"les angles saisis semblent être des angles de déviation, ajoutez " + saisi(tour / 2.0) +
                L" à chacun" + leDernierCompris);
    else if (h.regle == regleAngles::deviationsAGauche)
        ajouter(L"les angles saisis semblent être des angles de déviation comptés vers la gauche, " +
                complements(tour / 2.0) + leDernierCompris);
    if (depart)
        ajouter(departInverse);
    if (arrivee)
        ajouter(arriveeInverse);
    if (h.regle == regleAngles::horaires && h.retournes.empty())
        ajouter(toursComptes);
    if (const std::wstring gisements = gisementsASaisir(r, d); !gisements.empty())
        ajouter(L"saisissez " + gisements);
    return phrase;
}

/// One angle half a turn off.
std::wstring parUnAngle(const resultatPolygonaleOuverte& r, std::size_t k)
{
    const double tour = tourComplet(r.unite);
    donneesCorrigees d = donneesDe(r, regleAngles::horaires);
    const bool dernier = k == d.lignes.size();
    double& angle = dernier ? d.dernierAngle : d.lignes[k].angle;
    const double avant = angle;
    angle = normaliser(angle + tour / 2.0, tour);
    const double corrige = angle;
    compterTours(d, r);
    const std::wstring station = k == 0 ? r.depart.nom : r.cotes[k - 1].observation.nom;
    std::wstring phrase = angleRetourne(station, k) + auLieuDe(corrige, avant) + aLaLigne(k, dernier);
    if (const std::wstring gisements = gisementsASaisir(r, d); !gisements.empty())
        phrase += L" et " + gisements;
    return phrase;
}

/// A bearing given the other way and the angle at that end cannot be told apart: both are told.
void expliquer(const resultatPolygonaleOuverte& r, const hypotheseAngulaire& h, std::vector<std::wstring>& phrases)
{
    const bool unAngle = h.regle == regleAngles::horaires && h.retournes.size() == 1;
    const std::size_t n = r.cotes.size();
    if (!unAngle || h.retournes.front() == 0 || h.retournes.front() == n)
        phrases.push_back(parLesGisements(r, h));
    if (unAngle)
        phrases.push_back(parUnAngle(r, h.retournes.front()));
}

} // namespace

std::wstring conseilAngulaire(const resultatPolygonaleOuverte& r)
{
    if (r.cotes.empty() || fermetureAdmise(r))
        return {};
    const int demis = demiToursProches(r);
    std::vector<std::wstring> explications;
    for (const hypotheseAngulaire& h : hypothesesAngulaires(r))
        expliquer(r, h, explications);
    const std::wstring debut = constatAngulaire(demis, r.unite);
    if (!explications.empty())
        return debut + direExplications(explications);
    if (demis == 0)
        return {};
    if (demis % 2 != 0)
        return debut + L"un angle est sans doute lu, ou un gisement donné, à un demi-tour près, mais aucun de ces "
                       L"changements ne ferme à lui seul la polygonale. Vérifiez aussi les coordonnées et les "
                       L"distances.";
    const double arrivee = r.arrivee.gisement + demis * tourComplet(r.unite) / 2.0;
    return debut + toursComptes + L" ; saisissez " + auLieuDe(arrivee, r.arrivee.gisement) +
           L" comme gisement d'arrivée. Vérifiez aussi les coordonnées et les distances : la polygonale ne se ferme "
           L"pas pour autant.";
}
