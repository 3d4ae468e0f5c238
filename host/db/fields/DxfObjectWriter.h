#pragma once

#include <string>
#include <vector>

#include "db/fields/DxfFields.h"
#include "db/fields/DxfObjectReader.h"
#include "db/ObjectTags.h"

/// Writes objects as tags: new ones from their fields, changed ones by putting their changed fields in the places where
/// they stood, among the tags that the class does not model.
class DxfObjectWriter {
public:
    DxfObjectWriter(AcDbDatabaseImpl& database, std::string& out);
    DxfObjectWriter(const DxfObjectWriter&) = delete; // its context writes to its own tags
    DxfObjectWriter& operator=(const DxfObjectWriter&) = delete;

    /// Appends the record of an object that is in the database.
    void write(const AcDbObject& object);
    /// The same for programs that look a value up by its code: entities tell what has its default value too.
    void writeComplete(const AcDbEntity& entity);

private:
    struct Merge;
    /// Of a row of an object that is merged, a bit for each part.
    struct RowState {
        unsigned met = 0;     ///< parts that have a tag
        unsigned changed = 0; ///< parts that are not what they were
        bool listWritten = false;
    };
    void writeNew(const AcDbObject& object, const DxfClass& dxfClass);
    void merge(const AcDbObject& object, const DxfClass& dxfClass, std::string_view bytes);
    void writeRows(const AcDbObject& object, const DxfSubclass& subclass, const AcDbObject& fresh);
    void writeRow(const AcDbObject& object, const DxfField& field);
    void writeAround(const ObjectTags& around);
    void writeOwner(const AcDbObject& object);
    bool isWanted(const DxfField& field, bool changed) const;

    AcDbDatabaseImpl& m_database;
    DxfTagWriter m_out;
    DxfWriteContext m_context;
    std::vector<DxfPlacedTag> m_placed; // of the object that is merged; kept, as the next one needs as many
    std::vector<RowState> m_states;
};

/// Whether all parts of a field are the same in two objects.
bool sameField(const DxfField& field, const AcDbObject& a, const AcDbObject& b);
