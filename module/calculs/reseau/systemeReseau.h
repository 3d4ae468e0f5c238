#pragma once

#include <memory>
#include <vector>

#include "calculs/reseau/equationsObservation.h"
#include "calculs/reseau/matriceNormale.h"
#include "calculs/reseau/reseau.h"

/// The equations of the observations that take part, and the normal equations made of them.
class systemeReseau {
public:
    /// @param retenues observations that take part; all their points have a place
    /// @param ecarts standard deviation of each observation of the network
    systemeReseau(const reseau& r, std::vector<int> retenues, const std::vector<double>& ecarts);

    const std::vector<int>& retenues() const { return m_retenues; }
    int inconnues() const { return static_cast<int>(m_rangs.size()); }
    /// Of an unknown: 3·point + axis, or 3·points + set.
    int rang(int inconnue) const { return m_rangs[static_cast<std::size_t>(inconnue)]; }
    /// The unknown of a rank, or -1.
    int inconnueDe(int rang) const { return m_colonnes[static_cast<std::size_t>(rang)]; }

    /// Values and derivatives with these coordinates. @return the sum of weighted squares
    double evaluer(const coordonneesReseau& c);
    /// Factors of the weights, by place among `retenues`.
    std::vector<double>& facteurs() { return m_facteurs; }

    /// Normal equations of the last evaluation, factored. @return the right-hand side
    std::vector<double> assembler();
    matriceNormale& matrice() { return *m_matrice; }
    const matriceNormale& matrice() const { return *m_matrice; }

    // What tests need, by place among `retenues`.
    const equationObservation& equation(int place) const { return m_equations[static_cast<std::size_t>(place)]; }
    /// The column b = Aᵀ·P·e of an observation: unknowns and coefficients.
    void colonneNormale(int place, std::vector<std::pair<int, double>>& b) const;
    double poids(int place) const;                  ///< diagonal of P
    double poidsCroise(int place, int autre) const; ///< of P
    double residuPese(int place) const;             ///< (P·l), l = measure less computed
    /// Places of the observations correlated with one, itself included.
    std::vector<int> correlees(int place) const;

    /// Leaves of the misfits what a step does not explain, as if the equations were linear.
    void expliquer(const std::vector<double>& pas);
    /// Sum of weighted squares of the misfits as they stand.
    double sommePvv() const;

    /// Adds a step to the coordinates.
    void avancer(coordonneesReseau& c, const std::vector<double>& pas, double facteur) const;

private:
    struct bloc {
        std::vector<int> places;
        std::vector<double> poids; ///< full
    };
    void numeroter();
    void peser(const std::vector<double>& ecarts);
    void preparerMatrice();
    double facteurCroise(int a, int b) const;
    void ajouterProduit(int a, int b, double poids, std::vector<double>& second);

    const reseau& m_reseau;
    std::vector<int> m_retenues;
    std::vector<int> m_rangs, m_colonnes;
    std::vector<equationObservation> m_equations;
    std::vector<double> m_poids, m_facteurs;
    std::vector<int> m_bloc, m_dansBloc; ///< by place; -1: alone
    std::vector<bloc> m_blocs;
    std::unique_ptr<matriceNormale> m_matrice;
};
