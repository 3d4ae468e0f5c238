#include "calculs/reseau/relevement.h"

#include <cmath>
#include <limits>

#include "calculs/reseau/reseau.h"

namespace {

// With bearing phi + reading to each point, (x - xi)·cos - (y - yi)·sin = 0: linear in x, y for a given phi. Two points
// give the place as a function of phi; the others tell which phi is right by their misfit.

double croisement(const repereVise& a, const repereVise& b)
{
    return std::abs(std::sin(a.lecture - b.lecture));
}

class relevement {
public:
    explicit relevement(const std::vector<repereVise>& reperes) : m_reperes(reperes), m_a(reperes[0]), m_b(reperes[1])
    {
        for (std::size_t i = 0; i < reperes.size(); ++i)
            for (std::size_t j = 0; j < i; ++j)
                if (croisement(reperes[i], reperes[j]) > croisement(m_a, m_b)) {
                    m_a = reperes[j];
                    m_b = reperes[i];
                }
    }

    bool croise() const { return croisement(m_a, m_b) >= 0.05; }

    placeRelevee place(double phi) const
    {
        const double ga = phi + m_a.lecture, gb = phi + m_b.lecture;
        const double determinant = std::sin(gb - ga);
        const double ka = m_a.x * std::cos(ga) - m_a.y * std::sin(ga);
        const double kb = m_b.x * std::cos(gb) - m_b.y * std::sin(gb);
        return {(ka * std::sin(gb) - kb * std::sin(ga)) / determinant,
                (ka * std::cos(gb) - kb * std::cos(ga)) / determinant};
    }

    /// Sum of the squares of what the readings lack.
    double defaut(double phi) const
    {
        const placeRelevee p = place(phi);
        double somme = 0.0;
        for (const repereVise& r : m_reperes)
            somme += std::pow(ecartAngulaire(gisementDe(r.x - p.x, r.y - p.y) - phi - r.lecture), 2.0);
        return somme;
    }

    /// Of the least misfit: the best of many tries, then by thirds around it.
    double orientation() const
    {
        constexpr int essais = 720, tiers = 80;
        constexpr double pas = 2.0 * pi / essais;
        double phi = 0.0, moindre = std::numeric_limits<double>::infinity();
        for (int i = 0; i < essais; ++i)
            if (const double d = defaut(pas * i); d < moindre) {
                moindre = d;
                phi = pas * i;
            }
        double bas = phi - pas, haut = phi + pas;
        for (int i = 0; i < tiers; ++i) {
            const double a = bas + (haut - bas) / 3.0, b = haut - (haut - bas) / 3.0;
            (defaut(a) < defaut(b) ? haut : bas) = defaut(a) < defaut(b) ? b : a;
        }
        return 0.5 * (bas + haut);
    }

private:
    const std::vector<repereVise>& m_reperes;
    repereVise m_a, m_b; ///< the pair that crosses best
};

} // namespace

std::optional<placeRelevee> relever(const std::vector<repereVise>& reperes)
{
    constexpr double defautAdmis = 1e-3; // square radians: a station that is badly wrong, not one that is measured so
    if (reperes.size() < 3)
        return std::nullopt;
    const relevement r(reperes);
    if (!r.croise())
        return std::nullopt;
    const double phi = r.orientation();
    const placeRelevee p = r.place(phi);
    if (!(r.defaut(phi) < defautAdmis) || !std::isfinite(p.x) || !std::isfinite(p.y))
        return std::nullopt;
    return p;
}
