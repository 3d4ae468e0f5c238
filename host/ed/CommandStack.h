#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "rx/ModuleTable.h"

#include "accmd.h"

/// A registered command, with the module whose code it runs (null for the host's own).
class Command : public AcEdCommand {
public:
    Command(std::wstring globalName, std::wstring localName, Adesk::Int32 flags, AcRxFunctionPtr function,
            AcEdUIContext* context, int fcode, HINSTANCE resources, LoadedModule* module) :
        m_globalName(std::move(globalName)),
        m_localName(std::move(localName)),
        m_flags(flags),
        m_function(function),
        m_context(context),
        m_fcode(fcode),
        m_resources(resources),
        m_module(module)
    {
    }
    const ACHAR* globalName() const override { return m_globalName.c_str(); }
    const ACHAR* localName() const override { return m_localName.c_str(); }
    Adesk::Int32 commandFlags() const override { return m_flags; }
    AcRxFunctionPtr functionAddr() const override { return m_function; }
    AcEdUIContext* UIContext() const override { return m_context; }
    int fcode() const override { return m_fcode; }
    HINSTANCE resourceHandle() const override { return m_resources; }
    LoadedModule* module() const { return m_module; }

private:
    std::wstring m_globalName;
    std::wstring m_localName;
    Adesk::Int32 m_flags;
    AcRxFunctionPtr m_function;
    AcEdUIContext* m_context;
    int m_fcode;
    HINSTANCE m_resources;
    LoadedModule* m_module;
};

/// The command stack that the system registry holds.
class CommandStack : public AcEdCommandStack {
public:
    static CommandStack& instance();
    CommandStack();

    Acad::ErrorStatus addCommand(const ACHAR* groupName, const ACHAR* globalName, const ACHAR* localName,
                                 Adesk::Int32 commandFlags, AcRxFunctionPtr functionAddr, AcEdUIContext* UIContext,
                                 int fcode, HINSTANCE hResourceHandle, AcEdCommand** added) override;
    Acad::ErrorStatus removeCmd(const ACHAR* groupName, const ACHAR* globalName) override;
    Acad::ErrorStatus removeGroup(const ACHAR* groupName) override;
    Command* lookupGlobalCmd(const ACHAR* globalName) override;
    Command* lookupLocalCmd(const ACHAR* localName) override;
    Command* lookupCmd(const ACHAR* name, bool globalLookup, bool localLookup) override;
    Command* lookupCmd(const ACHAR* name, const ACHAR* groupName) override;
    Acad::ErrorStatus popGroupToTop(const ACHAR* groupName) override;
    AcEdCommandIterator* iterator() override;

    /// Another name, a short one, for a command: it counts where no command bears it.
    void addAlias(const std::wstring& alias, const std::wstring& globalName);
    /// The command that an alias stands for, null when there is none.
    Command* lookupAlias(const std::wstring& alias);

    /// Local names in the order of searching, each once: for completion while a user types.
    std::vector<std::wstring> localNames() const;

private:
    struct Group {
        std::wstring name;
        std::vector<std::unique_ptr<Command>> commands;
    };
    std::vector<Group>::iterator group(const ACHAR* name);
    void forget(const LoadedModule& module);

    std::vector<Group> m_groups;                    // in the order of searching
    std::map<std::wstring, std::wstring> m_aliases; // in small letters, with the global names
};
