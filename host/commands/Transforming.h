#pragma once

#include <functional>
#include <vector>

#include "dbmain.h"
#include "gemat3d.h"

class Transients;

/// Copies entities, each into the block that it stands in.
std::vector<AcDbObjectId> copyObjects(const std::vector<AcDbObjectId>& objects);

/// Whether an entity, moved through a matrix, is placed by numbers still: it could not be saved otherwise.
bool staysAmongNumbers(const AcDbEntity& entity, const AcGeMatrix3d& matrix = AcGeMatrix3d::kIdentity);

/// Moves an entity through a matrix, unless that takes it beyond all numbers.
Acad::ErrorStatus transformed(AcDbEntity& entity, const AcGeMatrix3d& matrix);

/// Moves entities through a matrix. What cannot go through it, such as a text that would be slanted, stays and is told.
void transformObjects(const std::vector<AcDbObjectId>& objects, const AcGeMatrix3d& matrix);

/// Copies entities and moves the copies through a matrix. What cannot go through it leaves no copy, and is told.
std::vector<AcDbObjectId> transformCopies(const std::vector<AcDbObjectId>& objects, const AcGeMatrix3d& matrix);

/// While it lives, a window shows objects where the place that is asked for from `base` would take them.
class Ghost {
public:
    Ghost(const std::vector<AcDbObjectId>& objects, const AcGePoint3d& base,
          std::function<AcGeMatrix3d(const AcGePoint3d& place)> moved);
    ~Ghost();
    Ghost(const Ghost&) = delete;
    Ghost& operator=(const Ghost&) = delete;

private:
    Transients& m_transients;
};
