#include "ed/input/PointFilter.h"

#include "ed/input/InputTexts.h"
#include "platform/LetterCase.h"
#include "rx/TypedNumber.h"

namespace {

/// Nothing but the altitude is read from a number alone.
int askPart(const std::wstring& prompt, bool altitude, AcGePoint3d& point)
{
    acedInitGet(RSG_NONULL, nullptr);
    Question question(InputRequest::Kind::point, prompt.c_str());
    return question.ask([&](const InputAnswer& answer) {
        const auto number =
            altitude && answer.kind == InputAnswer::Kind::text ? typedNumber(answer.text) : std::nullopt;
        if (!number)
            return readPoint(question.request, answer, point);
        point.z = *number;
        return static_cast<const wchar_t*>(nullptr);
    });
}

std::wstring missing(const PointFilter& filter)
{
    return std::wstring(filter.x ? L"" : L"X") + (filter.y ? L"" : L"Y") + (filter.z ? L"" : L"Z");
}

} // namespace

std::optional<PointFilter> pointFilter(std::wstring_view text)
{
    if (text.size() < 2 || text.size() > 3 || text.front() != L'.')
        return std::nullopt;
    PointFilter filter;
    for (const wchar_t letter : text.substr(1)) {
        const wchar_t lower = platform::lowerCase(letter);
        bool* const axis = lower == L'x' ? &filter.x : lower == L'y' ? &filter.y : lower == L'z' ? &filter.z : nullptr;
        if (!axis || *axis)
            return std::nullopt;
        *axis = true;
    }
    return filter;
}

int askFiltered(const PointFilter& filter, AcGePoint3d& point)
{
    AcGePoint3d given, rest;
    if (askPart(input_texts::filteredFrom, false, given) != RTNORM)
        return RTCAN;
    const bool onlyAltitude = filter.x && filter.y;
    if (askPart(input_texts::filterNeeds + missing(filter) + L") : ", onlyAltitude, rest) != RTNORM)
        return RTCAN;
    point.set(filter.x ? given.x : rest.x, filter.y ? given.y : rest.y, filter.z ? given.z : rest.z);
    return RTNORM;
}
