#include "platform/Modules.h"

#include <map>
#include <string>

#include <dlfcn.h>

#include "platform/LetterCase.h"

#include "windows.h"

namespace platform {

namespace {

std::map<std::wstring, void*>& modules()
{
    static std::map<std::wstring, void*> loaded;
    return loaded;
}

std::wstring keyOf(std::wstring_view name)
{
    const std::size_t slash = name.find_last_of(L"/\\");
    return lowerCase(slash == std::wstring_view::npos ? name : name.substr(slash + 1));
}

} // namespace

void moduleLoaded(std::wstring_view name, void* handle)
{
    modules()[keyOf(name)] = handle;
}

void moduleUnloaded(void* handle)
{
    std::erase_if(modules(), [handle](const auto& module) { return module.second == handle; });
}

void* loadedModule(std::wstring_view name)
{
    const auto found = modules().find(keyOf(name));
    return found == modules().end() ? nullptr : found->second;
}

} // namespace platform

HMODULE GetModuleHandleW(LPCWSTR name)
{
    static void* const program = dlopen(nullptr, RTLD_LAZY);
    void* const module = name == nullptr ? program : platform::loadedModule(name);
    if (module == nullptr)
        SetLastError(ERROR_MOD_NOT_FOUND);
    return static_cast<HMODULE>(module);
}

FARPROC GetProcAddress(HMODULE module, LPCSTR name)
{
    void* const address = module == nullptr || name == nullptr ? nullptr : dlsym(module, name);
    if (address == nullptr)
        SetLastError(ERROR_PROC_NOT_FOUND);
    return reinterpret_cast<FARPROC>(address);
}
