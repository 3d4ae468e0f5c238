#pragma once

#include <optional>
#include <stdexcept>
#include <string>

#include "commands/Prompt.h"
#include "platform/CodePage.h"

/// Thrown out of a command that cannot do what it was asked: the command line tells why, a script stops. The reason is
/// French, for the user.
class CommandFailed : public std::runtime_error {
public:
    explicit CommandFailed(std::wstring reason) : std::runtime_error(platform::utf8FromWide(withoutPeriod(reason))) {}

private:
    /// Who tells it ends the sentence.
    static std::wstring& withoutPeriod(std::wstring& reason)
    {
        if (reason.ends_with(L'.'))
            reason.pop_back();
        return reason;
    }
};

/// The options of a command that asks for one after the other until Enter: one that fails is told at once, and the
/// others still come; the command has failed when it ends.
class OptionsAsked {
public:
    template <class Option>
    void carryOut(const Option& option)
    {
        try {
            option();
        } catch (const CommandFailed& failed) {
            say(platform::wideFromUtf8(failed.what()) + L".");
            if (!m_first)
                m_first = failed;
        }
    }
    /// @throws CommandFailed, the first
    void end() const
    {
        if (m_first)
            throw CommandFailed(*m_first);
    }

private:
    std::optional<CommandFailed> m_first;
};
