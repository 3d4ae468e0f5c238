#include "commands/Commands.h"
#include "commands/Drawing.h"
#include "commands/Prompt.h"
#include "db/DatabaseImpl.h"
#include "ed/CommandStack.h"

/// U, UNDO, REDO: the history is kept by the database, a group for each command.

namespace {

constexpr const wchar_t* kAllUndone = L"Tout a été annulé.";
constexpr const wchar_t* kNothingToRedo = L"Il n'y a rien à rétablir.";

UndoRecorder& history()
{
    return drawing().impl().undo();
}

/// As the user calls it.
std::wstring localName(const std::wstring& globalName)
{
    const Command* command = CommandStack::instance().lookupGlobalCmd(globalName.c_str());
    return command ? command->localName() : globalName;
}

/// What modules put into the drawing for it to be saved: no step that a user would take back.
bool isSaving(const std::wstring& name)
{
    return name == L"QSAVE" || name == L"SAVE" || name == L"SAVEAS";
}

/// One group, or one mark. False when there is nothing left, or a mark was met.
bool takeOneBack()
{
    if (history().isAtBookmark()) {
        history().removeBookmark();
        say(L"Marque rencontrée.");
        return false;
    }
    while (isSaving(history().undoName()))
        history().undo();
    const std::wstring name = history().undoName();
    if (!history().undo()) {
        say(kAllUndone);
        return false;
    }
    if (!name.empty())
        say(localName(name));
    return true;
}

void takeBack(int count)
{
    while (count-- > 0 && takeOneBack()) {
    }
}

void backToMark()
{
    if (!history().hasBookmark() && !askYes(L"Tout sera annulé. Continuer ?", true))
        return;
    while (!history().isAtBookmark() && history().undo()) {
    }
    if (history().isAtBookmark())
        history().removeBookmark();
    else
        say(kAllUndone);
}

void beginSet()
{
    if (history().isSetBegun())
        history().endSet(L"GROUPE");
    history().beginSet();
}

void endSet()
{
    if (!history().endSet(L"GROUPE"))
        say(L"Aucun groupe n'est commencé.");
}

bool redoOne()
{
    const std::wstring name = history().redoName();
    if (!history().redo())
        return false;
    while (isSaving(history().redoName()))
        history().redo();
    if (!name.empty())
        say(localName(name));
    return true;
}

} // namespace

void commands::undoOne()
{
    takeOneBack();
}

void commands::undo()
{
    const auto given = Prompt(L"Entrez le nombre d'opérations à annuler ou [Début/Fin/Marque/Retour] <1> : ")
                           .positive()
                           .keywords(L"Début Fin Marque Retour _ BEgin End Mark Back")
                           .integer();
    if (given.is(L"BEgin"))
        return beginSet();
    if (given.is(L"End"))
        return endSet();
    if (given.is(L"Mark"))
        return history().placeBookmark();
    if (given.is(L"Back"))
        return backToMark();
    takeBack(given.value.value_or(1));
}

void commands::redo()
{
    if (!redoOne())
        say(kNothingToRedo);
}

void commands::redoMany()
{
    const auto given = Prompt(L"Entrez le nombre d'opérations à rétablir ou [Tout/Dernier] <1> : ")
                           .positive()
                           .keywords(L"Tout Dernier _ All Last")
                           .integer();
    int left = given.is(L"All") ? static_cast<int>(history().redoable()) : given.value.value_or(1);
    if (history().redoable() == 0)
        say(kNothingToRedo);
    while (left-- > 0 && redoOne()) {
    }
}
