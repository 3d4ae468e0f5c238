#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "geometrie/axeEnregistre.h"
#include "services/dialogueModule.h"
#include "tools/alignement.h"

namespace Ui {
class DlgAxe;
}

/// "Axe en plan": corners of an alignment with their curves, its elements, its drawing.
class DlgAxe : public dialogueModule {
    Q_OBJECT

public:
    DlgAxe();
    ~DlgAxe() override;

private:
    void designerSommets();
    void prendrePolyligne();
    void supprimerSommets();
    void lireCellule(int rang, int colonne);
    void montrer();
    void recalculer();
    bool lireNumerotation(axeEnregistre& complet) const;
    void montrerRapport();
    void dessiner();
    std::vector<sommetAlignement> sommets() const;

    std::unique_ptr<Ui::DlgAxe> m_ui;
    std::vector<sommetAlignement> m_sommets; // as typed: clothoids are lengths, or parameters
    std::optional<axe> m_axe;
    bool m_remplissage = false; // cells change by us
};

/// The command VLAXE.
void commandeAxe();
