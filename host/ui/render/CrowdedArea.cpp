#include "ui/render/CrowdedArea.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <vector>

namespace {

constexpr int finer = 4;      // samples of a pixel along each axis
constexpr int bandRows = 128; // pixel rows looked at together: what they take is bounded, however tall the picture
constexpr int wordBits = 64;

/// Calls `side(from, to)` for each side of each ring, the closing one too.
template <class Side>
void eachSide(std::span<const QPolygonF> rings, Side side)
{
    const auto isPlace = [](const QPointF& p) { return std::isfinite(p.x()) && std::isfinite(p.y()); };
    for (const QPolygonF& ring : rings)
        for (qsizetype i = 0; i < ring.size(); ++i) {
            const QPointF &from = ring[i], &to = ring[i + 1 < ring.size() ? i + 1 : 0];
            if (isPlace(from) && isPlace(to))
                side(from, to);
        }
}

/// Some rows of pixels as samples, each of which every side to the left of it turns from outside to inside and back.
class Band {
public:
    Band(const QRect& frame, int top) :
        m_left(frame.left()),
        m_top(top),
        m_samples(frame.width() * finer),
        m_words((m_samples + wordBits - 1) / wordBits),
        m_rows(std::min(bandRows, frame.bottom() + 1 - top) * finer),
        m_bits(static_cast<std::size_t>(m_rows) * static_cast<std::size_t>(m_words))
    {
    }

    int pixelRows() const { return m_rows / finer; }

    void cross(QPointF from, QPointF to)
    {
        if (from.y() > to.y())
            std::swap(from, to);
        const int first = rowFrom(from.y()), last = rowFrom(to.y()); // rows whose middle lies between the ends
        if (first >= last)
            return;
        const double step = (to.x() - from.x()) / (to.y() - from.y());
        for (int row = first; row < last; ++row)
            turn(row, from.x() + (m_top + (row + 0.5) / finer - from.y()) * step);
    }

    /// After all sides: from the turns, what is inside.
    void settle()
    {
        for (int row = 0; row < m_rows; ++row) {
            std::uint64_t before = 0; // all ones where the words before end inside
            for (int word = 0; word < m_words; ++word) {
                std::uint64_t& bits = at(row, word);
                for (int reach = 1; reach < wordBits; reach *= 2)
                    bits ^= bits << reach;
                bits ^= before;
                before = (bits >> (wordBits - 1)) != 0 ? ~std::uint64_t{0} : 0;
            }
        }
    }

    /// Samples of a pixel that are inside.
    int inside(int pixelRow, int column) const
    {
        constexpr unsigned ofOnePixel = (1U << finer) - 1;
        const int sample = column * finer;
        int count = 0;
        for (int row = pixelRow * finer; row < (pixelRow + 1) * finer; ++row)
            count += std::popcount(static_cast<unsigned>(at(row, sample / wordBits) >> sample % wordBits) & ofOnePixel);
        return count;
    }

private:
    int rowFrom(double y) const
    {
        return static_cast<int>(std::clamp(std::ceil((y - m_top) * finer - 0.5), 0.0, double(m_rows)));
    }

    void turn(int row, double x)
    {
        const double sample = std::ceil((x - m_left) * finer - 0.5);
        if (!(sample < m_samples))
            return;
        const int from = static_cast<int>(std::max(sample, 0.0));
        at(row, from / wordBits) ^= std::uint64_t{1} << from % wordBits;
    }

    std::uint64_t& at(int row, int word) { return m_bits[placeOf(row, word)]; }
    const std::uint64_t& at(int row, int word) const { return m_bits[placeOf(row, word)]; }
    std::size_t placeOf(int row, int word) const
    {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(m_words) + static_cast<std::size_t>(word);
    }

    int m_left, m_top, m_samples, m_words, m_rows;
    std::vector<std::uint64_t> m_bits;
};

/// Colours of a pixel by how many of its samples are inside, as a picture holds them.
std::array<QRgb, finer * finer + 1> shades(const QColor& color, bool smooth)
{
    constexpr int all = finer * finer;
    std::array<QRgb, all + 1> shades{};
    for (int count = 0; count <= all; ++count) {
        const int part = smooth ? count : count * 2 >= all ? all : 0;
        QColor shade = color;
        shade.setAlpha(color.alpha() * part / all);
        shades[static_cast<std::size_t>(count)] = qPremultiply(shade.rgba());
    }
    return shades;
}

} // namespace

bool CrowdedArea::isOneOn(const QRect& picture) const
{
    const double top = picture.top(), bottom = picture.bottom() + 1;
    double crossings = 0.0;
    eachSide(m_rings, [&](const QPointF& from, const QPointF& to) {
        crossings += std::fabs(std::clamp(to.y(), top, bottom) - std::clamp(from.y(), top, bottom));
    });
    return crossings > mostLeftToQt * (bottom - top);
}

QRect CrowdedArea::frameOn(const QRect& picture) const
{
    const QRectF all(picture);
    double left = all.right(), top = all.bottom(), right = all.left(), bottom = all.top();
    const auto take = [&](const QPointF& p) {
        left = std::min(left, std::max(p.x(), all.left()));
        right = std::max(right, std::min(p.x(), all.right()));
        top = std::min(top, std::max(p.y(), all.top()));
        bottom = std::max(bottom, std::min(p.y(), all.bottom()));
    };
    eachSide(m_rings, [&](const QPointF& from, const QPointF& to) {
        take(from);
        take(to);
    });
    return left < right && top < bottom ? QRectF(QPointF(left, top), QPointF(right, bottom)).toAlignedRect() : QRect();
}

QImage CrowdedArea::filled(const QRect& frame, const QColor& color, bool smooth) const
{
    QImage image(frame.size(), QImage::Format_ARGB32_Premultiplied);
    const auto shade = shades(color, smooth);
    for (int top = frame.top(); top <= frame.bottom(); top += bandRows) {
        Band band(frame, top);
        eachSide(m_rings, [&](const QPointF& from, const QPointF& to) { band.cross(from, to); });
        band.settle();
        for (int row = 0; row < band.pixelRows(); ++row) {
            auto* const line = reinterpret_cast<QRgb*>(image.scanLine(top - frame.top() + row));
            for (int column = 0; column < frame.width(); ++column)
                line[column] = shade[static_cast<std::size_t>(band.inside(row, column))];
        }
    }
    return image;
}
