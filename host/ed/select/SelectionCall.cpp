#include "ed/select/SelectionCall.h"

#include "platform/LetterCase.h"

namespace {

struct ModeName {
    std::wstring_view name;
    SelectionCall::Mode mode;
};
using CallMode = SelectionCall::Mode;
constexpr ModeName kModes[] = {
    {L"", CallMode::ask},
    {L".", CallMode::ask},
    {L"X", CallMode::whole},
    {L"A", CallMode::editable},
    {L"P", CallMode::previous},
    {L"L", CallMode::last},
    {L"I", CallMode::implied},
    {L"W", CallMode::window},
    {L"C", CallMode::crossing},
    {L"F", CallMode::fence},
    {L"WP", CallMode::windowPolygon},
    {L"CP", CallMode::crossingPolygon},
};

} // namespace

std::optional<SelectionCall> SelectionCall::read(const ACHAR* how)
{
    std::wstring_view text = how ? how : L"";
    if (text.starts_with(L'_'))
        text.remove_prefix(1);
    if (text.starts_with(L'+'))
        text.remove_prefix(1);
    SelectionCall call;
    const std::wstring_view name = text.substr(0, text.find(L':'));
    bool isKnown = false;
    for (const ModeName& row : kModes) {
        if (!platform::equalNoCase(name, row.name))
            continue;
        call.mode = row.mode;
        isKnown = true;
    }
    for (text.remove_prefix(name.size()); isKnown && !text.empty();) {
        const std::size_t end = std::min(text.find(L':', 1), text.size());
        const std::wstring_view option = text.substr(1, end - 1);
        if (platform::equalNoCase(option, L"S"))
            call.single = true;
        else if (platform::equalNoCase(option, L"E"))
            call.everything = true;
        else if (platform::equalNoCase(option, L"L"))
            call.unlocked = true;
        else if (option == L"$")
            call.prompts = true;
        else if (!platform::equalNoCase(option, L"D") && !platform::equalNoCase(option, L"N") &&
                 !platform::equalNoCase(option, L"P") && !platform::equalNoCase(option, L"U") &&
                 !platform::equalNoCase(option, L"V") && !platform::equalNoCase(option, L"R"))
            isKnown = false; // those allowed above change nothing here
        text.remove_prefix(end);
    }
    return isKnown ? std::optional(call) : std::nullopt;
}
