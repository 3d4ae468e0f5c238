#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "dxf/DxfCursor.h"
#include "dxf/DxfFile.h"

/// The one pass over the bytes of a file: finds its records, their types and handles, and checks every group code.
///
/// A tag that cannot be read spoils its record. The pass then goes on with the line after it or with the one after
/// that, whichever is followed by more tags that make sense: a text cut over two lines costs one record.
class DxfIndexer {
public:
    /// Types every file has; DxfFile numbers them so.
    enum Type : std::uint16_t { none, section, endsec, table, endtab, eof, classRecord, dimstyle };
    static constexpr const char* typeNames[] = {"", "SECTION", "ENDSEC", "TABLE", "ENDTAB", "EOF", "CLASS", "DIMSTYLE"};

    explicit DxfIndexer(DxfFile& file);

    /// Fills the records of the file, and the positions of those that open and close sections and tables.
    /// Records of which one tag is spoiled are flagged and noted. The last object of a file without end
    /// is left out.
    void run();

    /// The tags of a record that can be read, each as it stands.
    static std::string readableTags(const DxfForm& form, std::string_view record);

private:
    struct CachedName {
        std::uint64_t head = 0;
        std::uint64_t tail = 0;
        std::uint32_t length = 0;
        std::uint16_t type = 0;
    };

    void walk();
    template <bool Binary>
    const char* walkFrom(const char* from);
    bool startRecord(const DxfTag& tag);
    void readHandle(const DxfTag& tag);
    void push(const char* start, std::uint16_t type);
    void closeLast(const char* end);
    void leaveCutTail();
    bool findType(std::string_view name, std::uint16_t& type);
    void spoil(const char* at, int groupCode, const std::string& what);
    const char* resynchronise(const DxfTag& bad) const;
    const char* nextBinaryRecord(const char* from) const;
    int goodTags(const char* from) const;
    DxfCursor cursorAt(const char* p) const { return {m_file.m_form, p, m_end}; }

    DxfFile& m_file;
    const char* const m_begin;
    const char* const m_end;
    const char* m_tail;   // first byte after EOF, or after the last whole tag
    int m_handleCode = 0; // under which the record at hand may still show its handle; 0: no more
    int m_spoiled = 0;
    std::array<CachedName, 256> m_cache{};
};
