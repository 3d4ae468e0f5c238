#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <string>

#include <sys/stat.h>
#include <unistd.h>

#include "platform/CodePage.h"
#include "platform/LastError.h"
#include "platform/Paths.h"
#include "platform/TempFiles.h"

#include "io.h"
#include "tchar.h"

namespace {

namespace fs = std::filesystem;

BOOL failed(const std::error_code& error)
{
    SetLastError(platform::windowsError(error));
    return FALSE;
}

BOOL failed(LSTATUS error)
{
    SetLastError(static_cast<DWORD>(error));
    return FALSE;
}

/// On the platform's disks a folder cannot be opened as a file.
bool isFolder(int descriptor)
{
    struct stat status {};
    return fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
}

} // namespace

std::FILE* _wfopen(const wchar_t* path, const wchar_t* mode)
{
    if (path == nullptr || mode == nullptr) {
        errno = EINVAL;
        return nullptr;
    }
    // Text mode is the only one there is, and an encoding after a comma is not for us to convert.
    std::wstring_view letters = mode;
    letters = letters.substr(0, letters.find(L','));
    std::string nativeMode = platform::ansiFromWide(letters);
    std::erase(nativeMode, 't');
    std::FILE* const file = std::fopen(platform::nativePath(path).c_str(), (nativeMode + 'e').c_str());
    if (file != nullptr && isFolder(fileno(file))) {
        std::fclose(file);
        errno = EACCES;
        return nullptr;
    }
    return file;
}

int _wopen(const wchar_t* path, int flags, int permission)
{
    if (path == nullptr) {
        errno = EINVAL;
        return -1;
    }
    const mode_t mode = (permission & _S_IWRITE) != 0 ? 0666 : 0444;
    const int descriptor = open(platform::nativePath(path).c_str(), flags | O_CLOEXEC, mode);
    if (descriptor >= 0 && isFolder(descriptor)) {
        close(descriptor);
        errno = EACCES;
        return -1;
    }
    return descriptor;
}

int _write(int descriptor, const void* buffer, unsigned int size)
{
    return static_cast<int>(write(descriptor, buffer, size));
}

int _close(int descriptor)
{
    return close(descriptor);
}

int _waccess(const wchar_t* path, int mode)
{
    if (path == nullptr) {
        errno = EINVAL;
        return -1;
    }
    return access(platform::nativePath(path).c_str(), mode);
}

DWORD GetTempPathW(DWORD size, LPWSTR buffer)
{
    std::wstring path;
    try {
        path = platform::windowsPath(platform::temporaryFolder()) + L'\\';
    } catch (const std::system_error& error) {
        failed(error.code());
        return 0;
    }
    if (buffer == nullptr || size <= path.size())
        return static_cast<DWORD>(path.size()) + 1;
    *std::copy(path.begin(), path.end(), buffer) = L'\0';
    return static_cast<DWORD>(path.size());
}

UINT GetTempFileNameW(LPCWSTR folder, LPCWSTR prefix, UINT number, LPWSTR name)
{
    if (folder == nullptr || prefix == nullptr || name == nullptr) {
        failed(ERROR_INVALID_PARAMETER);
        return 0;
    }
    std::wstring path = folder;
    if (path.empty() || (path.back() != L'\\' && path.back() != L'/'))
        path += L'\\';
    if (path.size() + platform::temporaryName(prefix, 0xFFFF).size() >= MAX_PATH) {
        failed(ERROR_INVALID_PARAMETER);
        return 0;
    }
    try {
        const UINT used =
            number != 0 ? number & 0xFFFFU : platform::createTemporaryFile(platform::nativePath(folder), prefix);
        path += platform::temporaryName(prefix, used);
        *std::copy(path.begin(), path.end(), name) = L'\0';
        return used;
    } catch (const std::system_error& error) {
        failed(error.code());
        return 0;
    }
}

BOOL DeleteFileW(LPCWSTR path)
{
    if (path == nullptr)
        return failed(ERROR_INVALID_PARAMETER);
    if (unlink(platform::nativePath(path).c_str()) != 0)
        return failed(std::error_code(errno, std::generic_category()));
    return TRUE;
}

BOOL CopyFileW(LPCWSTR existing, LPCWSTR copy, BOOL failIfExists)
{
    if (existing == nullptr || copy == nullptr)
        return failed(ERROR_INVALID_PARAMETER);
    std::error_code error;
    fs::copy_file(platform::nativePath(existing), platform::nativePath(copy),
                  failIfExists ? fs::copy_options::none : fs::copy_options::overwrite_existing, error);
    return error ? failed(error) : TRUE;
}

BOOL MoveFileExW(LPCWSTR existing, LPCWSTR renamed, DWORD flags)
{
    if (existing == nullptr || renamed == nullptr)
        return failed(ERROR_INVALID_PARAMETER);
    const fs::path from = platform::nativePath(existing), to = platform::nativePath(renamed);
    std::error_code error;
    if ((flags & MOVEFILE_REPLACE_EXISTING) == 0 && fs::exists(fs::symlink_status(to, error)))
        return failed(ERROR_FILE_EXISTS);
    fs::rename(from, to, error);
    return error ? failed(error) : TRUE;
}
