#pragma once

#include <memory>
#include <vector>

#include "services/dialogueModule.h"
#include "tools/decalagePoints.h"
#include "tools/panneauPoints.h"
#include "tools/placerPoints.h"

namespace Ui {
class DlgPointsDecalage;
}

/// "Points par décalage": new points along a polyline.
class DlgPointsDecalage : public dialogueModule {
    Q_OBJECT

public:
    explicit DlgPointsDecalage(const listePointsDuDessin& table);
    ~DlgPointsDecalage() override;

    /// Once accepted.
    const std::vector<pointACreer>& points() const { return m_points; }
    int code() const { return m_code; }
    const std::vector<double>& absentes() const { return m_absentes; } ///< chainages wanted that there are not
    void accept() override;

private:
    bool lireListe(QLineEdit& champ, const wchar_t* nomme, std::vector<double>& nombres) const;
    bool lireDemande(demandeDecalage& demande) const;
    bool nommer(const std::vector<pointDecale>& decales);

    std::unique_ptr<Ui::DlgPointsDecalage> m_ui;
    panneauLigne m_ligne;
    std::vector<pointACreer> m_points;
    std::vector<double> m_absentes;
    int m_code = 1;
};
