#include "ui/render/GlyphShapes.h"

#include <cmath>
#include <cwctype>
#include <QFont>
#include <QString>
#include <QTransform>

#include "text/TextMetrics.h"

namespace {

constexpr char family[] = "DejaVu Sans";
constexpr double unitsOfEm = 2048.0, unitsOfCapital = 1493.0; // of this font
constexpr double readSize = 1000.0;                           // pixels of an em: fine enough for any picture

const QRawFont& rawFont()
{
    static const QRawFont font = [] {
        QFont wanted(family);
        wanted.setPixelSize(static_cast<int>(readSize));
        wanted.setHintingPreference(QFont::PreferNoHinting);
        return QRawFont::fromFont(wanted);
    }();
    return font;
}

bool isBlank(wchar_t character)
{
    const auto code = static_cast<std::wint_t>(character);
    return std::iswspace(code) || std::iswcntrl(code) || character == L'\u00A0';
}

QPainterPath frame(double width)
{
    QPainterPath path;
    path.addRect(0.1 * width, 0.0, 0.8 * width, 1.0);
    path.addRect(0.2 * width, 0.1, 0.6 * width, 0.8);
    return path;
}

} // namespace

GlyphShapes& GlyphShapes::instance()
{
    static GlyphShapes shapes;
    return shapes;
}

const QPainterPath& GlyphShapes::shape(wchar_t character)
{
    const auto [found, isNew] = m_shapes.try_emplace(character);
    if (isNew)
        found->second = read(character);
    return found->second;
}

const QRawFont& GlyphShapes::font(double capital)
{
    constexpr double steps = 4.0; // of a pixel
    const int size = std::max(1, static_cast<int>(std::lround(capital * steps)));
    const auto [found, isNew] = m_fonts.try_emplace(size);
    if (isNew) {
        found->second = rawFont();
        found->second.setPixelSize(size / steps * unitsOfEm / unitsOfCapital);
    }
    return found->second;
}

std::optional<quint32> GlyphShapes::glyph(wchar_t character)
{
    const auto [found, isNew] = m_glyphs.try_emplace(character);
    if (isNew && !isBlank(character)) {
        const QList<quint32> glyphs = rawFont().glyphIndexesForString(QString::fromWCharArray(&character, 1));
        if (glyphs.size() == 1 && glyphs.front() != 0)
            found->second = glyphs.front();
    }
    return found->second;
}

QPainterPath GlyphShapes::read(wchar_t character)
{
    if (isBlank(character))
        return {};
    const std::optional<quint32> known = glyph(character);
    if (!known)
        return frame(characterWidth(character));
    const double scale = unitsOfEm / unitsOfCapital / readSize;
    QPainterPath shape = QTransform::fromScale(scale, -scale).map(rawFont().pathForGlyph(*known));
    shape.setFillRule(Qt::WindingFill);
    return shape;
}
