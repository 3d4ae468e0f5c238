#pragma once

#include <string>
#include <vector>

#include "dbmain.h"

/// Name of the layout that shows a block, as its tab bears it: "Model" for model space; empty for other blocks.
std::wstring layoutName(AcDbObjectId block);

/// The blocks that layouts show: model space first, then paper spaces.
std::vector<AcDbObjectId> layoutBlocks(AcDbDatabase& database);
