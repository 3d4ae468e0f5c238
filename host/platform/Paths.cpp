#include "platform/Paths.h"

#include <cstdlib>
#include <vector>

#include <pwd.h>
#include <unistd.h>

#include "platform/CodePage.h"
#include "platform/LetterCase.h"

namespace fs = std::filesystem;

namespace platform {

namespace {

/// The path in an environment variable; empty when it is not set.
fs::path fromEnvironment(const char* variable)
{
    const char* const value = std::getenv(variable);
    return value == nullptr ? fs::path() : fs::path(value);
}

fs::path homeFolder()
{
    const fs::path home = fromEnvironment("HOME");
    if (!home.empty())
        return home;
    const passwd* const user = getpwuid(getuid());
    return user == nullptr ? fs::path("/") : fs::path(user->pw_dir);
}

fs::path drivesFolder()
{
    return registryFile().parent_path() / "lecteurs";
}

/// Also true of a link that leads nowhere: the name is taken.
bool isThere(const fs::path& path)
{
    std::error_code ignored; // a path that cannot be looked at counts as missing
    return fs::exists(fs::symlink_status(path, ignored));
}

fs::path driveRoot(wchar_t letter)
{
    const fs::path folder = drivesFolder() / std::string(1, static_cast<char>(lowerCase(letter)));
    return lowerCase(letter) == L'z' && !isThere(folder) ? fs::path("/") : folder;
}

bool isDriveLetter(wchar_t c)
{
    return lowerCase(c) >= L'a' && lowerCase(c) <= L'z';
}

bool isSeparator(wchar_t c)
{
    return c == L'/' || c == L'\\';
}

std::vector<std::wstring_view> splitNames(std::wstring_view path)
{
    std::vector<std::wstring_view> names;
    while (!path.empty()) {
        const std::wstring_view name = path.substr(0, path.find_first_of(L"/\\"));
        if (!name.empty() && name != L".")
            names.push_back(name);
        path.remove_prefix(std::min(name.size() + 1, path.size()));
    }
    return names;
}

/// Takes ".." away with the name before it; at the root there is nothing to go back to.
std::vector<std::wstring_view> withinRoot(const std::vector<std::wstring_view>& names)
{
    std::vector<std::wstring_view> kept;
    for (const std::wstring_view name : names)
        if (name != L"..")
            kept.push_back(name);
        else if (!kept.empty())
            kept.pop_back();
    return kept;
}

/// The entry of `folder` called so but for letter case, the first in byte order; empty when there is none.
fs::path entryIgnoringCase(const fs::path& folder, std::wstring_view name)
{
    std::string best;
    std::error_code unreadable; // a folder that cannot be listed holds no such entry
    for (fs::directory_iterator entry(folder.empty() ? "." : folder, unreadable), end; !unreadable && entry != end;
         entry.increment(unreadable)) {
        const std::string candidate = entry->path().filename().native();
        if (equalNoCase(wideFromUtf8(candidate), name) && (best.empty() || candidate < best))
            best = candidate;
    }
    return best;
}

fs::path findBelow(fs::path place, const std::vector<std::wstring_view>& names)
{
    bool exists = true;
    for (const std::wstring_view name : names) {
        const fs::path written = utf8FromWide(name);
        if (exists && !isThere(place / written)) {
            const fs::path found = entryIgnoringCase(place, name);
            exists = !found.empty();
            place /= exists ? found : written;
        } else
            place /= written;
    }
    return place;
}

} // namespace

fs::path configurationFolder()
{
    const fs::path configured = fromEnvironment("XDG_CONFIG_HOME");
    return (configured.is_absolute() ? configured : homeFolder() / ".config") / "vela";
}

fs::path dataFolder()
{
    if (const fs::path chosen = fromEnvironment("VELA_REGISTRY"); !chosen.empty())
        return fs::absolute(chosen).parent_path();
    const fs::path data = fromEnvironment("XDG_DATA_HOME");
    return (data.is_absolute() ? data : homeFolder() / ".local/share") / "vela";
}

fs::path registryFile()
{
    const fs::path chosen = fromEnvironment("VELA_REGISTRY");
    return chosen.empty() ? configurationFolder() / "registre.ini" : fs::absolute(chosen);
}

fs::path supportFolder()
{
    const fs::path chosen = fromEnvironment("VELA_SUPPORT");
    if (!chosen.empty())
        return fs::absolute(chosen);
    return (fs::read_symlink("/proc/self/exe").parent_path() / "../share/vela").lexically_normal();
}

fs::path documentationFolder()
{
    return (fs::read_symlink("/proc/self/exe").parent_path() / "../share/doc/vela").lexically_normal();
}

fs::path nativePath(std::wstring_view path)
{
    if (path.size() >= 2 && path[1] == L':' && isDriveLetter(path[0]))
        return findBelow(driveRoot(path[0]), withinRoot(splitNames(path.substr(2))));
    if (!path.empty() && path[0] == L'\\')
        return findBelow(driveRoot(L'c'), withinRoot(splitNames(path)));
    const fs::path asWritten = utf8FromWide(path);
    if (path.empty() || isThere(asWritten)) // a native name may hold a backslash
        return asWritten;
    return findBelow(isSeparator(path[0]) ? "/" : "", splitNames(path));
}

std::wstring windowsPath(const fs::path& native)
{
    const fs::path absolute = fs::absolute(native).lexically_normal();
    const fs::path onDrive = absolute.lexically_relative(drivesFolder().lexically_normal());
    const std::string drive = onDrive.empty() ? "" : onDrive.begin()->native();
    std::wstring result;
    if (drive.size() == 1 && isDriveLetter(static_cast<unsigned char>(drive[0]))) {
        result.assign(1, upperCase(static_cast<wchar_t>(drive[0])));
        result += L':' + wideFromUtf8(onDrive.native().substr(1));
        if (result.size() == 2)
            result += L'\\';
    } else if (isThere(drivesFolder() / "z"))
        return wideFromUtf8(absolute.native()); // no drive reaches it
    else
        result = L"Z:" + wideFromUtf8(absolute.native());
    for (wchar_t& c : result)
        if (c == L'/')
            c = L'\\';
    return result;
}

} // namespace platform
