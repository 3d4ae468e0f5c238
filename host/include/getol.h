#pragma once

/// How near two points or two vectors must be to count as equal. Drawing units for points; both 1e-10 at first.
class AcGeTol {
public:
    double equalPoint() const { return m_equalPoint; }
    double equalVector() const { return m_equalVector; }
    void setEqualPoint(double tolerance) { m_equalPoint = tolerance; }
    void setEqualVector(double tolerance) { m_equalVector = tolerance; }

private:
    double m_equalPoint = 1e-10;
    double m_equalVector = 1e-10;
};
