#include "lisp/eval/SpecialForms.h"

#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispContext.h"
#include "lisp/eval/LispError.h"
#include "lisp/eval/LispTexts.h"

namespace {

using lisp_argument::integer;
using lisp_argument::list;
using lisp_argument::symbol;

/// The first part, which must be there.
const LispValue& first(const LispValue& parts)
{
    if (!parts.isPair())
        throw LispError(lisp_texts::tooFewArguments);
    return parts.car();
}

const LispValue& only(const LispValue& parts)
{
    const LispValue& part = first(parts);
    if (!parts.cdr().isNil())
        throw LispError(lisp_texts::tooManyArguments);
    return part;
}

LispValue quote(LispContext&, const LispValue& parts)
{
    return only(parts);
}

LispValue function(LispContext& context, const LispValue& parts)
{
    const LispValue& named = only(parts);
    return named.isPair() ? context.functionOf(named) : named;
}

LispValue setq(LispContext& context, const LispValue& parts)
{
    LispValue value;
    for (const LispValue* rest = &parts; rest->isPair(); rest = &rest->cdr().cdr()) {
        LispSymbol& name = symbol(rest->car());
        value = context.evaluate(first(rest->cdr()));
        context.assign(name, value);
    }
    return value;
}

LispValue ifForm(LispContext& context, const LispValue& parts)
{
    const bool holds = !context.evaluate(first(parts)).isNil();
    const LispValue& branches = parts.cdr();
    const LispValue& yes = first(branches);
    if (holds)
        return context.evaluate(yes);
    const LispValue& rest = branches.cdr();
    return rest.isNil() ? LispValue() : context.evaluate(only(rest));
}

LispValue cond(LispContext& context, const LispValue& parts)
{
    for (const LispValue* rest = &parts; rest->isPair(); rest = &rest->cdr()) {
        const LispValue& clause = rest->car();
        if (!clause.isPair())
            throw LispError(lisp_texts::badForm);
        LispValue holds = context.evaluate(clause.car());
        if (!holds.isNil())
            return clause.cdr().isNil() ? holds : context.evaluateAll(clause.cdr());
    }
    return {};
}

LispValue whileForm(LispContext& context, const LispValue& parts)
{
    const LispValue& condition = first(parts);
    LispValue value;
    while (!context.evaluate(condition).isNil()) {
        context.tick();
        value = context.evaluateAll(parts.cdr());
    }
    return value;
}

LispValue repeat(LispContext& context, const LispValue& parts)
{
    LispValue value;
    for (std::int32_t left = integer(context.evaluate(first(parts))); left > 0; --left) {
        context.tick();
        value = context.evaluateAll(parts.cdr());
    }
    return value;
}

LispValue foreach (LispContext& context, const LispValue& parts)
{
    LispSymbol& name = symbol(first(parts));
    const LispValue& rest = parts.cdr();
    const LispValue items = list(context.evaluate(first(rest)));
    if (name.isProtected)
        throw LispError(lisp_texts::protectedSymbol + name.name);
    const LispBinding binding(name, LispValue());
    LispValue value;
    const LispValue* item = &items;
    for (; item->isPair(); item = &item->cdr()) {
        context.tick();
        name.value = item->car();
        value = context.evaluateAll(rest.cdr());
    }
    return value;
}

LispValue progn(LispContext& context, const LispValue& parts)
{
    return context.evaluateAll(parts);
}

LispValue andForm(LispContext& context, const LispValue& parts)
{
    for (const LispValue* rest = &parts; rest->isPair(); rest = &rest->cdr())
        if (context.evaluate(rest->car()).isNil())
            return {};
    return context.truth(true);
}

LispValue orForm(LispContext& context, const LispValue& parts)
{
    for (const LispValue* rest = &parts; rest->isPair(); rest = &rest->cdr())
        if (!context.evaluate(rest->car()).isNil())
            return context.truth(true);
    return {};
}

LispValue defun(LispContext& context, const LispValue& parts)
{
    LispSymbol& name = symbol(first(parts));
    context.assign(name, context.makeFunction(name.name, parts.cdr()));
    return LispValue(name);
}

LispValue lambda(LispContext& context, const LispValue& parts)
{
    return context.makeFunction(L"", parts);
}

constexpr LispSpecialForm kForms[] = {
    {L"AND", andForm},   {L"COND", cond},     {L"DEFUN", defun},     {L"FOREACH", foreach}, {L"FUNCTION", function},
    {L"IF", ifForm},     {L"LAMBDA", lambda}, {L"OR", orForm},       {L"PROGN", progn},     {L"QUOTE", quote},
    {L"REPEAT", repeat}, {L"SETQ", setq},     {L"WHILE", whileForm},
};

} // namespace

std::span<const LispSpecialForm> specialForms()
{
    return kForms;
}
