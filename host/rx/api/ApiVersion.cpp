#include "rx/ApiVersion.h"

#include "rxregsvc.h"

Adesk::UInt32 acrxGetApiVersion()
{
    return kApiVersion;
}
