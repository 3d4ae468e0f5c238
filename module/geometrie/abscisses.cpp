#include "geometrie/abscisses.h"

#include <algorithm>
#include <cmath>

abscisses::abscisses(double origine, const std::vector<equationAbscisse>& equations) : m_troncons{{0.0, origine}}
{
    for (const equationAbscisse& e : equations) {
        const troncon& courant = m_troncons.back();
        if (const double avance = e.arriere - courant.abscisse; avance >= 0.0)
            m_troncons.push_back({courant.longueur + avance, e.avant});
    }
}

double abscisses::abscisseA(double longueur) const
{
    const auto apres = std::upper_bound(m_troncons.begin() + 1, m_troncons.end(), longueur,
                                        [](double l, const troncon& t) { return l < t.longueur; });
    const troncon& t = *(apres - 1);
    return t.abscisse + (longueur - t.longueur);
}

double abscisses::finDe(std::size_t i, double fin) const
{
    return i + 1 < m_troncons.size() ? std::min(fin, m_troncons[i + 1].longueur) : fin;
}

std::vector<double> abscisses::longueursDe(double abscisse, double fin) const
{
    std::vector<double> trouvees;
    for (std::size_t i = 0; i < m_troncons.size(); ++i) {
        const troncon& t = m_troncons[i];
        const double longueur = t.longueur + (abscisse - t.abscisse);
        const bool dernier = i + 1 == m_troncons.size();
        if (longueur >= t.longueur && (dernier ? longueur <= fin : longueur < finDe(i, fin)))
            trouvees.push_back(longueur);
    }
    return trouvees;
}

std::vector<double> abscisses::jalons(double pas, double fin) const
{
    std::vector<double> longueurs;
    for (std::size_t i = 0; i < m_troncons.size(); ++i) {
        const troncon& t = m_troncons[i];
        const double bout = finDe(i, fin);
        double k = std::ceil(t.abscisse / pas - 1e-9);
        for (; k + 1.0 > k; k += 1.0) { // no more where chainages are too great to tell multiples apart
            const double longueur = t.longueur + (k * pas - t.abscisse);
            if (longueur > bout + 1e-9 || (i + 1 < m_troncons.size() && longueur >= bout))
                break;
            longueurs.push_back(std::clamp(longueur, t.longueur, std::max(bout, t.longueur)));
        }
    }
    return longueurs;
}

std::vector<abscisses::saut> abscisses::sauts() const
{
    std::vector<saut> trouves;
    for (std::size_t i = 1; i < m_troncons.size(); ++i) {
        const troncon &avant = m_troncons[i - 1], &apres = m_troncons[i];
        trouves.push_back({apres.longueur, {avant.abscisse + (apres.longueur - avant.longueur), apres.abscisse}});
    }
    return trouves;
}
