#include "commands/PlotHabits.h"

#include "commands/CommandHooks.h"
#include "platform/CodePage.h"
#include "platform/Registry.h"
#include "rx/Console.h"
#include "rx/ExceptionText.h"

namespace {

constexpr const wchar_t* key = L"HKEY_CURRENT_USER\\Software\\Vela\\Trace";

bool areWindowsThere()
{
    return static_cast<bool>(CommandHooks::instance().chooseFile);
}

std::uint32_t number(const wchar_t* name, std::uint32_t otherwise)
{
    const auto value = platform::Registry::ofUser().value(key, name);
    const auto* const found = value ? std::get_if<std::uint32_t>(&*value) : nullptr;
    return found ? *found : otherwise;
}

/// A4 for what no paper is called.
std::wstring paperKept()
{
    const auto value = platform::Registry::ofUser().value(key, L"papier");
    const auto* const found = value ? std::get_if<std::wstring>(&*value) : nullptr;
    const bool known =
        found && found->size() == 2 && found->front() == L'A' && (*found)[1] >= L'0' && (*found)[1] <= L'4';
    return known ? *found : PlotHabits().paper;
}

} // namespace

PlotHabits plotHabits()
{
    if (!areWindowsThere())
        return {};
    return {paperKept(), number(L"paysage", 1) != 0, static_cast<int>(number(L"echelle", 0) & 0x7fffffffU),
            number(L"noir", 0) != 0};
}

void keep(const PlotHabits& habits)
{
    if (!areWindowsThere())
        return;
    try {
        auto& registry = platform::Registry::ofUser();
        registry.setValue(key, L"papier", habits.paper);
        registry.setValue(key, L"paysage", habits.landscape ? 1U : 0U);
        registry.setValue(key, L"echelle", static_cast<std::uint32_t>(habits.denominator));
        registry.setValue(key, L"noir", habits.monochrome ? 1U : 0U);
    } catch (...) {
        Console::instance().print(L"\nLes réglages du tracé ne peuvent être gardés : " + currentExceptionText() + L".");
    }
}
