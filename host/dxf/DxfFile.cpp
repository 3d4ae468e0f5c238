// Stays whole: what one file holds and the index over it, which all the rest asks for.
#include "dxf/DxfFile.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <limits>
#include <system_error>

#include "dxf/DxfCursor.h"
#include "dxf/DxfEncoding.h"
#include "dxf/DxfIndexer.h"
#include "dxf/DxfTagWriter.h"
#include "dxf/DxfTexts.h"
#include "dxf/DxfUpgrade.h"
#include "dxf/DxfValue.h"
#include "dxf/HeadRepair.h"

namespace {

constexpr int r2007 = 1021; // the first to write UTF-8
constexpr int r12 = 1009;

constexpr std::size_t headForLineEnds = 4096; // bytes in which one LF tells that a lone CR ends no line

const char* openFailure(int error)
{
    switch (error) {
    case ENOENT:
    case ENOTDIR:
        return dxf_texts::fileNotFound;
    case EACCES:
    case EPERM:
        return dxf_texts::accessDenied;
    case EINVAL:
        return dxf_texts::notAFile;
    case EBUSY:
        return dxf_texts::beingWritten;
    case ENOMEM:
        return dxf_texts::notEnoughMemory;
    default:
        return dxf_texts::cannotRead;
    }
}

std::string lineEndsOf(std::string_view bytes)
{
    const std::string_view head = bytes.substr(0, headForLineEnds);
    const auto feed = head.find('\n');
    if (feed == head.npos)
        return head.find('\r') != head.npos ? "\r" : "\n";
    return feed > 0 && head[feed - 1] == '\r' ? "\r\n" : "\n";
}

/// How far the first group code is aligned to the right.
int codeWidthOf(std::string_view bytes)
{
    constexpr int widest = 8;
    const auto first = bytes.find_first_of("0123456789");
    if (first == bytes.npos)
        return 0;
    const auto lineStart = bytes.find_last_of("\r\n\xBF", first);
    const auto start = lineStart == bytes.npos ? 0 : lineStart + 1;
    const auto end = std::min(bytes.find_first_not_of("0123456789", first), bytes.size());
    return static_cast<int>(std::min<std::size_t>(end - start, widest));
}

int versionOf(std::string_view name)
{
    int version = r12; // a file without $ACADVER is as old as that
    const auto digits = name.find_first_of("0123456789");
    if (digits != name.npos)
        std::from_chars(name.data() + digits, name.data() + name.size(), version);
    return version;
}

bool holdsObjects(std::string_view section)
{
    return section == "TABLES" || section == "BLOCKS" || section == "ENTITIES" || section == "OBJECTS";
}

} // namespace

DxfFile::DxfFile(const std::string& path, DxfUpgrade upgrade) : m_path(path), m_onDisk(true)
{
    map();
    load(upgrade);
}

DxfFile::DxfFile(std::string bytes, const std::string& name, DxfUpgrade upgrade) :
    m_path(name),
    m_memory(std::move(bytes)),
    m_bytes(m_memory)
{
    load(upgrade);
}

void DxfFile::map()
{
    try {
        m_disk.read(m_path);
    } catch (const std::system_error& failure) {
        throw DxfError(m_path, 0, openFailure(failure.code().value()));
    }
    m_diskState = m_disk.state();
    m_bytes = m_disk.view();
}

void DxfFile::unmap()
{
    m_disk.release();
}

void DxfFile::load(DxfUpgrade upgrade)
{
    index();
    if (HeadRepair::isNeeded(*this))
        repair();
    if (m_cut || m_lineOpen || !m_endsecsAmiss.empty())
        repair();
    m_versionOnDisk = m_form.version;
    const bool bare = m_form.version >= firstMarkedVersion && isBare();
    if (bare)
        note(0, dxfBadCode, dxf_texts::noMarkers);
    if ((m_form.version >= firstMarkedVersion && !bare) || upgrade == DxfUpgrade::none) {
        enterHandles(m_form.version >= firstMarkedVersion);
        return;
    }
    enterHandles(false);
    m_memory = upgradeToR2000(*this);
    unmap();
    m_bytes = m_memory;
    std::vector<DxfProblem> found = std::move(m_problems); // lines of the file the user has
    index();
    enterHandles(true);
    m_problems = std::move(found);
}

