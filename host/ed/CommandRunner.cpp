#include "ed/CommandRunner.h"

#include "ed/CommandFrame.h"
#include "ed/EditorReactors.h"
#include "lisp/LispCall.h"
#include "lisp/LispFunctionTable.h"
#include "lisp/LispHooks.h"
#include "platform/LetterCase.h"
#include "rx/Console.h"
#include "rx/ExceptionText.h"
#include "rx/HostSession.h"
#include "rx/ResbufPool.h"

#include "adscodes.h"
#include "dbads.h"

/// A typed name without its prefixes.
struct CommandRunner::TypedName {
    std::wstring name;
    bool global = false;
    bool stackOnly = false;

    explicit TypedName(const std::wstring& typed)
    {
        std::size_t start = 0;
        for (; start < typed.size(); ++start) {
            if (typed[start] == L'_')
                global = true;
            else if (typed[start] == L'.')
                stackOnly = true;
            else if (typed[start] != L'\'')
                break;
        }
        name = typed.substr(start);
    }
};

namespace {

void print(const std::wstring& message)
{
    Console::instance().print(L"\n" + message);
}

std::wstring theCommand(const std::wstring& name)
{
    return L"La commande « " + name + L" »";
}

} // namespace

CommandRunner& CommandRunner::instance()
{
    return HostSession::part<CommandRunner>();
}

std::wstring CommandRunner::runningNames() const
{
    std::wstring names;
    for (const Running& running : m_running)
        names += (names.empty() ? L"" : L"'") + running.name;
    return names;
}

CommandRunner::Called CommandRunner::calling(const Command& command)
{
    return {command.globalName(), command.commandFlags(), command.module(), [function = command.functionAddr()] {
                function();
                return std::wstring();
            }};
}

/// "-NAME" is the form without a dialog of a command that has one; commands here ask at the command line.
std::optional<CommandRunner::Called> CommandRunner::find(const std::wstring& typedName)
{
    TypedName typed(typedName);
    if (auto called = find(typed); called || !typed.name.starts_with(L'-'))
        return called;
    typed.name.erase(0, 1);
    return find(typed);
}

std::optional<CommandRunner::Called> CommandRunner::find(const TypedName& typed)
{
    CommandStack& stack = CommandStack::instance();
    if (const Command* command = stack.lookupCmd(typed.name.c_str(), typed.global, !typed.global))
        return calling(*command);
    if (!typed.stackOnly && !typed.name.empty())
        if (auto function = findInLisp(typed.name))
            return function;
    const Command* command = stack.lookupAlias(typed.name);
    return command ? std::optional(calling(*command)) : std::nullopt;
}

std::optional<CommandRunner::Called> CommandRunner::findInLisp(const std::wstring& name)
{
    AcApDocument* document = curDoc();
    if (!document)
        return std::nullopt;
    if (const auto& findCommand = LispHooks::instance().findCommand)
        if (auto body = findCommand(name))
            return Called{platform::upperCase(name), ACRX_CMD_DEFUN, nullptr, std::move(body)};
    const LispFunction* function = LispFunctionTable::of(*document).find(L"C:" + name);
    if (!function)
        return std::nullopt;
    return Called{function->name.substr(2), ACRX_CMD_DEFUN, function->module,
                  [called = *function] { return callLispFunction(called, nullptr).failure; }};
}

std::optional<std::wstring> CommandRunner::refusal(const Called& called, CalledBy caller) const
{
    if (caller == CalledBy::user && isRunning() && (called.flags & ACRX_CMD_TRANSPARENT) == 0)
        return theCommand(called.name) + L" ne peut être appelée pendant « " + runningNames() + L" ».";
    if ((called.flags & ACRX_CMD_SESSION) == 0 && !curDoc())
        return theCommand(called.name) + L" demande un dessin, et aucun n'est ouvert.";
    return std::nullopt;
}

CommandOutcome CommandRunner::run(const std::wstring& typedName, CalledBy caller)
{
    const ResbufPool& pool = ResbufPool::instance();
    const std::size_t buffers = pool.liveBuffers(), texts = pool.liveTexts();
    CommandOutcome outcome;
    if (const auto called = find(typedName); !called) {
        outcome.failure = L"Commande inconnue : « " + typedName + L" ».";
    } else if (const auto refused = refusal(*called, caller)) {
        outcome.failure = *refused;
    } else {
        runInside(*called, caller, outcome);
        if (caller == CalledBy::user && !isRunning())
            reportLeftOpen(*called, outcome);
    }
    if (!outcome.failure.empty())
        print(outcome.failure);
    outcome.newBuffers = static_cast<std::ptrdiff_t>(pool.liveBuffers()) - static_cast<std::ptrdiff_t>(buffers);
    outcome.newTexts = static_cast<std::ptrdiff_t>(pool.liveTexts()) - static_cast<std::ptrdiff_t>(texts);
    return outcome;
}

void CommandRunner::runInside(const Called& called, CalledBy caller, CommandOutcome& outcome)
{
    m_running.push_back({called.name, caller, {}}); // before its frame: the group of its changes takes its name
    const CommandFrame frame(DocumentList::instance().current(), called.flags, called.name);
    for (CommandWatcher* const watcher : m_watchers)
        watcher->commandStarts(called.name, called.flags, m_running.size());
    try {
        EditorReactors::instance().tell(&AcEditorReactor::commandWillStart, called.name);
        const ModuleTable::Running running(called.module);
        outcome.failure = called.body();
    } catch (...) {
        fail(currentExceptionText());
    }
    if (const std::wstring& told = m_running.back().failure; outcome.failure.empty() && !told.empty())
        outcome.failure = theCommand(called.name) + L" a échoué : " + told + L".";
    EditorReactors::instance().tell(
        outcome.failure.empty() ? &AcEditorReactor::commandEnded : &AcEditorReactor::commandFailed, called.name);
    reportLeftBehind(called, frame.leftBehind());
    for (CommandWatcher* const watcher : m_watchers)
        watcher->commandEnds(called.name, called.flags, m_running.size());
    m_running.pop_back();
}

void CommandRunner::fail(const std::wstring& reason)
{
    if (!isRunning())
        return print(reason);
    if (m_running.back().failure.empty())
        m_running.back().failure = reason;
}

int acdbFail(const ACHAR* reason)
{
    CommandRunner::instance().fail(reason ? reason : L"");
    return RTNORM;
}

void CommandRunner::reportLeftBehind(const Called& called, const std::wstring& left) const
{
    if (!left.empty())
        print(theCommand(called.name) + L" a laissé " + left + L".");
}

void CommandRunner::reportLeftOpen(const Called& called, CommandOutcome& outcome) const
{
    if (!m_openObjects)
        return;
    outcome.leftOpen = m_openObjects();
    std::wstring objects;
    for (const std::wstring& object : outcome.leftOpen)
        objects += (objects.empty() ? L"" : L", ") + object;
    if (!objects.empty())
        print(theCommand(called.name) + L" a laissé des objets ouverts : " + objects + L".");
}
