#pragma once

#include <functional>
#include <optional>
#include <QString>

#include "ed/input/InputSource.h"
#include "ui/script/DialogPump.h"
#include "ui/script/ScriptReader.h"

struct CommandOutcome;

/// Runs a script: its lines are what a person would type at the command line and, while a dialog is open, what a person
/// would do in the dialog on top. The first line that fails ends it: the command under way is cancelled, the dialogs
/// are closed.
class ScriptRunner : private InputSource {
public:
    struct Options {
        bool interactive = false; ///< a person is there: what the script leaves unanswered is asked in the window
        bool strict = false;      ///< objects that a command left open are a failure
        bool echo = false;        ///< prompts and answers are printed
        std::chrono::milliseconds patience = DialogPump::kPatience; ///< see DialogPump
        std::function<void()> commandEnded;                         ///< after each one, before the next is read
        std::function<bool()> interrupted;                          ///< asked before each line: whether to stop there
        /// Told in French what is worth a remark.
        std::function<void(const QString& remark)> warn;
        /// Told when dialogs come back for ever after a failure; does not return. Without it they are left to the user.
        std::function<void(const QString& failure)> giveUp;
    };

    explicit ScriptRunner(Options options);
    ~ScriptRunner() override;
    ScriptRunner(const ScriptRunner&) = delete;
    ScriptRunner& operator=(const ScriptRunner&) = delete;

    /// @return nothing, or "fichier, ligne N : raison" in French.
    std::optional<QString> run(const QString& path);

    /// The script under way; null when none is.
    static ScriptRunner* active() { return s_active; }
    /// Goes on with the lines of another script, then with its own. @throws ScriptError when it cannot be read.
    void include(const QString& path);

private:
    InputAnswer answer(const InputRequest& request) override;
    void refused(const InputRequest& request, const std::wstring& reason) override;
    bool isEchoed() const override { return m_options.echo; }

    InputAnswer nextAnswer(const InputRequest& request);
    /// Carries out the checks that come, and what else is no input. @return whether something is left to answer.
    bool skipToInput(const InputRequest& request);
    void runCommand();
    void noticeOpenObjects(const std::vector<std::wstring>& names);
    void speakTo(QWidget& dialog);
    void check(const QString& text, const QWidget* dialog);
    void dismiss(QWidget& dialog);
    void nothingComes();
    void fail(const QString& place, const QString& reason);
    void fail(const QString& reason) { fail(m_reader.place(), reason); }

    Options m_options;
    ScriptReader m_reader;
    DialogPump m_pump;
    QString m_commandPlace; ///< where the command under way was called
    QString m_lastTyped;
    QString m_lastMessage; ///< of the message box shown last
    std::optional<QString> m_failure;
    int m_dismissed = 0;
    ScriptRunner* m_outer;

    static ScriptRunner* s_active;
};
