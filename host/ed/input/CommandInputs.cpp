#include "ed/input/CommandInputs.h"

#include "ed/select/SelectionSets.h"
#include "ed/SystemVariables.h"
#include "rx/ResbufValue.h"
#include "rx/TypedNumber.h"

namespace {

constexpr const wchar_t* kPause = L"\\";

InputAnswer textAnswer(std::wstring text)
{
    InputAnswer answer;
    answer.kind = text == kPause ? InputAnswer::Kind::ended : InputAnswer::Kind::text;
    answer.text = std::move(text);
    return answer;
}

InputAnswer pointAnswer(double x, double y, double z)
{
    InputAnswer answer;
    answer.kind = InputAnswer::Kind::point;
    answer.point.set(x, y, z);
    return answer;
}

InputAnswer objectsAnswer(const resbuf& item)
{
    InputAnswer answer;
    answer.kind = InputAnswer::Kind::objects;
    if (item.restype == RTENAME) {
        answer.objects.emplace_back();
        answer.objects.back().setFromOldId(item.resval.rlname[0]);
    } else if (const SelectionSet* const set = SelectionSets::instance().find(item.resval.rlname)) {
        answer.objects = set->objects();
    }
    return answer;
}

/// What a buffer of that type answers. nil is Escape, as (command nil) is; what is no value is nothing.
struct AtomAnswer {
    const resbuf& item;

    using Answer = std::optional<InputAnswer>;
    Answer operator()(std::wstring_view text) const { return textAnswer(std::wstring(text)); }
    Answer operator()(std::int64_t value) const { return textAnswer(std::to_wstring(value)); }
    Answer operator()(double value) const
    {
        // An angle is radians from the east; typed it would be in the drawing's units.
        return textAnswer(fullNumberText(value) + (item.restype == RTREAL ? L"" : L"r"));
    }
    Answer operator()(std::span<const ads_real> point) const
    {
        return pointAnswer(point[0], point[1], point.size() > 2 ? point[2] : 0.0);
    }
    Answer operator()(ResbufName) const
    {
        return item.restype == RTENAME || item.restype == RTPICKS ? Answer(objectsAnswer(item)) : std::nullopt;
    }
    Answer operator()(const ads_binary&) const { return std::nullopt; }
    Answer operator()(std::monostate) const { return item.restype == RTNIL ? Answer(InputAnswer{}) : std::nullopt; }
};

/// A list of two or three numbers is a point; one of an entity and a point, a pick.
InputAnswer listAnswer(const resbuf* first, const resbuf* end)
{
    double numbers[3] = {};
    int count = 0;
    InputAnswer pick;
    for (; first != end; first = first->rbnext) {
        const ResbufKind kind = resbufKind(first->restype);
        if (first->restype == RTENAME)
            pick = objectsAnswer(*first);
        else if (kind == ResbufKind::point)
            pick.point = pointAnswer(first->resval.rpoint[0], first->resval.rpoint[1], first->resval.rpoint[2]).point;
        else if (count < 3 && kind == ResbufKind::real)
            numbers[count++] = first->resval.rreal;
        else if (count < 3 && kind == ResbufKind::int32)
            numbers[count++] = first->resval.rlong;
        else if (count < 3 && kind == ResbufKind::int16)
            numbers[count++] = first->resval.rint;
    }
    const InputAnswer point = pointAnswer(numbers[0], numbers[1], numbers[2]);
    if (pick.kind != InputAnswer::Kind::objects)
        return count >= 2 ? point : InputAnswer{};
    if (count >= 2)
        pick.point = point.point;
    return pick;
}

std::wstring pointText(const AcGePoint3d& point)
{
    return fullNumberText(point.x) + L"," + fullNumberText(point.y) + L"," + fullNumberText(point.z);
}

} // namespace

std::vector<InputAnswer> CommandInputs::answersOf(const resbuf* chain)
{
    std::vector<InputAnswer> answers;
    while (chain) {
        const resbuf* const behind = afterValue(chain);
        if (chain->restype == RTLB)
            answers.push_back(listAnswer(chain->rbnext, behind));
        else if (auto answer = visitValue(*chain, AtomAnswer{*chain}))
            answers.push_back(std::move(*answer));
        chain = behind;
    }
    return answers;
}

void CommandInputs::add(const resbuf* chain)
{
    for (InputAnswer& answer : answersOf(chain))
        m_items.push_back(std::move(answer));
}

std::wstring CommandInputs::takeName()
{
    if (m_items.empty())
        return L"";
    const InputAnswer item = std::move(m_items.front());
    m_items.pop_front();
    return item.kind == InputAnswer::Kind::text ? item.text : L"";
}

InputAnswer CommandInputs::answer(const InputRequest& request)
{
    while (m_items.empty()) {
        const Out out = m_out ? m_out() : Out::cancel;
        if (out == Out::goOn)
            continue;
        m_ranOut = m_ranOut || out == Out::cancel;
        InputAnswer answer;
        answer.kind = out == Out::askBelow ? InputAnswer::Kind::ended : InputAnswer::Kind::cancel;
        return answer;
    }
    InputAnswer answer = std::move(m_items.front());
    m_items.pop_front();
    const bool wantsText = request.kind == InputRequest::Kind::string || request.kind == InputRequest::Kind::command;
    return wantsText && answer.kind == InputAnswer::Kind::point ? textAnswer(pointText(answer.point)) : answer;
}

void CommandInputs::refused(const InputRequest&, const std::wstring&)
{
    m_refused = true;
}

bool CommandInputs::isEchoed() const
{
    const auto echo = SystemVariables::instance().value(L"CMDECHO");
    const short* const isOn = echo ? std::get_if<short>(&*echo) : nullptr;
    return !isOn || *isOn != 0;
}
