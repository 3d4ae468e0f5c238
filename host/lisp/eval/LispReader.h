#pragma once

#include <optional>
#include <string_view>

#include "lisp/eval/LispValue.h"

class LispContext;

/// Reads the expressions of a text one after the other. Nesting is bounded by the memory only.
class LispReader {
public:
    /// The text must outlive the reader.
    LispReader(LispContext& context, std::wstring_view text) : m_context(context), m_text(text) {}

    /// The next expression; nothing at the end of the text.
    /// @throws LispError with the line where what is wrong began.
    std::optional<LispValue> next();

private:
    /// A list or a quoted expression that was begun.
    struct Open {
        std::size_t start;
        bool quote = false;
        std::vector<LispValue> items;
        std::optional<LispValue> tail; ///< what followed the dot
        bool dotted = false;           ///< the dot was met
    };

    [[noreturn]] void refuse(const std::wstring& what, std::size_t at) const;
    bool skipToToken();
    std::optional<LispValue> readText();
    LispValue readAtom(std::wstring_view atom, std::size_t start);
    std::wstring_view atomHere();
    wchar_t escaped();
    /// Gives a value to what is open; a value of its own when nothing is.
    std::optional<LispValue> deliver(LispValue value);
    LispValue closeList();

    LispContext& m_context;
    std::wstring_view m_text;
    std::size_t m_at = 0;
    std::vector<Open> m_open;
};
