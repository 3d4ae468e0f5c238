#pragma once

#include <memory>

#include "calculs/reseau/resultatReseau.h"
#include "services/dialogueModule.h"

namespace Ui {
class CDlgTabPoidsObse;
}

/// "Poids des observations": what each observation weighs in the last adjustment.
class CDlgTabPoidsObse : public dialogueModule {
    Q_OBJECT

public:
    CDlgTabPoidsObse(const reseau& r, const resultatReseau& resultat);
    ~CDlgTabPoidsObse() override;

private:
    std::unique_ptr<Ui::CDlgTabPoidsObse> m_ui;
};
