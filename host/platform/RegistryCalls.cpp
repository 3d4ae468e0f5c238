#include <cstring>
#include <map>
#include <memory>
#include <stdexcept>

#include "platform/LastError.h"
#include "platform/Registry.h"

/// An open key; `key` is its whole path, the root's name first.
struct HKEY__ {
    std::wstring key;
    REGSAM access;
};

namespace {

using platform::Registry;

std::map<HKEY, std::unique_ptr<HKEY__>>& openKeys()
{
    static std::map<HKEY, std::unique_ptr<HKEY__>> keys;
    return keys;
}

/// The open key or root behind a handle; null for any other value.
const HKEY__* keyOf(HKEY handle)
{
    static const HKEY__ currentUser{L"HKEY_CURRENT_USER", KEY_ALL_ACCESS};
    static const HKEY__ localMachine{L"HKEY_LOCAL_MACHINE", KEY_ALL_ACCESS};
    if (handle == HKEY_CURRENT_USER)
        return &currentUser;
    if (handle == HKEY_LOCAL_MACHINE)
        return &localMachine;
    const auto found = openKeys().find(handle);
    return found == openKeys().end() ? nullptr : found->second.get();
}

std::wstring below(const HKEY__& parent, LPCWSTR subKey)
{
    std::wstring_view path = subKey == nullptr ? L"" : subKey;
    while (!path.empty() && path.back() == L'\\')
        path.remove_suffix(1);
    return path.empty() ? parent.key : parent.key + L'\\' + std::wstring(path);
}

HKEY opened(std::wstring key, REGSAM access)
{
    auto entry = std::make_unique<HKEY__>(HKEY__{std::move(key), access});
    HKEY const handle = entry.get();
    openKeys().emplace(handle, std::move(entry));
    return handle;
}

/// Carries out a change of the registry file.
template <class Change>
LSTATUS saved(Change change)
{
    try {
        change();
        return ERROR_SUCCESS;
    } catch (const std::system_error& error) {
        return static_cast<LSTATUS>(platform::windowsError(error.code()));
    } catch (const std::invalid_argument&) {
        return ERROR_INVALID_DATA;
    }
}

/// The bytes that callers get: a text with its zero, or a 32-bit number.
std::string bytesOf(const Registry::Value& value)
{
    if (const auto* const number = std::get_if<std::uint32_t>(&value))
        return {reinterpret_cast<const char*>(number), sizeof *number};
    const auto& text = std::get<std::wstring>(value);
    return {reinterpret_cast<const char*>(text.c_str()), (text.size() + 1) * sizeof(wchar_t)};
}

} // namespace

LSTATUS RegOpenKeyExW(HKEY key, LPCWSTR subKey, DWORD /*options*/, REGSAM access, HKEY* result)
{
    const HKEY__* const parent = keyOf(key);
    if (parent == nullptr)
        return ERROR_INVALID_HANDLE;
    if (result == nullptr)
        return ERROR_INVALID_PARAMETER;
    std::wstring path = below(*parent, subKey);
    if (path != parent->key && !Registry::ofUser().hasKey(path))
        return ERROR_FILE_NOT_FOUND;
    *result = opened(std::move(path), access);
    return ERROR_SUCCESS;
}

LSTATUS RegCreateKeyExW(HKEY key, LPCWSTR subKey, DWORD /*reserved*/, LPWSTR /*className*/, DWORD /*options*/,
                        REGSAM access, const void* /*securityAttributes*/, HKEY* result, DWORD* disposition)
{
    const HKEY__* const parent = keyOf(key);
    if (parent == nullptr)
        return ERROR_INVALID_HANDLE;
    if (result == nullptr)
        return ERROR_INVALID_PARAMETER;
    std::wstring path = below(*parent, subKey);
    const bool existed = Registry::ofUser().hasKey(path);
    const LSTATUS status = saved([&] { Registry::ofUser().createKey(path); });
    if (status != ERROR_SUCCESS)
        return status;
    if (disposition != nullptr)
        *disposition = existed ? REG_OPENED_EXISTING_KEY : REG_CREATED_NEW_KEY;
    *result = opened(std::move(path), access);
    return ERROR_SUCCESS;
}

LSTATUS RegQueryValueExW(HKEY key, LPCWSTR name, DWORD* /*reserved*/, DWORD* type, BYTE* data, DWORD* size)
{
    const HKEY__* const from = keyOf(key);
    if (from == nullptr)
        return ERROR_INVALID_HANDLE;
    if (data != nullptr && size == nullptr)
        return ERROR_INVALID_PARAMETER;
    const std::optional<Registry::Value> value = Registry::ofUser().value(from->key, name == nullptr ? L"" : name);
    if (!value)
        return ERROR_FILE_NOT_FOUND;
    if (type != nullptr)
        *type = std::holds_alternative<std::wstring>(*value) ? REG_SZ : REG_DWORD;
    if (size == nullptr)
        return ERROR_SUCCESS;
    const std::string bytes = bytesOf(*value);
    const DWORD room = *size;
    *size = static_cast<DWORD>(bytes.size());
    if (data == nullptr)
        return ERROR_SUCCESS;
    if (room < bytes.size())
        return ERROR_MORE_DATA;
    std::memcpy(data, bytes.data(), bytes.size());
    return ERROR_SUCCESS;
}

LSTATUS RegSetValueExW(HKEY key, LPCWSTR name, DWORD /*reserved*/, DWORD type, const BYTE* data, DWORD size)
{
    const HKEY__* const to = keyOf(key);
    if (to == nullptr)
        return ERROR_INVALID_HANDLE;
    if ((to->access & KEY_SET_VALUE) == 0)
        return ERROR_ACCESS_DENIED;
    if (data == nullptr || (type != REG_SZ && type != REG_DWORD) || (type == REG_DWORD && size != sizeof(DWORD)))
        return ERROR_INVALID_PARAMETER;
    Registry::Value value;
    if (type == REG_DWORD) {
        DWORD number = 0;
        std::memcpy(&number, data, sizeof number);
        value = number;
    } else {
        std::wstring text(size / sizeof(wchar_t), L'\0');
        std::memcpy(text.data(), data, text.size() * sizeof(wchar_t));
        value = text.substr(0, text.find(L'\0')); // with or without its zero, as callers like
    }
    return saved([&] { Registry::ofUser().setValue(to->key, name == nullptr ? L"" : name, value); });
}

LSTATUS RegCloseKey(HKEY key)
{
    if (key == HKEY_CURRENT_USER || key == HKEY_LOCAL_MACHINE)
        return ERROR_SUCCESS;
    return openKeys().erase(key) > 0 ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}
