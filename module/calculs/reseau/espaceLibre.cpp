#include "calculs/reseau/espaceLibre.h"

#include <algorithm>
#include <cmath>

namespace {

/// More free moves than this are those of points that nothing joins to the rest: they are no question of datum.
constexpr std::size_t mouvementsEtudies = 200;
/// A move smaller than this part of the largest is rounding.
constexpr double resteNul = 1e-7;

double produit(const std::vector<double>& a, const std::vector<double>& b, const std::vector<bool>& ou)
{
    double somme = 0.0;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (ou[i])
            somme += a[i] * b[i];
    return somme;
}

void retrancher(std::vector<double>& a, double facteur, const std::vector<double>& b)
{
    for (std::size_t i = 0; i < a.size(); ++i)
        a[i] -= facteur * b[i];
}

void multiplier(std::vector<double>& a, double facteur)
{
    for (double& v : a)
        v *= facteur;
}

double plusGrand(const std::vector<double>& a)
{
    double m = 0.0;
    for (const double v : a)
        m = std::max(m, std::abs(v));
    return m;
}

} // namespace

espaceLibre::espaceLibre(const reseau& r, const systemeReseau& s, bool surAppui)
{
    const std::vector<int>& tenues = s.matrice().tenues();
    m_defaut = static_cast<int>(tenues.size());
    if (m_defaut == 0)
        return;
    retenirAppui(r, s, surAppui);
    const std::size_t etudies = std::min(tenues.size(), mouvementsEtudies);
    for (std::size_t k = 0; k < etudies; ++k)
        ranger(s.matrice().mouvementLibre(tenues[k]));
    m_tousEtudies = etudies == tenues.size();
    if (m_flottements.empty() && m_tousEtudies)
        return;
    m_flottante.assign(m_appui.size(), false);
    // Without a base nothing holds those that were studied either.
    for (std::size_t k = m_base.empty() ? 0 : etudies; k < tenues.size(); ++k)
        m_flottante[static_cast<std::size_t>(tenues[k])] = true;
    marquerFlottantes();
}

void espaceLibre::retenirAppui(const reseau& r, const systemeReseau& s, bool surAppui)
{
    const auto n = static_cast<std::size_t>(s.inconnues());
    const auto rangsPoints = static_cast<int>(3 * r.points.size());
    m_appui.assign(n, false);
    m_coordonnee.assign(n, false);
    for (std::size_t i = 0; i < n; ++i) {
        const int rang = s.rang(static_cast<int>(i));
        m_coordonnee[i] = rang < rangsPoints;
        if (!surAppui || !m_coordonnee[i])
            continue;
        const pointReseau& p = r.points[static_cast<std::size_t>(rang / 3)];
        m_appui[i] = (rang % 3 == 2 ? p.altitude : p.plan) == tenue::appui;
    }
}

/// Among the moves that the support holds, or among those that nothing holds.
void espaceLibre::ranger(std::vector<double> mouvement)
{
    const double avant = plusGrand(mouvement);
    // Twice is enough against rounding.
    for (int fois = 0; fois < 2; ++fois)
        projeter(mouvement);
    const double reste = std::sqrt(produit(mouvement, mouvement, m_appui));
    if (reste > resteNul * avant) {
        multiplier(mouvement, 1.0 / reste);
        m_base.push_back(std::move(mouvement));
        return;
    }
    const double taille = plusGrand(mouvement);
    if (taille > resteNul * avant) {
        multiplier(mouvement, 1.0 / taille);
        m_flottements.push_back(std::move(mouvement));
    }
}

void espaceLibre::marquerFlottantes()
{
    for (const std::vector<double>& z : m_flottements) {
        // Coordinates against coordinates: the turn of a set is no length.
        double m = 0.0;
        for (std::size_t i = 0; i < z.size(); ++i)
            if (m_coordonnee[i])
                m = std::max(m, std::abs(z[i]));
        for (std::size_t i = 0; i < z.size(); ++i)
            if (std::abs(z[i]) > resteNul * (m_coordonnee[i] ? m : 1.0))
                m_flottante[i] = true;
    }
}

/// Moves that overlap are taken one after the other: near enough, from step to step.
void espaceLibre::calmer(std::vector<double>& pas) const
{
    const std::vector<bool> partout(pas.size(), true);
    for (const std::vector<double>& z : m_flottements)
        retrancher(pas, produit(pas, z, partout) / produit(z, z, partout), z);
}

void espaceLibre::projeter(std::vector<double>& changements) const
{
    for (const std::vector<double>& b : m_base)
        retrancher(changements, produit(changements, b, m_appui), b);
}

void espaceLibre::preparerCofacteurs(const systemeReseau& s)
{
    m_images.clear();
    m_gram.clear();
    for (const std::vector<double>& b : m_base) {
        std::vector<double> image = b;
        for (std::size_t i = 0; i < image.size(); ++i)
            if (!m_appui[i])
                image[i] = 0.0;
        s.matrice().resoudre(image);
        m_images.push_back(std::move(image));
    }
    for (const std::vector<double>& b : m_base)
        for (const std::vector<double>& image : m_images)
            m_gram.push_back(produit(b, image, m_appui));
}

/// S·Q·Sᵀ, S = I − B·Bᵀ restricted to the support.
double espaceLibre::cofacteur(const systemeReseau& s, int i, int j) const
{
    double q = s.matrice().inverse(i, j);
    const auto a = static_cast<std::size_t>(i), b = static_cast<std::size_t>(j);
    for (std::size_t k = 0; k < m_base.size(); ++k) {
        q -= m_base[k][a] * m_images[k][b] + m_images[k][a] * m_base[k][b];
        for (std::size_t l = 0; l < m_base.size(); ++l)
            q += m_base[k][a] * m_gram[k * m_base.size() + l] * m_base[l][b];
    }
    return q;
}
