#include "calculs/fauteUnique.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "calculs/fermeturePolygonale.h"
#include "calculs/phrasesConseil.h"
#include "calculs/uniteAngulaire.h"
#include "services/formatNombres.h"
#include "services/grandeur.h"

namespace {

// Parts of what practice allows (half a grade an angle): beyond the first an angle is looked for, below the second the
// angles are those of a theodolite and a closure of more than 1/500 is not theirs.
constexpr double partFaute = 0.7;
constexpr double partFine = 0.005;
constexpr double fermetureSuspecte = 1.0 / 500;
// What may be left once the fault is mended. Within practice the data may be good but coarse: more is asked.
constexpr double resteAdmis = 1.0 / 2000, resteFin = 1.0 / 20000;
// How far behind the others stay.
constexpr double foisMoinsBien = 5.0, foisLeReste = 3.0;

/// A traverse on its bearings as observed: what is common to both kinds.
struct parcoursObserve {
    const cheminement& c;
    std::vector<double> gisements; ///< of the legs, as carried
    double finX = 0.0, finY = 0.0; ///< to reach, from the departure
    double rotation = 0.0;         ///< that the faulty angle lacks
    bool boucle = false;           ///< the first angle turns no leg
};

/// Keeps the best candidate, and the second best closure.
struct concours {
    std::optional<fauteUnique> meilleure;
    double deuxieme = inconnu;

    void presenter(const fauteUnique& f)
    {
        if (!meilleure || f.fermeture < meilleure->fermeture) {
            if (meilleure)
                deuxieme = meilleure->fermeture;
            meilleure = f;
        } else if (f.fermeture < deuxieme) {
            deuxieme = f.fermeture;
        }
    }

    /// The best one if it closes the traverse and no other comes near.
    std::optional<fauteUnique> gagnante(double reste) const
    {
        if (!meilleure || !(meilleure->fermeture <= reste) ||
            !(deuxieme >= std::max(foisMoinsBien * meilleure->fermeture, foisLeReste * reste)))
            return std::nullopt;
        return meilleure;
    }
};

/// Each angle mended in turn: what follows its station turns about it.
concours parLesAngles(const parcoursObserve& p)
{
    const double k = facteurRadians(p.c.unite), sinus = std::sin(k * p.rotation), cosinus = std::cos(k * p.rotation);
    const std::size_t n = p.c.cotes.size();
    double resteX = 0.0, resteY = 0.0; // legs from the station on
    std::vector<double> x(n + 1, 0.0), y(n + 1, 0.0);
    for (std::size_t i = n; i-- > 0;) {
        resteX += p.c.cotes[i].observation.distance * std::sin(k * p.gisements[i]);
        resteY += p.c.cotes[i].observation.distance * std::cos(k * p.gisements[i]);
        x[i] = resteX;
        y[i] = resteY;
    }
    concours essais;
    for (std::size_t i = 0; i <= n; ++i) {
        if (p.boucle && i == n)
            continue;
        const std::size_t premiere = p.boucle && i == 0 ? n : i;
        const double dx = x[premiere], dy = y[premiere];
        const double atteintX = x[0] - dx + dx * cosinus + dy * sinus;
        const double atteintY = y[0] - dy - dx * sinus + dy * cosinus;
        essais.presenter({true, i, p.rotation, std::hypot(atteintX - p.finX, atteintY - p.finY)});
    }
    return essais;
}

/// Each distance mended in turn, on bearings that share the angular error.
concours parLesLongueurs(const parcoursObserve& p)
{
    const double ecartX = p.c.sommeX - p.finX, ecartY = p.c.sommeY - p.finY;
    concours essais;
    for (std::size_t i = 0; i < p.c.cotes.size(); ++i) {
        const cotePolygonale& cote = p.c.cotes[i];
        const double d = std::hypot(cote.dx, cote.dy);
        if (!(d > 0.0))
            continue;
        const double correction = -(ecartX * cote.dx + ecartY * cote.dy) / d;
        if (d + correction > 0.0)
            essais.presenter({false, i, correction, std::abs(ecartX * cote.dy - ecartY * cote.dx) / d});
    }
    return essais;
}

std::optional<fauteUnique> chercher(const parcoursObserve& p)
{
    const cheminement& c = p.c;
    const double admis = ecartAngulaireAdmis(c.unite, c.cotes.size()), erreur = std::abs(c.erreurAngulaire);
    const bool admise = fermetureAdmise(c);
    const double reste = (admise ? resteFin : resteAdmis) * c.longueur;
    if (erreur > partFaute * admis)
        if (const auto faute = parLesAngles(p).gagnante(reste))
            return faute;
    const bool suspecte = admise
                              ? erreur <= partFine * admis && c.fermeturePlanimetrique > fermetureSuspecte * c.longueur
                              : erreur <= admis;
    return suspecte ? parLesLongueurs(p).gagnante(reste) : std::nullopt;
}

bool calculable(const cheminement& c)
{
    return c.cotes.size() >= 2 && estConnue(c.erreurAngulaire) && estConnue(c.fermeturePlanimetrique) &&
           std::isfinite(c.erreurAngulaire) && std::isfinite(c.fermeturePlanimetrique);
}

/// "99.2000 au lieu de 100.2000", as far as such a guess is worth.
std::wstring attendu(const fauteUnique& f, double observe, int unite)
{
    constexpr int decimalesLongueur = 3, decimalesAngle = 4, decimalesRadians = 6;
    const double corrige = observe + f.correction;
    if (!f.angulaire)
        return formaterFixe(corrige, decimalesLongueur) + L" au lieu de " + formaterFixe(observe, decimalesLongueur);
    const int decimales = unite == uniteRadians ? decimalesRadians : decimalesAngle;
    return formaterFixe(normaliser(corrige, tourComplet(unite)), decimales) + L" au lieu de " +
           formaterFixe(observe, decimales);
}

std::wstring nomOuRang(const std::wstring& nom, std::size_t rang)
{
    return nom.empty() ? L"de la ligne " + std::to_wstring(rang + 1) : cite(nom);
}

/// @param autre what cannot be told apart from the angle, with its comma; may be empty
std::wstring phrase(const cheminement& c, const fauteUnique& f, double observe, const std::wstring& departDuCote,
                    const std::wstring& autre)
{
    const std::wstring ligne = aLaLigne(f.rang, f.angulaire && f.rang == c.cotes.size());
    std::wstring quoi;
    if (f.angulaire)
        quoi = L"l'angle mesuré à la station " + nomOuRang(departDuCote, f.rang) + autre + L", " +
               attendu(f, observe, c.unite) + ligne;
    else
        quoi = L"la longueur du côté " + nomOuRang(departDuCote, f.rang) + L" - " +
               nomOuRang(c.cotes[f.rang].observation.nom, f.rang) + L", " + attendu(f, observe, c.unite) + ligne;
    return L"Une seule faute expliquerait cette fermeture : " + quoi + L" ; il resterait " +
           formaterFixe(f.fermeture, 3) + L" (" + texteFermetureRelative(c.longueur / f.fermeture) +
           L"). À vérifier sur le carnet ou le terrain.";
}

double observation(const cheminement& c, const fauteUnique& f)
{
    const observationPolygonale& o = c.cotes[f.rang].observation;
    return f.angulaire ? o.angle : o.distance;
}

} // namespace

