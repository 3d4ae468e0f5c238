#pragma once

#include <optional>

#include "geometrie/arbreBoites.h"

struct segmentPlan {
    point2 debut, fin;
};

/// Where the segments from `a` to `b` and `s` cross, as a part of the first one (0 at `a`, 1 at `b`), ends included.
/// Nothing for parallel ones, those that overlap too.
std::optional<double> croisement(point2 a, point2 b, const segmentPlan& s);

/// Segments found by place, in a packed tree.
class arbreSegments {
public:
    arbreSegments() = default;
    explicit arbreSegments(std::vector<segmentPlan> segments);

    const std::vector<segmentPlan>& segments() const { return m_segments; }
    const arbreBoites& boites() const { return m_arbre; }

    struct pied {
        std::size_t segment;
        double part; ///< along it, 0 to 1
        point2 point;
        double distance;
    };
    /// The nearest place on the segments, at most `limite` away.
    std::optional<pied> plusProche(point2 p, double limite = std::numeric_limits<double>::infinity()) const;

    /// Calls `pour(segment, part)` for each segment that the line from `a` to `b` crosses, in no order; `part` is along
    /// that line.
    template <typename Pour>
    void croisant(point2 a, point2 b, Pour&& pour) const
    {
        m_arbre.surSegment(a, b, [&](std::size_t i) {
            if (const auto part = croisement(a, b, m_segments[i]))
                pour(i, *part);
        });
    }

private:
    std::vector<segmentPlan> m_segments;
    arbreBoites m_arbre;
};
