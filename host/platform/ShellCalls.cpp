#include <filesystem>

#include "platform/LastError.h"
#include "platform/Paths.h"

#include "shellapi.h"
#include "shlobj.h"

namespace fs = std::filesystem;

namespace {

/// Links are followed. A folder that was installed read-only must not stay so in the copy, nor while it is filled.
void copyEntry(const fs::path& from, const fs::path& to, std::error_code& error)
{
    if (!fs::is_directory(from, error)) {
        fs::copy_file(from, to, fs::copy_options::overwrite_existing, error);
        if (!error)
            fs::permissions(to, fs::perms::owner_write, fs::perm_options::add, error);
        return;
    }
    fs::create_directory(to, error);
    if (error)
        return;
    for (fs::directory_iterator entry(from, error), end; !error && entry != end; entry.increment(error))
        copyEntry(entry->path(), to / entry->path().filename(), error);
}

/// A copy within its original would never end.
bool isWithin(const fs::path& inner, const fs::path& outer)
{
    const fs::path way = fs::weakly_canonical(inner).lexically_relative(fs::weakly_canonical(outer));
    return !way.empty() && *way.begin() != "..";
}

std::error_code copyTree(const fs::path& from, fs::path to)
{
    std::error_code error;
    if (!fs::exists(from, error))
        return std::make_error_code(std::errc::no_such_file_or_directory);
    if (fs::is_directory(to, error))
        to /= from.filename();
    error.clear();
    if (isWithin(to, from))
        return std::make_error_code(std::errc::invalid_argument);
    fs::create_directories(to.parent_path(), error);
    if (!error)
        copyEntry(from, to, error);
    return error;
}

} // namespace

HRESULT SHGetFolderPathW(void* /*owner*/, int folder, HANDLE /*token*/, DWORD /*flags*/, LPWSTR path)
{
    if ((folder & ~CSIDL_FLAG_CREATE) != CSIDL_APPDATA || path == nullptr)
        return E_INVALIDARG;
    const fs::path data = platform::dataFolder();
    std::error_code failure;
    if ((folder & CSIDL_FLAG_CREATE) != 0)
        fs::create_directories(data, failure);
    const std::wstring shown = platform::windowsPath(data);
    if (failure || shown.size() >= MAX_PATH)
        return E_FAIL;
    path[shown.copy(path, shown.size())] = L'\0';
    return S_OK;
}

int SHFileOperationW(SHFILEOPSTRUCTW* operation)
{
    if (operation == nullptr || operation->wFunc != FO_COPY || operation->pFrom == nullptr || operation->pTo == nullptr)
        return ERROR_INVALID_PARAMETER;
    operation->fAnyOperationsAborted = FALSE;
    const std::error_code error =
        copyTree(platform::nativePath(operation->pFrom), platform::nativePath(operation->pTo));
    return error ? static_cast<int>(platform::windowsError(error)) : 0;
}
