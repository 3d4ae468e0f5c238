#pragma once

#include <memory>

#include "implantation/numerotationImplantation.h"
#include "services/dialogueModule.h"

namespace Ui {
class CDlgNumerotation;
}

/// "Numérotation": how free points are named.
class CDlgNumerotation : public dialogueModule {
    Q_OBJECT

public:
    explicit CDlgNumerotation(const numerotationImplantation& numerotation);
    ~CDlgNumerotation() override;

    /// As the fields have it; a number that is none is 0.
    numerotationImplantation numerotation() const;

    void accept() override;

private:
    void montrerExemple();

    std::unique_ptr<Ui::CDlgNumerotation> m_ui;
};
