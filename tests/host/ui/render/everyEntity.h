#pragma once

#include <memory>

class DrawingWithEntities;

/// A drawing with each kind of entity, six a row, in cells of 20 × 20 units from (0, 0) to (120, 100), its origin moved
/// by a shift: surveys lie far from it.
std::unique_ptr<DrawingWithEntities> everyEntity(double shiftX, double shiftY);
