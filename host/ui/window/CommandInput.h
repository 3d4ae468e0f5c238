#pragma once

#include <deque>
#include <functional>
#include <QElapsedTimer>
#include <QObject>
#include <QStringList>
#include <vector>

#include "ed/input/InputSource.h"

class QEventLoop;

/// What a person in the window answers. Who asks waits in an event loop of its own until something was typed, clicked
/// or cancelled, so that the window stays alive meanwhile. Between two commands the prompt of commands is what is
/// asked.
class CommandInput : public QObject, public InputSource {
    Q_OBJECT

public:
    explicit CommandInput(QObject* parent = nullptr) : QObject(parent) {}

    InputAnswer answer(const InputRequest& request) override;
    void refused(const InputRequest& request, const std::wstring& reason) override;

    /// What is asked now; null while a command is at work.
    const InputRequest* request() const { return m_request; }
    /// Whether the prompt of commands waits, and nothing runs.
    bool isIdle() const;

    /// A line, empty for Enter alone. What is typed before it is asked for waits its turn.
    void type(const QString& line);
    /// The lines of a button or a menu.
    void typeAll(const QStringList& lines);
    /// Both are dropped when nothing is asked that a place answers.
    void pick(const AcGePoint3d& point, bool withShift = false);
    void move(const AcGePoint3d& point);
    /// Escape: whatever was typed ahead is forgotten.
    void cancel();

    /// Whether Escape was pressed since it was asked last, while a command was at work. Lets the window live meanwhile.
    bool interrupted();

    /// Does something when no command runs: at once, or once what runs is cancelled.
    void whenIdle(std::function<void()> action);
    /// Nothing will come any more: what runs is cancelled, and the prompt of commands ends.
    void end();
    bool isEnding() const { return m_ending; }

    /// Whether a place answers a request.
    static bool takesPoint(const InputRequest& request);

signals:
    void asked();
    void answered(); ///< and nothing is asked now: a command works, or a dialog of its own shows
    void escaped();  ///< cancelled while nothing ran

private:
    InputAnswer next(const InputRequest& request);
    bool answerAtOnce(const InputRequest& request, InputAnswer& answer);
    void runIdleActions();
    void wait();
    void give(InputAnswer answer);

    const InputRequest* m_request = nullptr;
    QEventLoop* m_loop = nullptr;
    std::deque<QString> m_typed;
    std::deque<InputAnswer> m_given; // at the prompt that waits
    std::vector<std::function<void()>> m_idleActions;
    bool m_ending = false;
    bool m_interrupted = false;
    QElapsedTimer m_sinceLook; ///< for keys, while a command is at work
};
