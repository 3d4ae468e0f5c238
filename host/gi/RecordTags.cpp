#include "gi/RecordTags.h"

#include <algorithm>

#include "db/DatabaseImpl.h"
#include "dxf/DxfCursor.h"
#include "dxf/DxfValue.h"

RecordTags::RecordTags(AcDbObjectId object)
{
    if (object.isNull())
        return;
    m_database = &AcDbDatabaseImpl::of(object.stub());
    DxfCursor cursor(m_database->form(), m_database->bytes(*recordOf(object)));
    for (DxfTag tag; cursor.next(tag);)
        m_tags.push_back(tag);
}

double RecordTags::real(const DxfTag& tag) const
{
    double value = 0.0;
    return dxfReal(m_database->form(), tag, value) ? value : 0.0;
}

int RecordTags::integer(const DxfTag& tag) const
{
    std::int64_t value = 0;
    return dxfInteger(m_database->form(), tag, value)
               ? static_cast<int>(std::clamp<std::int64_t>(value, -1000000000, 1000000000))
               : 0;
}

std::wstring RecordTags::text(const DxfTag& tag) const
{
    return decoded(dxfText(tag));
}

void RecordTags::bytes(const DxfTag& tag, std::string& to) const
{
    dxfBytes(m_database->form(), tag, to);
}

std::wstring RecordTags::decoded(std::string_view text) const
{
    return m_database->form().encoding->decode(text);
}

AcDbObjectId RecordTags::object(const DxfTag& tag) const
{
    std::uint64_t handle = 0;
    return AcDbObjectId(dxfHandle(tag, handle) ? m_database->byHandle(handle) : nullptr);
}

const DxfTag* RecordTags::find(int code) const
{
    const auto found = std::ranges::find(m_tags, code, &DxfTag::code);
    return found == m_tags.end() ? nullptr : &*found;
}

double RecordTags::real(int code, double otherwise) const
{
    const DxfTag* const tag = find(code);
    return tag ? real(*tag) : otherwise;
}

int RecordTags::integer(int code, int otherwise) const
{
    const DxfTag* const tag = find(code);
    return tag ? integer(*tag) : otherwise;
}

std::wstring RecordTags::text(int code) const
{
    const DxfTag* const tag = find(code);
    return tag ? text(*tag) : std::wstring();
}

AcDbObjectId RecordTags::object(int code) const
{
    const DxfTag* const tag = find(code);
    return tag ? object(*tag) : AcDbObjectId();
}

AcGePoint3d RecordTags::point(int code, const AcGePoint3d& otherwise) const
{
    if (!find(code))
        return otherwise;
    return {real(code, 0.0), real(code + 10, 0.0), real(code + 20, 0.0)};
}
