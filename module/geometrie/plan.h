#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

/// Points and vectors as values: X east, Y north, Z up, in drawing units.

struct point2 {
    double x = 0.0, y = 0.0;

    friend point2 operator+(point2 a, point2 b) { return {a.x + b.x, a.y + b.y}; }
    friend point2 operator-(point2 a, point2 b) { return {a.x - b.x, a.y - b.y}; }
    friend point2 operator*(point2 a, double k) { return {a.x * k, a.y * k}; }
    friend bool operator==(point2 a, point2 b) { return a.x == b.x && a.y == b.y; }
};

struct point3 {
    double x = 0.0, y = 0.0, z = 0.0;

    point2 plan() const { return {x, y}; }
};

inline double scalaire(point2 a, point2 b)
{
    return a.x * b.x + a.y * b.y;
}
/// Positive when `b` turns to the left of `a`.
inline double vectoriel(point2 a, point2 b)
{
    return a.x * b.y - a.y * b.x;
}
inline double norme(point2 a)
{
    return std::hypot(a.x, a.y);
}
inline double carreDistance(point2 a, point2 b)
{
    return scalaire(b - a, b - a);
}
/// A quarter of a turn to the right.
inline point2 droiteDe(point2 a)
{
    return {a.y, -a.x};
}
/// `a` turned counter-clockwise, in radians.
inline point2 tourner(point2 a, double angle)
{
    const double c = std::cos(angle), s = std::sin(angle);
    return {a.x * c - a.y * s, a.x * s + a.y * c};
}

/// Where a line from `a` to `b` comes nearest to `p`: 0 at `a`, 1 at `b`, never outside. 0 when both are one.
inline double partPlusProche(point2 p, point2 a, point2 b)
{
    const double carre = carreDistance(a, b);
    return carre > 0.0 ? std::clamp(scalaire(p - a, b - a) / carre, 0.0, 1.0) : 0.0;
}

/// A rectangle with sides along the axes. A new one is empty.
struct boite {
    double xMin = std::numeric_limits<double>::infinity(), yMin = xMin, xMax = -xMin, yMax = -xMin;

    static boite de(point2 a, point2 b)
    {
        return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
    }
    bool vide() const { return !(xMin <= xMax && yMin <= yMax); }
    void ajouter(const boite& b)
    {
        xMin = std::min(xMin, b.xMin);
        yMin = std::min(yMin, b.yMin);
        xMax = std::max(xMax, b.xMax);
        yMax = std::max(yMax, b.yMax);
    }
    boite elargie(double marge) const { return {xMin - marge, yMin - marge, xMax + marge, yMax + marge}; }
    /// Borders included.
    bool touche(const boite& b) const { return xMin <= b.xMax && b.xMin <= xMax && yMin <= b.yMax && b.yMin <= yMax; }
    double carreDistance(point2 p) const
    {
        const double dx = std::max({xMin - p.x, 0.0, p.x - xMax}), dy = std::max({yMin - p.y, 0.0, p.y - yMax});
        return dx * dx + dy * dy;
    }
    /// Whether the segment from `a` to `b` has a point in it.
    bool touche(point2 a, point2 b) const
    {
        if (!touche(de(a, b)))
            return false;
        // Then they are apart only when all corners are on one side of the line.
        const point2 u = b - a;
        const double c1 = vectoriel(u, point2{xMin, yMin} - a), c2 = vectoriel(u, point2{xMax, yMin} - a);
        const double c3 = vectoriel(u, point2{xMin, yMax} - a), c4 = vectoriel(u, point2{xMax, yMax} - a);
        return !(std::min({c1, c2, c3, c4}) > 0.0 || std::max({c1, c2, c3, c4}) < 0.0);
    }
};
