#include "ui/window/ToolIcons.h"

#include <algorithm>
#include <array>
#include <optional>
#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QRegularExpression>
#include <string_view>
#include <vector>

namespace {

struct ToolPicture {
    std::string_view name;
    std::string_view strokes;
};

constexpr std::array pictures{
    ToolPicture{"nouveau", "M6 3 L14 3 L19 8 L19 21 L6 21 Z M14 3 L14 8 L19 8"},
    ToolPicture{"ouvrir", "M3 19 L3 5 L9 5 L11 8 L19 8 L19 11 M3 19 L7 11 L22 11 L18 19 Z"},
    ToolPicture{"enregistrer", "M4 4 L17 4 L20 7 L20 20 L4 20 Z M8 4 L8 9 L15 9 L15 4 M7 20 L7 13 L17 13 L17 20"},
    ToolPicture{"annuler", "M9 5 L4 10 L9 15 M4 10 L14 10 C19 10 21 13 21 16 C21 18 20 20 18 20"},
    ToolPicture{"retablir", "M15 5 L20 10 L15 15 M20 10 L10 10 C5 10 3 13 3 16 C3 18 4 20 6 20"},
    ToolPicture{"zoomEtendu",
                "M3 8 L3 3 L8 3 M16 3 L21 3 L21 8 M21 16 L21 21 L16 21 M8 21 L3 21 L3 16 M8 8 L16 8 L16 16 L8 16 Z"},
    ToolPicture{"zoomFenetre", "M4 4 L16 4 L16 14 L4 14 Z M14 14 C14 11 20 11 20 15 C20 19 14 19 14 15 M19 18 L22 22"},
    ToolPicture{"zoomPrecedent",
                "M15 15 L21 21 M16 10 C16 2 4 2 4 10 C4 18 16 18 16 10 M12 10 L8 10 M10 8 L8 10 L10 12"},
    ToolPicture{"ligne", "M4 20 L20 4 M3 21 L5 21 L5 19 L3 19 Z M19 5 L21 5 L21 3 L19 3 Z"},
    ToolPicture{"polyligne", "M3 19 L9 7 L14 15 L21 5"},
    ToolPicture{"cercle", "M20 12 C20 1 4 1 4 12 C4 23 20 23 20 12 M11 12 L13 12 M12 11 L12 13"},
    ToolPicture{"arc", "M4 19 C4 9 10 5 20 5"},
    ToolPicture{"point", "M12 5 L12 19 M5 12 L19 12 M15 12 C15 8 9 8 9 12 C9 16 15 16 15 12"},
    ToolPicture{"texte", "M5 7 L5 4 L19 4 L19 7 M12 4 L12 20 M9 20 L15 20"},
    ToolPicture{"effacer", "M4 16 L13 5 L20 11 L12 20 L7 20 Z M9 10 L16 16 M7 20 L20 20"},
    ToolPicture{"deplacer",
                "M12 3 L12 21 M3 12 L21 12 M9 6 L12 3 L15 6 M9 18 L12 21 L15 18 M6 9 L3 12 L6 15 M18 9 L21 12 L18 15"},
    ToolPicture{"copier", "M4 4 L14 4 L14 14 L4 14 Z M10 14 L10 20 L20 20 L20 10 L14 10"},
    ToolPicture{"rotation", "M19 12 C19 3 5 3 5 12 C5 17 9 19 12 19 M16 9 L19 12 L22 9"},
};

/// Nothing for what is no path, or begins in the middle of nowhere.
std::optional<QPainterPath> pathOf(const QString& strokes)
{
    static const QRegularExpression part(QStringLiteral("[MLCZ]|-?[0-9]+(\\.[0-9]+)?"));
    static const QRegularExpression wholly(QStringLiteral("^M([MLCZ]|-?[0-9]+(\\.[0-9]+)?|[ ,])*$"));
    if (!wholly.match(strokes).hasMatch())
        return std::nullopt;
    QPainterPath path;
    QChar order;
    std::vector<double> numbers;
    const auto draw = [&] {
        const auto point = [&](std::size_t i) { return QPointF(numbers[2 * i], numbers[2 * i + 1]); };
        if (order == u'M' && numbers.size() == 2)
            path.moveTo(point(0));
        else if (order == u'L' && numbers.size() == 2)
            path.lineTo(point(0));
        else if (order == u'C' && numbers.size() == 6)
            path.cubicTo(point(0), point(1), point(2));
        else if (order == u'Z' && numbers.empty())
            path.closeSubpath();
        else
            return false;
        numbers.clear();
        return true;
    };
    for (auto found = part.globalMatch(strokes); found.hasNext();) {
        const QString word = found.next().captured();
        if (!word.at(0).isLetter()) {
            numbers.push_back(word.toDouble());
            continue;
        }
        if (!order.isNull() && !draw())
            return std::nullopt;
        order = word.at(0);
    }
    return draw() ? std::optional(path) : std::nullopt;
}

std::optional<QPainterPath> pathOfPicture(const QString& picture)
{
    const auto ours = std::ranges::find(pictures, picture.toStdString(), &ToolPicture::name);
    return pathOf(ours == pictures.end() ? picture : QString::fromLatin1(ours->strokes));
}

} // namespace

bool isToolPicture(const QString& picture)
{
    return pathOfPicture(picture).has_value();
}

QIcon toolIcon(const QString& picture)
{
    const auto path = pathOfPicture(picture);
    if (!path)
        return {};
    constexpr int size = 24, ratio = 2; // fine enough for sharp screens
    QPixmap drawn(size * ratio, size * ratio);
    drawn.setDevicePixelRatio(ratio);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(
        QPen(QApplication::palette().color(QPalette::ButtonText), 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(*path);
    painter.end();
    return drawn;
}