std::optional<fauteUnique> chercherFaute(const resultatPolygonaleFermee& r)
{
    if (!calculable(r))
        return std::nullopt;
    const double demiTour = tourComplet(r.unite) / 2.0;
    parcoursObserve p{r, {}, 0.0, 0.0, r.erreurAngulaire, true};
    double g = r.depart.gisement;
    for (std::size_t i = 0; i < r.cotes.size(); ++i) {
        if (i > 0)
            g += r.cotes[i].observation.angle - demiTour;
        p.gisements.push_back(g);
    }
    return chercher(p);
}

std::optional<fauteUnique> chercherFaute(const resultatPolygonaleOuverte& r)
{
    if (!calculable(r))
        return std::nullopt;
    parcoursObserve p{r, {}, r.deltaX, r.deltaY, -r.erreurAngulaire, false};
    for (std::size_t i = 0; i < r.cotes.size(); ++i)
        p.gisements.push_back(r.angles[i].gisement);
    return chercher(p);
}

std::wstring conseilFaute(const resultatPolygonaleFermee& r)
{
    const auto f = chercherFaute(r);
    if (!f)
        return {};
    const std::wstring& station = (f->rang == 0 ? r.cotes.back() : r.cotes[f->rang - 1]).observation.nom;
    return phrase(r, *f, observation(r, *f), station, L"");
}

std::wstring conseilFaute(const resultatPolygonaleOuverte& r)
{
    const auto f = chercherFaute(r);
    if (!f)
        return {};
    const std::size_t n = r.cotes.size();
    const std::wstring& station = f->rang == 0 ? r.depart.nom : r.cotes[f->rang - 1].observation.nom;
    const wchar_t* autre = L"";
    if (f->angulaire && f->rang == 0)
        autre = L" ou le gisement de départ";
    else if (f->angulaire && f->rang == n)
        autre = L" ou le gisement d'arrivée";
    return phrase(r, *f, f->rang == n ? r.dernierAngle : observation(r, *f), station, autre);
}
