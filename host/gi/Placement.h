#pragma once

#include "gemat3d.h"

/// From the coordinates of a block to the world; for the world itself, at no cost.
class Placement {
public:
    Placement() = default;
    explicit Placement(const AcGeMatrix3d& matrix) : m_matrix(matrix), m_isWorld(false) {}

    const AcGeMatrix3d& matrix() const { return m_matrix; }
    bool isWorld() const { return m_isWorld; }
    Placement then(const AcGeMatrix3d& inner) const { return Placement(m_isWorld ? inner : m_matrix * inner); }

    AcGePoint3d operator()(const AcGePoint3d& p) const
    {
        if (m_isWorld)
            return p;
        const auto& e = m_matrix.entry;
        return {e[0][0] * p.x + e[0][1] * p.y + e[0][2] * p.z + e[0][3],
                e[1][0] * p.x + e[1][1] * p.y + e[1][2] * p.z + e[1][3],
                e[2][0] * p.x + e[2][1] * p.y + e[2][2] * p.z + e[2][3]};
    }
    AcGeVector3d operator()(const AcGeVector3d& v) const
    {
        if (m_isWorld)
            return v;
        const auto& e = m_matrix.entry;
        return {e[0][0] * v.x + e[0][1] * v.y + e[0][2] * v.z, e[1][0] * v.x + e[1][1] * v.y + e[1][2] * v.z,
                e[2][0] * v.x + e[2][1] * v.y + e[2][2] * v.z};
    }

private:
    AcGeMatrix3d m_matrix;
    bool m_isWorld = true;
};
