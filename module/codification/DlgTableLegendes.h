#pragma once

#include <memory>
#include <vector>

#include "codification/blocsDuDessin.h"
#include "codification/dispositionLegende.h"
#include "services/dialogueModule.h"

class QLineEdit;
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
    parametresLegende parametres() const;
    void accept() override;

private:
    void remplir();
    const blocDuDessin& blocDeLigne(int ligne) const;
    template <typename Choisir>
    void selectionner(Choisir&& choisir);
    bool valider(QLineEdit& champ, const wchar_t* nom, bool nulPermis);

    std::unique_ptr<Ui::DlgTableLegendes> m_ui;
    std::vector<blocDuDessin> m_blocs;
};
