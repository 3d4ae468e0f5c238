#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "db/BlockContents.h"
#include "db/fields/DxfObjectWriter.h"
#include "db/Record.h"

class AcDbDatabaseImpl;
struct DxfRange;

/// What a save writes: the bytes of the file, with some records replaced, left out, or put in.
class SavePlan {
public:
    explicit SavePlan(AcDbDatabaseImpl& database);

    /// The pieces of the new file, in order. They point into the file's map and into this plan.
    std::vector<std::string_view> pieces() const;

private:
    enum class Place { before, instead };
    struct Edit {
        std::uint32_t position; ///< of a record of the file
        Place place;
        std::size_t from, to; ///< in m_text
    };

    /// Whether anything was done since the file was read; what was made up for it then does not count.
    bool hasWork() const;
    /// Whether the edits so far, or what was made, change the file: made-up layers alone do not.
    bool changesFile() const;
    void editChanged();
    /// Dictionaries that name erased objects, and owners of an erased extension dictionary.
    void editOwnersOfErased();
    void editRepaired();
    void editStructure();
    /// Objects that name a renamed definition and are otherwise as they were.
    void editNamesOfRenamed();
    void editLost();
    /// Of a sequence or a block.
    void writeEndMark(const DxfRecord& record);
    bool canDoWithout(const DxfRecord& record) const;
    void addToParents();
    void addToBlocks();
    void addNewBlocks();
    /// Whether a new record goes into the file.
    bool isWritten(const DxfRecord& record) const;
    void addToTables();
    void addNewTables();
    void addObjects();
    void editHeader();

    std::size_t roomForChanged() const;
    template <class Write>
    void edit(std::uint32_t position, Place place, Write write);
    void writeObject(DxfRecord& record);
    void writeMended(const DxfRecord& record);
    void writeWithSubentities(AcDbStub* entity);
    void writeAddedSubentities(AcDbStub* parent);
    /// Position before which new records go so that they are the last of a section or table.
    std::uint32_t endOf(const DxfRange& range, const char* closing) const;
    /// Position after an entity of the file and the sub-entities behind it.
    std::uint32_t afterEntity(std::uint32_t position) const;
    /// Position before which new entities of a block of the file go.
    std::uint32_t endOfBlock(const BlockContent& content) const;
    /// Writes at the end of a section; opens it when the file lacks it.
    template <class Write>
    void atEndOfSection(const char* name, Write write);

    AcDbDatabaseImpl& m_database;
    std::vector<Edit> m_edits;
    std::string m_text;
    DxfObjectWriter m_writer; // into m_text
    bool m_usesNewHandles = false;
    bool m_writesMadeUp = false; // what the file lacked goes with the first change
};
