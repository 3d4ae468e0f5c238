#include "calculs/reseau/matriceNormale.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <type_traits>

#include <metis.h>

matriceNormale::matriceNormale(const std::vector<std::vector<int>>& voisins) :
    m_taille(static_cast<int>(voisins.size()))
{
    ordonner(voisins);
    rangerMatrice(voisins);
    rangerFacteur();
}

/// By nested dissection: unknowns that part the network in two come last, and so on in each half.
void matriceNormale::ordonner(const std::vector<std::vector<int>>& voisins)
{
    if (m_taille == 0) // every point is held
        return;
    const std::size_t n = voisins.size();
    // Where the neighbours of each begin, on both sides; one place ahead while they are filled in.
    std::vector<idx_t> debut(n + 2, 0);
    for (std::size_t i = 0; i < n; ++i) {
        debut[i + 2] += static_cast<idx_t>(voisins[i].size());
        for (const int j : voisins[i])
            ++debut[static_cast<std::size_t>(j) + 2];
    }
    for (std::size_t i = 2; i < debut.size(); ++i)
        debut[i] += debut[i - 1];
    std::vector<idx_t> cotes(static_cast<std::size_t>(debut.back()) + 1); // never empty
    const auto joindre = [&](std::size_t i, std::size_t j) {
        cotes[static_cast<std::size_t>(debut[i + 1]++)] = static_cast<idx_t>(j);
    };
    for (std::size_t i = 0; i < n; ++i)
        for (const int j : voisins[i]) {
            joindre(i, static_cast<std::size_t>(j));
            joindre(static_cast<std::size_t>(j), i);
        }
    static_assert(std::is_same_v<idx_t, int>);
    m_ordre.resize(n);
    m_rang.resize(n);
    idx_t taille = m_taille;
    if (METIS_NodeND(&taille, debut.data(), cotes.data(), nullptr, nullptr, m_ordre.data(), m_rang.data()) != METIS_OK)
        throw std::runtime_error("METIS_NodeND");
}

/// Rows of the lower triangle, in ranks.
void matriceNormale::rangerMatrice(const std::vector<std::vector<int>>& voisins)
{
    const auto n = static_cast<std::size_t>(m_taille);
    m_debutA.assign(n + 1, 0);
    const auto chaquePaire = [&](auto&& faire) {
        for (std::size_t i = 0; i < n; ++i)
            for (const int j : voisins[i]) {
                const int a = m_rang[i], b = m_rang[static_cast<std::size_t>(j)];
                faire(static_cast<std::size_t>(std::max(a, b)), std::min(a, b));
            }
    };
    chaquePaire([&](std::size_t ligne, int) { ++m_debutA[ligne + 1]; });
    for (std::size_t i = 0; i < n; ++i)
        m_debutA[i + 1] += m_debutA[i];
    m_colonneA.resize(m_debutA[n]);
    std::vector<std::size_t> libre(m_debutA.begin(), m_debutA.end() - 1);
    chaquePaire([&](std::size_t ligne, int colonne) { m_colonneA[libre[ligne]++] = colonne; });
    for (std::size_t i = 0; i < n; ++i)
        std::sort(m_colonneA.begin() + static_cast<std::ptrdiff_t>(m_debutA[i]),
                  m_colonneA.begin() + static_cast<std::ptrdiff_t>(m_debutA[i + 1]));
    m_valeurA.resize(m_colonneA.size());
    m_diagonaleA.resize(n);
}

/// The elimination tree and the places of L, row after row: first the length of each column, then its rows.
void matriceNormale::rangerFacteur()
{
    const auto n = static_cast<std::size_t>(m_taille);
    m_parent.assign(n, -1);
    std::vector<int> marque(n, -1);
    std::vector<std::size_t> longueur(n, 0);
    const auto chaqueElementDeLigne = [&](std::size_t ligne, auto&& faire) {
        marque[ligne] = static_cast<int>(ligne);
        for (std::size_t k = m_debutA[ligne]; k < m_debutA[ligne + 1]; ++k)
            for (auto j = static_cast<std::size_t>(m_colonneA[k]); marque[j] != static_cast<int>(ligne);
                 j = static_cast<std::size_t>(m_parent[j])) {
                if (m_parent[j] < 0)
                    m_parent[j] = static_cast<int>(ligne);
                faire(j);
                marque[j] = static_cast<int>(ligne);
            }
    };
    for (std::size_t i = 0; i < n; ++i)
        chaqueElementDeLigne(i, [&](std::size_t j) { ++longueur[j]; });
    m_debut.assign(n + 1, 0);
    for (std::size_t j = 0; j < n; ++j)
        m_debut[j + 1] = m_debut[j] + longueur[j];
    m_ligne.resize(m_debut[n]);
    std::vector<std::size_t> libre(m_debut.begin(), m_debut.end() - 1);
    std::ranges::fill(marque, -1);
    for (std::size_t i = 0; i < n; ++i)
        chaqueElementDeLigne(i, [&](std::size_t j) { m_ligne[libre[j]++] = static_cast<int>(i); });
    m_valeur.resize(m_ligne.size());
    m_inversePivot.resize(n);
}

