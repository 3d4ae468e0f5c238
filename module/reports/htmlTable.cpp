#include "reports/htmlTable.h"

#include "services/nombreFixe.h"

namespace {

void appendNumber(std::string& tag, const char* attribute, const std::optional<int>& value)
{
    if (value)
        tag.append(attribute).append("\"").append(std::to_string(*value)).append("\"");
}

/// Red is the low byte of the value and comes first in the text.
void appendColor(std::string& tag, const char* attribute, const std::optional<std::uint32_t>& color)
{
    static constexpr char digits[] = "0123456789abcdef";
    if (!color)
        return;
    tag.append(attribute);
    for (const unsigned shift : {0u, 8u, 16u}) {
        const unsigned channel = (*color >> shift) & 0xFFu;
        tag += digits[channel >> 4];
        tag += digits[channel & 0xFu];
    }
}

} // namespace

void htmlTable::setAlignment(int code)
{
    m_alignment = code >= left && code <= center ? std::optional<int>(code) : std::nullopt;
}

void htmlTable::setWidth(int width, int unitCode)
{
    m_width = {width, unitCode};
}

void htmlTable::beginRow(std::string_view attributes)
{
    if (m_rowOpen)
        m_rows += "</tr>";
    m_rows.append("<tr ").append(attributes).append(">");
    m_rowOpen = true;
}

void htmlTable::addCell(std::string_view text, std::string_view attributes)
{
    m_rows.append("<td ").append(attributes).append(">").append(text).append("</td>");
}

void htmlTable::addCell(double value, int decimals, std::string_view attributes)
{
    addCell(nombreFixe(value, decimals), attributes);
}

void htmlTable::endRow()
{
    m_rows += "</tr>";
    m_rowOpen = false;
}

std::string htmlTable::render() const
{
    std::string text = openingTag();
    text.reserve(text.size() + m_rows.size() + 16);
    text += m_rows;
    if (m_rowOpen)
        text += "</tr>";
    text += "</table>";
    return text;
}

std::string htmlTable::openingTag() const
{
    static constexpr const char* alignments[] = {"left", "right", "center"};
    static constexpr const char* units[] = {"%", "px", "pt", "pc", "in", "cm", "mm", "em"};

    std::string tag = "<table ";
    // Glued to "<table " on purpose: saved reports are compared as text.
    if (m_alignment)
        tag += std::string("text-align=\"") + alignments[*m_alignment] + "\"";
    if (m_width) {
        const bool listed = m_width->unit >= percent && m_width->unit <= em;
        tag += " width=\"" + std::to_string(m_width->value) + (listed ? units[m_width->unit] : "") + "\"";
    }
    appendNumber(tag, " border=", m_border);
    appendNumber(tag, " cellpadding=", m_cellPadding);
    // The blank before the sign is part of the format.
    appendNumber(tag, " cellspacing =", m_cellSpacing);
    appendColor(tag, " bgcolor=#", m_backgroundColor);
    appendColor(tag, " bordercolor=#", m_borderColor);
    appendColor(tag, " bordercolorlight=#", m_lightBorderColor);
    appendColor(tag, " bordercolordark=#", m_darkBorderColor);
    tag += ">\n";
    return tag;
}
