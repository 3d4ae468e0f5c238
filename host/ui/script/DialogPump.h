#pragma once

#include <functional>
#include <QObject>
#include <QTimer>

class QWidget;

/// Tells when a dialog waits for the user: its event loop has nothing left to do. While a command shows a dialog, it
/// does not return; this is how the script that started the command gets to speak to the dialog.
class DialogPump : public QObject {
public:
    /// @param dialogWaits called with the dialog, or open menu, on top. May show others and close them.
    /// @param nothingComes called when a loop has waited for long without any dialog that a script could speak to
    DialogPump(std::function<void(QWidget&)> dialogWaits, std::function<void()> nothingComes);

    /// A dialog left open by a command that has ended gets a loop of its own, until it is closed.
    void runStrayDialogs();

    /// How long a loop without dialogs may wait.
    static constexpr std::chrono::seconds kPatience{30};
    void setPatience(std::chrono::milliseconds patience) { m_watch.setInterval(patience); }

    static QWidget* dialogOnTop();

private:
    void loopWaits();

    std::function<void(QWidget&)> m_dialogWaits;
    QTimer m_watch;
};
