#include "ui/script/ScriptRunner.h"

#include <QApplication>
#include <QDialog>
#include <QPointer>

#include "commands/CommandHooks.h"
#include "db/ObjectOpening.h"
#include "ed/input/CommandLine.h"
#include "ed/input/EditorInput.h"
#include "rx/ExceptionText.h"
#include "ui/script/Caption.h"
#include "ui/script/DialogDriver.h"
#include "ui/script/DrawingChecks.h"
#include "ui/script/FileDialogAnswer.h"
#include "ui/script/ScriptCheck.h"
#include "ui/script/ScriptError.h"

namespace {

bool isCancel(const QString& line)
{
    const QString text = line.trimmed();
    return text == u"*Cancel*" || text == u"*Annuler*";
}

bool isCheck(const QString& line)
{
    return line.startsWith(u'?') && ScriptCheck::looksLikeOne(line.mid(1));
}

QString exceptionText()
{
    return QString::fromStdWString(currentExceptionText());
}

InputAnswer textAnswer(const QString& text)
{
    InputAnswer answer;
    answer.kind = InputAnswer::Kind::text;
    answer.text = text.toStdWString();
    return answer;
}

InputAnswer plainAnswer(InputAnswer::Kind kind)
{
    InputAnswer answer;
    answer.kind = kind;
    return answer;
}

} // namespace

ScriptRunner* ScriptRunner::s_active = nullptr;

ScriptRunner::ScriptRunner(Options options) :
    m_options(std::move(options)),
    m_pump([this](QWidget& dialog) { speakTo(dialog); }, [this] { nothingComes(); }),
    m_outer(std::exchange(s_active, this))
{
    m_pump.setPatience(m_options.patience);
}

ScriptRunner::~ScriptRunner()
{
    s_active = m_outer;
}

std::optional<QString> ScriptRunner::run(const QString& path)
{
    try {
        m_reader.open(path);
    } catch (const ScriptError& error) {
        return error.reason();
    }
    const EditorInput::Source source(*this);
    // Commands ask for files at the command line, where lines answer.
    CommandHooks& hooks = CommandHooks::instance();
    const auto chooseFile = std::exchange(hooks.chooseFile, nullptr);
    const auto tellFailure = std::exchange(hooks.tellFailure, nullptr);
    while (!m_failure && !m_reader.atEnd())
        runCommand();
    hooks.chooseFile = chooseFile;
    hooks.tellFailure = tellFailure;
    return m_failure;
}

void ScriptRunner::include(const QString& path)
{
    m_reader.open(scriptPath(path, m_reader.folder(), true));
}

void ScriptRunner::runCommand()
{
    CommandOutcome outcome;
    m_commandPlace.clear();
    const bool ran = CommandLine::instance().runNext(&outcome);
    m_pump.runStrayDialogs();
    if (m_options.commandEnded)
        m_options.commandEnded();
    if (!ran || m_failure)
        return;
    if (!outcome.failure.empty())
        return fail(m_commandPlace, QString::fromStdWString(outcome.failure));
    // Functions are called outside commands, which look after this themselves.
    const std::vector<std::wstring> names = ObjectOpening::openNames();
    ObjectOpening::closeAll();
    noticeOpenObjects(outcome.leftOpen);
    noticeOpenObjects(names);
}

void ScriptRunner::noticeOpenObjects(const std::vector<std::wstring>& names)
{
    if (names.empty())
        return;
    QStringList list;
    for (const std::wstring& name : names)
        list << QString::fromStdWString(name);
    const QString remark = QStringLiteral("objets laissés ouverts : %1.").arg(list.join(QStringLiteral(", ")));
    if (m_options.strict)
        fail(m_commandPlace, remark);
    else if (m_options.warn)
        m_options.warn(QStringLiteral("%1 : %2").arg(m_commandPlace, remark));
}

// ---- the command line

InputAnswer ScriptRunner::answer(const InputRequest& request)
{
    if (!m_failure) {
        try {
            return nextAnswer(request);
        } catch (const ScriptError& error) {
            fail(error.reason());
        }
    }
    return plainAnswer(InputAnswer::Kind::cancel);
}

bool ScriptRunner::skipToInput(const InputRequest& request)
{
    const bool command = request.kind == InputRequest::Kind::command;
    while (!m_reader.atEnd()) {
        const QString& next = m_reader.peek();
        if (m_reader.atLineStart() && (isCheck(next) || (command && next.startsWith(u'?'))))
            check(m_reader.takeLine().mid(1), nullptr);
        else if (command && (next.trimmed().isEmpty() || next.startsWith(u';')))
            m_reader.takeLine(); // between commands Enter would repeat the last one
        else
            return true;
    }
    return false;
}

