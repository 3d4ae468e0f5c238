#include "moduleTalk.h"
#include "rxregsvc.h"

AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet)
{
    return moduleHeard(MODULE_NAME, message, packet);
}