void matriceNormale::vider()
{
    std::ranges::fill(m_valeurA, 0.0);
    std::ranges::fill(m_diagonaleA, 0.0);
}

void matriceNormale::ajouter(int i, int j, double valeur)
{
    const int a = m_rang[static_cast<std::size_t>(i)], b = m_rang[static_cast<std::size_t>(j)];
    if (a == b) {
        m_diagonaleA[static_cast<std::size_t>(a)] += valeur;
        return;
    }
    const auto ligne = static_cast<std::size_t>(std::max(a, b));
    const auto debut = m_colonneA.begin() + static_cast<std::ptrdiff_t>(m_debutA[ligne]);
    const auto fin = m_colonneA.begin() + static_cast<std::ptrdiff_t>(m_debutA[ligne + 1]);
    m_valeurA[static_cast<std::size_t>(std::lower_bound(debut, fin, std::min(a, b)) - m_colonneA.begin())] += valeur;
}

/// How many times its own uncertainty a pivot must be to be one.
constexpr double margePivot = 30.0;

/// What the rows share while they are factored.
struct matriceNormale::travailLigne {
    std::vector<double> valeurs; ///< of the row, by column; 0 between rows
    std::vector<int> marque;     ///< by column: the last row that has it
    std::vector<int> motif;      ///< the columns of the row, from a place on to the end
    std::vector<int> chemin;
};

/// Spreads a row and finds the columns it has in L, each before its parent in the tree.
/// @return where they begin in the pattern
std::size_t matriceNormale::etalerLigne(std::size_t i, travailLigne& t) const
{
    std::size_t haut = t.motif.size();
    const auto ligne = static_cast<int>(i);
    t.marque[i] = ligne;
    for (std::size_t k = m_debutA[i]; k < m_debutA[i + 1]; ++k) {
        auto j = static_cast<std::size_t>(m_colonneA[k]);
        t.valeurs[j] = m_valeurA[k];
        std::size_t longueur = 0;
        for (; t.marque[j] != ligne; j = static_cast<std::size_t>(m_parent[j])) {
            t.chemin[longueur++] = static_cast<int>(j);
            t.marque[j] = ligne;
        }
        while (longueur > 0)
            t.motif[--haut] = t.chemin[--longueur];
    }
    return haut;
}

/// Row after row: each row of L is the solution of a triangular system with the rows before it.
void matriceNormale::factoriser()
{
    const auto n = static_cast<std::size_t>(m_taille);
    travailLigne t{std::vector<double>(n, 0.0), std::vector<int>(n, -1), std::vector<int>(n), std::vector<int>(n)};
    std::vector<double> incertitude(n);
    std::vector<std::size_t> fin(m_debut.begin(), m_debut.end() - 1);
    m_tenues.clear();
    for (std::size_t i = 0; i < n; ++i) {
        double pivot = m_diagonaleA[i];
        // What rounding may have made of it: its own, and that of the pivots it was reduced by.
        incertitude[i] = std::numeric_limits<double>::epsilon() * pivot;
        for (std::size_t place = etalerLigne(i, t); place < n; ++place) {
            const auto j = static_cast<std::size_t>(t.motif[place]);
            const double y = t.valeurs[j];
            t.valeurs[j] = 0.0;
            const std::size_t bout = fin[j];
            for (std::size_t p = m_debut[j]; p < bout; ++p)
                t.valeurs[static_cast<std::size_t>(m_ligne[p])] -= m_valeur[p] * y;
            const double l = y * m_inversePivot[j];
            pivot -= l * y;
            incertitude[i] += l * l * incertitude[j];
            m_valeur[fin[j]++] = l;
        }
        if (!(pivot > margePivot * incertitude[i])) {
            incertitude[i] = 0.0;
            m_tenues.push_back(m_ordre[i]);
            m_inversePivot[i] = 0.0;
        } else {
            m_inversePivot[i] = 1.0 / pivot;
        }
    }
}

