#include "Answers.h"

void Answers::give(std::vector<std::wstring> texts)
{
    for (std::wstring& text : texts)
        m_waiting.push_back(std::move(text));
}

InputAnswer Answers::answer(const InputRequest& request)
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
