#pragma once

#include <algorithm>
#include <cmath>

#include "gepnt3d.h"

/// Lengths and nearest points of curves that have no formula for them.
namespace sampled_curve {

/// Length between two parameters, by Gauss and Legendre's five points in each of `panels` equal parts.
template <class Derivative>
double length(double from, double to, int panels, const Derivative& derivative)
{
    constexpr double places[] = {0.0, 0.5384693101056831, 0.9061798459386640};
    constexpr double weights[] = {0.5688888888888889, 0.4786286704993665, 0.2369268850561891};
    const double half = (to - from) / (2.0 * panels);
    double sum = 0.0;
    for (int i = 0; i < panels; ++i) {
        const double middle = from + (2 * i + 1) * half;
        sum += weights[0] * derivative(middle).length();
        for (int k = 1; k < 3; ++k)
            sum += weights[k] *
                   (derivative(middle - half * places[k]).length() + derivative(middle + half * places[k]).length());
    }
    return sum * half;
}

/// Parameter at a length from `from`; the length must not exceed the curve's.
template <class Derivative>
double paramAtLength(double wanted, double from, double to, int panels, const Derivative& derivative)
{
    const double step = (to - from) / panels;
    double low = from;
    for (int i = 0; i + 1 < panels; ++i) {
        const double own = length(low, low + step, 1, derivative);
        if (own >= wanted)
            break;
        wanted -= own;
        low += step;
    }
    double left = low, right = std::min(low + step, to);
    if (low + 1.5 * step > to)
        right = to;
    for (int i = 0; i < 60 && right > left; ++i) {
        const double middle = (left + right) / 2.0;
        (length(low, middle, 1, derivative) < wanted ? left : right) = middle;
    }
    return (left + right) / 2.0;
}

/// Parameter of the nearest point: the best of `samples` places, then narrowed down between its neighbours.
template <class At>
double nearest(const AcGePoint3d& point, double from, double to, int samples, const At& at)
{
    const auto away = [&](double t) { return (at(t) - point).lengthSqrd(); };
    const double step = (to - from) / samples;
    int best = 0;
    for (int i = 1; i <= samples; ++i)
        if (away(from + i * step) < away(from + best * step))
            best = i;
    double left = from + std::max(best - 1, 0) * step, right = from + std::min(best + 1, samples) * step;
    constexpr double golden = 0.6180339887498949;
    for (int i = 0; i < 80; ++i) {
        const double a = right - golden * (right - left), b = left + golden * (right - left);
        (away(a) < away(b) ? right : left) = away(a) < away(b) ? b : a;
    }
    const double narrowed = (left + right) / 2.0;
    for (const double end : {from, to})
        if (away(end) <= away(narrowed))
            return end;
    return narrowed;
}

} // namespace sampled_curve
