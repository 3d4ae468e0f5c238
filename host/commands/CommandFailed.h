#pragma once

#include <stdexcept>
#include <string>

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
