#include <filesystem>

#include "ap/DocumentList.h"
#include "commands/CommandFailed.h"
#include "commands/CommandHooks.h"
#include "commands/Commands.h"
#include "commands/FileQuestion.h"
#include "commands/NumberTexts.h"
#include "commands/Prompt.h"
#include "commands/Variables.h"
#include "db/DatabaseImpl.h"
#include "db/DrawingAudit.h"
#include "ed/DrawingChanges.h"
#include "gi/EntityGraphics.h"
#include "platform/CodePage.h"
#include "platform/LetterCase.h"
#include "platform/Paths.h"
#include "rx/HostSession.h"

CommandHooks& CommandHooks::instance()
{
    return HostSession::part<CommandHooks>();
}

namespace {

bool isThere(const std::wstring& path)
{
    std::error_code error;
    return std::filesystem::exists(platform::nativePath(path), error);
}

} // namespace

std::wstring askFile(const CommandHooks::FileQuestion& question)
{
    const auto& choose = CommandHooks::instance().chooseFile;
    std::wstring typed;
    if (choose && variable<short>(L"FILEDIA") != 0)
        typed = choose(question).value_or(L"");
    else
        typed = Prompt(question.title + (question.proposed.empty() ? L"" : L" <" + question.proposed + L">") + L" : ")
                    .text();
    if (typed.size() > 1 && typed.front() == L'"' && typed.back() == L'"')
        typed = typed.substr(1, typed.size() - 2);
    if (typed.empty() && !choose)
        typed = question.proposed;
    if (typed.empty())
        throw CommandCancelled();
    return typed;
}

namespace {

std::wstring extensionOf(const std::wstring& path)
{
    const auto dot = path.find_last_of(L"./\\");
    return dot == std::wstring::npos || path[dot] != L'.' ? L"" : platform::lowerCase(path.substr(dot + 1));
}

/// With the extension of drawings when it has none.
std::wstring asDrawing(const std::wstring& path)
{
    const std::wstring extension = extensionOf(path);
    return extension == L"dxf" || extension == L"dwg" ? path : path + L".dxf";
}

/// For the time of a save that its user agreed to.
class ReplacingReadOnly {
public:
    explicit ReplacingReadOnly(AcDbDatabaseImpl& database) : m_database(database)
    {
        m_database.replacesReadOnly = true;
    }
    ~ReplacingReadOnly() { m_database.replacesReadOnly = false; }
    ReplacingReadOnly(const ReplacingReadOnly&) = delete;
    ReplacingReadOnly& operator=(const ReplacingReadOnly&) = delete;

private:
    AcDbDatabaseImpl& m_database;
};

/// For a drawing that could not be opened or saved: its user has to see it, whatever becomes of the command line.
[[noreturn]] void refuse(const std::wstring& reason)
{
    if (const auto& tell = CommandHooks::instance().tellFailure)
        tell(reason);
    throw CommandFailed(reason);
}

void tellEach(const std::vector<std::string>& lines, std::size_t most)
{
    for (std::size_t i = 0; i < lines.size() && i < most; ++i)
        say(L"  " + platform::wideFromUtf8(lines[i]));
    if (lines.size() > most)
        say(L"  ... et " + countText(lines.size() - most, L"autre"));
}

void tellProblems(const Document& document)
{
    constexpr std::size_t most = 5;
    if (const std::string notDrawn = notDrawnSentence(*document.database()); !notDrawn.empty())
        say(platform::wideFromUtf8(notDrawn) + L".");
    const auto& problems = document.database()->impl().problems().all();
    if (problems.empty())
        return;
    say(countText(problems.size(), L"anomalie") + L" dans le fichier :");
    tellEach(problems, most);
}

Document& current()
{
    return *DocumentList::instance().current();
}

/// A file marked as read-only is replaced when its user says so.
bool mayReplace(const std::wstring& path)
{
    return !isReadOnly(platform::nativePath(path)) ||
           askYes(L"Le fichier « " + path + L" » est en lecture seule. Le remplacer ?", false);
}

void saveTo(const std::wstring& path)
{
    if (!mayReplace(path))
        refuse(path + readOnlyNotReplaced);
    const ReplacingReadOnly allowed(current().database()->impl());
    const auto& problems = current().database()->impl().problems().all();
    const std::size_t known = problems.size();
    if (const auto failure = DocumentList::instance().saveAs(current(), path))
        refuse(*failure);
    say(L"Dessin enregistré : " + std::wstring(current().fileName()));
    for (std::size_t i = known; i < problems.size(); ++i)
        say(platform::wideFromUtf8(problems[i]));
}

std::wstring openable(const std::wstring& typed)
{
    if (isThere(typed) || !extensionOf(typed).empty())
        return typed;
    return isThere(typed + L".dwg") && !isThere(typed + L".dxf") ? typed + L".dwg" : typed + L".dxf";
}

} // namespace

