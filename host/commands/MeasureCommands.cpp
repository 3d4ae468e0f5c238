#include <cmath>

#include "commands/Commands.h"
#include "commands/CommandTexts.h"
#include "commands/NumberTexts.h"
#include "commands/Prompt.h"
#include "commands/Variables.h"
#include "ed/input/InputTexts.h"

void commands::distance()
{
    const AcGePoint3d from = askPoint(input_texts::firstPoint);
    const AcGePoint3d to = askPoint(input_texts::secondPoint, from);
    const AcGeVector3d between = to - from;
    const double plane = std::hypot(between.x, between.y);
    say(L"Distance = " + lengthText(between.length()) + L",  Angle dans le plan XY = " +
        directionText(std::atan2(between.y, between.x)) + L",  Angle au-dessus du plan XY = " +
        angleText(std::atan2(between.z, plane)));
    if (plane > 0.0)
        say(L"Gisement = " + bearingText(between.x, between.y));
    say(L"Delta X = " + lengthText(between.x) + L",  Delta Y = " + lengthText(between.y) + L",  Delta Z = " +
        lengthText(between.z));
    ::setVariable(L"DISTANCE", between.length());
}

void commands::identify()
{
    const AcGePoint3d point = askPoint(command_texts::anyPoint);
    say(pointText(point));
    ::setVariable(L"LASTPOINT", point);
}
