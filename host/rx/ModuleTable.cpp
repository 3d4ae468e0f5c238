#include "rx/ModuleTable.h"

#include <algorithm>

#include <dlfcn.h>

#include "platform/LetterCase.h"
#include "platform/Modules.h"
#include "rx/Console.h"
#include "rx/ExceptionText.h"
#include "rx/HostSession.h"
#include "rx/ModuleFile.h"

#include "rxregsvc.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcRxDynamicLinker, AcRxObject)

namespace {

std::wstring bareName(const std::wstring& path)
{
    return path.substr(path.find_last_of(L"/\\") + 1); // npos + 1 is 0
}

std::wstring notLoaded(const std::wstring& fileName, const std::wstring& reason)
{
    return L"Impossible de charger le module « " + fileName + L" » : " + reason + L".";
}

std::wstring notUnloaded(const std::wstring& fileName, const std::wstring& reason)
{
    return L"Impossible de décharger le module « " + fileName + L" » : " + reason + L".";
}

} // namespace

ModuleTable& ModuleTable::instance()
{
    struct Place {
        ModuleTable& table = *static_cast<ModuleTable*>(acrxDynamicLinker);
    };
    return HostSession::part<Place>().table;
}

// ---- loading and unloading

std::optional<std::wstring> ModuleTable::load(const std::wstring& fileName)
{
    if (find(fileName))
        return std::nullopt;
    try {
        const auto refusal = start(openModuleFile(fileName, m_modules.empty() ? L"" : m_modules.front()->path));
        return refusal ? std::optional(notLoaded(fileName, *refusal)) : std::nullopt;
    } catch (const ModuleError& error) {
        return notLoaded(fileName, error.reason());
    }
}

std::optional<std::wstring> ModuleTable::start(std::unique_ptr<LoadedModule> started)
{
    LoadedModule& module = *started;
    m_modules.push_back(std::move(started));
    platform::moduleLoaded(module.name, module.library);
    if (send(module, AcRx::kInitAppMsg) == AcRx::kRetError) {
        discard(module);
        return L"il a refusé de démarrer";
    }
    module.ready = true;
    visitDocuments([this, &module] { send(module, AcRx::kLoadDwgMsg); });
    return std::nullopt;
}

std::optional<std::wstring> ModuleTable::unload(const std::wstring& fileName)
{
    LoadedModule* module = find(fileName);
    if (!module)
        return notUnloaded(fileName, L"il n'est pas chargé");
    if (module->locked)
        return notUnloaded(fileName, L"il est verrouillé");
    if (module->running > 0)
        return notUnloaded(fileName, L"il est en cours d'exécution");
    end(*module);
    return std::nullopt;
}

void ModuleTable::end(LoadedModule& module)
{
    module.ready = false;
    visitDocuments([this, &module] { send(module, AcRx::kUnloadDwgMsg); });
    send(module, AcRx::kUnloadAppMsg);
    discard(module);
}

void ModuleTable::discard(LoadedModule& module)
{
    for (const auto& forget : m_forgetters)
        forget(module);
    platform::moduleUnloaded(module.library);
    void* library = module.library;
    std::erase_if(m_modules, [&module](const auto& loaded) { return loaded.get() == &module; });
    dlclose(library);
}

void ModuleTable::quit()
{
    tellAll(AcRx::kQuitMsg);
}

void ModuleTable::unloadAll()
{
    while (!m_modules.empty())
        end(*m_modules.back());
}

// ---- messages

void ModuleTable::visitDocuments(const std::function<void()>& visit) const
{
    if (m_eachDocument)
        m_eachDocument(visit);
}

std::vector<std::wstring> ModuleTable::tellAll(AcRx::AppMsgCode message)
{
    std::vector<LoadedModule*> listeners;
    for (const auto& module : m_modules)
        if (module->ready)
            listeners.push_back(module.get());
    std::vector<std::wstring> failed;
    for (LoadedModule* module : listeners)
        if (isLoaded(module) && module->ready) {
            const std::wstring name = module->name; // it may go meanwhile
            if (send(*module, message) == AcRx::kRetError)
                failed.push_back(name);
        }
    return failed;
}

AcRx::AppRetCode ModuleTable::call(LoadedModule& module, AcRx::AppMsgCode message)
{
    const Running running(&module);
    return module.entryPoint(message, &module);
}

AcRx::AppRetCode ModuleTable::send(LoadedModule& module, AcRx::AppMsgCode message)
{
    try {
        return call(module, message);
    } catch (...) {
        Console::instance().print(L"\nLe module « " + module.name + L" » a échoué au message " +
                                  std::to_wstring(static_cast<int>(message)) + L" : " + currentExceptionText() + L".");
        return AcRx::kRetError;
    }
}

ModuleTable::Running::Running(LoadedModule* module) : m_module(module)
{
    instance().m_running.push_back(module);
    if (m_module)
        ++m_module->running;
}

ModuleTable::Running::~Running()
{
    instance().m_running.pop_back();
    if (m_module)
        --m_module->running;
}

// ---- look-up

LoadedModule* ModuleTable::find(const std::wstring& fileName) const
{
    const std::wstring name = bareName(fileName);
    const auto found = std::find_if(m_modules.begin(), m_modules.end(),
                                    [&name](const auto& module) { return platform::equalNoCase(module->name, name); });
    return found == m_modules.end() ? nullptr : found->get();
}

bool ModuleTable::isLoaded(const LoadedModule* module) const
{
    return std::any_of(m_modules.begin(), m_modules.end(),
                       [module](const auto& loaded) { return loaded.get() == module; });
}

LoadedModule* ModuleTable::ofPacket(void* packet) const
{
    auto* module = static_cast<LoadedModule*>(packet);
    return isLoaded(module) ? module : nullptr;
}

// ---- the interface

bool ModuleTable::loadModule(const ACHAR* fileName, bool printit, bool /*asCmd*/)
{
    const auto failure = load(fileName ? fileName : L"");
    if (failure && printit)
        Console::instance().print(L"\n" + *failure);
    return !failure;
}

bool ModuleTable::unloadModule(const ACHAR* fileName, bool /*asCmd*/)
{
    return !unload(fileName ? fileName : L"");
}

bool ModuleTable::unlockApplication(void* packet) const
{
    LoadedModule* module = ofPacket(packet);
    if (module)
        module->locked = false;
    return module != nullptr;
}

bool ModuleTable::lockApplication(void* packet) const
{
    LoadedModule* module = ofPacket(packet);
    if (module)
        module->locked = true;
    return module != nullptr;
}

bool ModuleTable::isApplicationLocked(const ACHAR* name) const
{
    const LoadedModule* module = find(name ? name : L"");
    return module && module->locked;
}

bool ModuleTable::registerAppMDIAware(void* packet) const
{
    LoadedModule* module = ofPacket(packet);
    if (module)
        module->mdiAware = true;
    return module != nullptr;
}

bool ModuleTable::registerAppNotMDIAware(void* packet) const
{
    LoadedModule* module = ofPacket(packet);
    if (module)
        module->mdiAware = false;
    return module != nullptr;
}

bool ModuleTable::isAppMDIAware(const ACHAR* name) const
{
    const LoadedModule* module = find(name ? name : L"");
    return module && module->mdiAware;
}
