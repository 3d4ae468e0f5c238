#pragma once

#include <vector>

#include "db/DatabaseImpl.h"

/// Who owns what in a drawing: the owner of an object, what it owns, and what erasing one means for the others.
///
/// Holds nothing of its own: an owner is what the bytes of the file tell, or the object since it was decoded; what was
/// added to an object stands in its extras. Nested, for the interface's classes let AcDbDatabaseImpl see their inside
/// and nobody else of the kind.
class AcDbDatabaseImpl::Ownership {
public:
    explicit Ownership(AcDbDatabaseImpl& database) : m_database(database) {}

    AcDbStub* ownerOf(const AcDbObject& object) const;
    /// The same for an object that need not be decoded.
    AcDbStub* ownerOf(const DxfRecord& record) const;
    /// The object that owns a record of the file, as its tags tell.
    AcDbStub* ownerInFile(const DxfRecord& record) const;
    /// What is erased with an object.
    AcDbObjectIdArray ownedBy(const AcDbObject& object) const;
    /// Erases or brings back an object and what it owns. What was erased before its owner stays so.
    void setErased(AcDbObject& object, bool erased);

    /// Sub-entities of an entity in the order of the drawing, its SEQEND left out.
    std::vector<AcDbStub*> subentities(const AcDbObject& parent, bool withErased) const;
    /// Those given to it since the file was read.
    const std::vector<AcDbStub*>& addedSubentities(const AcDbObject& parent) const;
    /// The SEQEND of an entity; null when there is none.
    AcDbStub* sequenceEnd(const DxfRecord& parent) const;
    /// Sub-entities of a copied parent, which are new records too.
    void linkSubentities(AcDbObject& parent, std::vector<AcDbStub*> subentities, AcDbStub* end);
    /// Sub-entities end with a SEQEND.
    void ensureSequenceEnd(AcDbEntity& parent);

private:
    bool hasSubentities(const DxfRecord& record) const;
    AcDbStub* parentOf(const DxfRecord& subentity) const;

    AcDbDatabaseImpl& m_database;
};
