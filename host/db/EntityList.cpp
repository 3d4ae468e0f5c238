#include "adscodes.h"
#include "dbads.h"
#include "dbmain.h"

/// Entities changed by lists of result buffers.

int acdbEntMod(const resbuf* entity)
{
    constexpr int nameItem = -1;
    constexpr int extendedDataItem = -3;
    AcDbObjectId id;
    if (!entity || entity->restype != nameItem || acdbGetObjectId(id, entity->resval.rlname) != Acad::eOk)
        return RTERROR;
    const resbuf* const data = entity->rbnext;
    if (!data || data->restype != extendedDataItem)
        return RTREJ;
    const AcDbObjectPointer<AcDbEntity> opened(id, AcDb::kForWrite);
    if (opened.openStatus() != Acad::eOk)
        return RTERROR;
    return opened->setXData(data->rbnext) == Acad::eOk ? RTNORM : RTREJ;
}
