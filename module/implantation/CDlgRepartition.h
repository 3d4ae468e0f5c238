#pragma once

#include <memory>

#include "implantation/repartition.h"
#include "services/dialogueModule.h"

namespace Ui {
class CDlgRepartition;
}

/// "Répartition des points": how far a station reaches, and whether stations are to have as many points.
class CDlgRepartition : public dialogueModule {
    Q_OBJECT

public:
    CDlgRepartition();
    ~CDlgRepartition() override;

    const choixRepartition& choix() const { return m_choix; } ///< after OK
    void accept() override;

private:
    std::unique_ptr<Ui::CDlgRepartition> m_ui;
    choixRepartition m_choix;
};
