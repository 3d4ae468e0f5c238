// Names of files and what the disk says of them: vl-filename-..., vl-file-..., vl-directory-files.

#include <algorithm>
#include <filesystem>

#include "lisp/builtins/Builtins.h"
#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispContext.h"
#include "lisp/eval/LispNumber.h"
#include "platform/CodePage.h"
#include "platform/LetterCase.h"
#include "platform/Paths.h"
#include "rx/WildcardMatch.h"

namespace {

using lisp_argument::text;
using std::filesystem::path;

path pathArgument(LispArguments arguments, std::size_t which)
{
    return platform::nativePath(text(arguments[which]));
}

/// Where the name begins behind its folders.
std::size_t nameStart(const std::wstring& name)
{
    const std::size_t separator = name.find_last_of(L"/\\:");
    return separator == std::wstring::npos ? 0 : separator + 1;
}

/// Where the extension begins, with its dot; the end when there is none.
std::size_t extensionStart(const std::wstring& name)
{
    const std::size_t dot = name.find_last_of(L'.');
    return dot == std::wstring::npos || dot < nameStart(name) ? name.size() : dot;
}

LispValue nameBase(LispContext&, LispArguments arguments)
{
    const std::wstring& name = text(arguments[0]);
    const std::size_t start = nameStart(name);
    return LispValue(name.substr(start, extensionStart(name) - start));
}

LispValue nameDirectory(LispContext&, LispArguments arguments)
{
    std::wstring folder = text(arguments[0]).substr(0, nameStart(text(arguments[0])));
    if (folder.size() > 1 && folder.back() != L':' && folder[folder.size() - 2] != L':')
        folder.pop_back();
    return LispValue(folder);
}

/// With its dot; nil when there is none.
LispValue nameExtension(LispContext&, LispArguments arguments)
{
    const std::wstring extension = text(arguments[0]).substr(extensionStart(text(arguments[0])));
    return extension.empty() ? LispValue() : LispValue(extension);
}

LispValue isFolder(LispContext& context, LispArguments arguments)
{
    std::error_code error; // what cannot be looked at is no folder
    return context.truth(std::filesystem::is_directory(pathArgument(arguments, 0), error));
}

/// In bytes; nil for what is no file.
LispValue fileSize(LispContext&, LispArguments arguments)
{
    std::error_code error;
    const auto size = std::filesystem::file_size(pathArgument(arguments, 0), error);
    return error ? LispValue() : lispInteger(static_cast<std::int64_t>(size));
}

LispValue deleteFile(LispContext& context, LispArguments arguments)
{
    const path file = pathArgument(arguments, 0);
    std::error_code error;
    return context.truth(std::filesystem::is_regular_file(file, error) && std::filesystem::remove(file, error));
}

/// A file that is there already stays as it is.
LispValue renameFile(LispContext& context, LispArguments arguments)
{
    const path from = pathArgument(arguments, 0), to = pathArgument(arguments, 1);
    std::error_code error;
    if (std::filesystem::exists(to, error))
        return {};
    std::filesystem::rename(from, to, error);
    return context.truth(!error);
}

/// The number of bytes; nil when the source is no file or the other one is there already.
LispValue copyFile(LispContext&, LispArguments arguments)
{
    const path from = pathArgument(arguments, 0), to = pathArgument(arguments, 1);
    std::error_code error;
    if (!std::filesystem::is_regular_file(from, error) || !std::filesystem::copy_file(from, to, error) || error)
        return {};
    return lispInteger(static_cast<std::int64_t>(std::filesystem::file_size(to, error)));
}

LispValue makeFolder(LispContext& context, LispArguments arguments)
{
    std::error_code error;
    return context.truth(std::filesystem::create_directory(pathArgument(arguments, 0), error));
}

/// Of the pattern's signs, names of files know "*" and "?" only; "*.*" takes names without a dot too.
std::wstring filePattern(const std::wstring& written)
{
    if (written == L"*.*")
        return L"*";
    std::wstring pattern;
    for (const wchar_t c : written) {
        if (c != L'*' && c != L'?')
            pattern += L'`';
        pattern += platform::lowerCase(c);
    }
    return pattern;
}

/// (vl-directory-files [folder] [pattern] [what]): -1 folders only, 0 both, 1 files only; in alphabetical order.
LispValue filesOf(LispContext&, LispArguments arguments)
{
    const auto isGiven = [&](std::size_t which) { return arguments.size() > which && !arguments[which].isNil(); };
    const std::wstring pattern = filePattern(isGiven(1) ? text(arguments[1]) : L"*");
    const int what = isGiven(2) ? lisp_argument::integer(arguments[2]) : 0;
    std::error_code error;
    std::vector<std::wstring> names;
    for (const auto& entry :
         std::filesystem::directory_iterator(isGiven(0) ? pathArgument(arguments, 0) : path("."), error)) {
        const std::wstring name = platform::wideFromUtf8(entry.path().filename().string());
        const bool isWanted = what == 0 || entry.is_directory(error) == (what < 0);
        if (isWanted && wildcardMatch(platform::lowerCase(name), pattern))
            names.push_back(name);
    }
    std::ranges::sort(names);
    return listOf(std::vector<LispValue>(names.begin(), names.end()));
}

constexpr LispBuiltin kRows[] = {
    {L"VL-DIRECTORY-FILES", 0, 3, filesOf},          {L"VL-FILE-COPY", 2, 2, copyFile},
    {L"VL-FILE-DELETE", 1, 1, deleteFile},           {L"VL-FILE-DIRECTORY-P", 1, 1, isFolder},
    {L"VL-FILE-RENAME", 2, 2, renameFile},           {L"VL-FILE-SIZE", 1, 1, fileSize},
    {L"VL-FILENAME-BASE", 1, 1, nameBase},           {L"VL-FILENAME-DIRECTORY", 1, 1, nameDirectory},
    {L"VL-FILENAME-EXTENSION", 1, 1, nameExtension}, {L"VL-MKDIR", 1, 1, makeFolder},
};

} // namespace

std::span<const LispBuiltin> fileNameBuiltins()
{
    return kRows;
}
