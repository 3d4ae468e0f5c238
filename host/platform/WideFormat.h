#pragma once

#include <cstdarg>
#include <string>

namespace platform {

/// printf with the wide conventions that CString::Format documents; acutPrintf and its like use it too.
/// Reads `arguments` from a copy: the caller's list stays where it was. A null format gives an empty text.
std::wstring formatWide(const wchar_t* format, std::va_list arguments);

} // namespace platform
