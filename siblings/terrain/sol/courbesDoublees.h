#pragma once

#include <set>

#include "sol/courbesNiveau.h"

/// Along a crest that lies at the very altitude of a line the ground falls away on both hands, and a line passes on
/// each: there and back as one, or as two that run against each other. This keeps such lines once.
class courbesDoublees {
public:
    /// Opens a line that comes back the way it went. @return whether it is new among those of its altitude.
    bool garder(courbeNiveau& courbe);

private:
    std::set<std::vector<lieuSol>, bool (*)(const std::vector<lieuSol>&, const std::vector<lieuSol>&)> vues{avant};

    static bool avant(const std::vector<lieuSol>& p, const std::vector<lieuSol>& q);
};
