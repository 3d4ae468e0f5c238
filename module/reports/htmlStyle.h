#pragma once

#include <optional>
#include <string>

#include "reports/htmlBorderStyle.h"
#include "reports/htmlColor.h"
#include "reports/htmlSize.h"

/// A set of CSS properties; only those that were given are written, always in the same order.
/// One object may serve several classes in turn: each keeps what the earlier ones set.
class htmlStyle {
public:
    enum decoration { noDecoration = 0, underline = 1, overline = 2, lineThrough = 4, blink = 8 };
    enum attachment { scroll = 1, fixed = 2 };
    enum repetition { noRepeat = 0, repeat, repeatX, repeatY };
    enum alignment { left = 1, right = 2, center = 4, justify = 8 };

    void setFontFamily(std::string family) { m_fontFamily = std::move(family); }
    /// Written after the family it completes; without a family it is not written.
    void setGenericFamily(std::string generic) { m_genericFamily = std::move(generic); }
    void setFontSize(const htmlSize& size) { m_fontSize = size; }
    void setItalic(bool italic) { m_italic = italic; }
    void setBold(bool bold) { m_bold = bold; }
    /// @param bits sum of `decoration` values; 0 writes "none".
    void setTextDecoration(int bits) { m_decoration = bits; }

    void setColor(const htmlColor& color) { m_color = color; }
    void setBackgroundColor(const htmlColor& color) { m_backgroundColor = color; }
    void setBackgroundImage(std::string url) { m_backgroundImage = std::move(url); }
    /// @param code `fixed`; anything else scrolls.
    void setBackgroundAttachment(int code) { m_backgroundAttachment = code; }
    /// Written only when the attachment is given too. A code outside `repetition` is not written.
    void setBackgroundRepeat(int code) { m_backgroundRepeat = code; }
    /// A coordinate left out stands for 0px.
    void setBackgroundPosition(std::optional<htmlSize> x, std::optional<htmlSize> y);

    /// @param code one of `alignment`; any unlisted code justifies.
    void setTextAlign(int code) { m_textAlign = code; }
    void setTextIndent(const htmlSize& size) { m_textIndent = size; }
    void setLineHeight(const htmlSize& size) { m_lineHeight = size; }
    void setLetterSpacing(const htmlSize& size) { m_letterSpacing = size; }

    // The four sides at once.
    void setMargins(const htmlSize& size) { m_margins = size; }
    void setPaddings(const htmlSize& size) { m_paddings = size; }
    void setBorderWidths(const htmlSize& size) { m_borderWidths = size; }
    void setBorderStyles(const htmlBorderStyle& style) { m_borderStyles = style; }
    void setBorderColors(const htmlColor& color) { m_borderColors = color; }

    /// The CSS text of the given properties, each ended by a semicolon.
    std::string text() const;

private:
    struct position {
        std::optional<htmlSize> x, y;
    };

    void appendFont(std::string& css) const;
    void appendBackground(std::string& css) const;
    void appendParagraph(std::string& css) const;
    void appendSides(std::string& css) const;

    std::optional<std::string> m_fontFamily, m_genericFamily;
    std::optional<htmlSize> m_fontSize;
    std::optional<bool> m_italic, m_bold;
    std::optional<int> m_decoration;
    std::optional<htmlColor> m_color, m_backgroundColor;
    std::optional<std::string> m_backgroundImage;
    std::optional<int> m_backgroundAttachment, m_backgroundRepeat;
    std::optional<position> m_backgroundPosition;
    std::optional<int> m_textAlign;
    std::optional<htmlSize> m_textIndent, m_lineHeight, m_letterSpacing;
    std::optional<htmlSize> m_margins, m_paddings, m_borderWidths;
    std::optional<htmlBorderStyle> m_borderStyles;
    std::optional<htmlColor> m_borderColors;
};
