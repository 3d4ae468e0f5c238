#pragma once

#include <string>
#include <string_view>

#include "ed/CommandRunner.h"

/// What is typed where no command asks: at the prompt "Commande : ".
class CommandLine {
public:
    static CommandLine& instance();

    static constexpr const wchar_t* kPrompt = L"Commande : ";

    /// Carries out one input, blanks around it left out:
    ///   nothing     repeats the last command
    ///   (...)       evaluates AutoLISP and prints the value
    ///   !symbol     prints the symbol's value
    ///   NAME        runs a command, with the prefixes ' _ . -; a system variable's name asks for its new value
    /// Failures are printed, and told.
    CommandOutcome execute(const std::wstring& typed);

    /// Asks the source on top for a command and carries it out.
    /// @return false when nothing came: Escape, or there is nobody to ask.
    bool runNext(CommandOutcome* outcome = nullptr);

    /// What Enter alone repeats; empty when there is none.
    const std::wstring& lastCommand() const { return m_last; }

private:
    CommandOutcome evaluate(const std::wstring& expression);
    void runAhead(CommandOutcome& outcome);

    std::wstring m_last;
};

/// Whether an AutoLISP expression lacks closing parentheses or quotes: then its text goes on in the next line. Comments
/// and texts do not count.
bool isOpenExpression(std::wstring_view text);
