#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "dxf/DxfError.h"
#include "dxf/DxfForm.h"
#include "dxf/DxfRecord.h"
#include "dxf/FileBytes.h"
#include "dxf/HandleTable.h"

/// A run of records: a section from SECTION to ENDSEC, a table from TABLE to ENDTAB, both ends included.
/// Where the closing record is missing, `last` is the last record before the next section, table or EOF.
struct DxfRange {
    std::string name;    ///< as in the file, "ENTITIES", "LAYER"
    std::uint32_t first; ///< positions in DxfFile::records
    std::uint32_t last;
};

/// What a file older than R2000 becomes at opening.
enum class DxfUpgrade { toR2000, none };

/// An open DXF file: its bytes and an index of its records. Nothing is decoded.
///
/// The records, one after the other, are the file, byte for byte. Those of TABLES, BLOCKS, ENTITIES and OBJECTS all
/// have a handle of their own: where the file gives none, or one twice, the (later) record is given a new one.
/// Files older than R2000, or of their form, are turned into R2000 first: bytes, form and records are then those of the
/// R2000 text.
/// What was repaired is listed in `problems`; what cannot be read at all throws DxfError.
///
/// The bytes stay what they were at opening, whatever other programs do to the file meanwhile (FileBytes).
class DxfFile {
public:
    /// Opens a file. `path` is in the encoding of the file system.
    explicit DxfFile(const std::string& path, DxfUpgrade upgrade = DxfUpgrade::toR2000);
    /// The same from bytes in memory; `name` stands in messages.
    DxfFile(std::string bytes, const std::string& name, DxfUpgrade upgrade = DxfUpgrade::toR2000);
    DxfFile(const DxfFile&) = delete;
    DxfFile& operator=(const DxfFile&) = delete;

    const std::string& path() const { return m_path; }
    const DxfForm& form() const { return m_form; }
    /// The version the file on disk has; less than form().version where it was upgraded.
    int versionOnDisk() const { return m_versionOnDisk; }
    /// Whether the file on disk is another, has another size or time than when it was opened, or is gone. False for
    /// bytes in memory.
    bool changedOnDisk() const;
    /// Takes the file as it now is on disk for the one opened: call it after saving over it.
    void acceptDiskState();

    /// Whether what is read is a mended copy: of a file that ends within a section, or has an ENDSEC in the midst of
    /// one.
    bool wasRepaired() const { return m_repaired; }

    /// Marks the records that the medium can no longer give (DxfRecord::lost): unplugged, damaged.
    /// @return how many there are.
    std::size_t findLost();
    bool anyLost() const { return m_disk.anyLost(); }
    /// Whether what was just read of a record was lost. Those that nobody read are found by findLost alone.
    bool isLost(const DxfRecord& record) const;

    std::string_view bytes() const { return m_bytes; }
    std::string_view bytes(const DxfRecord& record) const { return m_bytes.substr(record.offset, record.length); }
    /// The bytes of a record with its repaired handle in them; the same bytes for one that is not flagged so.
    std::string repairedBytes(const DxfRecord& record) const;
    /// What can be read of a spoiled record, with its handle.
    std::string readableBytes(const DxfRecord& record) const;

    /// In file order. The object database may change `object` and its own flags, and append records.
    std::vector<DxfRecord>& records() { return m_records; }
    const std::vector<DxfRecord>& records() const { return m_records; }
    HandleTable& handles() { return m_handles; }
    const HandleTable& handles() const { return m_handles; }
    /// A handle that is neither used nor below $HANDSEED.
    std::uint64_t freeHandle() const;

    /// Name after the group 0, "INSERT"; type 0 is "".
    const std::string& typeName(std::uint16_t type) const { return m_typeNames[type]; }
    /// Number of a name, given a new one if no record has it. Throws DxfError when 65 535 names are taken.
    std::uint16_t typeId(std::string_view name);
    std::size_t typeCount() const { return m_typeNames.size(); }

    const std::vector<DxfRange>& sections() const { return m_sections; }
    /// The first section of that name, or null.
    const DxfRange* section(std::string_view name) const;
    /// Whether the record at that position is one of a section; what is not is read by nobody.
    bool isInSection(std::uint32_t position) const;
    /// The tables of the TABLES section, in order.
    const std::vector<DxfRange>& tables() const { return m_tables; }
    const DxfRange* table(std::string_view name) const;

    /// Value of a header variable under its first tag of that group code, as it stands ("$ACADVER", 1); or nothing.
    std::string_view headerValue(std::string_view variable, int groupCode) const;

    /// 1-based line of the byte at `offset`; counts lines from the start, so for messages only. 0 in binary files.
    int lineOf(std::uint64_t offset) const;
    const std::vector<DxfProblem>& problems() const { return m_problems; }

private:
    friend class DxfIndexer;
    struct LineCount {
        std::uint64_t offset = 0;
        int line = 1;
    };
    void map();
    void load(DxfUpgrade upgrade);
    void unmap();
    bool isBare() const;
    void index();
    void readHeader();
    void findRanges();
    bool isEndsecWithin(std::size_t place) const;
    void repair();
    void findTables(const DxfRange& section);
    void closeSection(std::uint32_t last);
    void enterHandles(bool repair);
    std::string withHandle(const DxfRecord& record, std::string_view old) const;
    void note(std::uint64_t offset, int groupCode, const std::string& what);
    [[noreturn]] void refuse(std::uint64_t offset, const std::string& reason) const;

    std::string m_path;
    bool m_onDisk = false;
    FileState m_diskState;
    FileBytes m_disk;
    std::string m_memory; // holds the bytes that are not those of the disk
    std::string_view m_bytes;
    DxfForm m_form;
    int m_versionOnDisk = 0;
    std::uint64_t m_headerSeed = 0;
    std::vector<DxfRecord> m_records;
    HandleTable m_handles{m_records};
    std::vector<std::string> m_typeNames;
    std::unordered_map<std::string, std::uint16_t> m_typeIds;
    std::vector<std::uint32_t> m_structure;    // positions of the records that open and close sections and tables
    bool m_cut = false;                        // the file ends within a section
    bool m_lineOpen = false;                   // or behind one, without EOF and within a line
    bool m_repaired = false;                   // the bytes are not those of the disk
    std::vector<std::uint32_t> m_endsecsAmiss; // that close nothing, and what stands where one lacks
    std::vector<DxfRange> m_sections;
    std::vector<DxfRange> m_tables;
    std::vector<DxfProblem> m_problems;
    LineCount m_lastNoted; // problems mostly come in file order: lines are counted on from the last one
};
