#pragma once

#include "dbmain.h"

/// Visits vertices that an entity owns, in order: those in a database opened one after the other, the others directly.
/// Entities of other classes among them are left out, layers that are locked do not count: what owns them is changed.
/// `visit` gives false to stop.
/// @return the status of the first vertex that could not be opened.
template <class Vertex, class Visit>
Acad::ErrorStatus visitOwned(const AcDbObjectIdArray& ids, const std::vector<AcDbEntity*>& pending, AcDb::OpenMode mode,
                             const Visit& visit)
{
    for (AcDbEntity* entity : pending)
        if (auto* vertex = Vertex::cast(entity); vertex && !visit(*vertex))
            return Acad::eOk;
    for (const AcDbObjectId& id : ids) {
        AcDbObjectPointer<Vertex> vertex(id, mode, false, true);
        if (vertex.openStatus() == Acad::eNotThatKindOfClass)
            continue;
        if (vertex.openStatus() != Acad::eOk)
            return vertex.openStatus();
        if (!visit(*vertex.object()))
            break;
    }
    return Acad::eOk;
}
