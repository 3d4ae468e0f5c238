#include "rx/ModuleFile.h"

#include <filesystem>

#include <dlfcn.h>
#include <link.h>

#include "platform/CodePage.h"
#include "platform/Paths.h"
#include "rx/ApiVersion.h"

namespace fs = std::filesystem;

namespace {

struct LibraryClose {
    void operator()(void* library) const { dlclose(library); }
};
using Library = std::unique_ptr<void, LibraryClose>;

std::wstring systemReason()
{
    const char* reason = dlerror();
    return reason ? platform::wideFromUtf8(reason) : L"raison inconnue";
}

fs::path findFile(const std::wstring& fileName, const std::wstring& beside)
{
    const fs::path file = fs::absolute(platform::nativePath(fileName));
    if (fs::exists(file) || beside.empty() || fileName.find_first_of(L"/\\") != std::wstring::npos)
        return file;
    const fs::path sibling = platform::nativePath(beside.substr(0, beside.find_last_of(L'/') + 1) + fileName);
    return fs::exists(sibling) ? sibling : file;
}

/// A look-up also finds what the libraries behind a module export: only the module's own counts.
void* ownSymbol(void* library, const char* name)
{
    void* symbol = dlsym(library, name);
    link_map* map = nullptr;
    Dl_info place{};
    if (!symbol || dlinfo(library, RTLD_DI_LINKMAP, &map) != 0 || dladdr(symbol, &place) == 0)
        return nullptr;
    return reinterpret_cast<ElfW(Addr)>(place.dli_fbase) == map->l_addr ? symbol : nullptr;
}

template <class Function>
Function ownFunction(void* library, const char* name)
{
    void* symbol = ownSymbol(library, name);
    if (!symbol)
        throw ModuleError(L"ce n'est pas un module (" + platform::wideFromUtf8(name) + L" manque)");
    return reinterpret_cast<Function>(symbol);
}

void checkVersion(void* library)
{
    const auto version = ownFunction<Adesk::UInt32 (*)()>(library, "acrxGetApiVersion")();
    if (apiRelease(version) != apiRelease(kApiVersion))
        throw ModuleError(L"il est fait pour la version " + std::to_wstring(apiRelease(version)) +
                          L" de l'interface, et l'hôte est à la version " + std::to_wstring(apiRelease(kApiVersion)));
}

} // namespace

std::unique_ptr<LoadedModule> openModuleFile(const std::wstring& fileName, const std::wstring& beside)
{
    const fs::path file = findFile(fileName, beside);
    if (!fs::is_regular_file(file))
        throw ModuleError(L"fichier introuvable");
    Library library(dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL));
    if (!library)
        throw ModuleError(systemReason());
    auto module = std::make_unique<LoadedModule>();
    module->entryPoint = ownFunction<LoadedModule::EntryPoint>(library.get(), "acrxEntryPoint");
    checkVersion(library.get());
    module->name = platform::wideFromUtf8(file.filename().string());
    module->path = platform::wideFromUtf8(file.string());
    module->library = library.release(); // until ModuleTable unloads it
    return module;
}
