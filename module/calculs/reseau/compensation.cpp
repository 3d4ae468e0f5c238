#include "calculs/reseau/compensation.h"

#include <algorithm>
#include <cmath>

#include "calculs/reseau/approcheReseau.h"
#include "calculs/reseau/choixObservations.h"
#include "calculs/reseau/defautsReseau.h"
#include "calculs/reseau/espaceLibre.h"
#include "calculs/reseau/fiabiliteReseau.h"
#include "calculs/reseau/loisStatistiques.h"
#include "calculs/reseau/placesRobustes.h"
#include "calculs/reseau/poidsReseau.h"
#include "calculs/reseau/suspectsReseau.h"

namespace {

/// Nearer than that the result does not change what is printed: a ten-thousandth of a millimetre.
constexpr double pasNegligeable = 1e-7;
constexpr int tentativesParPas = 8;

/// One run from given places: iterations until nothing moves.
class marche {
public:
    marche(const reseau& r, systemeReseau& s, const coordonneesReseau& depart, bool surAppui) :
        c(depart),
        m_reseau(r),
        m_systeme(s),
        m_depart(depart),
        m_surAppui(surAppui)
    {
    }

    /// @return whether it came to rest
    bool iterer(int auPlus)
    {
        somme = m_systeme.evaluer(c);
        for (int i = 0; i < auPlus; ++i) {
            ++iterations;
            std::vector<double> pas = m_systeme.assembler();
            m_systeme.matrice().resoudre(pas);
            placer(pas);
            const double plusGrand = longueurDuPas(pas);
            if (!std::isfinite(plusGrand))
                return false;
            const bool avance = avancer(pas);
            if (plusGrand < pasNegligeable || !avance)
                return plusGrand < 1000.0 * pasNegligeable;
        }
        return false;
    }

    coordonneesReseau c;
    double somme = 0.0;
    int iterations = 0;

private:
    /// In a network without fixed points all changes since the start are placed, not only this step's.
    void placer(std::vector<double>& pas)
    {
        const espaceLibre libre(m_reseau, m_systeme, m_surAppui);
        libre.calmer(pas);
        if (!libre.place())
            return;
        coordonneesReseau atteint = c;
        m_systeme.avancer(atteint, pas, 1.0);
        std::vector<double> total(pas.size());
        for (std::size_t i = 0; i < total.size(); ++i)
            total[i] = valeur(atteint, i) - valeur(m_depart, i);
        std::vector<double> tenu = total;
        libre.projeter(tenu);
        for (std::size_t i = 0; i < total.size(); ++i)
            pas[i] += tenu[i] - total[i];
    }

    double valeur(const coordonneesReseau& ou, std::size_t inconnue) const
    {
        const auto rang = static_cast<std::size_t>(m_systeme.rang(static_cast<int>(inconnue)));
        const std::size_t points = m_reseau.points.size();
        return rang >= 3 * points ? ou.orientations[rang - 3 * points]
                                  : (rang % 3 == 0   ? ou.x
                                     : rang % 3 == 1 ? ou.y
                                                     : ou.z)[rang / 3];
    }

    /// The largest change of a coordinate; not finite when one of any unknown is not.
    double longueurDuPas(const std::vector<double>& pas) const
    {
        const auto rangsPoints = static_cast<int>(3 * m_reseau.points.size());
        double plusGrand = 0.0;
        for (std::size_t i = 0; i < pas.size(); ++i) {
            if (!std::isfinite(pas[i]))
                return pas[i];
            if (m_systeme.rang(static_cast<int>(i)) < rangsPoints)
                plusGrand = std::max(plusGrand, std::abs(pas[i]));
        }
        return plusGrand;
    }

    /// Takes the step, or half of it and so on as long as the misfit would grow: no oscillation.
    /// @return whether the misfit did not grow
    bool avancer(const std::vector<double>& pas)
    {
        double facteur = 1.0;
        for (int i = 0; i < tentativesParPas; ++i, facteur *= 0.5) {
            coordonneesReseau essai = c;
            m_systeme.avancer(essai, pas, facteur);
            const double nouvelle = m_systeme.evaluer(essai);
            if (nouvelle <= somme * (1.0 + 1e-9) + 1e-12) {
                c = std::move(essai);
                somme = nouvelle;
                return true;
            }
        }
        somme = m_systeme.evaluer(c);
        return false;
    }

