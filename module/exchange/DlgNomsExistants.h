#pragma once

#include <optional>

#include "exchange/ajoutPoints.h"

/// "Noms existants": asks what becomes of points whose name the table has. @return nothing when the user gives up
std::optional<nomsExistants> demanderNomsExistants(int nombre);
