#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "dxf/DxfFile.h"
#include "dxf/DxfTag.h"
#include "dxf/DxfTagWriter.h"
#include "dxf/R12Subclasses.h"
#include "dxf/R2000Skeleton.h"

/// Writes an R2000 text from the records of an older one; a version that is not older stays stated. Records that have
/// subclass markers (R13, R14) stay as they are but for a few tags added at their end, before their extended data.
class R2000Upgrade {
public:
    explicit R2000Upgrade(const DxfFile& old);
    std::string run();

private:
    using Tags = std::vector<DxfTag>;
    using Names = std::set<std::string>;
    static constexpr char modelSpace[] = "*MODEL_SPACE";
    static constexpr char paperSpace[] = "*PAPER_SPACE";
    static constexpr int firstExtendedData = 1000;

    /// Symbol names compare without letter case, accents and escapes read; the two spaces have another first letter in
    /// R12.
    std::string symbolKey(std::string_view name) const;
    /// How the two spaces are written, and any other block of which `name` is given.
    static std::string_view blockName(std::string_view key, std::string_view name);

    std::uint64_t newHandle();
    void plan();
    void planBlocks();
    void planRoot();
    /// The entries of a dictionary by their keys; none when it is not there.
    std::map<std::string, std::uint64_t> entriesOf(std::uint64_t dictionary) const;
    Tags tagsOf(std::uint32_t at) const;
    const std::string& typeOf(std::uint32_t at) const { return m_old.typeName(m_old.records()[at].type); }
    std::string_view textOf(const Tags& tags, int code) const;
    std::int64_t integerOf(const Tags& tags, int code) const;
    static bool has(const Tags& tags, int code);

    template <class Body, class Extra>
    void section(const char* name, Body body, Extra extra);
    void put(const DxfTag& tag);
    void putRecord(std::uint32_t at);
    void putOutsideSections();
    void putHead(std::string_view head);

    void headerVariables(std::string_view acadVersion);
    void tableRecord(std::uint32_t at);
    void startTable(std::uint32_t at);
    void tableEntry(std::uint32_t at);
    void addToEntry(const Tags& tags);
    void finishTable();
    void missingTables();
    void newTable(const char* name);
    void newEntry(std::string_view name);
    void layoutOf(const std::string& key);

    void blocksRecord(std::uint32_t at);
    void entity(std::uint32_t at, std::uint64_t space);
    void entityTags(const Tags& tags, const std::vector<R12Subclass>& subclasses);
    void putNamed(const DxfTag& tag, bool isBlock);
    void newBlock(const char* name);
    void objectRecord(std::uint32_t at);
    void missingObjects();

    const DxfFile& m_old;
    DxfForm m_form;
    std::string m_out;
    DxfTagWriter m_write{m_form, m_out};
    std::uint64_t m_lastHandle;
    R2000Skeleton m_skeleton;

    std::vector<std::uint64_t> m_handles; // of each old record, 0 where its kind has none
    std::map<std::string, std::uint64_t> m_blockRecords;
    std::map<std::string, std::string> m_blockNames; // as written, of the blocks without a block record
    Names m_classes;
    Names m_layersUsed;
    Names m_blocksDefined;

    std::string m_table; // being written
    std::uint64_t m_tableHandle = 0;
    Names m_entries; // of that table
    Names m_tablesDone;

    std::uint64_t m_block = 0;  // block record of the block being written
    std::uint64_t m_parent = 0; // INSERT or POLYLINE that attributes, vertices and SEQEND belong to
    std::int64_t m_parentFlags = 0;

    std::uint64_t m_root = 0;
    std::vector<std::string> m_rootKeys;
    std::uint64_t m_normalPlotStyle = 0;              // 0 where the file's own plot styles lack it
    std::map<std::uint64_t, std::uint64_t> m_layouts; // of the block records that have one
};
