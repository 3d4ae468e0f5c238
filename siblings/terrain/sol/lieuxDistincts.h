#pragma once

#include <cstdint>
#include <vector>

#include "sol/sommetSol.h"

/// Gathers points at places that differ: one nearer than `rayon` to an earlier one is that one. Constant time a point.
class lieuxDistincts {
public:
    lieuxDistincts(double leRayon, std::size_t prevus);

    /// The number of the point at that place, which is added when there was none.
    int ajouter(const sommetSol& point);

    std::vector<sommetSol>& sommets() { return lesSommets; }

private:
    struct cellule {
        std::int64_t colonne = 0, rangee = 0;
        bool operator==(const cellule&) const = default;
    };

    std::size_t casier(const cellule& c) const;
    int chercher(const cellule& c, const lieuSol& lieu) const;
    void ranger(int numero);
    void agrandir();
    cellule celluleDe(const lieuSol& lieu) const;

    double rayon;
    std::vector<sommetSol> lesSommets;
    std::vector<int> casiers; // open addressing: numbers of points, -1 for a free one
};
