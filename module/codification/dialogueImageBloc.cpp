#include "codification/dialogueImageBloc.h"

#include <algorithm>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmap>

#include "codification/dessinBloc.h"

namespace {

constexpr int coteImage = 64;               // pixels
constexpr double marge = 4.0;               // pixels
constexpr qint64 plusGrosFichier = 1 << 18; // bytes: a symbol has some thousands, a plan is not read for a picture

QPolygonF polygone(const dessinBloc::trace& trace)
{
    QPolygonF points;
    for (const AcGePoint2d& p : trace)
        points << QPointF(p.x, -p.y);
    return points;
}

QPixmap peindre(const dessinBloc& dessin)
{
    QPixmap image(coteImage, coteImage);
    image.fill(Qt::transparent);
    QRectF monde;
    for (const auto* const traces : {&dessin.lignes, &dessin.aplats})
        for (const dessinBloc::trace& trace : *traces)
            monde = monde.united(polygone(trace).boundingRect().adjusted(-1e-9, -1e-9, 1e-9, 1e-9));
    const double echelle = (coteImage - 2 * marge) / std::max({monde.width(), monde.height(), 1e-9});
    QPainter peintre(&image);
    peintre.setRenderHint(QPainter::Antialiasing);
    peintre.translate(coteImage / 2.0, coteImage / 2.0);
    peintre.scale(echelle, echelle);
    peintre.translate(-monde.center());
    QPen trait(QGuiApplication::palette().text().color(), 1.5);
    trait.setCosmetic(true);
    peintre.setPen(trait);
    for (const dessinBloc::trace& trace : dessin.lignes)
        peintre.drawPolyline(polygone(trace));
    peintre.setBrush(trait.color());
    for (const dessinBloc::trace& trace : dessin.aplats)
        peintre.drawPolygon(polygone(trace));
    return image;
}

} // namespace

QIcon imageBloc(const QString& fichier)
{
    const QFileInfo infos(fichier);
    if (infos.suffix().compare(u"dxf", Qt::CaseInsensitive) != 0 || infos.size() > plusGrosFichier)
        return {};
    const dessinBloc dessin = lireDessinBloc(fichier.toStdWString());
    return dessin.vide() ? QIcon() : QIcon(peindre(dessin));
}