/// Whether the objects of the TABLES or BLOCKS section lack the markers of their classes: the form of R12, whatever
/// version is stated.
bool DxfFile::isBare() const
{
    return std::ranges::any_of(m_sections, [this](const DxfRange& range) {
        if ((range.name != "TABLES" && range.name != "BLOCKS") || range.last <= range.first + 1)
            return false;
        const std::uint64_t begin = m_records[range.first].offset, end = m_records[range.last].offset;
        return m_bytes.substr(begin, end - begin).find("AcDb") == m_bytes.npos;
    });
}

void DxfFile::index()
{
    if (m_bytes.empty())
        throw DxfError(m_path, 0, dxf_texts::emptyFile);
    if (m_bytes.starts_with("AC10"))
        throw DxfError(m_path, 0, dxf_texts::isDwg);
    m_form = DxfForm{};
    m_form.encoding = &DxfEncoding::forCodePage("ANSI_1252");
    m_form.binary = m_bytes.starts_with(dxfBinaryMark);
    if (m_form.binary) {
        // A file opens with group 0, or 999 (a comment): in one byte the 0 has its name's first letter after it.
        const std::string_view first = m_bytes.substr(dxfBinaryMark.size(), 2);
        m_form.oneByteCodes = first.size() == 2 && (first[0] == '\xFF' || (first[0] == 0 && first[1] != 0));
    } else {
        m_form.eol = lineEndsOf(m_bytes);
        m_form.codeWidth = codeWidthOf(m_bytes.substr(0, headForLineEnds));
    }
    m_problems.clear();
    m_lastNoted = {};
    m_typeNames.assign(std::begin(DxfIndexer::typeNames), std::end(DxfIndexer::typeNames));
    m_typeIds.clear();
    for (std::size_t type = 0; type < m_typeNames.size(); ++type)
        m_typeIds.emplace(m_typeNames[type], static_cast<std::uint16_t>(type));
    DxfIndexer(*this).run();
    findRanges();
    readHeader();
}

void DxfFile::readHeader()
{
    m_form.version = versionOf(headerValue("$ACADVER", 1));
    m_headerSeed = 0;
    const std::string_view seed = headerValue("$HANDSEED", 5);
    dxfHandle({5, seed.data(), seed.data() + seed.size(), nullptr, nullptr}, m_headerSeed);
    if (m_form.version >= r2007) {
        m_form.encoding = &DxfEncoding::utf8();
        return;
    }
    const std::string_view page = headerValue("$DWGCODEPAGE", 3);
    bool known = true;
    if (!page.empty())
        m_form.encoding = &DxfEncoding::forCodePage(page, &known);
    if (!known)
        note(static_cast<std::uint64_t>(page.data() - m_bytes.data()), 3, dxf_texts::unknownCodePage(page));
}

std::string_view DxfFile::headerValue(std::string_view variable, int groupCode) const
{
    const DxfRange* header = section("HEADER");
    if (!header)
        return {};
    DxfCursor cursor(m_form, bytes(m_records[header->first]));
    DxfTag tag;
    bool found = false;
    while (cursor.next(tag)) {
        if (tag.code == 9)
            found = dxfText(tag) == variable;
        else if (found && tag.code == groupCode)
            return dxfText(tag);
    }
    return {};
}

void DxfFile::closeSection(std::uint32_t last)
{
    m_sections.back().last = last;
    const auto start = m_sections.size() > 1 ? m_sections[m_sections.size() - 2].last + 1 : 0;
    for (std::uint32_t i = start; i < m_sections.back().first; ++i) {
        if (!(m_records[i].flags & DxfRecord::pseudo))
            return note(m_records[i].offset, 0, dxf_texts::strayRecords);
    }
}

