#include "commands/Colors.h"
#include "commands/Commands.h"
#include "commands/Prompt.h"
#include "commands/Variables.h"
#include "platform/LetterCase.h"

namespace {

constexpr Adesk::UInt16 kByBlock = 0, kByLayer = 256;

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
    {7, L"blanc", L"White"},
    {kByLayer, L"DuCalque", L"ByLayer"},
    {kByBlock, L"DuBloc", L"ByBlock"},
};

} // namespace

std::wstring colorText(Adesk::UInt16 index)
{
    for (const ColorName& name : kNames)
        if (name.index == index)
            return index == kByLayer || index == kByBlock ? name.local
                                                          : std::to_wstring(index) + L" (" + name.local + L")";
    return std::to_wstring(index);
}

std::optional<Adesk::UInt16> colorFrom(const std::wstring& typed)
{
    const std::wstring plain = !typed.empty() && typed.front() == L'_' ? typed.substr(1) : typed;
    for (const ColorName& name : kNames)
        if (platform::equalNoCase(plain, name.local) || platform::equalNoCase(plain, name.global))
            return name.index;
    if (plain.empty() || plain.size() > 3 || plain.find_first_not_of(L"0123456789") != std::wstring::npos)
        return std::nullopt;
    const int index = std::stoi(plain);
    return index <= kByLayer ? std::optional(static_cast<Adesk::UInt16>(index)) : std::nullopt;
}

std::optional<Adesk::UInt16> askColor(const std::wstring& prompt)
{
    return colorFrom(Prompt(prompt).text(false));
}

void commands::color()
{
    const std::wstring now = variable<std::wstring>(L"CECOLOR");
    const std::wstring shown = colorText(colorFrom(now).value_or(kByLayer));
    const std::wstring typed = Prompt(L"Entrez la couleur par défaut des objets <" + shown + L"> : ").text(false);
    if (typed.empty())
        return;
    const auto index = colorFrom(typed);
    if (!index)
        return say(L"Une couleur de 1 à 255, son nom, DuCalque ou DuBloc est attendu.");
    const std::wstring value = *index == kByLayer   ? L"BYLAYER"
                               : *index == kByBlock ? L"BYBLOCK"
                                                    : std::to_wstring(*index);
    ::setVariable(L"CECOLOR", value);
}
