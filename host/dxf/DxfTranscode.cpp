#include "dxf/DxfTranscode.h"

#include "dxf/DxfCursor.h"
#include "dxf/DxfEncoding.h"
#include "dxf/DxfError.h"
#include "dxf/DxfFile.h"
#include "dxf/DxfTagWriter.h"
#include "dxf/DxfTexts.h"
#include "dxf/DxfValue.h"

#include <algorithm>

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
    if (tags.starts_with(dxfByteOrderMark))
        tags.remove_prefix(dxfByteOrderMark.size());
    return tags;
}

std::string transcodeFile(const DxfFile& file, const DxfForm& to)
{
    std::string out;
    const DxfTranscoder transcoder(file.form(), to);
    const auto append = [&](const DxfRecord& record, std::string_view tags) {
        if (!transcoder.append(tags, out))
            throw DxfError(file.path(), file.lineOf(record.offset), dxf_texts::tagCut);
    };
    const auto& records = file.records();
    std::size_t first = records.front().flags & DxfRecord::pseudo ? 1 : 0;
    if (to.binary) {
        // By a 0 that comes first readers tell how wide group codes are: comments go behind the first record.
        out = dxfBinaryMark;
        if (first < records.size())
            append(records[first], file.bytes(records[first]));
        ++first;
    }
    append(records.front(), leadingTags(file));
    for (std::size_t i = first; i < records.size(); ++i) {
        if (!(records[i].flags & DxfRecord::pseudo))
            append(records[i], file.bytes(records[i]));
        else if (!to.binary)
            out += file.bytes(records[i]); // after EOF anything may stand
    }
    return out;
}
