#pragma once

#include <QWidget>

#include "calculs/reseau/figurePlane.h"

/// A sketch of a network, north up: known points as triangles, legs, ellipses, suspects in red.
class croquisReseau : public QWidget {
    Q_OBJECT

public:
    explicit croquisReseau(QWidget* parent = nullptr);
    void montrer(figurePlane figure);

protected:
    void paintEvent(QPaintEvent* evenement) override;

private:
    figurePlane m_figure;
};
