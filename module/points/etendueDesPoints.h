#pragma once

#include <optional>

#include "services/etendueVue.h"

class listePointsDuDessin;

/// The rectangle that the points of a table stand in, of one code or of all. Points at an unknown place do not
/// count; nothing when none is left.
std::optional<etendueVue> etendueDesPoints(const listePointsDuDessin& table, std::optional<int> code = {});
