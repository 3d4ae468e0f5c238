#pragma once

#include <memory>
#include <vector>

#include "services/dialogueModule.h"
#include "tools/carroyage.h"

#include "dbid.h"

namespace Ui {
class DlgCarroyage;
}

/// "Dessin de carroyage": the lengths of a grid, and the regions that it fills.
class DlgCarroyage : public dialogueModule {
    Q_OBJECT

public:
    /// @param lesRegions those chosen before the command
    explicit DlgCarroyage(std::vector<AcDbObjectId> lesRegions);
    ~DlgCarroyage() override;

    /// Once accepted.
    const parametresCarroyage& parametres() const { return m_parametres; }
    const std::vector<AcDbObjectId>& regions() const { return m_regions; }
    void accept() override;

private:
    void choisirRegions();
    void montrerRegions();
    parametresCarroyage m_parametres;

    std::unique_ptr<Ui::DlgCarroyage> m_ui;
    std::vector<AcDbObjectId> m_regions;
};