    const reseau& m_reseau;
    systemeReseau& m_systeme;
    const coordonneesReseau m_depart;
    bool m_surAppui;
};

/// Residuals over their a priori deviation, as robust estimation and its scale see them.
std::vector<double> residusReduits(const systemeReseau& s, const std::vector<double>& redondances)
{
    std::vector<double> u(s.retenues().size());
    for (std::size_t k = 0; k < u.size(); ++k) {
        const int place = static_cast<int>(k);
        u[k] = std::abs(s.equation(place).ecart) * std::sqrt(s.poids(place) / std::max(redondances[k], 0.05));
    }
    return u;
}

double facteurRobuste(estimateur methode, double u)
{
    constexpr double coudeHuber = 1.5, portee = 4.685; // the usual ones: 95 % efficiency on good data
    if (methode == estimateur::huber)
        return u <= coudeHuber ? 1.0 : coudeHuber / u;
    const double reste = 1.0 - (u / portee) * (u / portee);
    // Never quite nothing: the matrix must not lose a point because of it.
    return u < portee ? std::max(reste * reste, 1e-6) : 1e-6;
}

/// Weights again and again from the residuals, until they rest.
void ponderer(systemeReseau& s, marche& m, estimateur methode, int iterations)
{
    std::vector<double> redondances = redondancesDe(s);
    for (int tour = 0; tour < iterations; ++tour) {
        std::vector<double>& facteurs = s.facteurs();
        std::vector<double> avant = facteurs;
        std::ranges::fill(facteurs, 1.0); // residuals over their full deviation
        const std::vector<double> u = residusReduits(s, redondances);
        const double echelle = std::max(mediane(u) / 0.6745, 1e-12);
        double change = 0.0;
        for (std::size_t k = 0; k < facteurs.size(); ++k) {
            facteurs[k] = facteurRobuste(methode, u[k] / echelle);
            change = std::max(change, std::abs(facteurs[k] - avant[k]));
        }
        m.iterer(4);
        if (change < 1e-4)
            break;
    }
}

/// What runs through the stages of an adjustment.
struct calcul {
    reseau r; ///< as it is computed: points released, deviations taken
    optionsCompensation options;
    resultatReseau resultat;
    std::vector<double> ecarts;
    bool surAppui = false;
};

void libererPoints(reseau& r)
{
    for (pointReseau& p : r.points) {
        if (p.plan != tenue::ignoree)
            p.plan = tenue::appui;
        if (p.altitude != tenue::ignoree)
            p.altitude = tenue::appui;
    }
}

void rendrePoints(calcul& k, const systemeReseau& s, const espaceLibre& libre, const coordonneesReseau& c,
                  const approcheReseau& depart)
{
    for (std::size_t p = 0; p < k.r.points.size(); ++p) {
        const pointReseau& donne = k.r.points[p];
        pointCompense& rendu = k.resultat.points[p];
        enum class etat : unsigned char { inconnue, donnee, trouvee };
        const auto etatDe = [&](int axe, tenue t, bool connu) {
            const int inconnue = s.inconnueDe(static_cast<int>(3 * p) + axe);
            if (inconnue >= 0)
                return libre.determinee(inconnue) ? etat::trouvee : etat::inconnue;
            return t == tenue::fixe && connu ? etat::donnee : etat::inconnue;
        };
        const etat x = etatDe(0, donne.plan, donne.enPlan()), y = etatDe(1, donne.plan, donne.enPlan());
        const etat z = etatDe(2, donne.altitude, estConnue(donne.z));
        if (x != etat::inconnue && y != etat::inconnue) {
            rendu.x = c.x[p];
            rendu.y = c.y[p];
            rendu.planCherche = x == etat::trouvee;
        }
        if (z != etat::inconnue) {
            rendu.z = c.z[p];
            rendu.altitudeCherchee = z == etat::trouvee;
        }
        if (depart.enPlan[p]) {
            rendu.xApproche = depart.c.x[p];
            rendu.yApproche = depart.c.y[p];
        }
        if (depart.enAltitude[p])
            rendu.zApproche = depart.c.z[p];
    }
}

void rendreMesures(calcul& k, const systemeReseau& s)
{
    for (std::size_t i = 0; i < s.retenues().size(); ++i) {
        const auto o = static_cast<std::size_t>(s.retenues()[i]);
        observationCompensee& m = k.resultat.mesures[o];
        const equationObservation& e = s.equation(static_cast<int>(i));
        m.retenue = true;
        m.residu = -e.ecart;
        m.compensee = k.r.observations[o].mesure - e.ecart;
        m.ecart = k.ecarts[o];
        const double unite = estAngulaire(k.r.observations[o].genre) ? dmgrEnRadians : milli;
        m.poids = std::pow(k.r.sigma * unite / m.ecart, 2.0);
    }
}

void testerGlobalement(calcul& k)
{
    resultatReseau& r = k.resultat;
    if (r.degresDeLiberte <= 0)
        return r.messages.push_back(L"Aucune redondance : rien n'est contrôlé, s0 n'est pas défini ; les écarts-types "
                                    L"sont ceux qu'annoncent les écarts-types donnés.");
    r.s0 = std::sqrt(std::max(r.sommePvv, 0.0) / r.degresDeLiberte);
    bornesS0(k.r, r);
}

/// Suspects are looked for around places that gross faults did not pull away: there the equations are near enough to
/// linear ones for half a turn to be told from a good direction. May change the system.
void soupconner(calcul& k, systemeReseau& s, const coordonneesReseau& trouvees, const coordonneesReseau& depart)
{
    constexpr double foisGrossier = 4.0;
    constexpr int pas = 25;
    if (estConnue(k.resultat.s0) && k.resultat.s0 < k.resultat.s0Bas)
        return; // better than announced as a whole: what stands out among such residuals is noise
    const bool ordinaire = k.options.methode == estimateur::moindresCarres;
    if (ordinaire && k.resultat.s0 <= foisGrossier * k.r.sigma)
        return chercherSuspects(k.r, s, trouvees, k.resultat); // the system stands there, inverted
    coordonneesReseau c = trouvees;
    if (ordinaire) {
        const auto desaccord = [&](const coordonneesReseau& ou) {
            return desaccordMedian(k.r, ou, k.ecarts, s.retenues());
        };
        coordonneesReseau robustes =
            placesRobustes(k.r, desaccord(depart) < desaccord(c) ? depart : c, k.ecarts, s.retenues(), pas);
        if (desaccord(robustes) < desaccord(c))
            c = std::move(robustes);
    }
    std::ranges::fill(s.facteurs(), 1.0);
    s.evaluer(c);
    std::vector<double> reste = s.assembler();
    s.matrice().resoudre(reste);
    s.expliquer(reste);
    s.matrice().inverser();
    chercherSuspects(k.r, s, c, k.resultat);
}

/// The adjustment proper, of what was chosen.
void calculer(calcul& k, const std::vector<int>& retenues, approcheReseau& depart)
{
    systemeReseau s(k.r, retenues, k.ecarts);
    marche m(k.r, s, depart.c, k.surAppui);
    k.resultat.converge = m.iterer(k.options.iterations);
    if (k.options.methode != estimateur::moindresCarres) {
        s.matrice().inverser();
        ponderer(s, m, estimateur::huber, k.options.iterations);
        if (k.options.methode == estimateur::tukey)
            ponderer(s, m, estimateur::tukey, k.options.iterations);
        k.resultat.converge = m.iterer(k.options.iterations);
    }
    s.assembler();
    s.matrice().inverser();
    espaceLibre libre(k.r, s, k.surAppui);
    resultatReseau& r = k.resultat;
    r.iterations = m.iterations;
    r.observations = static_cast<int>(retenues.size());
    r.inconnues = s.inconnues();
    r.defaut = libre.defaut();
    r.degresDeLiberte = r.observations - (r.inconnues - r.defaut);
    r.sommePvv = m.somme;
    r.libre = libre.place();
    nommerFlottements(k.r, s, libre, m.c, r.messages);
    rendrePoints(k, s, libre, m.c, depart);
    rendreMesures(k, s);
    for (std::size_t i = 0; i < retenues.size(); ++i)
        r.mesures[static_cast<std::size_t>(retenues[i])].facteurRobuste = s.facteurs()[i];
    for (int serie = 0; serie < k.r.series; ++serie)
        r.orientations.push_back(s.inconnueDe(static_cast<int>(3 * k.r.points.size()) + serie) >= 0
                                     ? m.c.orientations[static_cast<std::size_t>(serie)]
                                     : inconnu);
    testerGlobalement(k);
    libre.preparerCofacteurs(s);
    rendrePrecisions(k.r, s, libre, r);
    rendreFiabilite(k.r, s, libre, r);
    if (k.options.chercherSuspects)
        soupconner(k, s, m.c, depart.c);
    if (!r.converge)
        r.messages.push_back(L"Le calcul ne s'est pas stabilisé : vérifiez les coordonnées approchées et les "
                             L"observations dont le résidu est le plus grand.");
}

/// From given places; chooses what takes part first.
void tenter(calcul& k, approcheReseau& depart)
{
    k.resultat = {};
    k.resultat.methode = k.options.methode;
    k.resultat.points.resize(k.r.points.size());
    k.resultat.mesures.resize(k.r.observations.size());
    orienterSeries(k.r, depart);
    k.ecarts = ecartsDesObservations(k.r, depart.c);
    k.resultat.messages = depart.messages;
    std::vector<int> retenues = observationsRetenues(k.r, depart, k.ecarts, k.resultat);
    if (retenues.empty())
        throw erreurReseau(phraseRienACalculer(k.r, k.resultat));
    ecarterHorsTolerance(k.r, depart, k.ecarts, retenues, k.resultat);
    calculer(k, retenues, depart);
}

bool aDesCoordonneesApprochees(const reseau& r)
{
    return std::ranges::any_of(r.points, [](const pointReseau& p) {
        return (p.plan != tenue::fixe && p.enPlan()) || (p.altitude != tenue::fixe && estConnue(p.z));
    });
}

bool aDesFixes(const reseau& r)
{
    return std::ranges::any_of(r.points, [](const pointReseau& p) { return p.plan == tenue::fixe; });
}

} // namespace

