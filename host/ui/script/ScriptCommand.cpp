#include "ui/script/ScriptCommand.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTimer>

#include "commands/CommandHooks.h"
#include "ed/CommandRunner.h"
#include "rx/Console.h"
#include "ui/script/FileDialogAnswer.h"
#include "ui/script/ScriptError.h"

namespace {

void print(const QString& text)
{
    Console::instance().print(L"\n" + text.toStdWString());
}

/// Runs a script once no command runs: the one that starts it has to end first.
void runWhenFree(const ScriptRunner::Options& options, const QString& path)
{
    if (CommandRunner::instance().isRunning()) {
        using namespace std::chrono_literals;
        QTimer::singleShot(10ms, qApp, [options, path] { runWhenFree(options, path); });
        return;
    }
    ScriptRunner runner(options);
    if (const auto failure = runner.run(path))
        print(*failure);
}

/// @return what went wrong at once
std::wstring start(const ScriptRunner::Options& options, const QString& name)
{
    if (ScriptRunner* const running = ScriptRunner::active()) {
        try {
            running->include(name);
        } catch (const ScriptError& error) {
            return error.reason().toStdWString();
        }
        return {};
    }
    const QString path = scriptPath(name, QDir::currentPath(), true);
    if (!QFileInfo(path).isFile())
        return name.toStdWString() + L" : fichier introuvable";
    QMetaObject::invokeMethod(
        qApp, [options, path] { runWhenFree(options, path); }, Qt::QueuedConnection);
    return {};
}

} // namespace

ScriptCommand::ScriptCommand(ScriptRunner::Options options)
{
    CommandHooks::instance().runScript = [options = std::move(options)](const std::wstring& path) {
        return start(options, QString::fromStdWString(path));
    };
}

ScriptCommand::~ScriptCommand()
{
    CommandHooks::instance().runScript = nullptr;
}
