#pragma once

/// A place in plan, and a point of the ground. Drawing units.
struct lieuSol {
    double x = 0.0, y = 0.0;
    bool operator==(const lieuSol&) const = default;
};

struct sommetSol : lieuSol {
    double z = 0.0;
    bool operator==(const sommetSol&) const = default;
};
