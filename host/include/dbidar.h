#pragma once

#include "acarray.h"
#include "dbid.h"

using AcDbObjectIdArray = AcArray<AcDbObjectId>;
using AcDbVoidPtrArray = AcArray<void*>;
