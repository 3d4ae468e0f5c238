#pragma once

#include <memory>

#include "rxregsvc.h"
#include "windows.h"

/// The command stack: commands in groups, looked up by name.

using AcRxFunctionPtr = void (*)();
class AcEdUIContext;
class AcEdCommandGroup;

// How a command runs. Several are added together.
constexpr Adesk::Int32 ACRX_CMD_MODAL = 0x0;
constexpr Adesk::Int32 ACRX_CMD_TRANSPARENT = 0x1; ///< may be called while another runs
constexpr Adesk::Int32 ACRX_CMD_USEPICKSET = 0x2;  ///< takes what was selected before it
constexpr Adesk::Int32 ACRX_CMD_REDRAW = 0x4;      ///< leaves it selected
constexpr Adesk::Int32 ACRX_CMD_DEFUN = 0x800;
constexpr Adesk::Int32 ACRX_CMD_NOINTERNALLOCK = 0x10000;
constexpr Adesk::Int32 ACRX_CMD_DOCREADLOCK = 0x80000;
constexpr Adesk::Int32 ACRX_CMD_DOCEXCLUSIVELOCK = 0x100000;
constexpr Adesk::Int32 ACRX_CMD_SESSION = 0x200000;         ///< the document is not locked for it
constexpr Adesk::Int32 ACRX_CMD_NO_UNDO_MARKER = 0x1000000; ///< makes no step of its own for U

/// One command.
class AcEdCommand : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEdCommand);
    virtual const ACHAR* globalName() const = 0; ///< the same in every language, typed with a leading "_"
    virtual const ACHAR* localName() const = 0;
    virtual Adesk::Int32 commandFlags() const = 0;
    virtual AcRxFunctionPtr functionAddr() const = 0;
    virtual AcEdUIContext* UIContext() const = 0;
    virtual int fcode() const = 0;
    virtual HINSTANCE resourceHandle() const = 0;
};

/// Walks the commands: groups in the order of searching, each group in the order of registration.
class AcEdCommandIterator : public AcRxObject {
public:
    virtual bool done() const = 0;
    virtual bool next() = 0;
    virtual const AcEdCommand* command() const = 0;
    virtual const ACHAR* commandGroup() const = 0;
};

/// The groups of commands. The group made last is searched first. Letter case does not count in any name.
class AcEdCommandStack : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEdCommandStack);

    /// Registers a command, at the end of its group, which is made if need be. The module that registers a command is
    /// the one that runs with it; what it has left when it is unloaded goes with it.
    /// @return eDuplicateKey when the group has the global or the local name already; eInvalidInput for an empty name
    ///         or no function.
    virtual Acad::ErrorStatus addCommand(const ACHAR* groupName, const ACHAR* globalName, const ACHAR* localName,
                                         Adesk::Int32 commandFlags, AcRxFunctionPtr functionAddr,
                                         AcEdUIContext* UIContext = nullptr, int fcode = -1,
                                         HINSTANCE hResourceHandle = nullptr, AcEdCommand** added = nullptr) = 0;
    /// eKeyNotFound when there is none.
    virtual Acad::ErrorStatus removeCmd(const ACHAR* groupName, const ACHAR* globalName) = 0;
    virtual Acad::ErrorStatus removeGroup(const ACHAR* groupName) = 0;
    /// The command of a name, null when there is none.
    virtual AcEdCommand* lookupGlobalCmd(const ACHAR* globalName) = 0;
    virtual AcEdCommand* lookupLocalCmd(const ACHAR* localName) = 0;
    virtual AcEdCommand* lookupCmd(const ACHAR* name, bool globalLookup, bool localLookup) = 0;
    /// The same in one group.
    virtual AcEdCommand* lookupCmd(const ACHAR* name, const ACHAR* groupName) = 0;
    /// Makes the group the first one searched.
    virtual Acad::ErrorStatus popGroupToTop(const ACHAR* groupName) = 0;
    /// For the caller to delete. Not to be used once the commands change.
    virtual AcEdCommandIterator* iterator() = 0;
};

#define acedRegCmds AcEdCommandStack::cast(acrxSysRegistry()->at(L"ACAD_REGISTERED_COMMANDS"))
