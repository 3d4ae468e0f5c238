#include "db/Colors.h"

#include <algorithm>

#include "platform/LetterCase.h"

namespace {

struct ColorName {
    Adesk::UInt16 index;
    const wchar_t* local;
    const wchar_t* global;
};

constexpr ColorName kNames[] = {
    {1, L"rouge", L"Red"},
    {2, L"jaune", L"Yellow"},
    {3, L"vert", L"Green"},
    {4, L"cyan", L"Cyan"},
    {5, L"bleu", L"Blue"},
    {6, L"magenta", L"Magenta"},
    {contrastingColor, L"blanc", L"White"},
    {colorByLayer, L"DuCalque", L"ByLayer"},
    {colorByBlock, L"DuBloc", L"ByBlock"},
};

bool isOfOthers(int index)
{
    return index == colorByLayer || index == colorByBlock;
}

} // namespace

std::wstring colorName(int index)
{
    const auto* const name = std::ranges::find(kNames, index, &ColorName::index);
    return name == std::end(kNames) ? std::to_wstring(index) : name->local;
}

std::wstring colorText(int index)
{
    const std::wstring name = colorName(index), number = std::to_wstring(index);
    return isOfOthers(index) || name == number ? name : number + L" (" + name + L")";
}

std::wstring storedColor(int index)
{
    return index == colorByLayer ? L"BYLAYER" : index == colorByBlock ? L"BYBLOCK" : std::to_wstring(index);
}

std::optional<Adesk::UInt16> colorNamed(std::wstring_view typed)
{
    if (typed.starts_with(L'_'))
        typed.remove_prefix(1);
    for (const ColorName& name : kNames)
        if (platform::equalNoCase(typed, name.local) || platform::equalNoCase(typed, name.global))
            return name.index;
    if (typed.empty() || typed.size() > 3 || typed.find_first_not_of(L"0123456789") != std::wstring_view::npos)
        return std::nullopt;
    const int index = std::stoi(std::wstring(typed));
    return index <= colorByLayer ? std::optional(static_cast<Adesk::UInt16>(index)) : std::nullopt;
}
