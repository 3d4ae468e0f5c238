// initget and the functions that ask: getpoint, getstring, entsel...

#include "lisp/drawing/DrawingBuiltins.h"
#include "lisp/drawing/RecordList.h"
#include "lisp/drawing/ScreenValues.h"
#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispContext.h"
#include "lisp/eval/LispError.h"
#include "lisp/eval/LispTexts.h"
#include "rx/ResbufChain.h"

#include "acdocman.h"
#include "aced.h"

namespace {

/// The optional arguments of a function that asks: a point and a prompt, in any order.
class Asking {
public:
    explicit Asking(LispArguments arguments)
    {
        for (const LispValue& argument : arguments) {
            if (argument.isText())
                m_prompt = &argument.text();
            else if (!argument.isNil())
                m_point = lisp_argument::point(argument);
        }
        if (m_point) {
            m_base[0] = m_point->x;
            m_base[1] = m_point->y;
            m_base[2] = m_point->z;
        }
    }
    const ads_real* base() const { return m_point ? m_base : nullptr; }
    const ACHAR* prompt() const { return m_prompt ? m_prompt->c_str() : nullptr; }

private:
    const std::wstring* m_prompt = nullptr;
    std::optional<AcGePoint3d> m_point;
    ads_point m_base = {};
};

/// A new text of the interface, taken over.
std::wstring taken(ACHAR*& text)
{
    std::wstring copy = text ? text : L"";
    acutDelString(text);
    return copy;
}

LispValue lastKeyword()
{
    ACHAR* text = nullptr;
    acedGetFullInput(text);
    return LispValue(taken(text));
}

/// The value that a status stands for; `value` makes that of RTNORM. Escape ends the evaluation.
template <class Make>
LispValue answered(int status, Make value)
{
    switch (status) {
    case RTNORM:
        return value();
    case RTKWORD:
        return lastKeyword();
    case RTCAN:
        throw LispError(lisp_texts::interrupted);
    default:
        return {};
    }
}

LispValue initialize(LispContext&, LispArguments arguments)
{
    int bits = 0;
    std::wstring keywords;
    for (const LispValue& argument : arguments) {
        if (argument.isText())
            keywords = argument.text();
        else if (!argument.isNil())
            bits = lisp_argument::integer(argument);
    }
    acedInitGet(bits, keywords.c_str());
    return {};
}

LispValue getPoint(LispContext&, LispArguments arguments)
{
    const Asking asking(arguments);
    ads_point point = {};
    const int status = acedGetPoint(asking.base(), asking.prompt(), point);
    return answered(status, [&] { return pointValue(point); });
}

LispValue getCorner(LispContext&, LispArguments arguments)
{
    const Asking asking(arguments);
    ads_point point = {};
    const int status = acedGetCorner(asking.base(), asking.prompt(), point);
    return answered(status, [&] { return pointValue(point); });
}

using MeasureFunction = int (*)(const ads_point, const ACHAR*, ads_real*);

template <MeasureFunction Ask>
LispValue getMeasure(LispContext&, LispArguments arguments)
{
    const Asking asking(arguments);
    ads_real value = 0.0;
    const int status = Ask(asking.base(), asking.prompt(), &value);
    return answered(status, [&] { return LispValue(value); });
}

LispValue getReal(LispContext&, LispArguments arguments)
{
    ads_real value = 0.0;
    const int status = acedGetReal(Asking(arguments).prompt(), &value);
    return answered(status, [&] { return LispValue(value); });
}

LispValue getInteger(LispContext&, LispArguments arguments)
{
    int value = 0;
    const int status = acedGetInt(Asking(arguments).prompt(), &value);
    return answered(status, [&] { return LispValue(std::int32_t{value}); });
}

/// (getstring [blanks] [prompt])
LispValue getText(LispContext&, LispArguments arguments)
{
    const bool hasFlag = !arguments.empty() && !arguments[0].isText();
    const std::size_t promptAt = hasFlag ? 1 : 0;
    const ACHAR* const prompt =
        arguments.size() > promptAt ? lisp_argument::text(arguments[promptAt]).c_str() : nullptr;
    ACHAR* text = nullptr;
    const int status = acedGetFullString(hasFlag && !arguments[0].isNil(), prompt, text);
    return answered(status, [&] { return LispValue(taken(text)); });
}

LispValue getKeyword(LispContext&, LispArguments arguments)
{
    ACHAR* text = nullptr;
    const int status = acedGetFullKword(Asking(arguments).prompt(), text);
    return answered(status, [&] { return LispValue(taken(text)); });
}

// ---- entities

LispValue selectEntity(LispContext&, LispArguments arguments)
{
    ads_name entity = {};
    ads_point point = {};
    const int status = acedEntSel(Asking(arguments).prompt(), entity, point);
    return answered(status, [&] {
        const LispValue pick[] = {entityValue(entity), pointValue(point)};
        return listOf(pick);
    });
}

LispValue containersOf(const resbuf* chain)
{
    std::vector<LispValue> names;
    for (; chain; chain = chain->rbnext)
        names.push_back(entityValue(chain->resval.rlname));
    return listOf(names);
}

/// (entity point matrix containers); the last two only for what lies in a block.
LispValue nestedPick(const ads_name entity, const ads_point point, LispValue matrix, const resbuf* containers)
{
    std::vector<LispValue> pick{entityValue(entity), pointValue(point)};
    if (containers) {
        pick.push_back(std::move(matrix));
        pick.push_back(containersOf(containers));
    }
    return listOf(pick);
}

LispValue selectNested(LispContext&, LispArguments arguments)
{
    ads_name entity = {};
    ads_point point = {};
    ads_point rows[4] = {};
    resbuf* containers = nullptr;
    const int status = acedNEntSel(Asking(arguments).prompt(), entity, point, rows, &containers);
    const ResbufChain owned(containers);
    return answered(status, [&] {
        std::vector<LispValue> matrix;
        for (const auto& row : rows)
            matrix.push_back(pointValue(row));
        return nestedPick(entity, point, listOf(matrix), containers);
    });
}

LispValue selectNestedAt(LispContext&, LispArguments arguments)
{
    const Asking asking(arguments);
    ads_name entity = {};
    ads_point point = {};
    if (asking.base())
        ads_point_set(asking.base(), point);
    ads_matrix rows = {};
    resbuf* containers = nullptr;
    const int status =
        acedNEntSelP(asking.prompt(), entity, point, asking.base() != nullptr ? 1 : 0, rows, &containers);
    const ResbufChain owned(containers);
    return answered(status, [&] {
        std::vector<LispValue> matrix;
        for (const auto& row : rows) {
            std::vector<LispValue> numbers;
            for (const double number : row)
                numbers.emplace_back(number);
            matrix.push_back(listOf(numbers));
        }
        return nestedPick(entity, point, listOf(matrix), containers);
    });
}

constexpr LispBuiltin kRows[] = {
    {L"ENTSEL", 0, 1, selectEntity},
    {L"GETANGLE", 0, 2, getMeasure<acedGetAngle>},
    {L"GETCORNER", 1, 2, getCorner},
    {L"GETDIST", 0, 2, getMeasure<acedGetDist>},
    {L"GETINT", 0, 1, getInteger},
    {L"GETKWORD", 0, 1, getKeyword},
    {L"GETORIENT", 0, 2, getMeasure<acedGetOrient>},
    {L"GETPOINT", 0, 2, getPoint},
    {L"GETREAL", 0, 1, getReal},
    {L"GETSTRING", 0, 2, getText},
    {L"INITGET", 0, 2, initialize},
    {L"NENTSEL", 0, 1, selectNested},
    {L"NENTSELP", 0, 2, selectNestedAt},
};

} // namespace

std::span<const LispBuiltin> inputBuiltins()
{
    return kRows;
}
