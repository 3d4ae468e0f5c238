#include "calculs/croquisPolygonale.h"

#include <algorithm>
#include <QPainter>
#include <set>
#include <utility>

#include "services/grandeur.h"

namespace {

constexpr double margeCroquis = 18.0; // pixels

bool dessinable(const tracePolygonale& trace)
{
    return trace.sommets.size() > 1 &&
           std::ranges::all_of(trace.sommets, [](const auto& s) { return estConnue(s.x) && estConnue(s.y); });
}

QRectF etendue(const tracePolygonale& trace)
{
    const auto [xMin, xMax] = std::ranges::minmax(trace.sommets, {}, &tracePolygonale::sommet::x);
    const auto [yMin, yMax] = std::ranges::minmax(trace.sommets, {}, &tracePolygonale::sommet::y);
    return {QPointF(xMin.x, yMin.y), QPointF(xMax.x, yMax.y)};
}

} // namespace

croquisPolygonale::croquisPolygonale(QWidget* parent) : QWidget(parent)
{
    setToolTip(QStringLiteral("Polygonale observée (rouge) et compensée (vert)"));
}

void croquisPolygonale::montrer(tracePolygonale originelle, tracePolygonale compensee, std::vector<nomPlace> noms)
{
    m_noms = std::move(noms);
    m_originelle = std::move(originelle);
    m_compensee = std::move(compensee);
    update();
}

void croquisPolygonale::paintEvent(QPaintEvent*)
{
    QPainter peintre(this);
    peintre.fillRect(rect(), palette().base());
    peintre.setPen(palette().mid().color());
    peintre.drawRect(rect().adjusted(0, 0, -1, -1));

    std::vector<std::pair<const tracePolygonale*, QColor>> traces;
    if (dessinable(m_originelle))
        traces.emplace_back(&m_originelle, QColor(200, 0, 0));
    if (dessinable(m_compensee))
        traces.emplace_back(&m_compensee, QColor(0, 140, 0));
    if (traces.empty())
        return;
    QRectF monde = etendue(*traces.front().first);
    for (const auto& [trace, couleur] : traces)
        monde = monde.united(etendue(*trace));
    const double taille = std::max({monde.width() / std::max(1.0, width() - 2 * margeCroquis),
                                    monde.height() / std::max(1.0, height() - 2 * margeCroquis), 1e-9});
    const auto place = [&](const tracePolygonale::sommet& s) {
        return QPointF(width() / 2.0 + (s.x - monde.center().x()) / taille,
                       height() / 2.0 - (s.y - monde.center().y()) / taille);
    };
    peintre.setRenderHint(QPainter::Antialiasing);
    for (const auto& [trace, couleur] : traces) {
        QPolygonF ligne;
        ligne.reserve(static_cast<qsizetype>(trace->sommets.size()));
        for (const auto& s : trace->sommets)
            ligne << place(s);
        peintre.setPen(QPen(couleur, 1.2));
        peintre.drawPolyline(ligne);
    }
    peintre.setPen(palette().text().color());
    std::set<std::pair<int, int>> prises; // of names that would cover each other, the first
    for (const nomPlace& station : m_noms) {
        if (!estConnue(station.place.x) || !estConnue(station.place.y))
            continue;
        const QPointF coin = place(station.place) + QPointF(4, -4);
        if (prises
                .emplace(qRound(coin.x() / (2 * peintre.fontMetrics().averageCharWidth())),
                         qRound(coin.y() / peintre.fontMetrics().height()))
                .second)
            peintre.drawText(coin, station.nom);
    }
    peintre.drawRect(QRectF(place(traces.front().first->sommets.front()) - QPointF(3, 3), QSizeF(6, 6)));
}
