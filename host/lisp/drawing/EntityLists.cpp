#include "lisp/drawing/EntityLists.h"

#include <algorithm>
#include <limits>

#include "db/DatabaseImpl.h"
#include "db/fields/DxfFields.h"
#include "db/ResbufTags.h"
#include "dxf/DxfAngle.h"
#include "dxf/DxfValue.h"
#include "dxf/R12Subclasses.h"
#include "lisp/drawing/LispConversion.h"
#include "lisp/drawing/RecordList.h"
#include "lisp/eval/LispArgument.h"
#include "platform/CodePage.h"
#include "platform/LetterCase.h"
#include "rx/ResbufKind.h"

using lisp_argument::integer;
using lisp_argument::number;

std::vector<GroupPair> groupPairs(const LispValue& list)
{
    std::vector<GroupPair> pairs;
    for (const LispValue& item : lisp_argument::items(list)) {
        if (!item.isPair())
            lisp_argument::refuse(L"consp:", item);
        pairs.push_back({integer(item.car()), item.cdr()});
    }
    return pairs;
}

const LispValue* valueUnder(int code, const std::vector<GroupPair>& pairs)
{
    const auto found = std::ranges::find(pairs, code, &GroupPair::code);
    return found == pairs.end() ? nullptr : &found->value;
}

std::wstring kindOf(const std::vector<GroupPair>& pairs)
{
    const LispValue* const type = valueUnder(0, pairs);
    return type ? platform::upperCase(lisp_argument::text(*type)) : L"";
}

namespace {

/// A block of bytes is listed as its hexadecimal digits.
void setBytes(ads_binary& to, const GroupPair& pair)
{
    const std::string digits = platform::utf8FromWide(lisp_argument::text(pair.value));
    const char* const end = digits.data() + digits.size();
    constexpr std::size_t most = std::numeric_limits<short>::max();
    std::string bytes;
    if (!dxfBytes(DxfForm{}, {pair.code, digits.data(), end, digits.data(), end}, bytes) || bytes.size() > most)
        lisp_argument::refuse(L"octets:", pair.value);
    to.clen = static_cast<short>(bytes.size());
    acutNewBuffer(to.buf, bytes.size());
    std::ranges::copy(bytes, to.buf);
}

/// One item of a drawing file. Angles are degrees there.
void setItem(resbuf& item, const GroupPair& pair)
{
    if (resbufKind(pair.code) == ResbufKind::bytes)
        return setBytes(item.resval.rbinary, pair);
    if (!setBuffer(item, pair.value))
        lisp_argument::refuse(L"code de groupe:", LispValue(std::int32_t{pair.code}));
    if (pair.code >= 50 && pair.code <= 58)
        item.resval.rreal = dxfDegrees(item.resval.rreal);
}

ResbufChain bufferOf(const GroupPair& pair)
{
    ResbufBuilder item;
    setItem(item.add(pair.code), pair);
    return item.take();
}

/// What the tables take up: not names, groups and extended data. References (330) that a class holds itself, as a hatch
/// those of its boundary, stand behind its marker; before it they tell the owner.
bool isField(int code)
{
    return code > 0 && code != 5 && code != 100 && code != 102 && code != 105 && code != 360 && code < 1000;
}

bool hasRow(const DxfSubclass& subclass, int code)
{
    return code <= dxfLastCode && subclass.rowOf(code) >= 0;
}

/// Pairs as the tags of a record. A pair belongs to the subclass whose marker precedes it or, where that has no such
/// field, as when a colour is appended to a list, to the first that has; an entity's own properties are looked for
/// everywhere, other fields behind the common ones.
class ListTags {
public:
    ListTags(const AcDbDatabaseImpl& database, const DxfClass& dxfClass) :
        m_subclasses(dxfClass.subclasses),
        m_writer(database.form(), m_bytes),
        m_pairs(dxfClass.subclasses.size())
    {
    }

