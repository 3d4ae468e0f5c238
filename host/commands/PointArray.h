#pragma once

#include "adsdef.h"
#include "gepnt3d.h"

/// A point as the C-style interface has it.
struct PointArray {
    ads_point data = {0.0, 0.0, 0.0};

    PointArray() = default;
    explicit PointArray(const AcGePoint3d& p) : data{p.x, p.y, p.z} {}
    AcGePoint3d point() const { return {data[0], data[1], data[2]}; }
};
