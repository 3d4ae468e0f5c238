#include "commands/CommandFailed.h"
#include "commands/CommandHooks.h"
#include "commands/Commands.h"
#include "commands/FileQuestion.h"
#include "commands/NumberTexts.h"
#include "commands/Prompt.h"
#include "commands/Variables.h"
#include "ed/input/SnapWords.h"
#include "lisp/drawing/LispSession.h"
#include "platform/LetterCase.h"
#include "rx/ModuleTable.h"

#include "acdocman.h"
#include "acutads.h"

namespace {

struct ValueText {
    std::wstring operator()(short value) const { return std::to_wstring(value); }
    std::wstring operator()(double value) const { return lengthText(value); }
    std::wstring operator()(const std::wstring& value) const { return L"\"" + value + L"\""; }
    std::wstring operator()(const AcGePoint2d& value) const { return lengthText(value.x) + L"," + lengthText(value.y); }
    std::wstring operator()(const AcGePoint3d& value) const
    {
        return lengthText(value.x) + L"," + lengthText(value.y) + L"," + lengthText(value.z);
    }
};

/// Asks for a value of the same type; nothing for Enter alone.
struct AskValue {
    std::wstring prompt;

    std::optional<VariableValue> operator()(short) const
    {
        const auto given = Prompt(prompt).integer();
        return given.value ? std::optional<VariableValue>(static_cast<short>(*given.value)) : std::nullopt;
    }
    std::optional<VariableValue> operator()(double) const
    {
        const auto given = Prompt(prompt).real();
        return given.value ? std::optional<VariableValue>(*given.value) : std::nullopt;
    }
    std::optional<VariableValue> operator()(const std::wstring&) const
    {
        const std::wstring typed = Prompt(prompt).text();
        if (typed.empty())
            return std::nullopt;
        return typed == L"." ? std::wstring() : typed; // a point empties a text
    }
    std::optional<VariableValue> operator()(const AcGePoint2d&) const
    {
        const auto given = Prompt(prompt).point();
        return given.value ? std::optional<VariableValue>(AcGePoint2d(given.value->x, given.value->y)) : std::nullopt;
    }
    std::optional<VariableValue> operator()(const AcGePoint3d&) const
    {
        const auto given = Prompt(prompt).point();
        return given.value ? std::optional<VariableValue>(*given.value) : std::nullopt;
    }
};

std::wstring shown(const std::wstring& name)
{
    const auto value = SystemVariables::instance().value(name);
    return value ? std::visit(ValueText(), *value) : L"?";
}

void listVariables()
{
    const std::wstring typed = Prompt(L"Entrez les variables à lister <*> : ").text(false);
    const std::wstring pattern = typed.empty() ? L"*" : typed;
    for (const std::wstring& name : SystemVariables::names())
        if (acutWcMatch(platform::lowerCase(name).c_str(), platform::lowerCase(pattern).c_str()) == RTNORM)
            say(L"  " + name + L"  " + shown(name));
}

void tellAnswer(SystemVariables::Answer answer, const std::wstring& name)
{
    switch (answer) {
    case SystemVariables::Answer::done:
        return;
    case SystemVariables::Answer::readOnly:
        throw CommandFailed(name + L" est en lecture seule");
    default:
        throw CommandFailed(L"Cette valeur ne convient pas à " + name);
    }
}

std::wstring extensionOf(const std::wstring& path)
{
    const auto dot = path.find_last_of(L"./\\");
    return dot == std::wstring::npos || path[dot] != L'.' ? L"" : platform::lowerCase(path.substr(dot + 1));
}

void loadLisp(const std::wstring& path)
{
    std::wstring quoted;
    for (const wchar_t c : path)
        quoted += c == L'\\' || c == L'"' ? std::wstring(L"\\") + c : std::wstring(1, c);
    const auto answer = LispSession::of(*curDoc()).evaluate(L"(load \"" + quoted + L"\")");
    if (answer.outcome.failed)
        throw CommandFailed(answer.outcome.message);
    say(L"Chargé : " + path);
}

} // namespace

void commands::script()
{
    const std::wstring path = askFile({L"Entrez le nom du script", L"", L"scr"});
    const auto& run = CommandHooks::instance().runScript;
    const std::wstring failure = run ? run(path) : L"Les scripts ne sont pas disponibles ici.";
    if (!failure.empty())
        throw CommandFailed(failure);
}

void commands::loadApplication()
{
    const std::wstring path = askFile({L"Entrez le nom du fichier à charger (.arx ou .lsp)", L"", L"arx;lsp"});
    if (extensionOf(path) == L"lsp")
        return loadLisp(path);
    const auto failure = ModuleTable::instance().load(path);
    if (failure)
        throw CommandFailed(*failure);
    say(L"Chargé : " + path);
}

void commands::setVariable()
{
    const std::wstring typed = Prompt(L"Entrez le nom de la variable ou [?] : ").text(false);
    if (typed.empty())
        return;
    if (typed == L"?")
        return listVariables();
    const std::wstring name = platform::upperCase(typed);
    const auto value = SystemVariables::instance().value(name);
    if (!value)
        throw CommandFailed(L"Variable inconnue : « " + typed + L" » ; MODIFVAR ? en donne la liste");
    const AskValue ask{L"Entrez une nouvelle valeur pour " + name + L" <" + std::visit(ValueText(), *value) + L"> : "};
    if (SystemVariables::instance().set(name, *value) == SystemVariables::Answer::readOnly)
        return say(name + L" = " + std::visit(ValueText(), *value) + L" (lecture seule)");
    if (const auto given = std::visit(ask, *value))
        tellAnswer(SystemVariables::instance().set(name, *given), name);
}

void commands::objectSnaps()
{
    const std::wstring words =
        Prompt(
            L"Entrez les modes d'accrochage, séparés par des virgules (EXT,MIL,CEN,NOD,QUA,INT,INS,PER,PRO ou AUC) : ")
            .text();
    const int modes = snapModesOf(words);
    if (modes == 0)
        throw CommandFailed(L"« " + words + L" » : mode d'accrochage inconnu");
    ::setVariable(L"OSMODE", static_cast<short>(modes == kNoSnap ? 0 : modes));
}
