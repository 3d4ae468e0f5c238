#pragma once

#include <memory>

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
    reglagesCourbes reglages() const;
    void dessiner();

    terrain& m_modele;
    std::unique_ptr<Ui::DlgCourbesNiveau> m_ui;
};
