#pragma once

#include <memory>
#include <QTimer>

#include "calculs/reseau/resultatReseau.h"
#include "services/dialogueModule.h"

namespace Ui {
class CDlgMoindresCarres;
}
class modeleObservations;
class modelePointsReseau;

/// "Compensation par moindres carrés": a network in two tables, its adjustment, its report, its place in the drawing.
/// What is changed in a table is computed again at once.
class CDlgMoindresCarres : public dialogueModule {
    Q_OBJECT

public:
    CDlgMoindresCarres();
    ~CDlgMoindresCarres() override;

private:
    void brancherTables();
    void charger();
    void sauvegarder();
    void ouvrirFormules();
    void calculer();
    void placer();
    /// @return whether there is a result
    bool recalculer();
    void suivre();
    void toutMontrer();
    void dire(const std::vector<std::wstring>& phrases);
    void ajouterPoint();
    void enleverPoint();
    void ajouterObservation();
    void enleverObservations();
    void coller(bool points);

    reseau m_r;
    resultatReseau m_resultat;
    modelePointsReseau* m_points = nullptr;
    modeleObservations* m_observations = nullptr;
    QTimer m_attente; ///< one adjustment for a run of changes
    std::unique_ptr<Ui::CDlgMoindresCarres> m_ui;
};
