#include "dxf/HeadRepair.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

#include "dxf/DxfCursor.h"
#include "dxf/DxfFile.h"
#include "dxf/DxfIndexer.h"
#include "dxf/DxfTagWriter.h"
#include "dxf/DxfTexts.h"
#include "dxf/DxfValue.h"
#include "platform/CodePage.h"

namespace {

constexpr std::array tableEntries = {"VPORT", "LTYPE", "LAYER",    "STYLE",       "VIEW",
                                     "UCS",   "APPID", "DIMSTYLE", "BLOCK_RECORD"};

bool isTableEntry(std::string_view type)
{
    return std::ranges::find(tableEntries, type) != tableEntries.end();
}

/// The section that a record may stand at the top of.
const char* sectionOf(std::string_view type)
{
    return type == "CLASS"                             ? "CLASSES"
           : type == "TABLE" || isTableEntry(type)     ? "TABLES"
           : type == "BLOCK"                           ? "BLOCKS"
           : type == "DICTIONARY" || type == "XRECORD" ? "OBJECTS"
                                                       : "ENTITIES";
}

bool isVariableName(std::string_view name)
{
    return name.size() > 1 && name[0] == '$' && std::ranges::all_of(name.substr(1), [](char c) {
               return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
           });
}

bool isReadable(const DxfForm& form, const DxfTag& tag)
{
    double real = 0.0;
    std::int64_t integer = 0;
    switch (dxfKind(tag.code)) {
    case DxfKind::real:
        return dxfReal(form, tag, real);
    case DxfKind::text:
    case DxfKind::handle:
    case DxfKind::bytes:
        return std::ranges::none_of(dxfText(tag), [](char c) { return static_cast<unsigned char>(c) < ' '; });
    default:
        return dxfInteger(form, tag, integer);
    }
}

/// The variables that are whole, as they stand. After a line that makes no sense the next name begins one again.
std::string variablesOf(const DxfForm& form, std::string_view header)
{
    std::string kept;
    const char *begun = nullptr, *at = header.data(), *const end = at + header.size();
    bool whole = false; // it has a value, and all of it can be read
    const auto close = [&](const char* until) {
        if (begun && whole)
            kept.append(begun, until);
        begun = nullptr;
    };
    while (at < end) {
        DxfCursor cursor(form, at, end);
        DxfTag tag;
        if (!cursor.next(tag))
            break;
        at = tag.next;
        if (tag.code == 9 && isVariableName(dxfText(tag))) {
            close(tag.start);
            begun = tag.start;
            whole = false;
        } else if (tag.code == dxfBadCode || tag.code == 0 || tag.code == 9 || !isReadable(form, tag)) {
            begun = nullptr;
            at = form.binary ? end : tag.begin;
        } else
            whole = begun != nullptr;
    }
    close(at);
    return kept;
}

bool hasMarkers(std::string_view bytes)
{
    return bytes.find("AcDbEntity") != bytes.npos || bytes.find("AcDbSymbolTableRecord") != bytes.npos;
}

bool isUtf8(std::string_view bytes)
{
    while (!bytes.empty()) {
        const std::size_t length = platform::firstOfUtf8(bytes).length;
        if (length == 0)
            return false;
        bytes.remove_prefix(length);
    }
    return true;
}

class Head {
public:
    Head(const DxfFile& file, HeadRepair& repair) : m_file(file), m_repair(repair), m_out(file.form(), repair.text) {}

    void write()
    {
        const DxfRecord& first = m_file.records().front(); // comments, a byte order mark
        if ((first.flags & DxfRecord::pseudo) != 0 && (first.flags & DxfRecord::spoiled) == 0)
            copy(0, 1);
        else if (m_file.form().binary)
            m_repair.text += dxfBinaryMark;
        std::uint32_t next = 0;
        const DxfRange* const header = m_file.section("HEADER");
        writeHeader(header);
        for (const DxfRange& section : m_file.sections()) {
            reopen(next, section.first);
            next = section.last + 1;
            if (&section == header)
                continue;
            copy(section.first, next);
            if (typeAt(section.last) != DxfIndexer::endsec)
                m_out.rawText(0, "ENDSEC");
        }
        reopen(next, static_cast<std::uint32_t>(m_file.records().size()));
        m_out.rawText(0, "EOF");
    }

private:
    std::uint16_t typeAt(std::uint32_t at) const { return m_file.records()[at].type; }
    const std::string& nameAt(std::uint32_t at) const { return m_file.typeName(typeAt(at)); }
    void copy(std::uint32_t from, std::uint32_t to)
    {
        for (; from < to; ++from)
            m_out.raw(m_file.bytes(m_file.records()[from]));
    }
    std::span<const DxfRecord> recordsOf(const DxfRange& section) const
    {
        return std::span(m_file.records()).subspan(section.first, section.last + 1 - section.first);
    }
    bool hasUtf8Texts(std::string_view record) const
    {
        DxfCursor cursor(m_file.form(), record);
        for (DxfTag tag; cursor.next(tag);)
            if (dxfKind(tag.code) == DxfKind::text && !isUtf8(dxfText(tag)))
                return false;
        return true;
    }
    void tell(std::uint32_t at, const std::string& what)
    {
        m_repair.told.emplace_back(m_file.records()[at].offset, what);
    }

