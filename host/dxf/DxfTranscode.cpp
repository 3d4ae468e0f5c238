#include "dxf/DxfTranscode.h"

#include <algorithm>

#include "dxf/DxfCursor.h"
#include "dxf/DxfEncoding.h"
#include "dxf/DxfError.h"
#include "dxf/DxfFile.h"
#include "dxf/DxfTagWriter.h"
#include "dxf/DxfTexts.h"
#include "dxf/DxfValue.h"
#include "platform/CodePage.h"

namespace {

bool isAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// A text may hold bytes in one form that would end it in the other.
bool endsWithin(std::string_view text)
{
    return std::any_of(text.begin(), text.end(), [](char c) { return c == '\0' || c == '\n' || c == '\r'; });
}

/// Rewrites one tag after another; gives false for one that the new form cannot hold.
class TagTranscoder {
public:
    TagTranscoder(const DxfForm& from, const DxfForm& to, const DxfTranscoder::HandleMap& handles, std::string& out) :
        m_from(from),
        m_handles(handles),
        m_write(to, out)
    {
    }

    bool put(const DxfTag& tag)
    {
        const DxfKind kind = dxfKind(tag.code);
        if (tag.code == dxfBadCode)
            return false;
        if (kind == DxfKind::handle)
            return putHandle(tag);
        if (kind == DxfKind::text)
            return putText(tag);
        if (!m_from.binary && !m_write.form().binary)
            return m_write.rawText(tag.code, dxfText(tag)), true;
        if (kind == DxfKind::real)
            return putReal(tag);
        if (kind == DxfKind::bytes)
            return putBytes(tag);
        return putInteger(tag);
    }

private:
    bool putHandle(const DxfTag& tag)
    {
        std::uint64_t handle = 0;
        // Before R13 a dimension style has block names under its code 5: what is no handle is text.
        if (!m_handles || !dxfHandle(tag, handle) || tag.begin == tag.end)
            return putText(tag);
        m_write.handle(tag.code, m_handles(tag.code, handle));
        return true;
    }

    bool putText(const DxfTag& tag)
    {
        const std::string_view text = dxfText(tag);
        const bool sameEncoding = m_from.encoding == m_write.form().encoding;
        if ((sameEncoding || isAscii(text)) && !endsWithin(text))
            m_write.rawText(tag.code, text);
        else
            m_write.text(tag.code, m_from.encoding->decode(text));
        return true;
    }

    bool putReal(const DxfTag& tag)
    {
        double value = 0;
        if (!dxfReal(m_from, tag, value))
            return false;
        m_write.real(tag.code, value);
        return true;
    }

    bool putInteger(const DxfTag& tag)
    {
        std::int64_t value = 0;
        if (!dxfInteger(m_from, tag, value))
            return false;
        m_write.integer(tag.code, value);
        return true;
    }

    bool putBytes(const DxfTag& tag)
    {
        std::string bytes;
        if (!dxfBytes(m_from, tag, bytes))
            return false;
        m_write.bytes(tag.code, bytes);
        return true;
    }

    const DxfForm& m_from;
    const DxfTranscoder::HandleMap& m_handles;
    DxfTagWriter m_write;
};

} // namespace

DxfTranscoder::DxfTranscoder(const DxfForm& from, const DxfForm& to, HandleMap handles) :
    m_from(from),
    m_to(to),
    m_handles(std::move(handles))
{
}

bool DxfTranscoder::append(std::string_view bytes, std::string& out) const
{
    if (m_from == m_to && !m_handles) {
        out.append(bytes);
        return true;
    }
    const std::size_t before = out.size();
    TagTranscoder tags(m_from, m_to, m_handles, out);
    DxfCursor cursor(m_from, bytes);
    bool carried = true;
    try {
        for (DxfTag tag; carried && cursor.next(tag);)
            carried = tags.put(tag);
    } catch (const DxfError&) { // a value that the new form cannot hold
        carried = false;
    }
    if (carried && !cursor.cut())
        return true;
    out.resize(before);
    return false;
}

/// The tags in front of the first record, which are comments.
static std::string_view leadingTags(const DxfFile& file)
{
    const DxfRecord& first = file.records().front();
    std::string_view tags = first.flags & DxfRecord::pseudo ? file.bytes(first) : std::string_view();
    if (tags.starts_with(dxfBinaryMark))
        tags.remove_prefix(dxfBinaryMark.size());
    if (tags.starts_with(platform::byteOrderMark))
        tags.remove_prefix(platform::byteOrderMark.size());
    return tags;
}

/// How many of a record's bytes are its first two tags: "0 SECTION", "2 HEADER".
static std::size_t openingTags(const DxfForm& form, std::string_view record)
{
    DxfCursor cursor(form, record);
    DxfTag tag;
    if (cursor.next(tag))
        cursor.next(tag);
    return static_cast<std::size_t>(cursor.position() - record.data());
}

/// Tells which tag of a record the other form cannot hold.
[[noreturn]] static void refuse(const DxfFile& file, const DxfTranscoder& transcoder, std::string_view record)
{
    DxfCursor cursor(file.form(), record);
    std::string ignored;
    const char* at = record.data();
    std::string what = dxf_texts::tagCut;
    for (DxfTag tag; cursor.next(tag); at = cursor.position())
        if (!transcoder.append({tag.start, tag.next}, ignored)) {
            const std::string_view value = file.form().binary ? std::string_view() : dxfText(tag);
            what = "valeur" + dxf_texts::valueUnder(tag.code, value) + " impossible à convertir";
            break;
        }
    throw DxfError(file.path(), file.lineOf(static_cast<std::uint64_t>(at - file.bytes().data())), what);
}

std::string transcodeFile(const DxfFile& file, const DxfForm& to)
{
    std::string out;
    const DxfTranscoder transcoder(file.form(), to);
    const auto append = [&](std::string_view tags) {
        if (!transcoder.append(tags, out))
            refuse(file, transcoder, tags);
    };
    const auto& records = file.records();
    const std::size_t first = records.front().flags & DxfRecord::pseudo ? 1 : 0;
    std::string_view opening = first < records.size() ? file.bytes(records[first]) : std::string_view();
    if (to.binary) {
        // By a 0 that comes first readers tell how wide group codes are: comments go behind "0 SECTION, 2 HEADER".
        out = dxfBinaryMark;
        const std::size_t ahead = openingTags(file.form(), opening);
        append(opening.substr(0, ahead));
        opening.remove_prefix(ahead);
    }
    append(leadingTags(file));
    append(opening);
    for (std::size_t i = first + 1; i < records.size(); ++i) {
        if (!(records[i].flags & DxfRecord::pseudo))
            append(file.bytes(records[i]));
        else if (!to.binary)
            out += file.bytes(records[i]); // after EOF anything may stand
    }
    return out;
}
