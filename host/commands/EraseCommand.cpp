#include "commands/Commands.h"
#include "commands/Drawing.h"

void commands::erase()
{
    for (const AcDbObjectId id : askEditable())
        eraseObject(id);
}