    void writeHeader(const DxfRange* header)
    {
        std::string variables;
        const std::uint32_t from = header ? header->first : 0;
        const std::uint32_t to = header ? header->last + 1 : m_file.sections().front().first;
        for (std::uint32_t at = from; at < to; ++at)
            variables += variablesOf(m_file.form(), m_file.bytes(m_file.records()[at]));
        tell(from, dxf_texts::headRemade);
        m_out.rawText(0, "SECTION");
        m_out.rawText(2, "HEADER");
        if (variables.find("$ACADVER") == variables.npos && hasMarkers(m_file.bytes()))
            writeVersion(variables.find("$DWGCODEPAGE") == variables.npos);
        m_out.raw(variables);
        for (const DxfRecord& record : m_file.records())
            m_lastHandle = std::max(m_lastHandle, record.handle);
        if (variables.find("$HANDSEED") == variables.npos) {
            constexpr std::uint64_t room = 0x100; // for tables that are made again
            m_out.rawText(9, "$HANDSEED");
            m_out.handle(5, m_lastHandle + room);
        }
        m_out.rawText(0, "ENDSEC");
    }

    /// Of versions that write as the rest of the drawing does, one that most programs read.
    void writeVersion(bool withPage)
    {
        m_out.rawText(9, "$ACADVER");
        const bool unicode = std::ranges::all_of(m_file.sections(), [this](const DxfRange& section) {
            return section.name == "HEADER" || std::ranges::all_of(recordsOf(section), [this](const DxfRecord& record) {
                       return hasUtf8Texts(m_file.bytes(record));
                   });
        });
        m_out.rawText(1, unicode ? "AC1024" : "AC1018");
        if (withPage) {
            m_out.rawText(9, "$DWGCODEPAGE");
            m_out.rawText(3, "ANSI_1252");
        }
    }

    /// Records outside of sections: those before one that can be read are lost.
    void reopen(std::uint32_t from, std::uint32_t to)
    {
        const auto isObject = [this](std::uint32_t at) {
            return typeAt(at) == DxfIndexer::table || typeAt(at) >= DxfIndexer::classRecord;
        };
        while (from < to && !isObject(from))
            ++from;
        while (to > from && (typeAt(to - 1) == DxfIndexer::endsec || typeAt(to - 1) <= DxfIndexer::section ||
                             typeAt(to - 1) == DxfIndexer::eof))
            --to;
        if (from >= to)
            return;
        const char* const name = sectionOf(nameAt(from));
        tell(from, dxf_texts::sectionReopened(name));
        m_out.rawText(0, "SECTION");
        m_out.rawText(2, name);
        if (isTableEntry(nameAt(from))) {
            m_out.rawText(0, "TABLE");
            m_out.rawText(2, nameAt(from));
            m_out.handle(5, ++m_lastHandle);
            m_out.integer(70, 0);
        }
        copy(from, to);
        m_out.rawText(0, "ENDSEC");
    }

    const DxfFile& m_file;
    HeadRepair& m_repair;
    DxfTagWriter m_out;
    std::uint64_t m_lastHandle = 0;
};

} // namespace

bool HeadRepair::isNeeded(const DxfFile& file)
{
    const auto isJunk = [](const DxfRecord& record) {
        return (record.flags & DxfRecord::spoiled) != 0 || (record.flags & DxfRecord::pseudo) == 0;
    };
    const DxfRange* const header = file.section("HEADER");
    const auto head = file.records().begin();
    return std::any_of(head, head + file.sections().front().first, isJunk) ||
           (header && (file.records()[header->first].flags & DxfRecord::spoiled) != 0);
}

HeadRepair::HeadRepair(const DxfFile& file)
{
    text.reserve(file.bytes().size() + 1024);
    Head(file, *this).write();
}
