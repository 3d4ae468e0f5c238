#include "lisp/LispCall.h"

#include <functional>
#include <vector>

#include "lisp/LispFunctionTable.h"
#include "rx/ExceptionText.h"
#include "rx/HostSession.h"

#include "acedads.h"

namespace {

/// A call under way. A function may call another one: they stack.
struct Call {
    int code;
    ResbufChain arguments;
    ResbufChain value{acutNewRb(RTNIL)};
};

struct Calls {
    std::vector<Call> underWay;
};

std::vector<Call>& calls()
{
    return HostSession::part<Calls>().underWay;
}

int giveValue(ResbufChain value)
{
    if (calls().empty())
        return RTERROR;
    calls().back().value = std::move(value);
    return RTNORM;
}

int giveValue(int type, const std::function<void(ads_u_val&)>& fill = nullptr)
{
    ResbufChain value(acutNewRb(type));
    if (fill)
        fill(value->resval);
    return giveValue(std::move(value));
}

} // namespace

LispResult callLispFunction(const std::wstring& name, ResbufChain arguments)
{
    AcApDocument* document = curDoc();
    if (!document)
        return {nullptr, L"Aucun dessin n'est ouvert."};
    const LispFunction* function = LispFunctionTable::of(*document).find(name);
    if (!function)
        return {nullptr, L"Fonction inconnue : « " + name + L" »."};
    return callLispFunction(*function, std::move(arguments));
}

LispResult callLispFunction(const LispFunction& function, ResbufChain arguments)
{
    const std::wstring name = function.name; // it may be undefined meanwhile
    const std::size_t depth = calls().size();
    calls().push_back({function.code, std::move(arguments)});
    LispResult result;
    try {
        ModuleTable::instance().call(*function.module, AcRx::kInvkSubrMsg);
        result.value = std::move(calls().back().value);
    } catch (...) {
        result.failure = L"La fonction « " + name + L" » a échoué : " + currentExceptionText() + L".";
    }
    calls().erase(calls().begin() + static_cast<std::ptrdiff_t>(depth), calls().end());
    return result;
}

// ---- what the function called asks and answers

int acedGetFunCode()
{
    return calls().empty() ? RTERROR : calls().back().code;
}

resbuf* acedGetArgs()
{
    return calls().empty() ? nullptr : copiedChain(calls().back().arguments.get(), nullptr).release();
}

int acedRetVoid()
{
    return giveValue(RTVOID);
}

int acedRetNil()
{
    return giveValue(RTNIL);
}

int acedRetT()
{
    return giveValue(RTT);
}

int acedRetInt(int value)
{
    return giveValue(RTLONG, [value](ads_u_val& v) { v.rlong = value; });
}

int acedRetReal(ads_real value)
{
    return giveValue(RTREAL, [value](ads_u_val& v) { v.rreal = value; });
}

int acedRetStr(const ACHAR* value)
{
    if (!value)
        return RTERROR;
    return giveValue(RTSTR, [value](ads_u_val& v) { acutNewString(value, v.rstring); });
}

int acedRetPoint(const ads_point value)
{
    return giveValue(RT3DPOINT, [value](ads_u_val& v) { ads_point_set(value, v.rpoint); });
}

int acedRetName(const ads_name value, int type)
{
    if (type != RTENAME && type != RTPICKS)
        return RTERROR;
    return giveValue(type, [value](ads_u_val& v) { ads_name_set(value, v.rlname); });
}

int acedRetList(const resbuf* chain)
{
    if (!chain)
        return acedRetNil();
    ResbufChain list(acutNewRb(RTLB));
    list->rbnext = copiedChain(chain, nullptr).release();
    lastOf(list.get())->rbnext = acutNewRb(RTLE);
    return giveValue(std::move(list));
}

int acedRetVal(const resbuf* value)
{
    return value ? giveValue(copiedChain(value, afterValue(value))) : RTERROR;
}

// ---- definitions

int acedDefun(const ACHAR* name, short code)
{
    AcApDocument* document = curDoc();
    LoadedModule* module = ModuleTable::instance().running();
    if (!document || !module || !name)
        return RTERROR;
    return LispFunctionTable::of(*document).define(name, *module, code) ? RTNORM : RTERROR;
}

int acedUndef(const ACHAR* name, short code)
{
    AcApDocument* document = curDoc();
    const LoadedModule* module = ModuleTable::instance().running();
    if (!document || !module || !name)
        return RTERROR;
    return LispFunctionTable::of(*document).undefine(name, *module, code) ? RTNORM : RTERROR;
}
