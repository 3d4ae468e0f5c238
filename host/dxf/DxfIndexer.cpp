#include "dxf/DxfIndexer.h"

#include <algorithm>
#include <limits>

#include "dxf/DxfTexts.h"
#include "dxf/DxfValue.h"
#include "dxf/LargePages.h"
#include "platform/CodePage.h"

namespace {

constexpr int mostSpoiled = 1000;                               // bad tags; beyond, the file is something else
constexpr int tagsToTrust = 8;                                  // that make sense one after the other
constexpr std::ptrdiff_t lookAhead = std::ptrdiff_t{64} * 1024; // bytes
constexpr std::size_t bytesPerRecord = 64; // a guess on the low side: what is not used costs no memory

std::string_view trimmed(std::string_view text)
{
    const auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\r'; };
    while (!text.empty() && blank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && blank(text.back()))
        text.remove_suffix(1);
    return text;
}

/// A number in the place of a name means that codes and values have changed places.
bool canBeRecordName(std::string_view name)
{
    const auto letter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
    const auto control = [](char c) { return static_cast<unsigned char>(c) < ' '; };
    return name.size() < 256 && std::any_of(name.begin(), name.end(), letter) &&
           std::none_of(name.begin(), name.end(), control);
}

bool makesSense(const DxfForm& form, const DxfTag& tag)
{
    if (tag.code == dxfBadCode)
        return false;
    if (tag.code == 0)
        return canBeRecordName(trimmed(dxfText(tag)));
    double real;
    std::int64_t integer;
    std::uint64_t handle;
    switch (dxfKind(tag.code)) {
    case DxfKind::real:
        return dxfReal(form, tag, real);
    case DxfKind::handle:
        return dxfHandle(tag, handle);
    case DxfKind::text:
    case DxfKind::bytes:
        return true;
    default:
        return dxfInteger(form, tag, integer);
    }
}

std::uint64_t load(const char* p, std::size_t length)
{
    std::uint64_t word = 0;
    std::memcpy(&word, p, 8);
    return length >= 8 ? word : word & ((std::uint64_t{1} << length * 8) - 1);
}

} // namespace

DxfIndexer::DxfIndexer(DxfFile& file) :
    m_file(file),
    m_begin(file.m_bytes.data()),
    m_end(m_begin + file.m_bytes.size()),
    m_tail(m_end)
{
}

void DxfIndexer::run()
{
    auto& records = m_file.m_records;
    records.clear();
    records.reserve(m_file.m_bytes.size() / bytesPerRecord + 16);
    preferLargePages(records.data(), records.capacity() * sizeof(DxfRecord));
    m_file.m_structure.clear();
    walk();
    leaveCutTail();
    if (records.empty() && m_end > m_begin)
        push(m_begin, none);
    closeLast(m_tail);
    if (m_tail < m_end) {
        push(m_tail, none);
        closeLast(m_end);
    }
    for (DxfRecord* record : {&records.front(), &records.back()}) {
        if (record->type == none)
            record->flags |= DxfRecord::pseudo;
    }
}

void DxfIndexer::walk()
{
    const bool marked = m_file.m_bytes.starts_with(platform::byteOrderMark);
    const std::ptrdiff_t head = m_file.m_form.binary ? dxfBinaryMark.size()
                                : marked             ? platform::byteOrderMark.size()
                                                     : 0;
    const char* resume = m_begin + head;
    if (head > 0)
        push(m_begin, none);
    while (resume)
        resume = m_file.m_form.binary ? walkFrom<true>(resume) : walkFrom<false>(resume);
}

