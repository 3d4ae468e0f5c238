#pragma once

#include <memory>
#include <vector>

#include "services/dialogueModule.h"
#include "services/dialogueTableau.h"

class listePointsDuDessin;
namespace Ui {
class DlgSuperpositions;
}

/// "Superpositions de points": points that stand on one another, one of each group to be kept.
class DlgSuperpositions : public dialogueModule {
    Q_OBJECT

public:
    explicit DlgSuperpositions(listePointsDuDessin& laTable);
    ~DlgSuperpositions() override;

private:
    struct ligne {
        int groupe, position;
    };

    void chercher();
    void voir();
    void garder(const std::vector<int>& positions);
    std::vector<int> positionsChoisies() const;
    std::wstring texte(const ligne& l, int colonne) const;

    std::unique_ptr<Ui::DlgSuperpositions> m_ui;
    listePointsDuDessin& m_table;
    modeleTableau m_modele;
    std::vector<std::vector<int>> m_groupes;
    std::vector<ligne> m_lignes;
    double m_distance = 0.001;
};

/// The command VLSUPERPOS.
void commandeSuperpositions();
