#pragma once

#include <vector>

/// Where the numbering of an axis jumps: what comes in at `arriere` goes on as `avant`.
struct equationAbscisse {
    double arriere = 0.0, avant = 0.0;
};

/// The chainages of an axis: lengths from its start, an origin added, with jumps (equations of chainage) where the axis
/// was lengthened or shortened after it had been numbered.
class abscisses {
public:
    /// @param origine chainage of the start
    /// @param equations in the order in which the axis runs; one that lies behind the one before it, or behind the
    ///        start, is left out
    explicit abscisses(double origine = 0.0, const std::vector<equationAbscisse>& equations = {});

    double origine() const { return m_troncons.front().abscisse; }
    double abscisseA(double longueur) const;
    /// The lengths that bear a chainage: several where the numbering comes back, none where it jumps over it. `fin` is
    /// the length of the axis.
    std::vector<double> longueursDe(double abscisse, double fin) const;
    /// Multiples of `pas` (above 0) as lengths, up to `fin`.
    std::vector<double> jalons(double pas, double fin) const;
    struct saut {
        double longueur; ///< where the numbering jumps
        equationAbscisse equation;
    };
    /// Along the axis; equations that were left out are not among them.
    std::vector<saut> sauts() const;

private:
    struct troncon {
        double longueur, abscisse; // at its start
    };
    double finDe(std::size_t i, double fin) const;

    std::vector<troncon> m_troncons; // one at least
};
