#pragma once

#include <cmath>

/// The mark of a coordinate, angle, distance or height that is not known, compared exactly.
inline constexpr double inconnu = 1e38;

/// Whether a value is known and finite: what a point must have to be drawn.
inline bool estConnue(double valeur)
{
    return std::isfinite(valeur) && valeur != inconnu;
}

/// A real that may be unknown: any operation that meets the unknown value yields it, where plain arithmetic would
/// average it away (1e38 shared among four stations is no longer 1e38). Otherwise the operations are those of double.
class grandeur {
public:
    constexpr grandeur(double valeur = 0.0) : m_valeur(valeur) {}

    constexpr double valeur() const { return m_valeur; }
    constexpr bool connue() const { return m_valeur != inconnu; }

    friend constexpr grandeur operator+(grandeur a, grandeur b) { return si(a, b, a.m_valeur + b.m_valeur); }
    friend constexpr grandeur operator-(grandeur a, grandeur b) { return si(a, b, a.m_valeur - b.m_valeur); }
    friend constexpr grandeur operator*(grandeur a, grandeur b) { return si(a, b, a.m_valeur * b.m_valeur); }
    /// A zero divisor gives what the machine gives, a result that is not finite.
    friend grandeur operator/(grandeur a, grandeur b) { return si(a, b, a.m_valeur / b.m_valeur); }
    constexpr grandeur& operator+=(grandeur b) { return *this = *this + b; }

    friend grandeur sin(grandeur a) { return si(a, a, std::sin(a.m_valeur)); }
    friend grandeur cos(grandeur a) { return si(a, a, std::cos(a.m_valeur)); }
    friend grandeur sqrt(grandeur a) { return si(a, a, std::sqrt(a.m_valeur)); }
    friend grandeur hypot(grandeur a, grandeur b) { return si(a, b, std::hypot(a.m_valeur, b.m_valeur)); }

private:
    static constexpr grandeur si(grandeur a, grandeur b, double resultat)
    {
        return a.connue() && b.connue() ? grandeur(resultat) : grandeur(inconnu);
    }

    double m_valeur;
};
