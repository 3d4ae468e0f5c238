#include "ed/input/EditorInput.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "ed/CommandRunner.h"
#include "ed/input/LispAnswer.h"
#include "rx/Console.h"
#include "rx/HostSession.h"

#include "acdocman.h"

EditorInput& EditorInput::instance()
{
    return HostSession::part<EditorInput>();
}

EditorInput::Source::Source(InputSource& source) : m_source(source), m_below(instance().m_top)
{
    instance().m_top = this;
}

EditorInput::Source::~Source()
{
    instance().m_top = m_below;
    instance().m_answered = nullptr;
}

std::optional<InputAnswer> EditorInput::evaluated(const std::wstring& expression)
{
    struct Evaluating {
        int& depth;
        explicit Evaluating(int& itsDepth) : depth(itsDepth) { ++depth; }
        ~Evaluating() { --depth; }
    } const evaluating(m_evaluating);
    return lispAnswer(expression);
}

void EditorInput::typeAhead(std::vector<InputAnswer> answers)
{
    std::ranges::move(answers, std::back_inserter(m_ahead));
}

std::optional<InputAnswer> EditorInput::takeAhead()
{
    if (m_ahead.empty())
        return std::nullopt;
    InputAnswer answer = std::move(m_ahead.front());
    m_ahead.pop_front();
    return answer;
}

InitGet EditorInput::takeInitGet()
{
    return std::exchange(m_initGet, {});
}

InputAnswer EditorInput::ask(const InputRequest& request)
{
    for (;;) {
        InputAnswer answer = answerOf(request);
        echo(request, answer);
        if (!carriedOut(request, answer))
            return answer;
    }
}

InputAnswer EditorInput::answerOf(const InputRequest& request)
{
    /// What is asked and who may answer, for the length of a question; questions nest.
    struct Asking {
        EditorInput& input;
        Source* top = input.m_top;
        const InputRequest* before;
        Asking(EditorInput& theInput, const InputRequest& asked) :
            input(theInput),
            before(std::exchange(theInput.m_asked, &asked))
        {
        }
        ~Asking()
        {
            input.m_top = top;
            input.m_asked = before;
        }
    } question(*this, request);
    if (auto ahead = takeAhead(); ahead && ahead->kind != InputAnswer::Kind::ended) {
        m_answered = m_top; // told of a refusal
        return *std::move(ahead);
    }
    for (Source* source = m_top; source; source = source->m_below) {
        m_top = source; // what it asks for meanwhile is not for those above
        InputAnswer answer = source->m_source.answer(request);
        m_answered = source;
        if (answer.kind != InputAnswer::Kind::ended)
            return answer;
    }
    m_answered = nullptr;
    return {};
}

bool EditorInput::refuse(const InputRequest& request, const std::wstring& reason)
{
    Console::instance().print(L"\n" + reason);
    Source* const source = m_answered;
    if (source)
        source->m_source.refused(request, reason);
    return source != nullptr;
}

void EditorInput::echo(const InputRequest& request, const InputAnswer& answer) const
{
    const bool isDone = answer.kind != InputAnswer::Kind::moved;
    if (!isDone || !m_answered || !m_answered->m_source.isEchoed())
        return;
    const bool isCancelled = answer.kind == InputAnswer::Kind::cancel;
    Console::instance().print(L"\n" + request.prompt + (isCancelled ? L"*Cancel*" : answer.text));
}

bool EditorInput::carriedOut(const InputRequest& request, InputAnswer& answer)
{
    using Kind = InputRequest::Kind;
    if (answer.kind != InputAnswer::Kind::text || answer.text.size() < 2 || request.takesBlanks ||
        request.kind == Kind::command)
        return false;
    switch (answer.text.front()) {
    case L'\'': {
        if (request.kind == Kind::string)
            return false;
        Source* const source = m_answered;
        const CommandOutcome outcome = CommandRunner::instance().run(answer.text); // tells what goes wrong
        if (!outcome.failure.empty() && source)
            source->m_source.refused(request, outcome.failure);
        Console::instance().print(L"\nReprise de la commande " + CommandRunner::instance().runningNames() + L".");
        return true;
    }
    case L'(':
    case L'!': {
        Source* const source = m_answered;
        auto value = evaluated(answer.text);
        if (!m_ahead.empty())
            return true; // (command ...) has answered
        if (!value) {    // told; or nil
            m_answered = source;
            refuse(request, L"L'expression ne donne pas de réponse.");
            return true;
        }
        answer = std::move(*value);
        return false;
    }
    default:
        return false;
    }
}
