#include "reports/htmlText.h"

std::string htmlText::render() const
{
    if (m_kind != paragraph && m_kind != listItem)
        return {};
    const char* tag = m_kind == paragraph ? "P" : "LI";
    return std::string("<") + tag + " " + m_attributes + ">" + m_text + "</" + tag + ">";
}

std::string htmlEscaped(std::string_view text)
{
    std::string escaped;
    escaped.reserve(text.size());
    for (const char c : text) {
        if (c == '&')
            escaped += "&amp;";
        else if (c == '<')
            escaped += "&lt;";
        else if (c == '>')
            escaped += "&gt;";
        else
            escaped += c;
    }
    return escaped;
}
