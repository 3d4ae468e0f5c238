#include "ed/select/EntityTags.h"

#include <algorithm>

#include "db/fields/DxfObjectWriter.h"
#include "dxf/DxfCursor.h"

void EntityTags::read(DxfRecord& record)
{
    m_tags.clear();
    const bool isChanged = isNew(record) || (record.flags & (RecordFlags::modified | RecordFlags::edited)) != 0;
    std::string_view bytes;
    if (isChanged) {
        m_written.clear();
        DxfObjectWriter(m_database, m_written).write(m_database.object(record));
        bytes = m_written;
    } else if (m_hasRenamed) {
        m_written = m_database.withNewNames(record, m_database.bytes(record));
        bytes = m_written;
    } else {
        bytes = m_database.bytes(record);
    }
    DxfCursor cursor(form(), bytes);
    DxfTag tag;
    while (cursor.next(tag))
        m_tags.push_back(tag);
}

std::string_view EntityTags::bytesOf(int code) const
{
    const auto found = std::ranges::find(m_tags, code, &DxfTag::code);
    return found == m_tags.end() ? std::string_view()
                                 : std::string_view(found->begin, static_cast<std::size_t>(found->end - found->begin));
}

std::wstring EntityTags::decoded(std::string_view bytes) const
{
    std::wstring text;
    form().encoding->decode(bytes, text);
    return text;
}
