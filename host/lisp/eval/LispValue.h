#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <variant>
#include <vector>

class LispPair;
class LispText;
class LispFile;
struct LispSymbol;
struct LispBuiltin;
struct LispSpecialForm;
struct LispLambda;
struct LispFailure;

/// An entity name or a selection set: the two words of the host's ads_name.
struct LispName {
    enum class Kind { entity, selection } kind;
    std::array<std::int64_t, 2> words;
    bool operator==(const LispName&) const = default;
};

/// A function that a module defined, by its name.
struct LispModuleFunction {
    LispSymbol* symbol;
    bool operator==(const LispModuleFunction&) const = default;
};

/// A value of AutoLISP: nil, a whole number of 32 bits, a real, a text, a symbol, a pair, a name, a file, a function.
/// Copied freely: what is behind it is shared and never changes, so that nothing can hold itself alive. Symbols belong
/// to a context, which the value must not outlive.
class LispValue {
public:
    LispValue() = default; ///< nil
    explicit LispValue(std::int32_t integer) : m_data(integer) {}
    explicit LispValue(double real) : m_data(real) {}
    explicit LispValue(std::wstring text);
    explicit LispValue(const wchar_t* text) : LispValue(std::wstring(text)) {}
    explicit LispValue(LispSymbol& symbol) : m_data(&symbol) {}
    explicit LispValue(LispName name) : m_data(name) {}
    /// A name that something is done for with the last value that holds it: a selection set that AutoLISP made is
    /// released.
    explicit LispValue(std::shared_ptr<const LispName> name) : m_data(std::move(name)) {}
    explicit LispValue(LispModuleFunction function) : m_data(function) {}
    explicit LispValue(const LispBuiltin& builtin) : m_data(&builtin) {}
    explicit LispValue(const LispSpecialForm& form) : m_data(&form) {}
    explicit LispValue(std::shared_ptr<const LispLambda> function) : m_data(std::move(function)) {}
    explicit LispValue(std::shared_ptr<LispFile> file) : m_data(std::move(file)) {}
    explicit LispValue(std::shared_ptr<const LispFailure> failure) : m_data(std::move(failure)) {}
    static LispValue pair(LispValue car, LispValue cdr);

    bool isNil() const { return is<std::monostate>(); }
    bool isPair() const { return is<std::shared_ptr<LispPair>>(); }
    bool isList() const { return isPair() || isNil(); }
    bool isInteger() const { return is<std::int32_t>(); }
    bool isReal() const { return is<double>(); }
    bool isNumber() const { return isInteger() || isReal(); }
    bool isText() const { return is<std::shared_ptr<const LispText>>(); }
    bool isSymbol() const { return is<LispSymbol*>(); }

    // What a value holds. Ask what it is first.
    const LispValue& car() const;
    const LispValue& cdr() const;
    std::int32_t integer() const { return std::get<std::int32_t>(m_data); }
    double real() const { return std::get<double>(m_data); }
    /// An integer or a real.
    double number() const { return isInteger() ? integer() : real(); }
    const std::wstring& text() const;
    LispSymbol& symbol() const { return *std::get<LispSymbol*>(m_data); }
    const LispPair* pairAddress() const;

    /// Null when it is something else.
    const LispName* name() const
    {
        const LispName* const own = std::get_if<LispName>(&m_data);
        return own ? own : pointerTo<std::shared_ptr<const LispName>>();
    }
    const LispModuleFunction* moduleFunction() const { return std::get_if<LispModuleFunction>(&m_data); }
    const LispBuiltin* builtin() const { return pointerTo<const LispBuiltin*>(); }
    const LispSpecialForm* specialForm() const { return pointerTo<const LispSpecialForm*>(); }
    const LispLambda* lambda() const { return pointerTo<std::shared_ptr<const LispLambda>>(); }
    LispFile* file() const { return pointerTo<std::shared_ptr<LispFile>>(); }
    const LispFailure* failure() const { return pointerTo<std::shared_ptr<const LispFailure>>(); }

    /// Whether two values are the same thing: equal numbers, texts, symbols or names; the same pair.
    bool isSame(const LispValue& other) const;

private:
    friend class LispPair;
    template <class T>
    bool is() const
    {
        return std::holds_alternative<T>(m_data);
    }
    template <class P>
    auto pointerTo() const -> decltype(&*std::declval<P>())
    {
        const P* const held = std::get_if<P>(&m_data);
        return held ? &**held : nullptr;
    }
    /// A pair that nothing else holds.
    bool isLonelyPair() const;

    std::variant<std::monostate, std::int32_t, double, LispSymbol*, std::shared_ptr<LispPair>,
                 std::shared_ptr<const LispText>, LispName, const LispBuiltin*, const LispSpecialForm*,
                 std::shared_ptr<const LispLambda>, LispModuleFunction, std::shared_ptr<LispFile>,
                 std::shared_ptr<const LispFailure>, std::shared_ptr<const LispName>>
        m_data;
};

/// Arguments of a call, evaluated.
using LispArguments = std::span<const LispValue>;

/// Two values in one. Released without recursion, however long or deep the list.
class LispPair {
public:
    LispPair(LispValue car, LispValue cdr);
    ~LispPair();
    LispPair(const LispPair&) = delete;
    LispPair& operator=(const LispPair&) = delete;

private:
    friend class LispValue;
    LispValue m_car, m_cdr;
};

/// A text, shared by the values that hold it.
class LispText {
public:
    explicit LispText(std::wstring text);
    ~LispText();
    LispText(const LispText&) = delete;
    LispText& operator=(const LispText&) = delete;
    const std::wstring& text() const { return m_text; }

private:
    std::wstring m_text;
};

/// A name with its value of the moment.
struct LispSymbol {
    std::wstring name; ///< in capitals
    LispValue value;
    bool bound = false;       ///< it was given a value, which may be nil
    bool isProtected = false; ///< T: keeps its value
};

/// A function written in AutoLISP.
struct LispLambda {
    std::wstring name; ///< empty for lambda
    std::vector<LispSymbol*> parameters;
    std::vector<LispSymbol*> locals; ///< behind the "/"
    LispValue body;                  ///< list of expressions
};

/// What vl-catch-all-apply gives when the function failed.
struct LispFailure {
    std::wstring message;
};

/// A list of the items; `tail` is what follows the dot.
LispValue listOf(std::span<const LispValue> items, LispValue tail = {});
