#pragma once

#include <memory>

#include "services/dialogueModule.h"

#include "rangementModeles.h"

class terrain;
class terrainsDuDessin;
namespace Ui {
class DlgTerrain;
}

/// The terrain models of the current drawing: which there are, whether they are up to date, and what is done with them.
class DlgTerrain : public dialogueModule {
public:
    explicit DlgTerrain(terrainsDuDessin& leDessin);
    ~DlgTerrain() override;

private:
    void brancher();
    void afficher(AcDbObjectId choisi);
    void montrerChoisi();
    std::wstring nomChoisi() const;
    terrain* choisi();

    void creer();
    void actualiser();
    void rendreCourant();
    void renommer(int ligne);
    void supprimer();
    void triangles();
    void altitudes();

    terrainsDuDessin& m_dessin;
    modelesRanges m_modeles; // row by row
    std::unique_ptr<Ui::DlgTerrain> m_ui;
};