/// Whether an ENDSEC is followed by objects and by another one, and not by a section: the objects are the section's.
bool DxfFile::isEndsecWithin(std::size_t place) const
{
    const std::uint32_t at = m_structure[place];
    std::size_t next = place + 1;
    const auto typeAt = [&](std::size_t i) { return m_records[m_structure[i]].type; };
    while (next < m_structure.size() && (typeAt(next) == DxfIndexer::table || typeAt(next) == DxfIndexer::endtab))
        ++next;
    return next < m_structure.size() && typeAt(next) == DxfIndexer::endsec && m_structure[next] > at + 1 &&
           typeName(m_records[at + 1].type) != "DICTIONARY"; // the section that holds them lost its head
}

/// Makes a copy of the file that is whole: with a head that can be read; or, of one that has such a head, closed at its
/// end and where one of its sections was left open, without what closes a section too early.
void DxfFile::repair()
{
    const auto readInstead = [this](std::string text) {
        if (m_onDisk && !m_repaired)
            note(m_bytes.size(), dxfBadCode, dxf_texts::originalKept);
        std::vector<DxfProblem> found = std::move(m_problems); // lines of the file the user has
        m_memory = std::move(text);
        unmap();
        m_bytes = m_memory;
        m_repaired = true;
        index();
        m_problems = std::move(found);
    };
    if (HeadRepair::isNeeded(*this)) {
        HeadRepair head(*this);
        for (const auto& [offset, what] : head.told)
            note(offset, dxfBadCode, what);
        return readInstead(std::move(head.text));
    }
    std::string whole;
    const bool tailed = (m_records.back().flags & DxfRecord::pseudo) != 0;
    const std::uint64_t end = m_cut && tailed ? m_records.back().offset : m_bytes.size();
    whole.reserve(end + 64);
    std::uint64_t copied = 0;
    DxfTagWriter out(m_form, whole);
    for (const std::uint32_t at : m_endsecsAmiss) {
        const DxfRecord& record = m_records[at];
        whole.append(m_bytes, copied, record.offset - copied);
        copied = record.offset;
        if (record.type == DxfIndexer::endsec)
            copied += record.length;
        else
            out.rawText(0, "ENDSEC");
    }
    whole.append(m_bytes, copied, end - copied);
    if (m_lineOpen) {
        whole += m_form.eol;
        out.rawText(0, "EOF");
    }
    if (m_cut) {
        const bool inTable = !m_tables.empty() && m_tables.back().last == m_sections.back().last &&
                             m_records[m_tables.back().last].type != DxfIndexer::endtab;
        if (inTable)
            out.rawText(0, "ENDTAB");
        out.rawText(0, "ENDSEC");
        out.rawText(0, "EOF");
    }
    readInstead(std::move(whole));
}

