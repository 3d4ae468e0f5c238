#pragma once

#include <QColor>
#include <QImage>
#include <QPolygonF>
#include <QRect>
#include <span>

/// An area, between rings that count by turns (even-odd), whose sides cross the rows of the picture by the hundreds:
/// the fills that Qt offers take the square of it, and a damaged drawing holds areas of thousands of such sides.
/// Painted here in time that follows the number of sides, the rows that each crosses, and the pixels.
class CrowdedArea {
public:
    /// Sides that cross a row of pixels, on the average, up to which an area is left to Qt.
    static constexpr int mostLeftToQt = 64;

    /// Rings in pixels, open or closed. Points that are no numbers are left out with their sides. The rings must
    /// outlive the area.
    explicit CrowdedArea(std::span<const QPolygonF> rings) : m_rings(rings) {}

    /// Whether the area is one of these within a picture.
    bool isOneOn(const QRect& picture) const;

    /// Where the area may be seen in a picture; empty where it is not.
    QRect frameOn(const QRect& picture) const;

    /// The part of `frame` that the area covers, in a colour; smooth: its edges by sixteenths.
    QImage filled(const QRect& frame, const QColor& color, bool smooth) const;

private:
    std::span<const QPolygonF> m_rings;
};
