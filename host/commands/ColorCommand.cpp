#include "commands/CommandFailed.h"
#include "commands/Commands.h"
#include "commands/CommandTexts.h"
#include "commands/Prompt.h"
#include "commands/Variables.h"
#include "db/Colors.h"

void commands::color()
{
    const auto now = colorNamed(variable<std::wstring>(L"CECOLOR"));
    const std::wstring shown = colorText(now.value_or(colorByLayer));
    const std::wstring typed = Prompt(L"Entrez la couleur par défaut des objets <" + shown + L"> : ").text(false);
    if (typed.empty())
        return;
    const auto index = colorNamed(typed);
    if (!index)
        throw CommandFailed(command_texts::colorWanted);
    ::setVariable(L"CECOLOR", storedColor(*index));
}
