#include "reports/htmlColor.h"

std::string htmlColor::text() const
{
    return "rgb(" + std::to_string(m_red) + "," + std::to_string(m_green) + "," + std::to_string(m_blue) + ")";
}