    const std::string& write(const std::vector<GroupPair>& pairs)
    {
        constexpr int embeddedObject = 101;
        bool embedded = false; // the object inside texts and attributes of 2018 uses their codes for its own
        for (const GroupPair& pair : pairs) {
            embedded = embedded || pair.code == embeddedObject;
            if (!embedded || isCommonEntityCode(pair.code))
                sort(pair);
        }
        for (std::size_t i = 0; i < m_subclasses.size(); ++i) {
            m_writer.rawText(100, m_subclasses[i]->marker());
            for (const GroupPair* const pair : m_pairs[i])
                if (!writeChain(bufferOf(*pair).get(), m_writer))
                    lisp_argument::refuse(L"valeur d'un groupe:", pair->value);
        }
        return m_bytes;
    }

private:
    void sort(const GroupPair& pair)
    {
        constexpr int marker = 100;
        if (pair.code == marker && pair.value.isText())
            enter(platform::utf8FromWide(pair.value.text()));
        else if (isField(pair.code))
            if (const std::size_t place = placeOf(pair.code); place < m_pairs.size())
                m_pairs[place].push_back(&pair);
    }

    /// A marker may stand twice in a class.
    void enter(const std::string& marker)
    {
        for (std::size_t i = m_isInside ? m_at + 1 : 0; i < m_subclasses.size(); ++i)
            if (m_subclasses[i]->marker() == marker) {
                m_at = i;
                m_isInside = true;
                return;
            }
    }

    /// Beyond the subclasses when none has such a field.
    std::size_t placeOf(int code) const
    {
        constexpr int reference = 330;
        if (m_isInside && hasRow(*m_subclasses[m_at], code))
            return m_at;
        std::size_t i = isCommonEntityCode(code) || m_subclasses.size() == 1 ? 0 : 1;
        while (i < m_subclasses.size() && (code == reference || !hasRow(*m_subclasses[i], code)))
            ++i;
        return i;
    }

    const std::vector<const DxfSubclass*>& m_subclasses;
    std::string m_bytes;
    DxfTagWriter m_writer;
    std::vector<std::vector<const GroupPair*>> m_pairs; ///< by subclass
    std::size_t m_at = 0;                               ///< the subclass entered last
    bool m_isInside = false;
};

bool names(const DxfField& list, const std::vector<GroupPair>& pairs)
{
    return std::ranges::any_of(pairs, [&list](const GroupPair& pair) {
        return std::ranges::find(list.listCodes, pair.code) != list.listCodes.end() && isField(pair.code);
    });
}

} // namespace

std::string tagsOfPairs(const AcDbDatabaseImpl& database, const DxfClass& dxfClass, const std::vector<GroupPair>& pairs)
{
    return ListTags(database, dxfClass).write(pairs);
}

bool emptyLists(const DxfClass& dxfClass, const std::vector<GroupPair>& pairs, AcDbObject& object)
{
    std::vector<DxfField::Clear> named;
    for (const DxfSubclass* const subclass : dxfClass.subclasses)
        for (const DxfField& field : subclass->fields()) {
            if (!field.isList() || !names(field, pairs))
                continue;
            if (!field.clear || !valueUnder(field.code, pairs))
                return false;
            named.push_back(field.clear);
        }
    for (const DxfField::Clear clear : named)
        clear(object);
    return true;
}

ResbufChain chainOfPairs(const std::vector<GroupPair>& pairs)
{
    ResbufBuilder chain;
    for (const GroupPair& pair : pairs)
        setItem(chain.add(pair.code), pair);
    return chain.take();
}

ResbufChain extendedDataOf(const std::vector<GroupPair>& pairs)
{
    constexpr int extendedData = -3, applicationCode = 1001;
    const LispValue* const data = valueUnder(extendedData, pairs);
    std::vector<GroupPair> all;
    if (data)
        for (const LispValue& application : lisp_argument::items(*data)) {
            if (!application.isPair())
                lisp_argument::refuse(L"consp:", application);
            all.push_back({applicationCode, application.car()});
            for (GroupPair& item : groupPairs(application.cdr()))
                all.push_back(std::move(item));
        }
    return chainOfPairs(all);
}
