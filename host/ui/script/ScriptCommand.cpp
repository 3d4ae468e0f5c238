#include "ui/script/ScriptCommand.h"

#include <QCoreApplication>
#include <QDir>
#include <QTimer>

#include "accmd.h"
#include "ed/CommandRunner.h"
#include "ed/input/EditorInput.h"
#include "rx/Console.h"
#include "ui/script/FileDialogAnswer.h"
#include "ui/script/ScriptError.h"

namespace {

constexpr const wchar_t* group = L"VELA_SCRIPT";

ScriptRunner::Options optionsOfWindow;

void print(const QString& text)
{
    Console::instance().print(L"\n" + text.toStdWString());
}

/// Runs a script once no command runs: the one that starts it has to end first.
void runWhenFree(const QString& path)
{
    if (CommandRunner::instance().isRunning()) {
        using namespace std::chrono_literals;
        QTimer::singleShot(10ms, qApp, [path] { runWhenFree(path); });
        return;
    }
    ScriptRunner runner(optionsOfWindow);
    if (const auto failure = runner.run(path))
        print(*failure);
}

void script()
{
    InputRequest request;
    request.kind = InputRequest::Kind::string;
    request.prompt = L"Nom du script : ";
    request.takesBlanks = true;
    const InputAnswer answer = EditorInput::instance().ask(request);
    if (answer.kind != InputAnswer::Kind::text || answer.text.empty())
        return;
    const QString name = QString::fromStdWString(answer.text);
    if (ScriptRunner* const running = ScriptRunner::active())
        return running->include(name); // what it throws is told as the command's failure
    const QString path = scriptPath(name, QDir::currentPath(), true);
    QMetaObject::invokeMethod(
        qApp, [path] { runWhenFree(path); }, Qt::QueuedConnection);
}

} // namespace

ScriptCommand::ScriptCommand(ScriptRunner::Options options)
{
    optionsOfWindow = std::move(options);
    acedRegCmds->addCommand(group, L"SCRIPT", L"SCRIPT", ACRX_CMD_TRANSPARENT | ACRX_CMD_SESSION, script);
}

ScriptCommand::~ScriptCommand()
{
    acedRegCmds->removeGroup(group);
    optionsOfWindow = {};
}
