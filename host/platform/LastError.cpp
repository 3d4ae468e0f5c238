#include "platform/LastError.h"

namespace {

thread_local DWORD lastError = 0;

} // namespace

DWORD GetLastError()
{
    return lastError;
}

void SetLastError(DWORD error)
{
    lastError = error;
}

namespace platform {

DWORD windowsError(const std::error_code& error)
{
    if (error == std::errc::no_such_file_or_directory)
        return ERROR_FILE_NOT_FOUND;
    if (error == std::errc::not_a_directory)
        return ERROR_PATH_NOT_FOUND;
    if (error == std::errc::file_exists)
        return ERROR_FILE_EXISTS;
    if (error == std::errc::no_space_on_device || error == std::errc::io_error)
        return ERROR_WRITE_FAULT;
    return ERROR_ACCESS_DENIED;
}

} // namespace platform
