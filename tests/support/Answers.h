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

    void give(std::vector<std::wstring> texts);
    void clear() { m_waiting.clear(); }
    bool areUsedUp() const { return m_waiting.empty(); }

    InputAnswer answer(const InputRequest& request) override;
    void refused(const InputRequest&, const std::wstring& reason) override { refusals.push_back(reason); }

    std::vector<InputRequest> asked;
    std::vector<std::wstring> refusals;
    std::optional<AcGePoint3d> cursor;

private:
    std::deque<std::wstring> m_waiting;
    EditorInput::Source m_source;
};
