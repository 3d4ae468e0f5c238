#pragma once

#include <string>

#include "dxf/DxfRecord.h"

#include "dbid.h"

class AcDbDatabaseImpl;
class AcDbObject;
class AcRxClass;

/// An object id points to the record of its object. Records of the file stand in the file's own array; those of new
/// objects are NewRecords.

namespace RecordFlags {
enum : std::uint16_t {
    erased = 16,
    modified = 32,   ///< differs from its bytes
    isNew = 64,      ///< a NewRecord
    edited = 128,    ///< listed among the edits of the next save
    unmade = 256,    ///< U took its making back
    withOwner = 512, ///< erased because its owner was, and comes back with it
    madeUp = 1024,   ///< stands for what the file lacked: written with the first change
    mended = 2048,   ///< spoiled: the next save writes what can be read of it
};
}

/// Record of an object that is not in the file. Its offset and length stay 0.
struct NewRecord : DxfRecord {
    NewRecord() : DxfRecord{0, 0, 0, 0, 0, nullptr} {}
    AcDbDatabaseImpl* database = nullptr;
    std::string bytes; ///< of an object copied from elsewhere, in the form of this drawing; else empty
};

inline DxfRecord* recordOf(AcDbStub* stub)
{
    return reinterpret_cast<DxfRecord*>(stub);
}
inline DxfRecord* recordOf(AcDbObjectId id)
{
    return recordOf(id.stub());
}
inline AcDbStub* stubOf(DxfRecord* record)
{
    return reinterpret_cast<AcDbStub*>(record);
}
inline AcDbStub* stubOf(const DxfRecord* record)
{
    return stubOf(const_cast<DxfRecord*>(record));
}
/// Known without opening the object; false for an id of no object.
bool isOfClass(AcDbObjectId id, const AcRxClass* rxClass);
inline AcDbObject* residentObject(const DxfRecord& record)
{
    return static_cast<AcDbObject*>(record.object);
}
inline bool isErased(const DxfRecord& record)
{
    return (record.flags & RecordFlags::erased) != 0;
}
inline bool isNew(const DxfRecord& record)
{
    return (record.flags & RecordFlags::isNew) != 0;
}
