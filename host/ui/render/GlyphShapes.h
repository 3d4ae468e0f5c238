#pragma once

#include <QPainterPath>

#include <unordered_map>

/// The shapes of the characters that texts are painted with, in heights of a capital letter, y upwards, the beginning
/// of the baseline at the origin. One font serves for all text styles: a picture looks the same on every machine.
class GlyphShapes {
public:
    static GlyphShapes& instance();

    /// Empty for blanks. A character that the font lacks is shown as a frame.
    const QPainterPath& shape(wchar_t character);

private:
    QPainterPath read(wchar_t character) const;
    std::unordered_map<wchar_t, QPainterPath> m_shapes;
};