void matriceNormale::resoudre(std::vector<double>& second) const
{
    const auto n = static_cast<std::size_t>(m_taille);
    std::vector<double> b(n);
    for (std::size_t k = 0; k < n; ++k)
        b[k] = second[static_cast<std::size_t>(m_ordre[k])];
    for (std::size_t j = 0; j < n; ++j)
        for (std::size_t p = m_debut[j]; p < m_debut[j + 1]; ++p)
            b[static_cast<std::size_t>(m_ligne[p])] -= m_valeur[p] * b[j];
    for (std::size_t j = n; j-- > 0;) {
        b[j] *= m_inversePivot[j];
        if (m_inversePivot[j] != 0.0)
            for (std::size_t p = m_debut[j]; p < m_debut[j + 1]; ++p)
                b[j] -= m_valeur[p] * b[static_cast<std::size_t>(m_ligne[p])];
    }
    for (std::size_t k = 0; k < n; ++k)
        second[static_cast<std::size_t>(m_ordre[k])] = b[k];
}

std::vector<double> matriceNormale::mouvementLibre(int tenue) const
{
    const auto n = static_cast<std::size_t>(m_taille);
    std::vector<double> z(n, 0.0);
    const auto depart = static_cast<std::size_t>(m_rang[static_cast<std::size_t>(tenue)]);
    z[depart] = 1.0;
    for (std::size_t j = depart; j-- > 0;)
        if (m_inversePivot[j] != 0.0)
            for (std::size_t p = m_debut[j]; p < m_debut[j + 1]; ++p)
                z[j] -= m_valeur[p] * z[static_cast<std::size_t>(m_ligne[p])];
    std::vector<double> mouvement(n);
    for (std::size_t k = 0; k < n; ++k)
        mouvement[static_cast<std::size_t>(m_ordre[k])] = z[k];
    return mouvement;
}

/// From the last column to the first: each needs only elements of later columns that lie where L is not zero.
void matriceNormale::inverser()
{
    const auto n = static_cast<std::size_t>(m_taille);
    m_inverse.assign(m_ligne.size(), 0.0);
    m_inverseDiagonale.assign(n, 0.0);
    std::vector<double> l(n, 0.0), somme(n, 0.0);
    std::vector<int> marque(n, -1);
    for (std::size_t j = n; j-- > 0;) {
        if (m_inversePivot[j] == 0.0)
            continue;
        for (std::size_t p = m_debut[j]; p < m_debut[j + 1]; ++p) {
            const auto k = static_cast<std::size_t>(m_ligne[p]);
            l[k] = m_valeur[p];
            marque[k] = static_cast<int>(j);
            somme[k] = 0.0;
        }
        for (std::size_t p = m_debut[j]; p < m_debut[j + 1]; ++p) {
            const auto k = static_cast<std::size_t>(m_ligne[p]);
            double ici = l[k] * m_inverseDiagonale[k];
            for (std::size_t q = m_debut[k]; q < m_debut[k + 1]; ++q) {
                const auto r = static_cast<std::size_t>(m_ligne[q]);
                if (marque[r] != static_cast<int>(j))
                    continue;
                somme[r] += l[k] * m_inverse[q];
                ici += l[r] * m_inverse[q];
            }
            somme[k] += ici;
        }
        double diagonale = m_inversePivot[j];
        for (std::size_t p = m_debut[j]; p < m_debut[j + 1]; ++p) {
            const auto k = static_cast<std::size_t>(m_ligne[p]);
            m_inverse[p] = -somme[k];
            diagonale += l[k] * somme[k];
        }
        m_inverseDiagonale[j] = diagonale;
    }
}

double matriceNormale::inverse(int i, int j) const
{
    const int a = m_rang[static_cast<std::size_t>(i)], b = m_rang[static_cast<std::size_t>(j)];
    if (a == b)
        return m_inverseDiagonale[static_cast<std::size_t>(a)];
    const auto colonne = static_cast<std::size_t>(std::min(a, b));
    const auto debut = m_ligne.begin() + static_cast<std::ptrdiff_t>(m_debut[colonne]);
    const auto fin = m_ligne.begin() + static_cast<std::ptrdiff_t>(m_debut[colonne + 1]);
    const auto place = std::lower_bound(debut, fin, std::max(a, b));
    return place != fin && *place == std::max(a, b) ? m_inverse[static_cast<std::size_t>(place - m_ligne.begin())]
                                                    : 0.0;
}
