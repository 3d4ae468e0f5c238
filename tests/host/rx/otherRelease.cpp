#include "rxregsvc.h"

AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode, void*)
{
    return AcRx::kRetOK;
}

Adesk::UInt32 acrxGetApiVersion()
{
    return 17U << 16U;
}
