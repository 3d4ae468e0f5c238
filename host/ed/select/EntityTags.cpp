#include "ed/select/EntityTags.h"

#include <algorithm>
#include <utility>

#include "db/fields/DxfObjectWriter.h"
#include "dxf/DxfCursor.h"

void EntityTags::moveTo(DxfRecord& record)
{
    m_record = &record;
    m_read = false;
}

bool EntityTags::isChanged() const
{
    return isNew(*m_record) || (m_record->flags & (RecordFlags::modified | RecordFlags::edited)) != 0;
}

const std::vector<DxfTag>& EntityTags::tags() const
{
    if (std::exchange(m_read, true))
        return m_tags;
    m_tags.clear();
    DxfRecord& record = *m_record;
    std::string_view bytes;
    if (isChanged()) {
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
    return m_tags;
}

/// What stands at the head of an entity, as its layer does, is found without reading the rest.
std::string_view EntityTags::bytesOf(int code) const
{
    if (!m_read && !isChanged() && !m_hasRenamed) {
        DxfCursor cursor(form(), m_database.bytes(*m_record));
        for (DxfTag tag; cursor.next(tag);)
            if (tag.code == code)
                return {tag.begin, static_cast<std::size_t>(tag.end - tag.begin)};
        return {};
    }
    const auto found = std::ranges::find(tags(), code, &DxfTag::code);
    return found == m_tags.end() ? std::string_view()
                                 : std::string_view(found->begin, static_cast<std::size_t>(found->end - found->begin));
}

std::wstring EntityTags::decoded(std::string_view bytes) const
{
    std::wstring text;
    form().encoding->decode(bytes, text);
    return text;
}
