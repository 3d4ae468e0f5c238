#pragma once

#include <map>
#include <optional>
#include <QPainterPath>
#include <QRawFont>
#include <unordered_map>

/// The characters that texts are painted with: their shapes, in heights of a capital letter, y upwards, the beginning
/// of the baseline at the origin. One font serves for all text styles: a picture looks the same on every machine.
class GlyphShapes {
public:
    static GlyphShapes& instance();

    /// Empty for blanks. A character that the font lacks is shown as a frame.
    const QPainterPath& shape(wchar_t character);

    /// The font at a size, for devices of pixels, which keep the pictures of its glyphs: much faster than their shapes.
    /// @param capital pixels of a capital letter
    const QRawFont& font(double capital);
    /// What stands for a character in that font; nothing for blanks and for what the font lacks.
    std::optional<quint32> glyph(wchar_t character);

private:
    QPainterPath read(wchar_t character);
    std::unordered_map<wchar_t, QPainterPath> m_shapes;
    std::unordered_map<wchar_t, std::optional<quint32>> m_glyphs;
    std::map<int, QRawFont> m_fonts; // by sizes in quarters of a pixel
};
