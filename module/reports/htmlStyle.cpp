#include "reports/htmlStyle.h"

namespace {

void append(std::string& css, const char* property, const std::string& value)
{
    css.append(property).append(":").append(value).append(";");
}

template <class T>
void append(std::string& css, const char* property, const std::optional<T>& value)
{
    if (value)
        append(css, property, value->text());
}

template <class T>
void appendFourSides(std::string& css, const std::string& prefix, const char* suffix, const std::optional<T>& value)
{
    if (!value)
        return;
    for (const char* side : {"left", "right", "top", "bottom"})
        append(css, (prefix + side + suffix).c_str(), value->text());
}

std::string decorationText(int bits)
{
    std::string words;
    if (bits & htmlStyle::underline)
        words += "underline ";
    if (bits & htmlStyle::overline)
        words += "overline ";
    if (bits & htmlStyle::lineThrough)
        words += "line-through ";
    if (bits & htmlStyle::blink)
        words += "blink";
    return words.empty() ? "none" : words;
}

const char* alignmentText(int code)
{
    switch (code) {
    case htmlStyle::left:
        return "left";
    case htmlStyle::right:
        return "right";
    case htmlStyle::center:
        return "center";
    default:
        return "justify";
    }
}

} // namespace

void htmlStyle::setBackgroundPosition(std::optional<htmlSize> x, std::optional<htmlSize> y)
{
    m_backgroundPosition = position{std::move(x), std::move(y)};
}

std::string htmlStyle::text() const
{
    std::string css;
    appendFont(css);
    appendBackground(css);
    appendParagraph(css);
    appendSides(css);
    return css;
}

void htmlStyle::appendFont(std::string& css) const
{
    if (m_fontFamily) {
        css += " font-family:'" + *m_fontFamily + "'";
        css += m_genericFamily ? ",'" + *m_genericFamily + "';" : ";";
    }
    append(css, "font-size", m_fontSize);
    if (m_italic)
        append(css, "font-style", *m_italic ? "italic" : "normal");
    if (m_bold)
        append(css, "font-weight", *m_bold ? "bold" : "normal");
    if (m_decoration)
        append(css, "text-decoration", decorationText(*m_decoration));
}

void htmlStyle::appendBackground(std::string& css) const
{
    append(css, "color", m_color);
    append(css, "background-color", m_backgroundColor);
    if (m_backgroundImage)
        append(css, "background-image", "url('" + *m_backgroundImage + "')");
    if (m_backgroundAttachment) {
        append(css, "background-attachment", *m_backgroundAttachment == fixed ? "fixed" : "scroll");
        static constexpr const char* repetitions[] = {"no-repeat", "repeat", "repeat-x", "repeat-y"};
        if (m_backgroundRepeat && *m_backgroundRepeat >= noRepeat && *m_backgroundRepeat <= repeatY)
            append(css, "background-repeat", repetitions[*m_backgroundRepeat]);
    }
    if (m_backgroundPosition) {
        const auto& [x, y] = *m_backgroundPosition;
        append(css, "background-position", " " + (x ? x->text() : "0px") + " " + (y ? y->text() : "0px"));
    }
}

void htmlStyle::appendParagraph(std::string& css) const
{
    if (m_textAlign)
        append(css, "text-align", alignmentText(*m_textAlign));
    append(css, "text-indent", m_textIndent);
    append(css, "line-height", m_lineHeight);
    append(css, "letter-spacing", m_letterSpacing);
}

void htmlStyle::appendSides(std::string& css) const
{
    appendFourSides(css, "margin-", "", m_margins);
    appendFourSides(css, "padding-", "", m_paddings);
    appendFourSides(css, "border-", "-width", m_borderWidths);
    appendFourSides(css, "border-", "-style", m_borderStyles);
    appendFourSides(css, "border-", "-color", m_borderColors);
}
