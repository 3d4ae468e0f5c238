#include "codification/codificationDuModule.h"

tableCodification& codificationDuModule()
{
    static tableCodification table;
    return table;
}
