#include "ed/input/Question.h"

#include "ed/input/InputTexts.h"
#include "ed/input/SnapWords.h"
#include "ed/input/TypedPoint.h"
#include "ed/SystemVariables.h"
#include "rx/Console.h"

namespace {

constexpr int kUnsettled = 0;

/// The last line of a prompt; those above it are printed at once.
std::wstring lastLineOf(const ACHAR* prompt)
{
    const std::wstring text = prompt ? prompt : L"";
    const std::size_t end = text.find_last_of(L'\n');
    if (end == std::wstring::npos)
        return text;
    const std::wstring above = text.substr(0, end);
    if (above.find_first_not_of(L"\n") != std::wstring::npos)
        Console::instance().print(above);
    return text.substr(end + 1);
}

} // namespace

Question::Question(InputRequest::Kind kind, const ACHAR* prompt) : m_init(EditorInput::instance().takeInitGet())
{
    request.kind = kind;
    request.prompt = lastLineOf(prompt);
    request.keywords = m_init.keywords;
    request.takesNone = !m_init.has(RSG_NONULL);
    request.takesAnyText = m_init.has(RSG_OTHER);
    request.dashed = m_init.has(RSG_DASH);
}

void Question::stretchFrom(const ads_point base)
{
    if (base)
        request.base = pointOf(base);
}

int Question::ask(const Reader& reader)
{
    EditorInput& input = EditorInput::instance();
    input.setLastKeyword(L"");
    for (;;) {
        const InputAnswer answer = input.ask(request);
        if (const int status = settled(answer); status != kUnsettled)
            return status;
        const bool isText = answer.kind == InputAnswer::Kind::text;
        if (isText && answer.text.empty()) {
            if (!refuse(input_texts::answerWanted))
                return RTCAN;
            continue;
        }
        if (const int modes = isText ? snapModesOf(answer.text) : 0; modes != 0 && takesSnapWords(request)) {
            request.snapModes = modes;
            continue;
        }
        const wchar_t* const reason = reader(answer);
        if (!reason)
            return RTNORM;
        if (isText && m_init.has(RSG_OTHER)) {
            input.setLastKeyword(answer.text);
            return RTKWORD;
        }
        if (!refuse(reason))
            return RTCAN;
    }
}

/// The status that an answer gives by itself, whatever was asked for.
int Question::settled(const InputAnswer& answer) const
{
    if (answer.kind == InputAnswer::Kind::cancel)
        return RTCAN;
    if (answer.kind != InputAnswer::Kind::text)
        return kUnsettled;
    if (answer.text.empty())
        return request.takesNone ? RTNONE : kUnsettled;
    const InputKeyword* const keyword = matchingKeyword(request.keywords, answer.text);
    if (!keyword)
        return kUnsettled;
    EditorInput::instance().setLastKeyword(keywordAnswer(*keyword));
    return RTKWORD;
}

bool Question::refuse(const wchar_t* reason)
{
    return EditorInput::instance().refuse(request, reason);
}

AcGePoint3d pointOf(const ads_point point)
{
    return {point[0], point[1], point[2]};
}

const wchar_t* readPoint(const InputRequest& request, const InputAnswer& answer, AcGePoint3d& point)
{
    if (answer.kind == InputAnswer::Kind::point) {
        point = answer.point;
        return nullptr;
    }
    if (answer.kind != InputAnswer::Kind::text)
        return input_texts::pointWanted;
    PointFrame frame = PointFrame::ofDrawing();
    frame.base = request.base;
    frame.cursor = answer.cursor;
    const auto typed = typedPoint(answer.text, frame);
    if (!typed)
        return input_texts::pointWanted;
    point = request.snapModes != 0 ? snapped(*typed, request) : *typed;
    return nullptr;
}

const wchar_t* refusedNumber(double value, const InitGet& init)
{
    const bool noZero = init.has(RSG_NOZERO), noNegative = init.has(RSG_NONEG);
    if (noZero && noNegative && value <= 0.0)
        return input_texts::positiveWanted;
    if (noZero && value == 0.0)
        return input_texts::notZero;
    return noNegative && value < 0.0 ? input_texts::notNegative : nullptr;
}

void setLastPoint(const AcGePoint3d& point)
{
    SystemVariables::instance().set(L"LASTPOINT", point);
}

int askSecondPoint(const Question& first, const AcGePoint3d& base, AcGePoint3d& point)
{
    setLastPoint(base);
    Question second(InputRequest::Kind::point, input_texts::secondPoint);
    second.request.keywords = first.request.keywords;
    second.request.takesNone = false;
    second.request.dashed = first.request.dashed;
    second.request.base = base;
    return second.ask([&](const InputAnswer& answer) { return readPoint(second.request, answer, point); });
}
