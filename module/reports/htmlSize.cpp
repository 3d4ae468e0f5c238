#include "reports/htmlSize.h"

#include <cmath>
#include <cstddef>
#include <iterator>

#include "services/nombreFixe.h"

std::string htmlSize::text() const
{
    static constexpr const char* units[] = {"%", "pt", "mm", "cm", "pc", "in", "px"};
    const bool listed = m_unit >= 0 && static_cast<std::size_t>(m_unit) < std::size(units);
    const bool whole = std::trunc(m_value) == m_value;
    // Adding 0.0 turns a negative zero into a plain one.
    return nombreFixe(m_value + 0.0, whole ? 0 : 2) + (listed ? units[m_unit] : "");
}
