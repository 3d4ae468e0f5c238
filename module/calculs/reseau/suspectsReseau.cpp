#include "calculs/reseau/suspectsReseau.h"

#include <algorithm>
#include <cmath>

#include "calculs/reseau/fiabiliteReseau.h"
#include "calculs/reseau/loisStatistiques.h"

namespace {

constexpr std::size_t suspectsAuPlus = 20;
/// An observation that the others check by less than that cannot be told from them.
constexpr double redondanceMinimale = 1e-3;
constexpr double risqueParObservation = 1e-3, risqueEnTout = 0.05;

/// The state of the search: what is left once some observations are gone.
class recherche {
public:
    recherche(const reseau& r, const systemeReseau& s, const resultatReseau& resultat) :
        m_reseau(r),
        m_systeme(s),
        m_pvv(s.sommePvv()), // of the places where the equations are linear
        m_degres(resultat.degresDeLiberte)
    {
        for (std::size_t k = 0; k < s.retenues().size(); ++k)
            m_controles.push_back(controleDe(s, static_cast<int>(k)));
        m_risque = std::min(risqueParObservation, risqueEnTout / static_cast<double>(m_controles.size()));
    }

    /// The place whose absence takes most from the sum of squares, and how much; the second most too.
    struct meilleure {
        int place = -1;
        double chute = 0.0, seconde = 0.0;
    };
    meilleure chercher() const
    {
        meilleure m;
        for (std::size_t k = 0; k < m_controles.size(); ++k) {
            const auto& [g, h] = m_controles[k];
            if (h < redondanceMinimale * m_systeme.poids(static_cast<int>(k)))
                continue;
            const double chute = g * g / h;
            if (chute > m.chute) {
                m.seconde = m.chute;
                m.chute = chute;
                m.place = static_cast<int>(k);
            } else {
                m.seconde = std::max(m.seconde, chute);
            }
        }
        return m;
    }

    /// The chance of such a fall without a fault; 1 when nothing tells this observation from another.
    double risque(const meilleure& m) const
    {
        if (m_degres < 2 || m.place < 0 || m.seconde > 0.999 * m.chute)
            return 1.0;
        const double variance = std::max(m_pvv - m.chute, 0.0) / (m_degres - 1);
        const double student = variance > 0.0 ? chanceStudent(std::sqrt(m.chute / variance), m_degres - 1) : 0.0;
        return std::min(student, risqueAnnonce(m));
    }

    bool suspecte(double risque) const { return risque < m_risque; }

    suspectReseau retirer(const meilleure& m, double risque)
    {
        const auto [g, h] = m_controles[static_cast<std::size_t>(m.place)];
        suspectReseau trouve;
        trouve.observation = m_systeme.retenues()[static_cast<std::size_t>(m.place)];
        trouve.faute = -g / h;
        trouve.risque = risque;
        ecart = m_reseau.sigma / std::sqrt(h);
        const std::vector<double> colonne = colonneDe(m.place);
        for (std::size_t k = 0; k < m_controles.size(); ++k) {
            m_controles[k].g -= colonne[k] * g / h;
            m_controles[k].h -= colonne[k] * colonne[k] / h;
        }
        m_controles[static_cast<std::size_t>(m.place)] = {0.0, 0.0};
        m_colonnes.push_back(colonne);
        for (double& v : m_colonnes.back())
            v /= std::sqrt(h);
        --m_degres;
        if (chuteConnue(m_pvv, m.chute))
            trouve.s0Sans = std::sqrt((m_pvv - m.chute) / m_degres);
        m_pvv = std::max(m_pvv - m.chute, 0.0);
        return trouve;
    }

    double ecart = 0.0; ///< of the last fault found, a priori

private:
    /// With few observations the estimated variance tells nothing, the announced one may: when s0 is refused, and would
    /// be as announced without this one, which stands out.
    double risqueAnnonce(const meilleure& m) const
    {
        const double variance = m_reseau.sigma * m_reseau.sigma;
        const bool refuse = repartitionKhi2(m_pvv / variance, m_degres) > m_reseau.confiance;
        const bool expliquee = repartitionKhi2((m_pvv - m.chute) / variance, m_degres - 1) < m_reseau.confiance;
        return refuse && expliquee && m.seconde < 0.7 * m.chute ? chanceNormale(std::sqrt(m.chute / variance)) : 1.0;
    }

    /// The column of P·Qv·P of a place, less what the observations already gone took.
    std::vector<double> colonneDe(int place) const
    {
        std::vector<std::pair<int, double>> b;
        m_systeme.colonneNormale(place, b);
        std::vector<double> u(static_cast<std::size_t>(m_systeme.inconnues()), 0.0);
        for (const auto& [inconnue, coefficient] : b)
            u[static_cast<std::size_t>(inconnue)] += coefficient;
        m_systeme.matrice().resoudre(u);
        std::vector<double> colonne(m_controles.size());
        for (std::size_t k = 0; k < colonne.size(); ++k) {
            m_systeme.colonneNormale(static_cast<int>(k), b);
            for (const auto& [inconnue, coefficient] : b)
                colonne[k] -= coefficient * u[static_cast<std::size_t>(inconnue)];
        }
        for (const int autre : m_systeme.correlees(place))
            colonne[static_cast<std::size_t>(autre)] += m_systeme.poidsCroise(autre, place);
        for (const std::vector<double>& partie : m_colonnes) {
            const double facteur = partie[static_cast<std::size_t>(place)];
            for (std::size_t k = 0; k < colonne.size(); ++k)
                colonne[k] -= partie[k] * facteur;
        }
        return colonne;
    }

    const reseau& m_reseau;
    const systemeReseau& m_systeme;
    std::vector<controleObservation> m_controles;
    std::vector<std::vector<double>> m_colonnes;
    double m_pvv;
    int m_degres;
    double m_risque;
};

} // namespace

void chercherSuspects(const reseau& r, const systemeReseau& s, const coordonneesReseau& c, resultatReseau& resultat)
{
    if (resultat.degresDeLiberte < 2)
        return;
    recherche reste(r, s, resultat);
    while (resultat.suspects.size() < suspectsAuPlus) {
        const auto m = reste.chercher();
        const double risque = reste.risque(m);
        if (!reste.suspecte(risque))
            break;
        suspectReseau trouve = reste.retirer(m, risque);
        const observationReseau& o = r.observations[static_cast<std::size_t>(trouve.observation)];
        // As well as the fault is known, by what was announced or by what remains.
        const bool seule = !estConnue(trouve.s0Sans);
        const double echelle = seule ? 1.0 : std::max(1.0, trouve.s0Sans / r.sigma);
        trouve.cause = causeProbable(r, resultat, o, c, trouve.faute, 3.0 * echelle * reste.ecart);
        resultat.mesures[static_cast<std::size_t>(trouve.observation)].suspecte = true;
        resultat.suspects.push_back(std::move(trouve));
        if (seule)
            break; // what remains is not known to better than this fault bends the network
    }
}
