#pragma once

#include <memory>

#include "dbid.h"

class AcDbEntity;

/// Model space of the working drawing; null without one.
AcDbObjectId espaceObjetDuDessin();

/// Adds the entity to the model space of the working drawing and closes it; the drawing owns it from then on.
/// @return its id, or null when the drawing refused it (the entity is then destroyed).
AcDbObjectId ajouterEspaceObjet(std::unique_ptr<AcDbEntity> entite);