const wchar_t* nomEstimateur(estimateur e)
{
    return e == estimateur::huber ? L"Huber" : e == estimateur::tukey ? L"Tukey (redescendant)" : L"moindres carrés";
}

resultatReseau compenser(const reseau& r, const optionsCompensation& options)
{
    calcul k{r, options, {}, {}, false};
    if (options.libre)
        libererPoints(k.r);
    k.surAppui = std::ranges::any_of(
        k.r.points, [](const pointReseau& p) { return p.plan == tenue::appui || p.altitude == tenue::appui; });
    approcheReseau depart = approcher(k.r);
    tenter(k, depart);
    const bool douteux = !k.resultat.converge || (k.resultat.horsTolerance && k.resultat.s0 > 100.0 * k.r.sigma);
    if (!douteux || !aDesCoordonneesApprochees(k.r) || !aDesFixes(k.r))
        return std::move(k.resultat);
    // A given approximate place may be far off: once more, from places found by the observations alone.
    calcul autre{k.r, options, {}, {}, k.surAppui};
    approcheReseau trouve = approcher(autre.r, true);
    tenter(autre, trouve);
    const bool mieux = autre.resultat.converge && autre.resultat.observations >= k.resultat.observations &&
                       (!k.resultat.converge || autre.resultat.sommePvv < 0.5 * k.resultat.sommePvv);
    if (!mieux)
        return std::move(k.resultat);
    autre.resultat.messages.push_back(
        L"Des coordonnées approchées étaient trop loin : elles ont été retrouvées par les observations.");
    return std::move(autre.resultat);
}
