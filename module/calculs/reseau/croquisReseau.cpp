#include "calculs/reseau/croquisReseau.h"

#include <algorithm>
#include <cmath>
#include <QPainter>

namespace {

constexpr double marge = 24.0;
constexpr std::size_t nomsAuPlus = 120;

} // namespace

croquisReseau::croquisReseau(QWidget* parent) : QWidget(parent)
{
    setMinimumSize(200, 200);
}

void croquisReseau::montrer(figurePlane figure)
{
    m_figure = std::move(figure);
    update();
}

void croquisReseau::paintEvent(QPaintEvent*)
{
    QPainter peintre(this);
    peintre.fillRect(rect(), Qt::white);
    if (m_figure.points.empty())
        return;
    double gauche = inconnu, bas = inconnu, droite = -inconnu, haut = -inconnu;
    for (const figurePlane::point& p : m_figure.points) {
        gauche = std::min(gauche, p.ou.x);
        droite = std::max(droite, p.ou.x);
        bas = std::min(bas, p.ou.y);
        haut = std::max(haut, p.ou.y);
    }
    const double pas = std::min((width() - 2.0 * marge) / std::max(droite - gauche, 1e-9),
                                (height() - 2.0 * marge) / std::max(haut - bas, 1e-9));
    const auto ecran = [&](figurePlane::place p) {
        return QPointF(0.5 * width() + (p.x - 0.5 * (gauche + droite)) * pas,
                       0.5 * height() - (p.y - 0.5 * (bas + haut)) * pas);
    };
    peintre.setRenderHint(QPainter::Antialiasing);
    for (const figurePlane::cote& c : m_figure.cotes) {
        peintre.setPen(c.suspect ? QPen(Qt::red, 2) : QPen(QColor(160, 180, 200), 1));
        peintre.drawLine(ecran(c.de), ecran(c.vers));
    }
    peintre.setPen(QColor(0, 112, 192));
    for (const figurePlane::ellipse& e : m_figure.ellipses) {
        peintre.save();
        peintre.translate(ecran(e.centre));
        peintre.rotate(e.gisement * 180.0 / pi);
        peintre.drawEllipse(QPointF(0, 0), e.b * pas, e.a * pas);
        peintre.restore();
    }
    peintre.setPen(Qt::black);
    for (const figurePlane::point& p : m_figure.points) {
        const QPointF ou = ecran(p.ou);
        if (p.connu)
            peintre.drawPolygon(QPolygonF({ou + QPointF(-4, 3), ou + QPointF(4, 3), ou + QPointF(0, -5)}));
        else
            peintre.drawEllipse(ou, 2.5, 2.5);
        if (m_figure.points.size() <= nomsAuPlus)
            peintre.drawText(ou + QPointF(6, -5), QString::fromStdWString(p.nom));
    }
}
