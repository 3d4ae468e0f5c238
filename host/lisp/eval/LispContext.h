#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string_view>
#include <unordered_map>

#include "lisp/eval/LispValue.h"

class LispContext;
class LispError;

/// What an evaluator asks of the program around it.
class LispHost {
public:
    virtual ~LispHost() = default;
    /// Shows a text on the command line, as it stands.
    virtual void print(const std::wstring& text) = 0;
    /// Whether the user wants the evaluation to end. Asked every few thousand calls.
    virtual bool interrupted() { return false; }
    /// Functions that are not AutoLISP's own, by name in capitals.
    virtual bool hasFunction(const std::wstring&) { return false; }
    virtual LispValue callFunction(LispContext&, const std::wstring& name, LispArguments arguments);
};

/// How an evaluation ended: with a value, or with what went wrong.
struct LispOutcome {
    LispValue value;
    bool failed = false;
    bool told = false;       ///< the user's own *error* was told of the failure
    std::wstring message;    ///< French
    std::wstring expression; ///< the call that failed; empty when none was under way

    /// What the command line shows of a failure, on one or two lines; empty when there is nothing to show.
    std::wstring failureText() const;
};

/// AutoLISP for one document: its symbols, and the evaluation of expressions. Scope is dynamic: while a function runs,
/// its parameters and locals hide the values that their names had.
class LispContext {
public:
    /// Knows the language and no function: see define.
    explicit LispContext(LispHost& host);
    LispContext(const LispContext&) = delete;
    LispContext& operator=(const LispContext&) = delete;

    void define(std::span<const LispBuiltin> rows);
    LispHost& host() { return m_host; }

    /// The symbol of that name, made when it is new. Letter case does not count.
    LispSymbol& symbol(std::wstring_view name);
    /// T or nil.
    LispValue truth(bool value) { return value ? m_true->value : LispValue(); }

    /// Evaluates the expressions of a text and gives the value of the last one. Never throws a LispError.
    LispOutcome run(std::wstring_view text);
    /// Runs something that evaluates, with the same end.
    LispOutcome run(const std::function<LispValue()>& task);
    /// The longest that a run may compute, in processor time of its thread: a busy machine interrupts no honest loop.
    /// None for as long as it likes.
    void setTimeLimit(std::optional<std::chrono::milliseconds> limit) { m_timeLimit = limit; }

    // ---- inside a run: these throw LispError

    LispValue evaluate(const LispValue& expression);
    /// Reads and evaluates the expressions of a text, such as a program file's.
    LispValue evaluateText(std::wstring_view text);
    /// The value of the last of a list of expressions; nil for none.
    LispValue evaluateAll(const LispValue& expressions);
    /// Calls a function, or what leads to one: its symbol, a list (lambda ...).
    LispValue apply(const LispValue& function, LispArguments arguments);
    /// The same; what fails becomes a value, save an interruption.
    LispValue applyCatching(const LispValue& function, LispArguments arguments);
    void assign(LispSymbol& symbol, LispValue value);
    /// The function that a value stands for, so that it need not be found again for each call.
    LispValue requireFunction(const LispValue& value);
    /// The same, or another value when it stands for none.
    LispValue functionOf(const LispValue& value);
    /// Parameters, a "/" and locals, then the body.
    LispValue makeFunction(std::wstring name, const LispValue& parametersAndBody);

    /// To be called by whatever may go on for long.
    void tick()
    {
        if ((++m_ticks & 0xFFFU) == 0)
            askForInterruption();
    }
    /// To be called by whatever goes deeper.
    void checkStack() const;

private:
    class Bindings;
    friend class LispBinding;

    LispValue evaluateCall(const LispValue& form);
    LispValue applyFunction(const LispValue& function, LispArguments arguments);
    LispValue callLambda(const LispLambda& function, LispArguments arguments);
    LispValue valueOf(const LispSymbol& symbol);
    std::vector<LispSymbol*> symbolsOf(const LispValue& list, std::vector<LispSymbol*>& locals);
    void noticeError(LispError& error, const LispValue& form);
    void askForInterruption();

    LispHost& m_host;
    std::unordered_map<std::wstring, std::unique_ptr<LispSymbol>> m_symbols;
    LispSymbol* m_true;
    LispSymbol* m_errorHandler;
    LispSymbol* m_lambda;
    std::optional<std::chrono::milliseconds> m_timeLimit;
    std::optional<std::chrono::nanoseconds> m_deadline; // in time of the thread
    std::uint32_t m_ticks = 0;
    int m_running = 0;  // runs inside runs: a command calls a function that runs a command
    int m_catching = 0; // vl-catch-all-apply under way
    bool m_inErrorHandler = false;
    /// Bytes of the stack kept free below the deepest evaluation: for builtins, modules and what the host does in them.
    std::uintptr_t m_stackReserve = 1U << 20;
};

/// Gives a symbol a value until the end of the scope, then the one it had.
class LispBinding {
public:
    LispBinding(LispSymbol& symbol, LispValue value);
    ~LispBinding();
    LispBinding(const LispBinding&) = delete;
    LispBinding& operator=(const LispBinding&) = delete;

private:
    LispSymbol& m_symbol;
    LispValue m_before;
    bool m_wasBound;
};
