#include "ui/render/GlyphShapes.h"

#include <QFont>
#include <QRawFont>
#include <QString>
#include <QTransform>

#include <cwctype>

#include "gi/TextMetrics.h"

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

QPainterPath GlyphShapes::read(wchar_t character) const
{
    if (std::iswspace(static_cast<std::wint_t>(character)) || std::iswcntrl(static_cast<std::wint_t>(character)) ||
        character == L'\u00A0')
        return {};
    const QString text = QString::fromWCharArray(&character, 1);
    const QList<quint32> glyphs = rawFont().glyphIndexesForString(text);
    if (glyphs.size() != 1 || glyphs.front() == 0)
        return frame(characterWidth(character));
    const double scale = unitsOfEm / unitsOfCapital / readSize;
    QPainterPath shape = QTransform::fromScale(scale, -scale).map(rawFont().pathForGlyph(glyphs.front()));
    shape.setFillRule(Qt::WindingFill);
    return shape;
}
