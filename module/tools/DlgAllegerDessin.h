#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "services/dialogueModule.h"
#include "services/dialogueTableau.h"
#include "tools/placerAllegement.h"

namespace Ui {
class DlgAllegerDessin;
}

/// "Allègement du dessin": what would go is counted before anything goes.
class DlgAllegerDessin : public dialogueModule {
    Q_OBJECT

public:
    explicit DlgAllegerDessin(std::vector<AcDbObjectId> lesObjets);
    ~DlgAllegerDessin() override;

private:
    struct compte {
        const wchar_t* quoi;
        int nombre;
        std::wstring noms; ///< of definitions
    };

    void designer();
    void montrerObjets();
    void analyser();
    void oublier();
    void montrerRapport();
    void appliquer();

    std::unique_ptr<Ui::DlgAllegerDessin> m_ui;
    modeleTableau m_modele;
    std::vector<AcDbObjectId> m_objets;
    std::optional<allegementDessin> m_allegement;
    std::vector<compte> m_comptes;
};
