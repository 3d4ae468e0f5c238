#pragma once

#include <string>

/// A length with its unit, such as 10pt or 2.50mm.
class htmlSize {
public:
    enum unit { percent = 0, pt = 1, mm = 2, cm = 3, pc = 4, in = 5, px = 6 };

    /// @param unitCode one of `unit`; any other code prints no unit.
    htmlSize(double value, int unitCode) : m_value(value), m_unit(unitCode) {}
    virtual ~htmlSize() = default;
    htmlSize(const htmlSize&) = default;
    htmlSize& operator=(const htmlSize&) = default;

    /// The value, whole when it has no fractional part and with two decimals otherwise, then the unit.
    std::string text() const;

private:
    double m_value;
    int m_unit;
};
