#pragma once

#include <memory>
#include <vector>

#include "codification/blocsDuDessin.h"
#include "codification/dispositionLegende.h"
#include "services/dialogueModule.h"

namespace Ui {
class DlgTableLegendes;
}

/// "Table des légendes": the blocks of the drawing that a legend is to show, and its sizes.
class DlgTableLegendes : public dialogueModule {
    Q_OBJECT

public:
    DlgTableLegendes(std::vector<blocDuDessin> lesBlocs, const parametresLegende& parametresDepart);
    ~DlgTableLegendes() override;

    /// Those selected, in the order shown.
    std::vector<blocDuDessin> choisis() const;
    /// Once accepted.
    const parametresLegende& parametres() const { return m_parametres; }
    void accept() override;

private:
    void remplir();
    const blocDuDessin& blocDeLigne(int ligne) const;
    template <typename Choisir>
    void selectionner(Choisir&& choisir);

    std::unique_ptr<Ui::DlgTableLegendes> m_ui;
    std::vector<blocDuDessin> m_blocs;
    parametresLegende m_parametres;
};
