#pragma once

#include <cmath>
#include <cstdint>

/// Pseudo-random numbers that are the same on every machine, which the standard distributions are not.
/// Draw into a named value where two draws meet in one expression: their order is the compiler's there.
/// Generator: Steele, Lea and Flood, "Fast splittable pseudorandom number generators" (SplitMix64).
class Alea {
public:
    explicit Alea(std::uint64_t graine) : m_etat(graine) {}

    std::uint64_t suivant()
    {
        std::uint64_t z = m_etat += 0x9E3779B97F4A7C15u;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return z ^ (z >> 31);
    }

    /// In [de, a), on a grid of 1/2^53 of the span.
    double entre(double de, double a) { return de + (a - de) * (static_cast<double>(suivant() >> 11) * 0x1p-53); }

private:
    std::uint64_t m_etat;
};

/// Rounded as a total station lists lengths: to the millimetre.
inline double auMillimetre(double longueur)
{
    return std::round(longueur * 1000.0) / 1000.0;
}
