#pragma once

#include <memory>

#include "implantation/reglagesImplantation.h"
#include "services/dialogueModule.h"

class QLineEdit;

namespace Ui {
class CDlgParamGraphiques;
}

/// "Parametres graphiques pour les implémentation": sizes, colours, and what is shown.
class CDlgParamGraphiques : public dialogueModule {
    Q_OBJECT

public:
    CDlgParamGraphiques(const reglagesImplantation& reglages, const optionsImplantation& options);
    ~CDlgParamGraphiques() override;

    // After OK.
    const reglagesImplantation& reglages() const { return m_reglages; }
    const optionsImplantation& options() const { return m_options; }

    void accept() override;

private:
    void afficher();
    bool lireTaille(QLineEdit& champ, double plusPetite, double& taille);

    std::unique_ptr<Ui::CDlgParamGraphiques> m_ui;
    reglagesImplantation m_reglages;
    optionsImplantation m_options;
};
