#pragma once

#include <deque>

#include "ed/input/InitGet.h"
#include "ed/input/InputSource.h"

/// What stands between the code that asks and the sources that answer.
///
/// The window stands at the bottom; a script, or the arguments of (command ...), stand above it while they last. A
/// request goes to the one on top, and down when it has nothing for it. What a source asks for while it waits for an
/// answer (a command called transparently, a dialog's pick) goes to that source, or what was put upon it since.
class EditorInput {
public:
    static EditorInput& instance();

    /// A source is on top of the others as long as this lives. They end in the reverse order.
    class Source {
    public:
        explicit Source(InputSource& source);
        ~Source();
        Source(const Source&) = delete;
        Source& operator=(const Source&) = delete;

    private:
        friend class EditorInput;
        InputSource& m_source;
        Source* m_below;
    };

    /// Asks until there is an answer that the asker can read: not `ended`, and no typed text that something is done
    /// with here:
    /// "'NAME" runs a command that may be called meanwhile; "(...)" and "!symbol" give an AutoLISP value as the
    /// answer. Prints the prompt with the answer. With no source left the answer is `cancel`.
    InputAnswer ask(const InputRequest& request);
    /// The answer did not do: prints the reason and tells the source that gave it. The asker asks again.
    /// @return false when it is of no use to ask again: nothing will come.
    bool refuse(const InputRequest& request, const std::wstring& reason);

    /// Whether an AutoLISP expression is being evaluated as the answer to a question: what (command ...) gives in it is
    /// for the one who asks.
    bool isEvaluating() const { return m_evaluating > 0; }
    /// Answers that come before those of the sources, the next questions in turn; `ended` leaves one to the sources.
    void typeAhead(std::vector<InputAnswer> answers);
    /// Takes what nobody asked for; nothing when there is none.
    std::optional<InputAnswer> takeAhead();

    /// What is being asked, null when nothing is.
    const InputRequest* asked() const { return m_asked; }

    /// What acedInitGet set for the next request.
    void setInitGet(InitGet init) { m_initGet = std::move(init); }
    const InitGet& initGet() const { return m_initGet; }
    InitGet takeInitGet();

    /// The keyword or other text that ended the last request, for acedGetInput.
    void setLastKeyword(std::wstring keyword) { m_lastKeyword = std::move(keyword); }
    const std::wstring& lastKeyword() const { return m_lastKeyword; }

    /// Where the asking stands. A command that stops in its middle, to go on later, takes its own along.
    struct Place {
        Source* top = nullptr;
        Source* answered = nullptr;
        const InputRequest* asked = nullptr;
    };
    Place place() const { return {m_top, m_answered, m_asked}; }
    void setPlace(const Place& place)
    {
        m_top = place.top;
        m_answered = place.answered;
        m_asked = place.asked;
    }

private:
    InputAnswer answerOf(const InputRequest& request);
    void echo(const InputRequest& request, const InputAnswer& answer) const;
    std::optional<InputAnswer> evaluated(const std::wstring& expression);
    /// Whether the text was an order of its own; a value of AutoLISP becomes the answer.
    bool carriedOut(const InputRequest& request, InputAnswer& answer);

    Source* m_top = nullptr;
    Source* m_answered = nullptr; ///< the one that gave the last answer
    const InputRequest* m_asked = nullptr;
    std::deque<InputAnswer> m_ahead;
    int m_evaluating = 0;
    InitGet m_initGet;
    std::wstring m_lastKeyword;
};
