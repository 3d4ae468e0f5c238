#include "reports/htmlBorderStyle.h"

const char* htmlBorderStyle::text() const
{
    static constexpr const char* names[] = {"none",   "dotted", "dashed", "solid", "double",
                                            "groove", "ridge",  "inset",  "outset"};
    return m_code >= none && m_code <= outset ? names[m_code - none] : names[0];
}
