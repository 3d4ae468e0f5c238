#include "lisp/drawing/EntityLists.h"

#include <algorithm>
#include <numbers>

#include "db/DatabaseImpl.h"
#include "db/fields/DxfFields.h"
#include "db/ResbufTags.h"
#include "dxf/R12Subclasses.h"
#include "lisp/drawing/RecordList.h"
#include "lisp/eval/LispArgument.h"
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
    std::wstring kind = type ? lisp_argument::text(*type) : L"";
    for (wchar_t& c : kind)
        c = platform::upperCase(c);
    return kind;
}

namespace {

/// One item of a drawing file. Angles are degrees there.
ResbufChain bufferOf(const GroupPair& pair)
{
    constexpr double degreesPerRadian = 180.0 / std::numbers::pi;
    ResbufChain buffer(acutNewRb(pair.code));
    ads_u_val& to = buffer->resval;
    switch (resbufKind(pair.code)) {
    case ResbufKind::real:
        to.rreal = number(pair.value) * (pair.code >= 50 && pair.code <= 58 ? degreesPerRadian : 1.0);
        break;
    case ResbufKind::point: {
        const AcGePoint3d point = lisp_argument::point(pair.value);
        to.rpoint[0] = point.x;
        to.rpoint[1] = point.y;
        to.rpoint[2] = point.z;
        break;
    }
    case ResbufKind::int16:
        to.rint = static_cast<short>(integer(pair.value));
        break;
    case ResbufKind::int32:
        to.rlong = integer(pair.value);
        break;
    case ResbufKind::int64:
        to.mnInt64 = integer(pair.value);
        break;
    case ResbufKind::name:
        to.rlname[0] = objectArgument(pair.value).asOldId();
        break;
    case ResbufKind::text:
        acutNewString(lisp_argument::text(pair.value).c_str(), to.rstring);
        break;
    case ResbufKind::bytes:
    case ResbufKind::none:
    case ResbufKind::unknown:
        lisp_argument::refuse(L"code de groupe:", LispValue(std::int32_t{pair.code}));
    }
    return buffer;
}

/// What the tables take up: not names, owners, groups and extended data.
bool isField(int code)
{
    return code > 0 && code != 5 && code != 102 && code != 105 && code != 330 && code != 360 && code < 1000;
}

/// The first subclass with a row for a code; the entity's own properties are looked for in the first one only.
std::size_t subclassOf(const DxfClass& dxfClass, int code)
{
    const auto& all = dxfClass.subclasses;
    for (std::size_t i = isCommonEntityCode(code) ? 0 : 1; i < all.size(); ++i)
        if (code <= dxfLastCode && all[i]->rowOf(code) >= 0)
            return i;
    return 0;
}

class ListTags {
public:
    ListTags(const AcDbDatabaseImpl& database, const DxfClass& dxfClass) :
        m_class(dxfClass),
        m_writer(database.form(), m_bytes)
    {
    }

    const std::string& write(const std::vector<GroupPair>& pairs)
    {
        const bool marked = std::ranges::any_of(pairs, [](const GroupPair& pair) {
            return pair.code == 100 && pair.value.isText() && pair.value.text() != L"AcDbEntity";
        });
        if (marked)
            writeIf(pairs, [](int) { return true; });
        for (std::size_t i = 0; !marked && i < m_class.subclasses.size(); ++i) {
            m_writer.rawText(100, m_class.subclasses[i]->marker());
            writeIf(pairs, [&](int code) { return code != 100 && subclassOf(m_class, code) == i; });
        }
        return m_bytes;
    }

private:
    template <class Wanted>
    void writeIf(const std::vector<GroupPair>& pairs, Wanted wanted)
    {
        for (const GroupPair& pair : pairs)
            if (isField(pair.code) && wanted(pair.code) && !writeChain(bufferOf(pair).get(), m_writer))
                lisp_argument::refuse(L"valeur d'un groupe:", pair.value);
    }

    const DxfClass& m_class;
    std::string m_bytes;
    DxfTagWriter m_writer;
};

} // namespace

std::string tagsOfPairs(const AcDbDatabaseImpl& database, const DxfClass& dxfClass, const std::vector<GroupPair>& pairs)
{
    return ListTags(database, dxfClass).write(pairs);
}

ResbufChain extendedDataOf(const std::vector<GroupPair>& pairs)
{
    constexpr int extendedData = -3, applicationCode = 1001;
    const LispValue* const data = valueUnder(extendedData, pairs);
    ResbufChain chain;
    resbuf* last = nullptr;
    const auto append = [&](ResbufChain item) {
        resbuf* const added = item.release();
        if (last)
            last->rbnext = added;
        else
            chain.reset(added);
        last = added;
    };
    if (!data)
        return chain;
    for (const LispValue& application : lisp_argument::items(*data)) {
        if (!application.isPair())
            lisp_argument::refuse(L"consp:", application);
        append(bufferOf({applicationCode, application.car()}));
        for (const GroupPair& item : groupPairs(application.cdr()))
            append(bufferOf(item));
    }
    return chain;
}
