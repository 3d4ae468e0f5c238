#include "db/SymbolNames.h"

#include "db/DatabaseImpl.h"
#include "platform/LetterCase.h"

std::wstring foldedName(std::wstring_view name)
{
    return platform::lowerCase(name);
}

void SymbolNames::append(AcDbStub* record)
{
    m_records.push_back(record);
    if (m_indexed && !isErased(*recordOf(record)))
        m_index.emplace(foldedName(m_database.recordName(record)), record);
    forgetSpellings(); // one without a record may have one now
}

void SymbolNames::forgetSpellings()
{
    m_recent.fill({});
    m_spellings.clear();
}

void SymbolNames::forgetIndex()
{
    m_indexed = false;
    m_index.clear();
    m_former.clear();
    forgetSpellings();
}

void SymbolNames::buildIndex()
{
    m_index.reserve(m_records.size());
    for (AcDbStub* record : m_records) {
        const std::wstring name = foldedName(m_database.recordName(record));
        if (!isErased(*recordOf(record)))
            m_index.emplace(name, record); // the first of a name holds
        if ((recordOf(record)->flags & RecordFlags::modified) == 0 || m_database.bytes(*recordOf(record)).empty())
            continue;
        const std::wstring former = foldedName(m_database.nameInBytes(*recordOf(record)));
        if (former != name)
            m_former.emplace(former, record);
    }
    m_indexed = true;
}

bool SymbolNames::hasRenamed()
{
    if (!m_indexed)
        buildIndex();
    return !m_former.empty();
}

std::optional<std::wstring> SymbolNames::newName(std::string_view bytes)
{
    if (!hasRenamed())
        return {};
    const auto former = m_former.find(foldedName(m_database.form().encoding->decode(bytes)));
    return former == m_former.end() ? std::nullopt : std::optional(m_database.recordName(former->second));
}

AcDbStub* SymbolNames::findInFile(std::wstring_view name)
{
    if (hasRenamed())
        if (const auto former = m_former.find(foldedName(name)); former != m_former.end())
            return former->second;
    return find(name);
}

AcDbStub* SymbolNames::find(std::wstring_view name, bool withErased)
{
    if (!m_indexed)
        buildIndex();
    const std::wstring folded = foldedName(name);
    const auto found = m_index.find(folded);
    if (found != m_index.end())
        return found->second;
    if (withErased)
        for (AcDbStub* record : m_records)
            if (isErased(*recordOf(record)) && foldedName(m_database.recordName(record)) == folded)
                return record;
    return nullptr;
}

/// Names of one drawing mostly differ in their length or their last characters.
SymbolNames::Recent& SymbolNames::recentOf(std::string_view bytes)
{
    std::size_t place = bytes.size();
    if (!bytes.empty())
        place += static_cast<unsigned char>(bytes.back()) * 5U + static_cast<unsigned char>(bytes[bytes.size() / 2]);
    return m_recent[place % m_recent.size()];
}

AcDbStub* SymbolNames::findBytes(std::string_view bytes)
{
    Recent& recent = recentOf(bytes);
    if (recent.bytes && *recent.bytes == bytes)
        return recent.record;
    auto known = m_spellings.find(bytes);
    if (known == m_spellings.end())
        known = m_spellings.emplace(bytes, findInFile(m_database.form().encoding->decode(bytes))).first;
    AcDbStub* const record = known->second;
    recentOf(bytes) = {&known->first, record};
    return record;
}
