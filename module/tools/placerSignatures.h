#pragma once

#include <string>

class AcDbEntity;
class AcDbLine;

/// Equal for entities that show the same at the same place, whatever the sense a line runs in; empty for those whose
/// kind is not compared (lines, arcs, circles, points, lightweight polylines, texts, references without attributes
/// are).
std::string signatureEntite(const AcDbEntity& entite);

/// Equal for lines that look alike wherever they are: one longer line can show what several do.
std::string signatureFamille(const AcDbLine& ligne);
