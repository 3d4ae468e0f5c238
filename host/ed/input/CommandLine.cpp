#include "ed/input/CommandLine.h"

#include "ed/input/EditorInput.h"
#include "ed/input/LispAnswer.h"
#include "ed/SystemVariables.h"
#include "lisp/drawing/LispSession.h"
#include "rx/Console.h"
#include "rx/HostSession.h"

#include "acdocman.h"

namespace {

std::wstring trimmed(const std::wstring& text)
{
    constexpr const wchar_t* blanks = L" \t\r\n";
    const std::size_t first = text.find_first_not_of(blanks);
    return first == std::wstring::npos ? L"" : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// Answers the next request with one text.
class OneText : public InputSource {
public:
    explicit OneText(std::wstring text) : m_text(std::move(text)) {}
    InputAnswer answer(const InputRequest&) override
    {
        InputAnswer answer;
        answer.kind = m_given ? InputAnswer::Kind::ended : InputAnswer::Kind::text;
        answer.text = m_given ? L"" : m_text;
        m_given = true;
        return answer;
    }
    void refused(const InputRequest&, const std::wstring&) override {}
    bool isEchoed() const override { return false; }

private:
    std::wstring m_text;
    bool m_given = false;
};

constexpr const wchar_t* kSetVariable = L"_SETVAR";

CommandOutcome run(const std::wstring& name)
{
    CommandRunner& runner = CommandRunner::instance();
    if (runner.knows(name))
        return runner.run(name);
    if (SystemVariables::instance().value(name) && runner.knows(kSetVariable)) {
        OneText itsName(name);
        const EditorInput::Source source(itsName);
        return runner.run(kSetVariable);
    }
    return runner.run(name); // tells that it is not known
}

} // namespace

CommandLine& CommandLine::instance()
{
    return HostSession::part<CommandLine>();
}

CommandOutcome CommandLine::execute(const std::wstring& typed)
{
    std::wstring text = trimmed(typed);
    if (text.empty())
        text = m_last;
    if (text.empty())
        return {};
    if (text.front() == L'(' || (text.front() == L'!' && text.size() > 1))
        return evaluate(lispExpression(text));
    if (!text.starts_with(L'\'') && CommandRunner::instance().knows(text))
        m_last = text;
    CommandOutcome outcome = run(text);
    runAhead(outcome);
    return outcome;
}

/// What (command ...) gave beyond the end of the command that asked goes on with names of commands.
void CommandLine::runAhead(CommandOutcome& outcome)
{
    while (!CommandRunner::instance().isRunning()) {
        const auto ahead = EditorInput::instance().takeAhead();
        if (!ahead)
            return;
        if (ahead->kind != InputAnswer::Kind::text || ahead->text.empty())
            continue;
        const CommandOutcome next = run(ahead->text);
        if (outcome.failure.empty())
            outcome.failure = next.failure;
    }
}

CommandOutcome CommandLine::evaluate(const std::wstring& expression)
{
    CommandOutcome outcome;
    AcApDocument* const document = curDoc();
    if (!document) {
        outcome.failure = L"AutoLISP demande un dessin, et aucun n'est ouvert.";
        Console::instance().print(L"\n" + outcome.failure);
        return outcome;
    }
    const LispSession::Answer given = LispSession::of(*document).evaluate(expression);
    runAhead(outcome);
    if (given.outcome.failed)
        outcome.failure = given.outcome.expression.empty()
                              ? given.outcome.message
                              : given.outcome.message + L", dans " + given.outcome.expression;
    const std::wstring shown = given.outcome.failed ? given.outcome.failureText() : given.text;
    if (!shown.empty())
        Console::instance().print(L"\n" + shown);
    return outcome;
}

bool CommandLine::runNext(CommandOutcome* outcome)
{
    InputRequest request;
    request.prompt = kPrompt;
    const InputAnswer answer = EditorInput::instance().ask(request);
    if (answer.kind != InputAnswer::Kind::text)
        return false;
    CommandOutcome done = execute(answer.text);
    if (outcome)
        *outcome = std::move(done);
    return true;
}

bool isOpenExpression(std::wstring_view text)
{
    int depth = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        switch (text[at]) {
        case L'(':
            ++depth;
            break;
        case L')':
            --depth;
            break;
        case L'"':
            for (++at; at < text.size() && text[at] != L'"'; ++at)
                at += text[at] == L'\\' ? 1 : 0;
            if (at >= text.size())
                return true;
            break;
        case L';': {
            const bool isBlock = at + 1 < text.size() && text[at + 1] == L'|';
            const std::size_t end = isBlock ? text.find(L"|;", at + 2) : text.find(L'\n', at);
            if (end == std::wstring_view::npos)
                return isBlock || depth > 0;
            at = isBlock ? end + 1 : end;
            break;
        }
        default:
            break;
        }
    }
    return depth > 0;
}
