#pragma once

#include <memory>
#include <optional>

#include "implantation/travailImplantation.h"
#include "services/dialogueModule.h"

class modeleImplantation;
class QLineEdit;

namespace Ui {
class CDlgImplantationDirecte;
}

/// "Implantation": the stake-out job. Its buttons hide it for what is asked in the drawing.
class CDlgImplantationDirecte : public dialogueModule {
    Q_OBJECT

public:
    explicit CDlgImplantationDirecte(travailImplantation& travail);
    ~CDlgImplantationDirecte() override;

private:
    void brancher();
    /// The selected rows, all when none is.
    travailImplantation::positions choisis() const;
    travailImplantation::positions selection() const;
    void selectionner(const travailImplantation::positions& lignes);
    void rafraichir();
    /// Tells of the selected point how it is seen.
    void direVisee();
    void dire(const std::wstring& phrase);

    void numeroter();
    void mettreEnStation();
    void obstacles();
    void changerVerification(bool verifier);
    std::optional<double> lireHauteur(const wchar_t* nom, QLineEdit& champ, double hauteur);
    void changerHauteurMin();
    void changerHauteurStation();
    void ajouter();
    void enlever();
    void suivreAxe();
    void repartirPoints();
    void localiser();
    void montrerApercu();
    void couper();
    void configurer();
    void ecrireFichiers();
    void generer();
    void schematiser();
    void exporter();

    std::unique_ptr<Ui::CDlgImplantationDirecte> m_ui;
    travailImplantation& m_travail;
    modeleImplantation* m_modele;
};

/// The AutoLISP function c:IMPLANT2: runs a job on the current drawing, which is locked meanwhile.
int lispImplant2();
