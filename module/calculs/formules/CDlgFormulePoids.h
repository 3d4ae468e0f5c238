#pragma once

#include <memory>

#include "calculs/formules/formulesPoids.h"
#include "services/dialogueModule.h"

namespace Ui {
class CDlgFormulePoids;
}
class QLineEdit;

/// "Formules poids des observations": one formula a kind of observation, the variables they use, and what they give for
/// the example's values, as they are typed.
class CDlgFormulePoids : public dialogueModule {
    Q_OBJECT

public:
    explicit CDlgFormulePoids(const formulesPoids& formules);
    ~CDlgFormulePoids() override;

    formulesPoids formules() const;

private:
    void evaluer();
    void verifier(const QLineEdit& champ) const;
    void afficher(const formulesPoids& formules);
    void montrerVariables();
    void modifierVariable(int indice);
    void supprimerVariable();
    void lireFichier(bool variablesSeules);
    void enregistrer();

    tableVariables m_variables;
    std::unique_ptr<Ui::CDlgFormulePoids> m_ui;
};
