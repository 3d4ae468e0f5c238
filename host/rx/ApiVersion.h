#pragma once

#include "adesk.h"

/// Version of the interface: release in the upper half, point release in the lower. A module built for another release
/// is not loaded.
constexpr Adesk::UInt32 kApiVersion = 20U << 16U;

constexpr Adesk::UInt32 apiRelease(Adesk::UInt32 version)
{
    return version >> 16U;
}
