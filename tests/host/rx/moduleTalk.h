#pragma once

#include "rxdefs.h"

/// Between the test modules and the test that loads them.
extern "C" {
/// Notes the message; the answer is what the module then returns. May throw, load or unload modules, as the test
/// wishes.
AcRx::AppRetCode moduleHeard(const char* module, AcRx::AppMsgCode message, void* packet);
}
