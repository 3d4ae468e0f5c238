#pragma once

#include <memory>
#include <vector>

#include "services/dialogueModule.h"
#include "services/dialogueTableau.h"
#include "tools/panneauPoints.h"
#include "tools/projectionPoints.h"

namespace Ui {
class DlgProjpoly;
}

/// "Projection de points": points of a table against a polyline, their report, their feet as points.
class DlgProjpoly : public dialogueModule {
    Q_OBJECT

public:
    explicit DlgProjpoly(listePointsDuDessin& laTable);
    ~DlgProjpoly() override;

private:
    void calculer();
    void montrerRapport();
    void placerPieds();

    std::unique_ptr<Ui::DlgProjpoly> m_ui;
    listePointsDuDessin& m_table;
    panneauPoints m_points;
    panneauLigne m_ligne;
    modeleTableau m_modele;
    std::vector<pointProjete> m_projetes;
    axe m_axe; // along which they were measured
    abscisses m_numerotation;
};
