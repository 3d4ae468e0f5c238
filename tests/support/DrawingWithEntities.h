#pragma once

#include <string>

#include "dbmain.h"

/// A default drawing with more entities in model space, given one tag a line ("10 5.0"), each from its group 0 on.
/// Handles, owners, the AcDbEntity marker and the layer are added to each record.
class DrawingWithEntities {
public:
    explicit DrawingWithEntities(const std::string& records);

    AcDbDatabase& database() { return *m_database; }
    /// Id of the n-th record, from 0; owners and what they own are counted alike.
    AcDbObjectId id(int n) const;
    /// What saving would write for it, one tag a line, from its second group 100 on.
    std::string written(int n) const;

    /// Opens the n-th record for write, as its class.
    template <class T>
    AcDbObjectPointer<T> open(int n) const
    {
        return AcDbObjectPointer<T>(id(n), AcDb::kForWrite);
    }

private:
    std::unique_ptr<AcDbDatabase> m_database;
};
