#pragma once

#include <functional>
#include <map>

#include "rxdefs.h"

/// What the test module does at a message; it unlocks itself by itself.
extern std::map<AcRx::AppMsgCode, std::function<void()>> moduleActions;
