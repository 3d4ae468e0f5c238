#pragma once

#include "rxdefs.h"
#include "rxobject.h"

/// Name of the linker in the system registry.
#define ACRX_DYNAMIC_LINKER L"DynamicLinker"
#define acrxDynamicLinker AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER))

/// Loads and unloads modules.
/// A module is a shared library that exports acrxEntryPoint and acrxGetApiVersion. It is known by its file name, in
/// any letter case. It stays until the program ends unless it unlocked itself with the packet of its first message.
class AcRxDynamicLinker : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcRxDynamicLinker);

    /// Loads the file, sends kInitAppMsg, then kLoadDwgMsg for each open document. A module already loaded stays as it
    /// is, which is no failure. `printit` prints why it failed on the command line.
    virtual bool loadModule(const ACHAR* fileName, bool printit, bool asCmd = false) = 0;
    /// Sends kUnloadDwgMsg for each open document, then kUnloadAppMsg. Refused while the module is locked or running.
    virtual bool unloadModule(const ACHAR* fileName, bool asCmd = false) = 0;

    /// `packet` is what the module received with its messages. @return whether it is a module's.
    virtual bool unlockApplication(void* packet) const = 0;
    virtual bool lockApplication(void* packet) const = 0;
    virtual bool isApplicationLocked(const ACHAR* name) const = 0;
    virtual bool registerAppMDIAware(void* packet) const = 0;
    virtual bool registerAppNotMDIAware(void* packet) const = 0;
    virtual bool isAppMDIAware(const ACHAR* name) const = 0;
};