// Walks up to EOF, the end, or a tag that cannot be read. @return where to go on after the latter, else null.
template <bool Binary>
const char* DxfIndexer::walkFrom(const char* from)
{
    DxfCursor cursor = cursorAt(from);
    DxfTag tag;
    const char* lastTag = from;
    while (cursor.nextIn<Binary>(tag)) {
        if (!Binary)
            lastTag = tag.start;
        if (tag.code > 105)
            continue;
        if (tag.code == 0) {
            if (!startRecord(tag)) {
                spoil(tag.start, 0, dxf_texts::badRecordName(trimmed(dxfText(tag))));
                return resynchronise(tag);
            }
            if (m_file.m_records.back().type == eof) {
                m_tail = tag.next;
                return nullptr;
            }
        } else if (tag.code == dxfBadCode) {
            const std::string_view line(tag.start, static_cast<std::size_t>(tag.begin - 1 - tag.start));
            spoil(tag.start, dxfBadCode, dxf_texts::badGroupCode(trimmed(line)));
            return resynchronise(tag);
        } else if (m_handleCode != 0 && (tag.code == m_handleCode || tag.code == 100)) {
            readHandle(tag);
        }
    }
    m_tail = cursor.position();
    if constexpr (Binary) {
        const char* const resume = cursor.cut() ? nextBinaryRecord(m_tail) : nullptr;
        if (resume)
            spoil(m_tail, dxfBadCode, dxf_texts::tagCut);
        return resume;
    }
    if (m_tail == m_end && m_end > from && m_end[-1] != m_file.m_form.lineEnd())
        m_tail = lastTag; // its value may go on
    return nullptr;
}

/// In a file without end the last object may lack any of its tags: it is none. Sections and tables stand.
void DxfIndexer::leaveCutTail()
{
    auto& records = m_file.m_records;
    if (records.empty() || records.back().type == eof)
        return;
    const DxfRecord last = records.back();
    const char* const start = m_begin + last.offset;
    if (last.type == endsec)
        m_tail = m_end;
    if (last.type <= table || (last.type == endtab && m_tail > start))
        return;
    m_file.note(last.offset, 0, dxf_texts::recordCut(m_file.typeName(last.type)));
    if (!m_file.m_structure.empty() && m_file.m_structure.back() == records.size() - 1)
        m_file.m_structure.pop_back();
    records.pop_back();
    m_tail = start;
}

bool DxfIndexer::startRecord(const DxfTag& tag)
{
    std::uint16_t type = none;
    if (!findType(trimmed(dxfText(tag)), type))
        return false;
    push(tag.start, type);
    m_handleCode = type == dimstyle ? 105 : 5;
    if (type <= classRecord) {
        if (type != table)
            m_handleCode = 0;
        if (type != classRecord)
            m_file.m_structure.push_back(static_cast<std::uint32_t>(m_file.m_records.size() - 1));
    }
    return true;
}

// The handle stands before the first subclass marker: a 5 after it is something else.
void DxfIndexer::readHandle(const DxfTag& tag)
{
    std::uint64_t handle = 0;
    if (tag.code == m_handleCode && dxfHandle(tag, handle))
        m_file.m_records.back().handle = handle;
    m_handleCode = 0;
}

void DxfIndexer::push(const char* start, std::uint16_t type)
{
    if (m_file.m_records.empty() && start > m_begin)
        push(m_begin, none);
    closeLast(start);
    if (m_file.m_records.size() >= HandleTable::none - 1)
        m_file.refuse(static_cast<std::uint64_t>(start - m_begin), dxf_texts::tooManyRecords);
    m_file.m_records.push_back({0, static_cast<std::uint64_t>(start - m_begin), 0, type, 0, nullptr});
}

void DxfIndexer::closeLast(const char* end)
{
    if (m_file.m_records.empty())
        return;
    DxfRecord& last = m_file.m_records.back();
    const auto length = static_cast<std::uint64_t>(end - m_begin) - last.offset;
    if (length > std::numeric_limits<std::uint32_t>::max())
        m_file.refuse(last.offset, dxf_texts::recordTooLong);
    last.length = static_cast<std::uint32_t>(length);
}

