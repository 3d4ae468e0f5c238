#include <algorithm>
#include <charconv>
#include <cwchar>
#include <string>

#include "db/DatabaseImpl.h"
#include "db/fields/DxfFields.h"

#include "dbhandle.h"
#include "dbid.h"

const AcDbObjectId AcDbObjectId::kNull;

bool AcDbObjectId::isValid() const
{
    return m_stub && AcDbDatabaseImpl::find(m_stub) && recordOf(m_stub)->handle != 0;
}

bool AcDbObjectId::isErased() const
{
    return isValid() && ::isErased(*recordOf(m_stub));
}
AcDbHandle AcDbObjectId::handle() const
{
    return isValid() ? AcDbHandle(recordOf(m_stub)->handle) : AcDbHandle();
}
AcDbDatabase* AcDbObjectId::database() const
{
    const AcDbDatabaseImpl* database = m_stub ? AcDbDatabaseImpl::find(m_stub) : nullptr;
    return database ? &database->self() : nullptr;
}

AcRxClass* AcDbObjectId::objectClass() const
{
    if (!isValid())
        return nullptr;
    const DxfRecord& record = *recordOf(m_stub);
    return record.object ? residentObject(record)->isA() : AcDbDatabaseImpl::of(m_stub).classOf(record).rxClass;
}

bool isOfClass(AcDbObjectId id, const AcRxClass* rxClass)
{
    const AcRxClass* const itsClass = id.objectClass();
    return itsClass && itsClass->isDerivedFrom(rxClass);
}

AcDbHandle::AcDbHandle(const ACHAR* hexadecimal)
{
    std::string digits;
    for (; hexadecimal && *hexadecimal; ++hexadecimal)
        digits += *hexadecimal < 128 ? static_cast<char>(*hexadecimal) : '?';
    std::uint64_t read = 0;
    const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), read, 16);
    if (error == std::errc() && stop == digits.data() + digits.size())
        m_value = read;
}

bool AcDbHandle::getIntoAsciiBuffer(ACHAR* text, std::size_t size) const
{
    constexpr int hexadecimal = 16;
    char digits[17];
    const auto end = std::to_chars(digits, digits + 16, m_value, hexadecimal).ptr;
    const auto length = static_cast<std::size_t>(end - digits);
    if (!text || size <= length)
        return false;
    std::transform(digits, end, text, [](char c) { return static_cast<ACHAR>(c >= 'a' ? c - 'a' + 'A' : c); });
    text[length] = L'\0';
    return true;
}
