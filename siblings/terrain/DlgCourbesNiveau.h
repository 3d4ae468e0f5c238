#pragma once

#include <memory>
#include <optional>

#include "services/dialogueModule.h"

#include "tracesTerrain.h"

class terrain;
namespace Ui {
class DlgCourbesNiveau;
}

/// Asks how the contours of a model are to be drawn; OK draws them.
class DlgCourbesNiveau : public dialogueModule {
public:
    explicit DlgCourbesNiveau(terrain& leModele);
    ~DlgCourbesNiveau() override;

private:
    std::optional<reglagesCourbes> reglages() const; ///< nothing when a field is no number, which was told
    void dessiner();

    terrain& m_modele;
    std::unique_ptr<Ui::DlgCourbesNiveau> m_ui;
};
