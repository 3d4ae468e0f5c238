#include <algorithm>
#include <cstring>
#include <cwchar>

#include "platform/CodePage.h"

#include "windows.h"

namespace {

constexpr UINT windows1252 = 1252;

int noCharacters(LSTATUS error)
{
    SetLastError(static_cast<DWORD>(error));
    return 0;
}

/// Hands the converted text over as both calls do: its length alone when there is no room asked for.
template <class Character>
int delivered(const std::basic_string<Character>& text, Character* target, int room)
{
    const int length = static_cast<int>(text.size());
    if (room == 0)
        return length;
    if (target == nullptr || room < length)
        return noCharacters(ERROR_INSUFFICIENT_BUFFER);
    std::copy(text.begin(), text.end(), target);
    return length;
}

} // namespace

int WideCharToMultiByte(UINT codePage, DWORD /*flags*/, LPCWSTR source, int sourceLength, LPSTR target, int targetSize,
                        LPCSTR defaultChar, BOOL* usedDefaultChar)
{
    if (source == nullptr || sourceLength == 0 || sourceLength < -1 || targetSize < 0)
        return noCharacters(ERROR_INVALID_PARAMETER);
    const std::wstring_view text(source,
                                 sourceLength < 0 ? std::wcslen(source) + 1 : static_cast<std::size_t>(sourceLength));
    bool substituted = false;
    std::string result;
    if (codePage == CP_ACP || codePage == windows1252)
        result = platform::ansiFromWide(text, defaultChar == nullptr ? '?' : *defaultChar, &substituted);
    else if (codePage == CP_UTF8)
        result = platform::utf8FromWide(text);
    else
        return noCharacters(ERROR_INVALID_PARAMETER);
    if (usedDefaultChar != nullptr)
        *usedDefaultChar = substituted;
    return delivered(result, target, targetSize);
}

int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR source, int sourceLength, LPWSTR target, int targetSize)
{
    if (source == nullptr || sourceLength == 0 || sourceLength < -1 || targetSize < 0)
        return noCharacters(ERROR_INVALID_PARAMETER);
    const std::string_view text(source,
                                sourceLength < 0 ? std::strlen(source) + 1 : static_cast<std::size_t>(sourceLength));
    if (codePage == CP_ACP || codePage == windows1252)
        return delivered(platform::wideFromAnsi(text), target, targetSize);
    if (codePage == CP_UTF8) {
        const std::wstring wide = platform::wideFromUtf8(text);
        if ((flags & MB_ERR_INVALID_CHARS) != 0 && std::any_of(wide.begin(), wide.end(), platform::isStrayByte))
            return noCharacters(ERROR_NO_UNICODE_TRANSLATION);
        return delivered(wide, target, targetSize);
    }
    return noCharacters(ERROR_INVALID_PARAMETER);
}
