#pragma once

#include "dbents.h"
#include "gemat3d.h"

/// How entities follow a transformation of the plane, which may stretch one axis more than the other.

enum class suivi {
    exact,    ///< as it is
    ellipse,  ///< as an entity of another kind: a circle as an ellipse
    approche, ///< as near as its kind can: a text, a block by the closest similarity at its place (a circle too when it
              ///< bears data of programs), an arc of a polyline as the arc through where its ends and its middle go,
              ///< the pattern of a hatch without being distorted, a dimension by the points that it measures
    aucun     ///< it cannot
};

/// What would become of it.
suivi suiviDe(const AcDbEntity& entite, const AcGeMatrix3d& matrice);
/// Does it, to an entity that is open for write.
suivi suivre(AcDbEntity& entite, const AcGeMatrix3d& matrice);
