// Selection sets: ssget, ssadd, ssname...

#include "lisp/drawing/DrawingBuiltins.h"
#include "lisp/drawing/LispConversion.h"
#include "lisp/drawing/RecordList.h"
#include "lisp/drawing/ScreenValues.h"
#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispContext.h"
#include "lisp/eval/LispError.h"
#include "lisp/eval/LispTexts.h"
#include "rx/ResbufChain.h"
#include "rx/ResbufKind.h"

#include "aced.h"

namespace {

constexpr int kExtendedData = -3;
constexpr int kApplication = 1001;

const LispName& setArgument(const LispValue& value)
{
    const LispName* const name = value.name();
    if (!name || name->kind != LispName::Kind::selection)
        lisp_argument::refuse(L"lselsetp:", value);
    return *name;
}

const LispName& entityArgument(const LispValue& value)
{
    const LispName* const name = value.name();
    if (!name || name->kind != LispName::Kind::entity)
        lisp_argument::refuse(L"lentityp:", value);
    return *name;
}

// ---- the arguments of ssget

/// Builds the chain of a filter list.
class FilterChain {
public:
    ResbufChain of(const LispValue& list)
    {
        for (const LispValue& item : lisp_argument::items(list)) {
            if (!item.isPair() || !item.car().isInteger())
                throw LispError(lisp_texts::badFilter);
            add(item.car().integer(), item.cdr());
        }
        return m_chain.take();
    }

private:
    void add(int code, const LispValue& value)
    {
        resbuf& item = m_chain.add(code);
        if (code == kExtendedData)
            for (const LispValue& application : lisp_argument::items(value))
                setBuffer(m_chain.add(kApplication), application.isPair() ? application.car() : application);
        else if (!setBuffer(item, value))
            throw LispError(lisp_texts::badFilter);
    }

    ResbufBuilder m_chain;
};

bool isPoint(const LispValue& value)
{
    std::size_t count = 0;
    const LispValue* rest = &value;
    for (; rest->isPair() && rest->car().isNumber(); rest = &rest->cdr())
        ++count;
    return rest->isNil() && (count == 2 || count == 3);
}

ResbufChain pointChain(const LispValue& list)
{
    ResbufBuilder chain;
    for (const LispValue& item : lisp_argument::items(list))
        setPoint(item, chain.add(RT3DPOINT).resval.rpoint);
    return chain.take();
}

/// (ssget [how] [point [point]] [points] [prompts] [filter])
struct SelectionArguments {
    const ACHAR* how = nullptr;
    int points = 0;
    ads_point corners[2] = {};
    ResbufChain polygon;
    ResbufChain filter;
    const ACHAR* prompts[2] = {};

    explicit SelectionArguments(LispArguments arguments)
    {
        for (const LispValue& argument : arguments) {
            if (argument.isText())
                how = argument.text().c_str();
            else if (isPoint(argument) && points < 2)
                setPoint(argument, corners[points++]);
            else if (argument.isPair() && isPoint(argument.car()) && takesPolygon())
                polygon = pointChain(argument);
            else if (argument.isPair() && argument.car().isText())
                takePrompts(argument);
            else if (!argument.isNil())
                filter = FilterChain().of(argument);
        }
    }
    const void* first() const
    {
        if (prompts[0])
            return prompts;
        return polygon ? static_cast<const void*>(polygon.get()) : points > 0 ? corners[0] : nullptr;
    }
    const void* second() const { return points > 1 ? corners[1] : nullptr; }

private:
    /// A list of points may look like a filter: (10 5.0 5.0).
    bool takesPolygon() const
    {
        const std::wstring_view mode = how ? how : L"";
        return mode.find_first_of(L"FfPp") != std::wstring_view::npos;
    }
    void takePrompts(const LispValue& list)
    {
        const LispValue& rest = list.cdr();
        prompts[0] = list.car().text().c_str();
        prompts[1] = rest.isPair() ? lisp_argument::text(rest.car()).c_str() : nullptr;
    }
};

LispValue get(LispContext&, LispArguments arguments)
{
    const SelectionArguments call(arguments);
    ads_name set = {};
    const int status = acedSSGet(call.how, call.first(), call.second(), call.filter.get(), set);
    if (status == RTCAN)
        throw LispError(lisp_texts::interrupted);
    if (status == RTNORM)
        return ownedSelection(set);
    if (status != RTKWORD)
        return {};
    ACHAR* keyword = nullptr;
    acedGetFullInput(keyword);
    LispValue value{std::wstring(keyword ? keyword : L"")};
    acutDelString(keyword);
    return value;
}

LispValue add(LispContext&, LispArguments arguments)
{
    const std::int64_t* const entity = arguments.empty() ? nullptr : entityArgument(arguments[0]).words.data();
    const bool toNew = arguments.size() < 2 || arguments[1].isNil();
    const std::int64_t* const set = toNew ? nullptr : setArgument(arguments[1]).words.data();
    ads_name result = {};
    if (acedSSAdd(entity, set, result) != RTNORM)
        return {};
    return toNew ? ownedSelection(result) : arguments[1];
}

LispValue remove(LispContext&, LispArguments arguments)
{
    const int status = acedSSDel(entityArgument(arguments[0]).words.data(), setArgument(arguments[1]).words.data());
    return status == RTNORM ? arguments[1] : LispValue();
}

LispValue member(LispContext&, LispArguments arguments)
{
    const int status = acedSSMemb(entityArgument(arguments[0]).words.data(), setArgument(arguments[1]).words.data());
    return status == RTNORM ? arguments[0] : LispValue();
}

LispValue length(LispContext&, LispArguments arguments)
{
    Adesk::Int32 count = 0;
    if (acedSSLength(setArgument(arguments[0]).words.data(), &count) != RTNORM)
        lisp_argument::refuse(L"lselsetp:", arguments[0]);
    return LispValue(std::int32_t{count});
}

LispValue nameAt(LispContext&, LispArguments arguments)
{
    const double place = lisp_argument::number(arguments[1]);
    ads_name entity = {};
    if (!(place >= 0.0 && place < 2147483647.0) ||
        acedSSName(setArgument(arguments[0]).words.data(), static_cast<Adesk::Int32>(place), entity) != RTNORM)
        return {};
    return entityValue(entity);
}

/// (nil selection): there are no grips.
LispValue getFirst(LispContext&, LispArguments)
{
    resbuf* found = nullptr;
    if (acedSSGetFirst(nullptr, &found) != RTNORM)
        return {};
    const ResbufChain owned(found);
    const LispValue sets[] = {LispValue(), found ? ownedSelection(found->resval.rlname) : LispValue()};
    return listOf(sets);
}

/// (sssetfirst grips [selection]): what is shown with grips is selected here.
LispValue setFirst(LispContext&, LispArguments arguments)
{
    const LispValue& chosen = arguments.size() > 1 ? arguments[1] : arguments[0];
    acedSSSetFirst(chosen.isNil() ? nullptr : setArgument(chosen).words.data(), nullptr);
    const LispValue sets[] = {LispValue(), chosen};
    return listOf(sets);
}

constexpr LispBuiltin kRows[] = {
    {L"SSADD", 0, 2, add},       {L"SSDEL", 2, 2, remove},  {L"SSGET", 0, 4, get},     {L"SSGETFIRST", 0, 0, getFirst},
    {L"SSLENGTH", 1, 1, length}, {L"SSMEMB", 2, 2, member}, {L"SSNAME", 2, 2, nameAt}, {L"SSSETFIRST", 1, 2, setFirst},
};

} // namespace

std::span<const LispBuiltin> selectionBuiltins()
{
    return kRows;
}
