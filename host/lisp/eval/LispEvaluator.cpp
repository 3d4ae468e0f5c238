// The evaluation itself: calls, functions written in AutoLISP, and what happens when one fails.

#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispBuiltin.h"
#include "lisp/eval/LispContext.h"
#include "lisp/eval/LispError.h"
#include "lisp/eval/LispPrinter.h"
#include "lisp/eval/LispTexts.h"

namespace {

constexpr std::size_t kShownExpression = 120;

void checkCount(std::size_t count, std::size_t least, std::size_t most)
{
    if (count < least)
        throw LispError(lisp_texts::tooFewArguments);
    if (count > most)
        throw LispError(lisp_texts::tooManyArguments);
}

/// Gives a place a value until the end of the scope.
template <class T>
class ScopedValue {
public:
    ScopedValue(T& place, T value) : m_place(place), m_before(place) { place = value; }
    ~ScopedValue() { m_place = m_before; }
    ScopedValue(const ScopedValue&) = delete;
    ScopedValue& operator=(const ScopedValue&) = delete;

private:
    T& m_place;
    T m_before;
};

bool isFunction(const LispValue& value)
{
    return value.builtin() || value.lambda() || value.specialForm() || value.moduleFunction();
}

} // namespace

/// The values that the parameters and locals of a function hide while it runs.
class LispContext::Bindings {
public:
    Bindings(const LispLambda& function, LispArguments arguments) : m_function(function)
    {
        m_hidden.reserve(function.parameters.size() + function.locals.size());
        for (std::size_t i = 0; i < function.parameters.size(); ++i)
            hide(*function.parameters[i], arguments[i]);
        for (LispSymbol* local : function.locals)
            hide(*local, LispValue());
    }
    ~Bindings()
    {
        for (std::size_t i = m_hidden.size(); i-- > 0;) {
            LispSymbol& symbol = i < m_function.parameters.size()
                                     ? *m_function.parameters[i]
                                     : *m_function.locals[i - m_function.parameters.size()];
            symbol.value = std::move(m_hidden[i].value);
            symbol.bound = m_hidden[i].bound;
        }
    }
    Bindings(const Bindings&) = delete;
    Bindings& operator=(const Bindings&) = delete;

private:
    struct Hidden {
        LispValue value;
        bool bound;
    };
    void hide(LispSymbol& symbol, LispValue value)
    {
        m_hidden.push_back({std::move(symbol.value), symbol.bound});
        symbol.value = std::move(value);
        symbol.bound = true;
    }

    const LispLambda& m_function;
    std::vector<Hidden> m_hidden;
};

LispValue LispContext::evaluate(const LispValue& expression)
{
    if (expression.isSymbol())
        return valueOf(expression.symbol());
    if (expression.isPair())
        return evaluateCall(expression);
    return expression;
}

LispValue LispContext::valueOf(const LispSymbol& symbol)
{
    if (!symbol.bound && m_host.hasFunction(symbol.name))
        return LispValue(LispModuleFunction{const_cast<LispSymbol*>(&symbol)});
    return symbol.value;
}

LispValue LispContext::evaluateAll(const LispValue& expressions)
{
    LispValue value;
    const LispValue* rest = &expressions;
    for (; rest->isPair(); rest = &rest->cdr())
        value = evaluate(rest->car());
    return value;
}

LispValue LispContext::evaluateCall(const LispValue& expression)
{
    const LispValue form = expression; // what it stands in may be redefined meanwhile
    try {
        tick();
        checkStack();
        const LispValue& head = form.car();
        const LispValue function = requireFunction(head.isPair() ? evaluate(head) : head);
        if (const LispSpecialForm* special = function.specialForm())
            return special->run(*this, form.cdr());
        std::vector<LispValue> arguments;
        const LispValue* rest = &form.cdr();
        for (; rest->isPair(); rest = &rest->cdr())
            arguments.push_back(evaluate(rest->car()));
        if (!rest->isNil())
            throw LispError(lisp_texts::badForm);
        return applyFunction(function, arguments);
    } catch (LispError& error) {
        noticeError(error, form);
        throw;
    }
}

LispValue LispContext::requireFunction(const LispValue& value)
{
    LispValue function = functionOf(value);
    if (isFunction(function))
        return function;
    if (value.isSymbol() && function.isNil())
        throw LispError(lisp_texts::noFunction + value.symbol().name);
    throw LispError(lisp_texts::badFunction + lispShortened(function, kShownExpression));
}

