#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ed/input/CommandInputs.h"
#include "ed/input/EditorInput.h"
#include "ed/input/Fiber.h"

/// Commands that (command ...) began and that wait for more: AutoLISP goes on meanwhile, and its next (command ...)
/// gives them what they ask for. In an expression typed as the answer to a command, (command ...) answers that command.
/// What is still waiting when the evaluation is over is the user's to finish.
class PendingCommands {
public:
    static PendingCommands& instance();

    /// Gives inputs to the command that waits, or runs commands by their names; null cancels the one that waits.
    /// @return what went wrong, in French; empty when all went well.
    std::wstring give(const resbuf* inputs);

    /// How many there are: to be told to `settle`.
    std::size_t count() const { return m_pending.size(); }
    /// Ends those that began since there were `before`: the user gives the rest, or after a failure they are cancelled.
    void settle(std::size_t before, bool failed);

    /// Makes AutoLISP know of it.
    static void install();

private:
    class Pending;
    void run(Pending& pending);

    std::vector<std::unique_ptr<Pending>> m_pending; // the one that began last is the one that is given to
};
