#pragma once

#include <memory>
#include <vector>

#include "services/dialogueModule.h"
#include "tools/panneauPoints.h"
#include "tools/pointNomme.h"

namespace Ui {
class DlgDeportPoints;
}

/// "Déport de points": points of a table to other places.
class DlgDeportPoints : public dialogueModule {
    Q_OBJECT

public:
    explicit DlgDeportPoints(const listePointsDuDessin& laTable);
    ~DlgDeportPoints() override;

    /// Once accepted: places in the table, and where these points go.
    const std::vector<int>& positions() const { return m_positions; }
    const std::vector<point3>& places() const { return m_places; }
    void accept() override;

private:
    void preleverVecteur();
    bool calculer(const std::vector<pointNomme>& points);

    std::unique_ptr<Ui::DlgDeportPoints> m_ui;
    const listePointsDuDessin& m_table;
    panneauPoints m_points;
    panneauLigne m_ligne;
    std::vector<int> m_positions;
    std::vector<point3> m_places;
};