void DxfFile::findRanges()
{
    m_sections.clear();
    m_endsecsAmiss.clear();
    bool open = false;
    bool ended = false;
    for (std::size_t place = 0; place < m_structure.size(); ++place) {
        const std::uint32_t at = m_structure[place];
        const std::uint16_t type = m_records[at].type;
        if (open && (type == DxfIndexer::section || type == DxfIndexer::eof)) {
            note(m_records[at].offset, 0, dxf_texts::sectionNotClosed(m_sections.back().name));
            m_endsecsAmiss.push_back(at);
            closeSection(at - 1);
            open = false;
        }
        if (type == DxfIndexer::section) {
            DxfCursor cursor(m_form, bytes(m_records[at]));
            DxfTag tag{};
            while (cursor.next(tag) && tag.code != 2) {
            }
            m_sections.push_back({tag.code == 2 ? std::string(dxfText(tag)) : std::string(), at, at});
            open = true;
        } else if (type == DxfIndexer::endsec && open && isEndsecWithin(place)) {
            note(m_records[at].offset, 0, dxf_texts::endsecWithin);
            m_endsecsAmiss.push_back(at);
        } else if (type == DxfIndexer::endsec && open) {
            closeSection(at);
            open = false;
        } else if (type == DxfIndexer::endsec) {
            note(m_records[at].offset, 0, dxf_texts::strayEndsec);
        }
        ended |= type == DxfIndexer::eof;
    }
    const bool nothing = m_sections.empty() || (m_sections.size() == 1 && m_sections.front().name.empty());
    if (nothing && m_problems.empty())
        refuse(0, dxf_texts::noSection);
    if (nothing)
        throw DxfError(m_path, m_problems.front().line, m_problems.front().what + " ; " + dxf_texts::noSection);
    m_cut = open;
    m_lineOpen = !open && !ended && !m_form.binary && !m_bytes.ends_with('\n') && !m_bytes.ends_with('\r');
    if (open) {
        const bool tailed = (m_records.back().flags & DxfRecord::pseudo) != 0;
        note(m_bytes.size(), dxfBadCode, dxf_texts::sectionCut(m_sections.back().name));
        closeSection(static_cast<std::uint32_t>(m_records.size()) - (tailed ? 2 : 1));
    } else if (!ended)
        note(m_bytes.size(), dxfBadCode, dxf_texts::missingEof);
    m_tables.clear();
    for (const DxfRange& range : m_sections) {
        if (range.name == "TABLES")
            findTables(range);
    }
}

void DxfFile::findTables(const DxfRange& section)
{
    bool open = false;
    for (std::uint32_t at = section.first + 1; at <= section.last; ++at) {
        const std::uint16_t type = m_records[at].type;
        if (type == DxfIndexer::table) {
            DxfCursor cursor(m_form, bytes(m_records[at]));
            DxfTag tag{};
            while (cursor.next(tag) && tag.code != 2) {
            }
            m_tables.push_back({tag.code == 2 ? std::string(dxfText(tag)) : std::string(), at, at});
            open = true;
        } else if (type == DxfIndexer::endsec) {
            open = false;
        } else if (open) {
            m_tables.back().last = at;
            open = type != DxfIndexer::endtab;
        }
    }
}

// Entered first as the file gives them; then what has none, or one already taken, gets one above all others.
void DxfFile::enterHandles(bool repair)
{
    m_handles.clear();
    m_handles.reserve(m_records.size());
    std::vector<std::uint32_t> without;
    std::size_t twice = 0;
    for (const DxfRange& range : m_sections) {
        const bool objects = holdsObjects(range.name);
        for (std::uint32_t at = range.first + 1; at <= range.last; ++at) {
            DxfRecord& record = m_records[at];
            if (record.type != DxfIndexer::table && record.type <= DxfIndexer::classRecord)
                continue;
            if (record.handle != 0 && m_handles.insert(at))
                continue;
            twice += record.handle != 0;
            if (objects)
                without.push_back(at);
            record.handle = 0;
        }
    }
    if (!repair || without.empty())
        return;
    for (const std::uint32_t at : without) {
        m_records[at].handle = freeHandle();
        m_records[at].flags |= DxfRecord::handleRepaired;
        m_handles.insert(at);
    }
    note(m_records[without.front()].offset, 0, dxf_texts::handlesRepaired(without.size() - twice, twice));
}

std::uint64_t DxfFile::freeHandle() const
{
    const std::uint64_t above = m_handles.freeHandle();
    return above < m_headerSeed && m_handles.find(m_headerSeed) == HandleTable::none ? m_headerSeed : above;
}

std::uint16_t DxfFile::typeId(std::string_view name)
{
    const auto [entry, fresh] =
        m_typeIds.try_emplace(std::string(name), static_cast<std::uint16_t>(m_typeNames.size()));
    if (!fresh)
        return entry->second;
    if (m_typeNames.size() >= std::numeric_limits<std::uint16_t>::max()) {
        m_typeIds.erase(entry);
        throw DxfError(m_path, 0, dxf_texts::tooManyTypes);
    }
    m_typeNames.emplace_back(name);
    return entry->second;
}

