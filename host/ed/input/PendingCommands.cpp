#include "ed/input/PendingCommands.h"

#include "ed/CommandRunner.h"
#include "lisp/LispHooks.h"
#include "rx/HostSession.h"

#include "acdocman.h"

/// One (command ...): a fiber in which commands run, and what they are given.
class PendingCommands::Pending {
public:
    explicit Pending(const resbuf* inputs) : fiber([this] { runAll(); })
    {
        values.add(inputs);
        values.whenOut([this] { return waitForMore(); });
    }

    /// Runs until it waits for more, or is done.
    void resume()
    {
        EditorInput& input = EditorInput::instance();
        outside = input.place();
        if (started)
            input.setPlace(inside);
        started = true;
        fiber.resume();
        input.setPlace(outside);
    }

    CommandInputs values;
    Fiber fiber;
    CommandInputs::Out whenDry = CommandInputs::Out::goOn; ///< what happens instead of waiting
    std::wstring failure;

private:
    void runAll()
    {
        const EditorInput::Source source(values);
        while (!values.empty()) {
            const std::wstring name = values.takeName();
            if (name.empty())
                continue;
            const CommandOutcome outcome = CommandRunner::instance().run(name, CommandRunner::CalledBy::code);
            if (failure.empty())
                failure = outcome.failure;
        }
    }

    CommandInputs::Out waitForMore()
    {
        if (whenDry != CommandInputs::Out::goOn)
            return whenDry;
        inside = EditorInput::instance().place();
        fiber.stop();
        return whenDry;
    }

    EditorInput::Place inside, outside;
    bool started = false;
};

PendingCommands& PendingCommands::instance()
{
    return HostSession::part<PendingCommands>();
}

void PendingCommands::install()
{
    LispHooks& hooks = LispHooks::instance();
    hooks.command = [](const resbuf* inputs) { return instance().give(inputs); };
    hooks.pendingCommands = [] { return instance().count(); };
    hooks.settleCommands = [](std::size_t before, bool failed) { instance().settle(before, failed); };
}

std::wstring PendingCommands::give(const resbuf* inputs)
{
    if (EditorInput::instance().isEvaluating() && CommandRunner::instance().isRunning()) {
        EditorInput::instance().typeAhead(inputs ? CommandInputs::answersOf(inputs) : std::vector<InputAnswer>(1));
        return L"";
    }
    const bool isWaiting = !m_pending.empty() && !m_pending.back()->fiber.isRunning();
    if (!inputs) {
        if (isWaiting)
            settle(m_pending.size() - 1, true);
        return L"";
    }
    if (isWaiting)
        m_pending.back()->values.add(inputs);
    else
        m_pending.push_back(std::make_unique<Pending>(inputs));
    Pending& pending = *m_pending.back();
    run(pending);
    const std::wstring failure = pending.failure;
    pending.failure.clear();
    if (pending.fiber.hasEnded())
        m_pending.pop_back();
    return failure;
}

/// What a command throws ends it inside; nothing comes out.
void PendingCommands::run(Pending& pending)
{
    pending.resume();
}

void PendingCommands::settle(std::size_t before, bool failed)
{
    while (m_pending.size() > before) {
        Pending& pending = *m_pending.back();
        pending.whenDry = failed ? CommandInputs::Out::cancel : CommandInputs::Out::askBelow;
        if (!pending.fiber.isRunning())
            run(pending);
        m_pending.pop_back();
    }
}
