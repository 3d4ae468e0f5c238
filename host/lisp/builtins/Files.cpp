#include <cstdlib>
#include <fstream>
#include <iterator>
#include <optional>

#include "lisp/builtins/Builtins.h"
#include "lisp/builtins/OpenFile.h"
#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispContext.h"
#include "lisp/eval/LispError.h"
#include "lisp/eval/LispFile.h"
#include "lisp/eval/LispTexts.h"
#include "platform/CodePage.h"
#include "platform/LetterCase.h"
#include "platform/Paths.h"

LispFile* openFileArgument(LispArguments arguments, std::size_t which)
{
    if (arguments.size() <= which || arguments[which].isNil())
        return nullptr;
    LispFile* const file = arguments[which].file();
    if (!file)
        lisp_argument::refuse(L"filep:", arguments[which]);
    if (!file->isOpen())
        throw LispError(lisp_texts::fileClosed + file->name());
    return file;
}

namespace {

using lisp_argument::text;

LispFile& fileToRead(LispArguments arguments)
{
    LispFile* const file = openFileArgument(arguments, 0);
    if (!file)
        lisp_argument::refuse(L"filep:", LispValue());
    return *file;
}

LispValue open(LispContext&, LispArguments arguments)
{
    const std::wstring& mode = text(arguments[1]);
    const wchar_t letter = mode.size() == 1 ? platform::lowerCase(mode[0]) : L'?';
    if (letter != L'r' && letter != L'w' && letter != L'a')
        lisp_argument::refuse(L"mode « r », « w » ou « a »:", arguments[1]);
    const auto file = std::make_shared<LispFile>(text(arguments[0]), letter == L'r'   ? LispFile::Mode::read
                                                                     : letter == L'w' ? LispFile::Mode::write
                                                                                      : LispFile::Mode::append);
    return file->isOpen() ? LispValue(file) : LispValue();
}

LispValue close(LispContext&, LispArguments arguments)
{
    fileToRead(arguments).close();
    return {};
}

LispValue readLine(LispContext&, LispArguments arguments)
{
    std::wstring line;
    return fileToRead(arguments).readLine(line) ? LispValue(std::move(line)) : LispValue();
}

LispValue readCharacter(LispContext&, LispArguments arguments)
{
    const int code = fileToRead(arguments).readCharacter();
    return code < 0 ? LispValue() : LispValue(std::int32_t{code});
}

/// A file as named, or in the support folder.
std::optional<std::filesystem::path> foundFile(const std::wstring& name)
{
    std::error_code noMatter; // a place that cannot be looked at holds no file for us
    const std::filesystem::path asNamed = platform::nativePath(name);
    if (std::filesystem::is_regular_file(asNamed, noMatter))
        return asNamed;
    if (name.find(L':') != std::wstring::npos || name.starts_with(L'/') || name.starts_with(L'\\'))
        return std::nullopt;
    const std::wstring folder = platform::wideFromUtf8(platform::supportFolder().string());
    const std::filesystem::path installed = platform::nativePath(folder + L"/" + name);
    if (std::filesystem::is_regular_file(installed, noMatter))
        return installed;
    return std::nullopt;
}

LispValue findFile(LispContext&, LispArguments arguments)
{
    const auto path = foundFile(text(arguments[0]));
    return path ? LispValue(platform::windowsPath(*path)) : LispValue();
}

std::wstring programText(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return platform::wideFromFile(std::string{std::istreambuf_iterator<char>(file), {}});
}

std::optional<std::filesystem::path> programFile(const std::wstring& name)
{
    const auto exact = foundFile(name);
    return exact ? exact : foundFile(name + L".lsp");
}

/// The value of the last expression. Without the file: the second argument, called when it is a function.
LispValue load(LispContext& context, LispArguments arguments)
{
    const std::wstring& name = text(arguments[0]);
    const auto path = programFile(name);
    if (!path) {
        if (arguments.size() < 2)
            throw LispError(lisp_texts::loadFailed + (L"\"" + name + L"\""));
        const LispValue function = context.functionOf(arguments[1]);
        return function.lambda() || function.builtin() ? context.apply(function, {}) : arguments[1];
    }
    return context.evaluateText(programText(*path));
}

LispValue environment(LispContext&, LispArguments arguments)
{
    const char* const value = std::getenv(platform::utf8FromWide(text(arguments[0])).c_str());
    return value ? LispValue(platform::wideFromUtf8(value)) : LispValue();
}

constexpr LispBuiltin kRows[] = {
    {L"CLOSE", 1, 1, close},
    {L"FINDFILE", 1, 1, findFile},
    {L"FINDTRUSTEDFILE", 1, 1, findFile},
    {L"GETENV", 1, 1, environment},
    {L"LOAD", 1, 2, load},
    {L"OPEN", 2, 3, open},
    {L"READ-CHAR", 0, 1, readCharacter},
    {L"READ-LINE", 0, 1, readLine},
};

} // namespace

std::span<const LispBuiltin> fileBuiltins()
{
    return kRows;
}