const DxfRange* DxfFile::section(std::string_view name) const
{
    const auto found =
        std::find_if(m_sections.begin(), m_sections.end(), [&](const auto& s) { return s.name == name; });
    return found == m_sections.end() ? nullptr : &*found;
}

bool DxfFile::isInSection(std::uint32_t position) const
{
    const auto next = std::ranges::upper_bound(m_sections, position, {}, &DxfRange::first);
    return next != m_sections.begin() && position <= std::prev(next)->last;
}

const DxfRange* DxfFile::table(std::string_view name) const
{
    const auto found = std::find_if(m_tables.begin(), m_tables.end(), [&](const auto& t) { return t.name == name; });
    return found == m_tables.end() ? nullptr : &*found;
}

std::string DxfFile::repairedBytes(const DxfRecord& record) const
{
    const bool isSound = (record.flags & DxfRecord::ownFlags) == DxfRecord::handleRepaired;
    return isSound ? withHandle(record, bytes(record)) : std::string(bytes(record));
}

std::string DxfFile::readableBytes(const DxfRecord& record) const
{
    const std::string readable = DxfIndexer::readableTags(m_form, bytes(record));
    return (record.flags & DxfRecord::handleRepaired) != 0 ? withHandle(record, readable) : readable;
}

std::string DxfFile::withHandle(const DxfRecord& record, std::string_view old) const
{
    const int handleCode = record.type == DxfIndexer::dimstyle ? 105 : 5;
    std::string fresh;
    DxfTagWriter writer(m_form, fresh);
    DxfCursor cursor(m_form, old);
    DxfTag tag;
    if (!cursor.next(tag))
        return std::string(old);
    writer.raw({tag.start, tag.next});
    const char* after = tag.next;
    writer.handle(handleCode, record.handle);
    while (cursor.next(tag) && tag.code != 100) {
        if (tag.code != handleCode)
            continue;
        writer.raw({after, tag.start});
        after = tag.next;
        break;
    }
    writer.raw({after, old.data() + old.size()});
    return fresh;
}

bool DxfFile::changedOnDisk() const
{
    return m_onDisk && !(FileState::of(m_path) == m_diskState);
}

void DxfFile::acceptDiskState()
{
    if (m_onDisk)
        m_diskState = FileState::of(m_path);
}

std::size_t DxfFile::findLost()
{
    m_disk.probe();
    if (!m_disk.anyLost())
        return 0;
    std::size_t count = 0;
    for (DxfRecord& record : m_records) {
        if (!isLost(record))
            continue;
        record.flags |= DxfRecord::lost;
        ++count;
    }
    return count;
}

bool DxfFile::isLost(const DxfRecord& record) const
{
    return m_disk.anyLost() && m_disk.isLost(record.offset, record.length);
}

int DxfFile::lineOf(std::uint64_t offset) const
{
    if (m_form.binary)
        return 0;
    const std::string_view before = m_bytes.substr(0, offset);
    return 1 + static_cast<int>(std::count(before.begin(), before.end(), m_form.lineEnd()));
}

void DxfFile::note(std::uint64_t offset, int groupCode, const std::string& what)
{
    if (m_form.binary) {
        m_problems.push_back({0, groupCode, what + dxf_texts::atByte(offset)});
        return;
    }
    if (offset < m_lastNoted.offset)
        m_lastNoted = {};
    const std::string_view since = m_bytes.substr(m_lastNoted.offset, offset - m_lastNoted.offset);
    m_lastNoted.line += static_cast<int>(std::count(since.begin(), since.end(), m_form.lineEnd()));
    m_lastNoted.offset = offset;
    m_problems.push_back({m_lastNoted.line, groupCode, what});
}

void DxfFile::refuse(std::uint64_t offset, const std::string& reason) const
{
    throw DxfError(m_path, lineOf(offset), m_form.binary ? reason + dxf_texts::atByte(offset) : reason);
}