void commands::open()
{
    const std::wstring path = askFile({L"Entrez le nom du dessin à ouvrir", L"", L"dxf;dwg"});
    const auto opened = DocumentList::instance().open(openable(path));
    if (!opened.document)
        refuse(opened.failure);
    say(L"Dessin ouvert : " + std::wstring(opened.document->fileName()));
    tellProblems(*opened.document);
}

void commands::recover()
{
    const std::wstring path = askFile({L"Entrez le nom du dessin à récupérer", L"", L"dxf;dwg"});
    const auto opened = DocumentList::instance().open(openable(path));
    if (!opened.document)
        refuse(opened.failure);
    AcDbDatabase& drawing = *opened.document->database();
    const DrawingAudit found = audit(drawing);
    const DrawingRepair done = repair(drawing);
    say(L"Dessin récupéré : " + std::wstring(opened.document->fileName()) + L", " +
        countText(found.objects - done.gone.size(), L"objet") + L" sur " + std::to_wstring(found.objects));
    say(found.faults.empty() ? L"Rien n'était abîmé." : countText(found.faults.size(), L"anomalie") + L" :");
    tellEach(found.faults, found.faults.size());
    for (const auto* const touched : {&done.gone, &done.mended, &done.astray})
        tellEach(*touched, touched->size());
}

void commands::auditDrawing()
{
    constexpr std::size_t most = 100;
    const DrawingAudit found = audit(*current().database());
    say(countText(found.objects, L"objet") + L" contrôlés, " +
        (found.faults.empty() ? L"aucune anomalie." : countText(found.faults.size(), L"anomalie") + L" :"));
    tellEach(found.faults, most);
}

void commands::newDrawing()
{
    say(L"Dessin neuf : " + std::wstring(DocumentList::instance().create().docTitle()));
}

void commands::saveAs()
{
    CommandHooks::FileQuestion question = CommandHooks::drawingToSave(current().fileName());
    const std::wstring path = asDrawing(askFile(question));
    if (extensionOf(path) == L"dwg")
        refuse(path + L" : les dessins s'enregistrent en DXF, donnez un nom en « .dxf »");
    const bool asked = CommandHooks::instance().chooseFile && variable<short>(L"FILEDIA") != 0;
    const bool itself = platform::equalNoCase(path, current().fileName());
    if (!asked && !itself && isThere(path) && !askYes(L"Le fichier « " + path + L" » existe. Le remplacer ?", false))
        return;
    saveTo(path);
}

void commands::quickSave()
{
    if (current().isNamedDrawing())
        return saveTo(current().fileName());
    saveAs();
}

void commands::close()
{
    if (DrawingChanges::instance().areUnsaved(current()) &&
        askYes(L"Enregistrer les modifications de « " + std::wstring(current().docTitle()) + L" » ?", true)) {
        quickSave();
        if (DrawingChanges::instance().areUnsaved(current())) // it could not be saved
            return;
    }
    if (const auto failure = DocumentList::instance().close(current()))
        throw CommandFailed(*failure);
}
