#pragma once

/// Angles are degrees in a file and radians in memory.

inline double dxfRadians(double degrees)
{
    constexpr double radiansPerDegree = 0.017453292519943295;
    return degrees * radiansPerDegree;
}

/// Degrees that lead back to an angle, in 15 digits where these do: 12 written, read and written again stays 12.
double dxfDegrees(double radians);
