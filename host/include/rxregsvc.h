#pragma once

#include "rxdefs.h"
#include "rxdict.h"
#include "rxdlinkr.h"

/// The session's registry: the dynamic linker under ACRX_DYNAMIC_LINKER, the command stack under
/// "ACAD_REGISTERED_COMMANDS".
AcRxDictionary* acrxSysRegistry();

/// What every module exports.
/// acrxEntryPoint is the module's own; acrxGetApiVersion comes with the interface: the module links to `rxapi`.
extern "C" {
__attribute__((visibility("default"))) AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet);
/// Version of the interface that the module was built for.
__attribute__((visibility("default"))) Adesk::UInt32 acrxGetApiVersion();
}
