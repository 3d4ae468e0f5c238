#pragma once

#include <optional>
#include <string>

#include "gepnt3d.h"

/// Thrown out of a command that the user cancels, or when nobody is left to answer. What was done so far stays.
struct CommandCancelled {};

/// What the user gave: a value, a keyword, or nothing (Enter alone).
template <class Value>
struct Reply {
    std::optional<Value> value;
    std::wstring keyword; ///< the word common to all languages, or other text where it is taken; empty for none

    bool isEmpty() const { return !value && keyword.empty(); }
    bool is(const wchar_t* word) const { return keyword == word; }
};

/// One question to the user, asked through the interface's functions of input. Throws CommandCancelled.
class Prompt {
public:
    explicit Prompt(std::wstring prompt) : m_prompt(std::move(prompt)) {}

    /// As acedInitGet takes them: "Clore annUler _ Close Undo".
    Prompt& keywords(const wchar_t* words)
    {
        m_keywords = words;
        return *this;
    }
    /// A line is stretched from here; for a corner it is the first one.
    Prompt& from(const AcGePoint3d& base)
    {
        m_base = base;
        return *this;
    }
    Prompt& required() { return refusing(1); } ///< Enter alone is refused
    Prompt& nonZero() { return refusing(2); }  ///< 0 is refused
    Prompt& positive() { return refusing(2 + 4); }
    Prompt& notNegative() { return refusing(4); }
    Prompt& otherText() { return refusing(128); } ///< any text is an answer, as a keyword

    Reply<AcGePoint3d> point();
    Reply<AcGePoint3d> corner();
    Reply<double> distance();
    /// From ANGBASE, in [0, 2π).
    Reply<double> angle();
    /// Of the drawing, from the east, whatever ANGBASE.
    Reply<double> direction();
    /// An angle turned, with its sign and of any size: typed in the unit of AUNITS.
    Reply<double> turn();
    Reply<double> real();
    Reply<int> integer();
    /// A keyword; empty for Enter alone.
    std::wstring keyword();
    /// One word, or with `blanks` a whole line.
    std::wstring text(bool blanks = true);
    /// A name, which a blank ends unless it stands in quotes, left out here. Empty for Enter alone.
    std::wstring name();

private:
    Prompt& refusing(int bits)
    {
        m_bits |= bits;
        return *this;
    }
    void prepare() const;
    std::wstring textWithoutDrawing(bool blanks) const;

    std::wstring m_prompt;
    const wchar_t* m_keywords = nullptr;
    std::optional<AcGePoint3d> m_base;
    int m_bits = 0;
};

/// A point that must be given.
AcGePoint3d askPoint(const std::wstring& prompt);
AcGePoint3d askPoint(const std::wstring& prompt, const AcGePoint3d& from);
/// Oui or Non.
bool askYes(const std::wstring& prompt, bool otherwise);

/// Prints a line.
void say(const std::wstring& line);
