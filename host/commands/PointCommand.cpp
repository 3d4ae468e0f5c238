#include "commands/Commands.h"
#include "commands/CommandTexts.h"
#include "commands/Drawing.h"
#include "commands/NumberTexts.h"
#include "commands/Prompt.h"
#include "commands/Variables.h"

#include "dbents.h"

void commands::point()
{
    say(L"Modes de point courants : PDMODE=" + std::to_wstring(variable<short>(L"PDMODE")) + L"  PDSIZE=" +
        lengthText(variable<double>(L"PDSIZE")));
    addToDrawing(std::make_unique<AcDbPoint>(askPoint(command_texts::anyPoint)));
}
