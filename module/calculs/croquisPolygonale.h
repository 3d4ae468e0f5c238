#pragma once

#include <QWidget>

#include "calculs/tracePolygonale.h"

/// A sketch of a traverse, north up: as observed in red, as corrected in green, the departure as a square. The two
/// lines fill the widget at one scale; a line with a vertex that has no place is left out.
class croquisPolygonale : public QWidget {
    Q_OBJECT

public:
    explicit croquisPolygonale(QWidget* parent = nullptr);

    struct nomPlace {
        QString nom;
        tracePolygonale::sommet place;
    };
    /// @param noms of stations, written beside them
    void montrer(tracePolygonale originelle, tracePolygonale compensee, std::vector<nomPlace> noms = {});

protected:
    void paintEvent(QPaintEvent* evenement) override;

private:
    tracePolygonale m_originelle, m_compensee;
    std::vector<nomPlace> m_noms;
};
