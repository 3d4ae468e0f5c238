#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "rxdlinkr.h"

/// A module in memory. Its address is the packet that it receives with each message.
struct LoadedModule {
    using EntryPoint = AcRx::AppRetCode (*)(AcRx::AppMsgCode message, void* packet);

    std::wstring name; ///< file name without folder
    std::wstring path; ///< where it was loaded from
    void* library = nullptr;
    EntryPoint entryPoint = nullptr;
    bool locked = true;
    bool mdiAware = false;
    bool ready = false; ///< between the end of kInitAppMsg and the beginning of unloading
    int running = 0;    ///< messages, commands and functions of it under way
};

/// The modules, in the order of loading, and the messages they receive.
/// kInitAppMsg once; kLoadDwgMsg once for each document, open then or opened later; kSaveMsg before a document is
/// written; kUnloadDwgMsg once for each document, when it closes or when the module goes; kUnloadAppMsg last.
class ModuleTable : public AcRxDynamicLinker {
public:
    /// The one that the system registry holds.
    static ModuleTable& instance();

    /// @return nothing when the module is loaded, else why not, in French.
    std::optional<std::wstring> load(const std::wstring& fileName);
    /// @return nothing when the module is gone, else why not, in French.
    std::optional<std::wstring> unload(const std::wstring& fileName);
    /// kQuitMsg to each module: the documents are to be closed next, then unloadAll.
    void quit();
    /// Unloads every module, locked or not, the last loaded first.
    void unloadAll();

    /// Calls `visit` once for each open document, which is current meanwhile; then what was current is so again.
    using DocumentVisitor = std::function<void(const std::function<void()>& visit)>;
    void setDocumentVisitor(DocumentVisitor visitor) { m_eachDocument = std::move(visitor); }
    /// Sends a message about the current document to every module. Each module hears it once, even when modules come
    /// and go meanwhile.
    /// @return the modules that answered kRetError.
    std::vector<std::wstring> tellAll(AcRx::AppMsgCode message);

    /// Sends one message; what the module throws comes through.
    AcRx::AppRetCode call(LoadedModule& module, AcRx::AppMsgCode message);
    /// The same, but an exception is printed, and counts as kRetError.
    AcRx::AppRetCode send(LoadedModule& module, AcRx::AppMsgCode message);

    /// Whose code is running: what is registered meanwhile is that module's. Null for the host's own.
    LoadedModule* running() const { return m_running.empty() ? nullptr : m_running.back(); }
    /// Marks the code of a module as running for the length of a scope. Null for the host's own.
    class Running {
    public:
        explicit Running(LoadedModule* module);
        ~Running();
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;

    private:
        LoadedModule* m_module;
    };

    /// Called when a module has had its last message: whatever still points into it must be dropped.
    void whenUnloaded(std::function<void(const LoadedModule&)> forget) { m_forgetters.push_back(std::move(forget)); }

    LoadedModule* find(const std::wstring& fileName) const;
    const std::vector<std::unique_ptr<LoadedModule>>& modules() const { return m_modules; }

    bool loadModule(const ACHAR* fileName, bool printit, bool asCmd) override;
    bool unloadModule(const ACHAR* fileName, bool asCmd) override;
    bool unlockApplication(void* packet) const override;
    bool lockApplication(void* packet) const override;
    bool isApplicationLocked(const ACHAR* name) const override;
    bool registerAppMDIAware(void* packet) const override;
    bool registerAppNotMDIAware(void* packet) const override;
    bool isAppMDIAware(const ACHAR* name) const override;

private:
    std::optional<std::wstring> start(std::unique_ptr<LoadedModule> started);
    void end(LoadedModule& module);
    void discard(LoadedModule& module);
    void visitDocuments(const std::function<void()>& visit) const;
    bool isLoaded(const LoadedModule* module) const;
    LoadedModule* ofPacket(void* packet) const;

    std::vector<std::unique_ptr<LoadedModule>> m_modules;
    std::vector<LoadedModule*> m_running;
    DocumentVisitor m_eachDocument;
    std::vector<std::function<void(const LoadedModule&)>> m_forgetters;
};