// A file has a few dozen names: they are recognised by their first sixteen bytes, without hashing a string.
bool DxfIndexer::findType(std::string_view name, std::uint16_t& type)
{
    const bool cached = name.size() <= 16 && m_end - name.data() >= 16;
    CachedName wanted;
    CachedName* slot = nullptr;
    if (cached) {
        wanted.length = static_cast<std::uint32_t>(name.size());
        wanted.head = load(name.data(), name.size());
        wanted.tail = name.size() > 8 ? load(name.data() + 8, name.size() - 8) : 0;
        slot = &m_cache[(wanted.head ^ wanted.tail ^ wanted.length) * 0x9E3779B97F4A7C15u >> 56];
        if (slot->head == wanted.head && slot->tail == wanted.tail && slot->length == wanted.length && slot->type) {
            type = slot->type;
            return true;
        }
    }
    if (!canBeRecordName(name))
        return false;
    type = m_file.typeId(name);
    if (cached) {
        wanted.type = type;
        *slot = wanted;
    }
    return true;
}

void DxfIndexer::spoil(const char* at, int groupCode, const std::string& what)
{
    const auto offset = static_cast<std::uint64_t>(at - m_begin);
    if (++m_spoiled > mostSpoiled)
        m_file.refuse(offset, dxf_texts::tooSpoiled);
    if (m_file.m_records.empty())
        push(m_begin, none);
    DxfRecord& record = m_file.m_records.back();
    if (!(record.flags & DxfRecord::spoiled))
        m_file.note(offset, groupCode, what);
    record.flags |= DxfRecord::spoiled;
    m_handleCode = 0;
}

const char* DxfIndexer::resynchronise(const DxfTag& bad) const
{
    if (m_file.m_form.binary)
        return nextBinaryRecord(bad.start);
    return goodTags(bad.next) >= goodTags(bad.begin) ? bad.next : bad.begin;
}

int DxfIndexer::goodTags(const char* from) const
{
    DxfCursor cursor(m_file.m_form, from, from + std::min(m_end - from, lookAhead));
    DxfTag tag;
    int count = 0;
    while (count < tagsToTrust && cursor.next(tag)) {
        if (!makesSense(m_file.m_form, tag))
            return count;
        if (tag.code == 0 && trimmed(dxfText(tag)) == "EOF")
            return tagsToTrust;
        ++count;
    }
    return count;
}

std::string DxfIndexer::readableTags(const DxfForm& form, std::string_view record)
{
    const char* const end = record.data() + record.size();
    const auto goodFrom = [&](const char* at) {
        DxfCursor cursor(form, at, end);
        DxfTag tag;
        std::ptrdiff_t count = 0;
        while (cursor.next(tag) && makesSense(form, tag))
            ++count;
        return count;
    };
    std::string readable;
    const char* from = record.data();
    while (from) {
        DxfCursor cursor(form, from, end);
        DxfTag tag;
        from = nullptr;
        while (!from && cursor.next(tag))
            if (tag.code == dxfBadCode) // its line may be one too many, or stand in a code's place
                from = goodFrom(tag.next) >= goodFrom(tag.begin) ? tag.next : tag.begin;
            else if (makesSense(form, tag))
                readable.append(tag.start, tag.next);
    }
    return readable;
}

// In a binary file nothing but the shape of a group 0 and its name tells where tags start again.
const char* DxfIndexer::nextBinaryRecord(const char* from) const
{
    const std::string_view zero(m_file.m_form.oneByteCodes ? "\0" : "\0\0", m_file.m_form.oneByteCodes ? 1 : 2);
    const std::string_view bytes = m_file.m_bytes;
    for (auto at = bytes.find(zero, static_cast<std::size_t>(from - m_begin) + 1); at != bytes.npos;
         at = bytes.find(zero, at + 1)) {
        const std::size_t name = at + zero.size();
        if (name >= bytes.size() || !((bytes[name] >= 'A' && bytes[name] <= 'Z') || bytes[name] == '3'))
            continue;
        constexpr int enough = 3;
        if (goodTags(m_begin + at) >= enough)
            return m_begin + at;
    }
    return nullptr;
}
