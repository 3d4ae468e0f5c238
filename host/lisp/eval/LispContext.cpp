#include "lisp/eval/LispContext.h"

#include <algorithm>
#include <ctime>
#include <numbers>

#include "lisp/eval/LispBuiltin.h"
#include "lisp/eval/LispError.h"
#include "lisp/eval/LispReader.h"
#include "lisp/eval/LispTexts.h"
#include "lisp/eval/SpecialForms.h"
#include "platform/LetterCase.h"
#include "platform/StackBounds.h"
#include "rx/ExceptionText.h"

namespace {

/// What this thread has computed since it began.
std::chrono::nanoseconds threadTime()
{
    std::timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time); // cannot fail: every Linux has this clock
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

} // namespace

LispValue LispHost::callFunction(LispContext&, const std::wstring& name, LispArguments)
{
    throw LispError(lisp_texts::noFunction + name);
}

std::wstring LispOutcome::failureText() const
{
    if (!failed || told)
        return {};
    const std::wstring text = lisp_texts::errorPrefix + message;
    return expression.empty() ? text : text + L"\n" + lisp_texts::expressionPrefix + expression;
}

LispContext::LispContext(LispHost& host) :
    m_host(host),
    m_true(&symbol(L"T")),
    m_errorHandler(&symbol(L"*ERROR*")),
    m_lambda(&symbol(L"LAMBDA"))
{
    assign(*m_true, LispValue(*m_true));
    m_true->isProtected = true;
    assign(symbol(L"PI"), LispValue(std::numbers::pi));
    for (const LispSpecialForm& form : specialForms())
        assign(symbol(form.name), LispValue(form));
}

void LispContext::define(std::span<const LispBuiltin> rows)
{
    for (const LispBuiltin& row : rows)
        assign(symbol(row.name), LispValue(row));
}

LispSymbol& LispContext::symbol(std::wstring_view name)
{
    std::wstring upper = platform::upperCase(name);
    std::unique_ptr<LispSymbol>& place = m_symbols[upper];
    if (!place) {
        place = std::make_unique<LispSymbol>();
        place->name = std::move(upper);
    }
    return *place;
}

void LispContext::assign(LispSymbol& symbol, LispValue value)
{
    if (symbol.isProtected)
        throw LispError(lisp_texts::protectedSymbol + symbol.name);
    symbol.value = std::move(value);
    symbol.bound = true;
}

LispOutcome LispContext::run(std::wstring_view text)
{
    return run([this, text] { return evaluateText(text); });
}

LispValue LispContext::evaluateText(std::wstring_view text)
{
    LispReader reader(*this, text);
    LispValue value;
    while (const auto expression = reader.next())
        value = evaluate(*expression);
    return value;
}

LispOutcome LispContext::run(const std::function<LispValue()>& task)
{
    LispOutcome outcome;
    ++m_running;
    try {
        if (m_running == 1) {
            m_deadline.reset();
            if (m_timeLimit)
                m_deadline = threadTime() + *m_timeLimit;
        }
        outcome.value = task();
    } catch (const LispError& error) {
        outcome = {{}, true, error.handled, error.message, error.expression};
    } catch (const std::bad_alloc&) {
        outcome = {{}, true, false, lisp_texts::noMemory, {}};
    } catch (...) { // from the functions of the host: nothing of it may end the program
        outcome = {{}, true, false, currentExceptionText(), {}};
    }
    --m_running;
    return outcome;
}

void LispContext::askForInterruption()
{
    if (m_deadline && threadTime() > *m_deadline)
        throw LispError(lisp_texts::timeIsUp, LispError::Kind::interrupted);
    if (m_host.interrupted())
        throw LispError(lisp_texts::interrupted, LispError::Kind::interrupted);
}

void LispContext::checkStack() const
{
    if (reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0)) < platform::stackFloor() + m_stackReserve)
        throw LispError(lisp_texts::deepRecursion);
}

LispBinding::LispBinding(LispSymbol& symbol, LispValue value) :
    m_symbol(symbol),
    m_before(std::move(symbol.value)),
    m_wasBound(symbol.bound)
{
    m_symbol.value = std::move(value);
    m_symbol.bound = true;
}

LispBinding::~LispBinding()
{
    m_symbol.value = std::move(m_before);
    m_symbol.bound = m_wasBound;
}
