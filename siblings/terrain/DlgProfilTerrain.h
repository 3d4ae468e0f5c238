#pragma once

#include <memory>
#include <string>

#include "services/dialogueModule.h"
#include "sol/parcoursTerrain.h"

class terrain;
namespace Ui {
class DlgProfilTerrain;
}

/// The ground between two points that are picked: as a table in the viewer, as a figure in the drawing.
class DlgProfilTerrain : public dialogueModule {
public:
    DlgProfilTerrain(terrain& leModele, std::wstring sonNom);
    ~DlgProfilTerrain() override;

private:
    void designer();
    void montrer();
    void tableau();
    void dessiner();

    terrain& m_modele;
    std::wstring m_nom;
    lieuSol m_de, m_vers;
    parcoursTerrain::polylignes m_profil;
    std::unique_ptr<Ui::DlgProfilTerrain> m_ui;
};
