#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "services/dialogueModule.h"
#include "sol/volumesTerrain.h"

class terrain;
class terrainsDuDessin;
namespace Ui {
class DlgVolumesTerrain;
}

/// Volumes between a model and a plane, or another model.
class DlgVolumesTerrain : public dialogueModule {
public:
    DlgVolumesTerrain(terrainsDuDessin& leDessin, terrain& leModele, std::wstring sonNom);
    ~DlgVolumesTerrain() override;

private:
    void choisirReference();
    void calculer();
    void rapport();

    terrain& m_modele;
    std::wstring m_nom;
    std::vector<terrain*> m_autres; // the references after the plane
    std::optional<volumesTerrain> m_volumes;
    std::wstring m_reference; // what they are against
    std::unique_ptr<Ui::DlgVolumesTerrain> m_ui;
};
