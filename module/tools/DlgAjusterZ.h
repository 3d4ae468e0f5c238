#pragma once

#include <memory>
#include <vector>

#include "services/dialogueModule.h"
#include "services/dialogueTableau.h"
#include "tools/panneauPoints.h"
#include "tools/pointNomme.h"

namespace Ui {
class DlgAjusterZ;
}

/// "Ajustement d'altitudes": altitudes before and after, in a list, before anything changes.
class DlgAjusterZ : public dialogueModule {
    Q_OBJECT

public:
    explicit DlgAjusterZ(listePointsDuDessin& laTable);
    ~DlgAjusterZ() override;

private:
    struct ajustement {
        int position;
        pointNomme point;
        double apres;
    };

    void calculer();
    void oublier();
    /// Nothing when the user was told what is missing.
    std::vector<double> altitudes(const std::vector<pointNomme>& points) const;
    std::vector<double> enPente(const std::vector<pointNomme>& points) const;
    bool pointNommeDans(const QLineEdit& champ, point3& place) const;
    void appliquer();

    std::unique_ptr<Ui::DlgAjusterZ> m_ui;
    listePointsDuDessin& m_table;
    panneauPoints m_points;
    panneauLigne m_ligne;
    modeleTableau m_modele;
    std::vector<ajustement> m_ajustements;
};
