#pragma once

#include <deque>
#include <string>
#include <vector>

#include "ed/input/EditorInput.h"

/// A source that gives prepared answers and remembers what it was asked. Once they are used up it has ended.
/// Answers are texts as typed; "<1,2>" is a point picked there, "^1,2" with Shift held, "~1,2" a movement of the
/// cursor,
/// "<Esc>" Escape.
class Answers : public InputSource {
public:
    Answers() : m_source(*this) {}
    explicit Answers(std::vector<std::wstring> texts) : m_source(*this) { give(std::move(texts)); }

    void give(std::vector<std::wstring> texts)
    {
        for (std::wstring& text : texts)
            m_waiting.push_back(std::move(text));
    }
    void clear() { m_waiting.clear(); }
    bool areUsedUp() const { return m_waiting.empty(); }

    InputAnswer answer(const InputRequest& request) override
    {
        asked.push_back(request);
        InputAnswer answer;
        answer.kind = InputAnswer::Kind::ended;
        if (m_waiting.empty())
            return answer;
        std::wstring text = std::move(m_waiting.front());
        m_waiting.pop_front();
        if (text == L"<Esc>") {
            answer.kind = InputAnswer::Kind::cancel;
        } else if (text.starts_with(L'<') || text.starts_with(L'~') || text.starts_with(L'^')) {
            answer.kind = text.front() == L'~' ? InputAnswer::Kind::moved : InputAnswer::Kind::point;
            answer.withShift = text.front() == L'^';
            std::size_t comma = 0;
            answer.point.x = std::stod(text.substr(1), &comma);
            answer.point.y = std::stod(text.substr(comma + 2));
        } else {
            answer.kind = InputAnswer::Kind::text;
            answer.text = std::move(text);
            answer.cursor = cursor;
        }
        return answer;
    }
    void refused(const InputRequest&, const std::wstring& reason) override { refusals.push_back(reason); }

    std::vector<InputRequest> asked;
    std::vector<std::wstring> refusals;
    std::optional<AcGePoint3d> cursor;

private:
    std::deque<std::wstring> m_waiting;
    EditorInput::Source m_source;
};
