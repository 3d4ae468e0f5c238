#pragma once

#include <cstddef>
#include <set>
#include <span>
#include <utility>
#include <vector>

#include "sol/courbesNiveau.h"

/// Along a crest that lies at the very altitude of a line the ground falls away on both hands, and a line passes on
/// each: there and back as one, or as two that run against each other. This keeps each side of a triangle once.
class courbesDoublees {
public:
    /// A stretch of a line by its corners; beyond the last one of a closed line they begin again.
    struct troncon {
        std::size_t debut, fin;
    };

    /// What is new of a line among those of its altitude; a closed one begins where it turns back, when it does.
    /// @param lieux its corners
    /// @param sommets which of them are vertices of the ground
    std::vector<troncon> garder(std::span<const lieuSol> lieux, const std::vector<bool>& sommets, bool fermee);

private:
    using cle = std::pair<std::pair<double, double>, std::pair<double, double>>;

    static cle cleDe(const lieuSol& p, const lieuSol& q);
    std::size_t departDe(std::span<const lieuSol> lieux, const std::vector<bool>& sommets) const;

    std::set<cle> vus;
};
