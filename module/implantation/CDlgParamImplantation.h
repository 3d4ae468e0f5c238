#pragma once

#include <memory>

#include "implantation/implantationAxe.h"
#include "services/dialogueModule.h"

namespace Ui {
class CDlgParamImplantation;
}

/// "Paramètres d'implantation": how points are chosen and named along an axis.
class CDlgParamImplantation : public dialogueModule {
    Q_OBJECT

public:
    explicit CDlgParamImplantation(const parametresAxe& parametres);
    ~CDlgParamImplantation() override;

    const parametresAxe& parametres() const { return m_parametres; } ///< after OK
    void accept() override;

private:
    std::unique_ptr<Ui::CDlgParamImplantation> m_ui;
    parametresAxe m_parametres;
};
