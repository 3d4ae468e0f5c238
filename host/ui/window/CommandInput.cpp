#include "ui/window/CommandInput.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <utility>

#include "ed/CommandRunner.h"

namespace {

using Kind = InputRequest::Kind;

InputAnswer textAnswer(const QString& line)
{
    InputAnswer answer;
    answer.kind = InputAnswer::Kind::text;
    answer.text = line.toStdWString();
    return answer;
}

InputAnswer placeAnswer(InputAnswer::Kind kind, const AcGePoint3d& point)
{
    InputAnswer answer;
    answer.kind = kind;
    answer.point = point;
    return answer;
}

InputAnswer bare(InputAnswer::Kind kind)
{
    InputAnswer answer;
    answer.kind = kind;
    return answer;
}

} // namespace

bool CommandInput::isIdle() const
{
    return m_request && m_request->kind == Kind::command && !CommandRunner::instance().isRunning();
}

bool CommandInput::takesPoint(const InputRequest& request)
{
    switch (request.kind) {
    case Kind::point:
    case Kind::corner:
    case Kind::distance:
    case Kind::angle:
    case Kind::entity:
    case Kind::selection:
    case Kind::drag:
        return true;
    case Kind::command:
    case Kind::real:
    case Kind::integer:
    case Kind::string:
    case Kind::keyword:
        return false;
    }
    return false;
}

InputAnswer CommandInput::answer(const InputRequest& request)
{
    const InputRequest* const outer = std::exchange(m_request, &request);
    const InputAnswer given = next(request);
    m_request = outer;
    if (outer)
        emit asked(); // a script stood above; it is the window's turn again
    else
        emit answered();
    return given;
}

InputAnswer CommandInput::next(const InputRequest& request)
{
    m_given.clear();
    m_interrupted = false;
    emit asked();
    for (;;) {
        InputAnswer answer;
        if (answerAtOnce(request, answer))
            return answer;
        wait();
    }
}

bool CommandInput::answerAtOnce(const InputRequest& request, InputAnswer& answer)
{
    const bool idle = request.kind == Kind::command;
    if (idle && !m_ending)
        runIdleActions();
    if (m_ending) {
        answer = bare(InputAnswer::Kind::ended);
    } else if (!m_idleActions.empty() && !idle) {
        answer = bare(InputAnswer::Kind::cancel);
    } else if (!m_given.empty()) {
        answer = m_given.front();
        m_given.pop_front();
    } else if (!m_typed.empty()) {
        answer = textAnswer(m_typed.front());
        m_typed.pop_front();
    } else {
        return false;
    }
    return true;
}

void CommandInput::runIdleActions()
{
    while (!m_idleActions.empty()) {
        const auto action = std::move(m_idleActions.front());
        m_idleActions.erase(m_idleActions.begin());
        action();
    }
}

void CommandInput::wait()
{
    QEventLoop loop;
    QEventLoop* const outer = std::exchange(m_loop, &loop);
    loop.exec();
    m_loop = outer;
}

/// What comes after a movement that nobody has heard of yet takes its place: a click would be lost behind it.
void CommandInput::give(InputAnswer answer)
{
    if (!m_given.empty() && m_given.back().kind == InputAnswer::Kind::moved)
        m_given.pop_back();
    m_given.push_back(std::move(answer));
    if (m_loop)
        m_loop->quit();
}

void CommandInput::refused(const InputRequest&, const std::wstring&)
{
    m_typed.clear(); // typed ahead for another answer
}

void CommandInput::type(const QString& line)
{
    m_typed.push_back(line);
    if (m_loop)
        m_loop->quit();
}

void CommandInput::typeAll(const QStringList& lines)
{
    for (const QString& line : lines)
        type(line);
}

void CommandInput::pick(const AcGePoint3d& point, bool withShift)
{
    if (!m_request || !takesPoint(*m_request))
        return;
    InputAnswer answer = placeAnswer(InputAnswer::Kind::point, point);
    answer.withShift = withShift;
    give(std::move(answer));
}

void CommandInput::move(const AcGePoint3d& point)
{
    if (!m_request || m_request->kind != Kind::drag)
        return;
    give(placeAnswer(InputAnswer::Kind::moved, point));
}

void CommandInput::cancel()
{
    m_typed.clear();
    if (isIdle())
        emit escaped();
    else if (m_request)
        give(bare(InputAnswer::Kind::cancel));
    else
        m_interrupted = true;
}

bool CommandInput::interrupted()
{
    constexpr int betweenLooks = 100; // milliseconds
    if (!m_sinceLook.isValid() || m_sinceLook.hasExpired(betweenLooks)) {
        QCoreApplication::processEvents();
        m_sinceLook.start();
    }
    return std::exchange(m_interrupted, false);
}

void CommandInput::whenIdle(std::function<void()> action)
{
    if (isIdle())
        return action();
    m_typed.clear();
    m_idleActions.push_back(std::move(action));
    if (m_loop)
        m_loop->quit();
}

void CommandInput::end()
{
    m_ending = true;
    m_typed.clear();
    if (m_loop)
        m_loop->quit();
}
