#pragma once

#include <memory>

#include "exchange/importDessin.h"
#include "services/dialogueModule.h"

namespace Ui {
class DlgImportation;
}

/// "Importation": the kinds of entities that points are taken from, and the offset of texts.
class DlgImportation : public dialogueModule {
    Q_OBJECT

public:
    DlgImportation();
    ~DlgImportation() override;

    /// What the user asked for with "OK".
    demandeImportation demande() const;

private:
    void cocher(int genres);
    void valider();
    void configurer();
    void prelever();

    std::unique_ptr<Ui::DlgImportation> m_ui;
    AcGeVector2d m_decalage;
};
