#pragma once

#include <memory>

#include "implantation/visibilite.h"

/// The ground of the current drawing: the current model of the family's terrain module, when the host has loaded it.
/// @return null without that module, one of its functions, or a model
std::unique_ptr<const solImplantation> terrainDuDessin();
