#include <cmath>

#include "ge/Angles.h"

#include "acutads.h"

ads_real acutAngle(const ads_point from, const ads_point to)
{
    return inOneTurn(std::atan2(to[1] - from[1], to[0] - from[0]));
}

ads_real acutDistance(const ads_point from, const ads_point to)
{
    return std::hypot(to[0] - from[0], to[1] - from[1], to[2] - from[2]);
}

void acutPolar(const ads_point point, ads_real angle, ads_real distance, ads_point result)
{
    result[0] = point[0] + distance * std::cos(angle);
    result[1] = point[1] + distance * std::sin(angle);
    result[2] = point[2];
}

int acutInters(const ads_point from1, const ads_point to1, const ads_point from2, const ads_point to2, int onSegments,
               ads_point result)
{
    const double dx1 = to1[0] - from1[0], dy1 = to1[1] - from1[1];
    const double dx2 = to2[0] - from2[0], dy2 = to2[1] - from2[1];
    const double cross = dx1 * dy2 - dy1 * dx2;
    // Sine of the angle between them: below this, rounding decides where they would meet.
    constexpr double parallel = 1e-14;
    if (std::abs(cross) <= parallel * std::hypot(dx1, dy1) * std::hypot(dx2, dy2))
        return RTERROR;
    const double ox = from2[0] - from1[0], oy = from2[1] - from1[1];
    const double t1 = (ox * dy2 - oy * dx2) / cross;
    const double t2 = (ox * dy1 - oy * dx1) / cross;
    // An end that touches counts, rounding included.
    constexpr double slack = 1e-12;
    const auto within = [](double t) { return t >= -slack && t <= 1.0 + slack; };
    if (onSegments != 0 && !(within(t1) && within(t2)))
        return RTERROR;
    const double z = from1[2] + t1 * (to1[2] - from1[2]);
    result[0] = from1[0] + t1 * dx1;
    result[1] = from1[1] + t1 * dy1;
    result[2] = z;
    return RTNORM;
}
