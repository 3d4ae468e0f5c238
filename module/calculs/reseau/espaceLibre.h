#pragma once

#include <vector>

#include "calculs/reseau/systemeReseau.h"

/// What the observations leave free: moves of points that change none of them, at the coordinates of the last assembly.
/// Those that the coordinates of support can hold are held so that the sum of squares of their changes is least; the
/// others leave points undetermined.
class espaceLibre {
public:
    /// @param surAppui whether points of support hold the network
    espaceLibre(const reseau& r, const systemeReseau& s, bool surAppui);

    int defaut() const { return m_defaut; }
    /// Whether the network is held by inner constraints.
    bool place() const { return !m_base.empty(); }
    /// Moves that nothing holds, each scaled so that its largest part is 1.
    const std::vector<std::vector<double>>& flottements() const { return m_flottements; }
    /// Whether these are all there are: beyond some number, unknowns are only told to be undetermined.
    bool tousEtudies() const { return m_tousEtudies; }
    /// By unknown, whether it is determined.
    bool determinee(int inconnue) const
    {
        return m_flottante.empty() || !m_flottante[static_cast<std::size_t>(inconnue)];
    }

    /// Takes from a step what only moves points that float: they stay where they are.
    void calmer(std::vector<double>& pas) const;
    /// Takes from the changes what the inner constraints forbid.
    void projeter(std::vector<double>& changements) const;
    /// Before the first cofactor: what they share. The matrix must be factored.
    void preparerCofacteurs(const systemeReseau& s);
    /// Element of the cofactor matrix under the constraints, of two unknowns whose inverse is known.
    double cofacteur(const systemeReseau& s, int i, int j) const;

private:
    void retenirAppui(const reseau& r, const systemeReseau& s, bool surAppui);
    void ranger(std::vector<double> mouvement);
    void marquerFlottantes();

    int m_defaut = 0;
    bool m_tousEtudies = true;
    std::vector<bool> m_appui;               ///< by unknown
    std::vector<bool> m_coordonnee;          ///< by unknown: of a point, not of a set
    std::vector<std::vector<double>> m_base; ///< orthonormal over the coordinates of support
    std::vector<std::vector<double>> m_flottements;
    std::vector<bool> m_flottante;
    std::vector<std::vector<double>> m_images; ///< Q·(restriction of each base vector)
    std::vector<double> m_gram;                ///< base × image, over the coordinates of support
};
