#include "db/fields/DxfFields.h"

#include "db/DatabaseImpl.h"

std::wstring DxfReadContext::text(const DxfTag& tag) const
{
    return form.encoding->decode(dxfText(tag));
}

AcDbStub* DxfReadContext::named(NameKind kind, const DxfTag& tag) const
{
    AcDbStub* found = database.names(kind).findBytes(dxfText(tag));
    if (found || kind != NameKind::layer)
        return found;
    const std::string_view name = dxfText(tag).substr(0, dxfText(tag).find('\0')); // a disk's zeros end it
    if (name.size() < dxfText(tag).size())
        found = database.names(kind).findBytes(name);
    return found || name.empty() ? found : database.makeUpLayer(form.encoding->decode(name));
}

bool DxfReadContext::object(const DxfTag& tag, AcDbStub*& stub) const
{
    std::uint64_t handle = 0;
    if (!dxfHandle(tag, handle))
        return false;
    stub = database.byHandle(handle);
    return true;
}

void DxfWriteContext::name(int code, AcDbStub* record)
{
    out.text(code, database.recordName(record));
}

void DxfWriteContext::object(int code, AcDbStub* stub)
{
    out.handle(code, stub ? recordOf(stub)->handle : 0);
}

DxfSubclass::DxfSubclass(const char* marker, std::vector<DxfField> fields, bool leadingOnly) :
    m_marker(marker),
    m_fields(std::move(fields)),
    m_leadingOnly(leadingOnly)
{
    for (std::size_t row = 0; row < m_fields.size(); ++row) {
        const DxfField& field = m_fields[row];
        const auto take = [&](int code) {
            m_rows[static_cast<std::size_t>(code)] = static_cast<std::uint8_t>(row + 1);
        };
        for (int part = 0; part < field.parts && !field.isList(); ++part)
            take(field.code + 10 * part);
        for (std::int16_t code : field.listCodes)
            take(code);
    }
}
