#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

/// A table built row after row. Appending costs what is appended: a report may have 100 000 rows.
class htmlTable {
public:
    enum alignment { left = 0, right = 1, center = 2 };
    // Numbered otherwise than the units of htmlSize.
    enum widthUnit { percent = 0, px, pt, pc, in, cm, mm, em };

    /// @param code one of `alignment`; any other takes the attribute away.
    void setAlignment(int code);
    void setBorder(int width) { m_border = width; }
    void setCellPadding(int padding) { m_cellPadding = padding; }
    void setCellSpacing(int spacing) { m_cellSpacing = spacing; }
    /// @param unitCode one of `widthUnit`; any other prints no unit.
    void setWidth(int width, int unitCode);

    // Colours are 24-bit values whose low byte is red.
    void setBackgroundColor(std::uint32_t color) { m_backgroundColor = color; }
    void setBorderColor(std::uint32_t color) { m_borderColor = color; }
    void setLightBorderColor(std::uint32_t color) { m_lightBorderColor = color; }
    void setDarkBorderColor(std::uint32_t color) { m_darkBorderColor = color; }

    /// Opens a row, closing the one that is open.
    void beginRow(std::string_view attributes = {});
    /// Appends a cell; without a row it stands straight in the table.
    void addCell(std::string_view text, std::string_view attributes = {});
    void addCell(double value, int decimals, std::string_view attributes = {});
    /// Closes the row, whether one is open or not.
    void endRow();

    /// The rows built since the last call, which leaves none: a table too long for the memory is written in pieces.
    std::string takeRows() { return std::exchange(m_rows, {}); }

    /// The whole table; a row still open is closed in the text.
    std::string render() const;

private:
    std::string openingTag() const;

    struct tableWidth {
        int value;
        int unit;
    };

    std::string m_rows;
    bool m_rowOpen = false;
    std::optional<int> m_alignment, m_border, m_cellPadding, m_cellSpacing;
    std::optional<tableWidth> m_width;
    std::optional<std::uint32_t> m_backgroundColor, m_borderColor, m_lightBorderColor, m_darkBorderColor;
};