InputAnswer ScriptRunner::nextAnswer(const InputRequest& request)
{
    const bool command = request.kind == InputRequest::Kind::command;
    if (m_options.interrupted && m_options.interrupted())
        throw ScriptError(QStringLiteral("le script est interrompu."));
    if (!skipToInput(request)) {
        if (command)
            return plainAnswer(InputAnswer::Kind::cancel); // not for the source below: the script just ends
        if (m_options.interactive)
            return plainAnswer(InputAnswer::Kind::ended);
        throw ScriptError(QStringLiteral("le script se termine alors qu'une réponse est attendue : « %1 ».")
                              .arg(QString::fromStdWString(request.prompt).trimmed()));
    }
    if (isCancel(m_reader.peek())) {
        m_reader.takeLine();
        return plainAnswer(InputAnswer::Kind::cancel);
    }
    m_lastTyped = request.takesBlanks ? m_reader.takeLine().trimmed() : m_reader.takeInput();
    if (command) {
        m_commandPlace = m_reader.place();
        if (m_lastTyped.startsWith(u'['))
            throw ScriptError(
                QStringLiteral("« %1 » s'adresse à un dialogue, et aucun n'est ouvert.").arg(m_lastTyped));
    }
    return textAnswer(m_lastTyped);
}

void ScriptRunner::refused(const InputRequest& request, const std::wstring& reason)
{
    fail(QStringLiteral("« %1 » est refusé (%2) : %3")
             .arg(m_lastTyped, QString::fromStdWString(request.prompt).trimmed(), QString::fromStdWString(reason)));
}

// ---- dialogs

void ScriptRunner::speakTo(QWidget& dialog)
{
    if (const auto message = messageOf(dialog))
        m_lastMessage = *message;
    if (m_failure)
        return dismiss(dialog);
    if (m_reader.atEnd()) {
        if (!m_options.interactive)
            fail(QStringLiteral("le script se termine alors que le dialogue « %1 » est ouvert. %2")
                     .arg(captionText(dialog.windowTitle()), DialogDriver(dialog, {}).offers()));
        return;
    }
    const QString title = captionText(dialog.windowTitle());
    const QString line = m_reader.takeLine();
    if (line.trimmed().isEmpty())
        return;
    try {
        if (line.startsWith(u'?'))
            check(line.mid(1), &dialog);
        else
            DialogDriver(dialog, m_reader.folder()).speak(line, [this](const QString& rest) {
                m_reader.putBack(rest);
            });
    } catch (const ScriptError& error) {
        fail(error.reason());
    } catch (...) { // of the dialog's own handlers
        fail(QStringLiteral("le dialogue « %1 » a échoué : %2.").arg(title, exceptionText()));
    }
}

void ScriptRunner::check(const QString& text, const QWidget* dialog)
{
    const ScriptCheck wanted = ScriptCheck::parse(text);
    auto value = drawingValue(wanted.subject, m_reader.folder());
    if (!value && dialog)
        value = DialogDriver(const_cast<QWidget&>(*dialog), m_reader.folder()).valueOf(wanted.subject);
    if (!value && wanted.subject == u"message")
        value = m_lastMessage;
    if (!value)
        throw ScriptError(
            QStringLiteral("« %1 » ne se contrôle pas %2")
                .arg(wanted.subject, dialog ? QStringLiteral("dans le dialogue « %1 ». %2")
                                                  .arg(captionText(dialog->windowTitle()),
                                                       DialogDriver(const_cast<QWidget&>(*dialog), {}).offers())
                                            : QStringLiteral("ici : aucun dialogue n'est ouvert.")));
    wanted.verify(*value);
}

/// Cancels a dialog as Escape does; one that refuses is closed all the same.
void ScriptRunner::dismiss(QWidget& dialog)
{
    constexpr int most = 200; // beyond, it is shown again and again until it has a good answer
    if (++m_dismissed > most && m_options.giveUp)
        m_options.giveUp(*m_failure);
    const QPointer<QWidget> alive(&dialog);
    auto* const modal = qobject_cast<QDialog*>(&dialog);
    modal ? modal->reject() : static_cast<void>(dialog.close());
    if (!alive || !dialog.isVisible())
        return;
    modal ? modal->QDialog::done(QDialog::Rejected) : dialog.hide();
}

void ScriptRunner::nothingComes()
{
    if (m_failure || m_options.interactive)
        return;
    fail(QStringLiteral("le programme attend depuis %1 s un événement qui ne vient pas, sans dialogue ouvert.")
             .arg(std::chrono::duration<double>(m_options.patience).count()));
    QCoreApplication::exit(1); // ends the loop that waits
}

void ScriptRunner::fail(const QString& place, const QString& reason)
{
    if (!m_failure)
        m_failure = QStringLiteral("%1 : %2").arg(place, reason);
}
