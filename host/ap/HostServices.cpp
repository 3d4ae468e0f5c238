#include "rx/HostSession.h"

#include "dbapserv.h"

AcDbHostApplicationServices* acdbHostApplicationServices()
{
    return &HostSession::part<AcDbHostApplicationServices>();
}
