#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "db/Record.h"

class AcDbDatabaseImpl;

/// What stands between the BLOCK and ENDBLK of one block record.
struct BlockContent {
    AcDbStub* begin = nullptr; ///< BLOCK
    AcDbStub* end = nullptr;   ///< ENDBLK
    /// Entities in drawing order, erased ones among them; sub-entities are not.
    std::vector<AcDbStub*> entities;
    std::size_t fromFile = 0;       ///< how many of them are in the file; the others follow
    bool inEntitiesSection = false; ///< model space and the active paper space
    bool isNew = false;             ///< made since the file was read
};

/// The entities of each block, listed when first asked for.
class BlockContents {
public:
    explicit BlockContents(AcDbDatabaseImpl& database) : m_database(database) {}

    /// Content of a block record; an empty one when the file has none.
    BlockContent& of(AcDbStub* blockRecord);
    /// The block record whose content a record of the file stands in, whatever owner it names; null where there is
    /// none.
    AcDbStub* around(const DxfRecord& record);
    void append(AcDbStub* blockRecord, AcDbStub* entity);
    /// A block made since the file was read.
    void addNew(AcDbStub* blockRecord, AcDbStub* begin, AcDbStub* end);
    const std::vector<AcDbStub*>& newBlocks() const { return m_newBlocks; }
    /// Block records with entities added to them.
    const std::vector<AcDbStub*>& grown() const { return m_grown; }
    /// Names of blocks that the file defines while its table has no record of them, in the order of the file.
    std::vector<std::wstring> withoutRecord() const;
    AcDbStub* modelSpace();
    AcDbStub* paperSpace();

private:
    void list();
    void listBlocksSection();
    void listEntitiesSection();
    AcDbStub* recordOfBlock(const DxfRecord& block) const;
    AcDbStub* spaceOf(const DxfRecord& record, AcDbStub* model, AcDbStub* paper) const;

    /// The records from a BLOCK to its ENDBLK.
    struct Range {
        std::uint32_t first, last;
        AcDbStub* block;
    };

    AcDbDatabaseImpl& m_database;
    bool m_listed = false;
    std::vector<Range> m_ranges; // of the BLOCKS section, in its order
    std::unordered_map<AcDbStub*, BlockContent> m_contents;
    std::vector<AcDbStub*> m_newBlocks;
    std::vector<AcDbStub*> m_grown;
};
