#pragma once

#include <cstddef>
#include <vector>

/// The symmetric matrix of normal equations: sparse, positive, perhaps singular. Its unknowns are put into an order
/// that keeps the factor sparse (nested dissection), then L·D·Lᵀ is computed, and of the inverse what lies where L is
/// not zero: whatever two unknowns of one observation need, at the price of one factorisation more.
///
/// A pivot that is lost in rounding marks an unknown that nothing determines but its neighbours: it is held,
/// the rest is solved, and a null vector says what moves with it.
class matriceNormale {
public:
    /// @param voisins for each unknown, the larger unknowns that some observation joins it to, ascending, each once
    explicit matriceNormale(const std::vector<std::vector<int>>& voisins);

    int taille() const { return m_taille; }
    std::size_t elements() const { return m_ligne.size(); } ///< of L

    void vider();
    /// Adds to the element of two unknowns that are joined, or to a diagonal one.
    void ajouter(int i, int j, double valeur);

    void factoriser();
    /// Solves with `second` and leaves the solution there. Held unknowns become 0.
    void resoudre(std::vector<double>& second) const;

    /// The unknowns held by the last factorisation.
    const std::vector<int>& tenues() const { return m_tenues; }
    /// Moves that change no observation: 1 at the held unknown, 0 at the other held ones.
    std::vector<double> mouvementLibre(int tenue) const;

    /// The selected inverse, after factoriser.
    void inverser();
    /// An element of it, for unknowns that are equal or joined (even through the factor only); 0 for others.
    double inverse(int i, int j) const;

private:
    void ordonner(const std::vector<std::vector<int>>& voisins);
    void rangerMatrice(const std::vector<std::vector<int>>& voisins);
    void rangerFacteur();
    struct travailLigne;
    std::size_t etalerLigne(std::size_t i, travailLigne& t) const;

    int m_taille;
    std::vector<int> m_rang;  ///< of an unknown in the elimination order
    std::vector<int> m_ordre; ///< the unknown of a rank
    // The matrix by rows of ranks below the diagonal (up-looking factorisation takes it so), each ascending.
    std::vector<std::size_t> m_debutA;
    std::vector<int> m_colonneA;
    std::vector<double> m_valeurA, m_diagonaleA;
    // L by columns; rows ascend.
    std::vector<int> m_parent; ///< elimination tree
    std::vector<std::size_t> m_debut;
    std::vector<int> m_ligne;
    std::vector<double> m_valeur, m_inversePivot;
    std::vector<int> m_tenues;
    // The selected inverse, in the places of L.
    std::vector<double> m_inverse, m_inverseDiagonale;
};
