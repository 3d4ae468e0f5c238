#include "commands/CommandTable.h"

#include <sstream>

#include "commands/Commands.h"
#include "commands/FileQuestion.h"
#include "commands/Prompt.h"
#include "ed/CommandStack.h"
#include "lisp/LispHooks.h"

namespace {

/// What the stack calls: a command that the user cancelled has simply ended.
template <void (*Handler)()>
void cancellable()
{
    try {
        Handler();
    } catch (const CommandCancelled&) { // told where it was asked
    }
}

struct CommandRow {
    const wchar_t* global;
    const wchar_t* local;
    const wchar_t* aliases; ///< blanks between
    Adesk::Int32 flags;
    AcRxFunctionPtr handler;
};

constexpr Adesk::Int32 kDraws = ACRX_CMD_MODAL;
constexpr Adesk::Int32 kSelects = ACRX_CMD_MODAL | ACRX_CMD_USEPICKSET;
constexpr Adesk::Int32 kLooks = ACRX_CMD_TRANSPARENT | ACRX_CMD_NO_UNDO_MARKER;
constexpr Adesk::Int32 kHistory = ACRX_CMD_MODAL | ACRX_CMD_NO_UNDO_MARKER; // no step of its own
constexpr Adesk::Int32 kSession = ACRX_CMD_SESSION | ACRX_CMD_NO_UNDO_MARKER;

constexpr CommandRow kCommands[] = {
    {L"LINE", L"LIGNE", L"L LI", kDraws, cancellable<commands::line>},
    {L"PLINE", L"POLYLIGN", L"PL", kDraws, cancellable<commands::polyline>},
    {L"CIRCLE", L"CERCLE", L"C CE", kDraws, cancellable<commands::circle>},
    {L"ARC", L"ARC", L"A", kDraws, cancellable<commands::arc>},
    {L"POINT", L"POINT", L"PO", kDraws, cancellable<commands::point>},
    {L"TEXT", L"TEXTE", L"T TX DT", kDraws, cancellable<commands::text>},
    {L"INSERT", L"INSERER", L"I IN", kDraws, cancellable<commands::insert>},
    {L"ERASE", L"EFFACER", L"E EF", kSelects, cancellable<commands::erase>},
    {L"MOVE", L"DEPLACER", L"M DP", kSelects, cancellable<commands::move>},
    {L"COPY", L"COPIER", L"CO CP", kSelects, cancellable<commands::copy>},
    {L"ROTATE", L"ROTATION", L"RO", kSelects, cancellable<commands::rotate>},
    {L"SCALE", L"ECHELLE", L"EC", kSelects, cancellable<commands::scale>},
    {L"MIRROR", L"MIROIR", L"MI", kSelects, cancellable<commands::mirror>},
    {L"EXPLODE", L"DECOMPOS", L"X DE", kSelects, cancellable<commands::explode>},
    {L"CHPROP", L"CHPROP", L"", kSelects, cancellable<commands::changeProperties>},
    {L"LAYER", L"CALQUE", L"CA", kDraws, cancellable<commands::layer>},
    {L"RENAME", L"RENOMMER", L"REN", kDraws, cancellable<commands::rename>},
    {L"COLOR", L"COULEUR", L"COL", kDraws, cancellable<commands::color>},
    {L"LIST", L"LISTE", L"LS", kSelects | ACRX_CMD_NO_UNDO_MARKER, cancellable<commands::list>},
    {L"DIST", L"DISTANCE", L"DI", kLooks, cancellable<commands::distance>},
    {L"ID", L"ID", L"", kLooks, cancellable<commands::identify>},
    {L"AREA", L"AIRE", L"AA", kHistory, cancellable<commands::area>},
    {L"ZOOM", L"ZOOM", L"Z", kLooks, cancellable<commands::zoom>},
    {L"PAN", L"PAN", L"P", kLooks, cancellable<commands::pan>},
    {L"REGEN", L"REGEN", L"RG", kHistory, cancellable<commands::regenerate>},
    {L"OPEN", L"OUVRIR", L"OU", kSession, cancellable<commands::open>},
    {L"NEW", L"NOUVEAU", L"NO", kSession, cancellable<commands::newDrawing>},
    {L"SAVE", L"SAUVEGRD", L"", kDraws, cancellable<commands::saveAs>},
    {L"SAVEAS", L"SAUVENOM", L"SN", kDraws, cancellable<commands::saveAs>},
    {L"QSAVE", L"SAUVERAP", L"SR", kDraws, cancellable<commands::quickSave>},
    {L"CLOSE", L"FERMER", L"", kSession, cancellable<commands::close>},
    {L"RECOVER", L"RECUPERER", L"", kSession, cancellable<commands::recover>},
    {L"AUDIT", L"CONTROLER", L"", kHistory, cancellable<commands::auditDrawing>},
    {L"PLOT", L"TRACEUR", L"IMPRIMER", kHistory, cancellable<commands::plot>},
    {L"U", L"U", L"", kHistory, cancellable<commands::undoOne>},
    {L"UNDO", L"ANNULER", L"AN", kHistory, cancellable<commands::undo>},
    {L"REDO", L"RETABLIR", L"RT", kHistory, cancellable<commands::redo>},
    {L"MREDO", L"MRETABLIR", L"MR", kHistory, cancellable<commands::redoMany>},
    {L"SCRIPT", L"SCRIPT", L"SC", kHistory, cancellable<commands::script>},
    {L"APPLOAD", L"CHARGAPPLI", L"AP", kHistory, cancellable<commands::loadApplication>},
    {L"OSNAP", L"ACCROBJ", L"OS -OSNAP -ACCROBJ", ACRX_CMD_TRANSPARENT, cancellable<commands::objectSnaps>},
    {L"SETVAR", L"MODIFVAR", L"MV", ACRX_CMD_TRANSPARENT, cancellable<commands::setVariable>},
};

/// AutoLISP asks for files as commands do.
std::optional<std::wstring> chooseFile(const std::wstring& title, const std::wstring& proposed,
                                       const std::wstring& extensions, bool toSave)
{
    try {
        return askFile({title, proposed, extensions, toSave});
    } catch (const CommandCancelled&) {
        return std::nullopt;
    }
}

} // namespace

void registerHostCommands()
{
    LispHooks::instance().chooseFile = chooseFile;
    CommandStack& stack = CommandStack::instance();
    for (const CommandRow& row : kCommands) {
        acedRegCmds->addCommand(L"VELA_HOTE", row.global, row.local, row.flags, row.handler);
        stack.addAlias(row.global, row.global); // where no local name is the same word
        std::wistringstream aliases(row.aliases);
        for (std::wstring alias; aliases >> alias;)
            stack.addAlias(alias, row.global);
    }
}