LispValue LispContext::functionOf(const LispValue& value)
{
    if (value.isSymbol()) {
        LispSymbol& symbol = value.symbol();
        if (isFunction(symbol.value))
            return symbol.value;
        if (m_host.hasFunction(symbol.name))
            return LispValue(LispModuleFunction{&symbol});
        return symbol.value.isPair() ? functionOf(symbol.value) : symbol.value;
    }
    if (value.isPair() && value.car().isSymbol() && &value.car().symbol() == m_lambda)
        return makeFunction(L"", value.cdr());
    return value;
}

LispValue LispContext::apply(const LispValue& function, LispArguments arguments)
{
    return applyFunction(requireFunction(function), arguments);
}

LispValue LispContext::applyFunction(const LispValue& function, LispArguments arguments)
{
    checkStack();
    if (const LispBuiltin* builtin = function.builtin()) {
        checkCount(arguments.size(), static_cast<std::size_t>(builtin->least), static_cast<std::size_t>(builtin->most));
        return builtin->run(*this, arguments);
    }
    if (const LispLambda* lambda = function.lambda())
        return callLambda(*lambda, arguments);
    if (const LispModuleFunction* called = function.moduleFunction())
        return m_host.callFunction(*this, called->symbol->name, arguments);
    const LispSpecialForm* special = function.specialForm();
    // (apply 'and list): the values are the parts of the form, protected from a second evaluation.
    std::vector<LispValue> parts;
    for (const LispValue& argument : arguments) {
        const LispValue quoted[] = {LispValue(symbol(L"QUOTE")), argument};
        parts.push_back(listOf(quoted));
    }
    return special->run(*this, listOf(parts));
}

LispValue LispContext::callLambda(const LispLambda& function, LispArguments arguments)
{
    tick();
    checkCount(arguments.size(), function.parameters.size(), function.parameters.size());
    const Bindings bindings(function, arguments);
    return evaluateAll(function.body);
}

LispValue LispContext::applyCatching(const LispValue& function, LispArguments arguments)
{
    const ScopedValue catching(m_catching, m_catching + 1);
    try {
        return apply(function, arguments);
    } catch (const LispError& error) {
        if (error.kind == LispError::Kind::interrupted)
            throw;
        return LispValue(std::make_shared<const LispFailure>(LispFailure{error.message}));
    }
}

std::vector<LispSymbol*> LispContext::symbolsOf(const LispValue& list, std::vector<LispSymbol*>& locals)
{
    std::vector<LispSymbol*> parameters;
    bool behindSlash = false;
    const LispValue* rest = &list;
    for (; rest->isPair(); rest = &rest->cdr()) {
        if (!rest->car().isSymbol() || rest->car().symbol().isProtected)
            break;
        LispSymbol& name = rest->car().symbol();
        if (name.name == L"/" && !behindSlash)
            behindSlash = true;
        else
            (behindSlash ? locals : parameters).push_back(&name);
    }
    if (!rest->isNil())
        throw LispError(lisp_texts::badParameters + lispShortened(list, kShownExpression));
    return parameters;
}

LispValue LispContext::makeFunction(std::wstring name, const LispValue& parametersAndBody)
{
    if (!parametersAndBody.isPair())
        throw LispError(lisp_texts::badForm);
    auto function = std::make_shared<LispLambda>();
    function->name = std::move(name);
    function->parameters = symbolsOf(parametersAndBody.car(), function->locals);
    function->body = parametersAndBody.cdr();
    return LispValue(std::shared_ptr<const LispLambda>(std::move(function)));
}

/// Keeps the innermost call, and lets the user's *error* speak while the values of the place of the error still hold:
/// programs make *error* one of their locals.
void LispContext::noticeError(LispError& error, const LispValue& form)
{
    if (error.noticed)
        return;
    error.noticed = true;
    error.expression = lispShortened(form, kShownExpression);
    const bool caught = m_catching > 0 && error.kind != LispError::Kind::interrupted;
    if (caught || m_inErrorHandler)
        return;
    const LispValue handler = functionOf(LispValue(*m_errorHandler));
    if (!handler.lambda())
        return;
    const ScopedValue inHandler(m_inErrorHandler, true);
    const ScopedValue outside(m_catching, 0);
    const ScopedValue deeper(m_stackReserve, m_stackReserve / 2);
    const LispValue message[] = {LispValue(error.message)};
    applyFunction(handler, message);
    error.handled = true;
}
