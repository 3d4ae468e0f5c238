#include "ed/DrawingChanges.h"

#include "ap/DocumentData.h"
#include "ap/DocumentList.h"
#include "db/DatabaseImpl.h"
#include "db/ObjectOpening.h"
#include "db/UndoTrial.h"
#include "ed/EditorReactors.h"
#include "ed/SystemVariables.h"
#include "platform/CodePage.h"
#include "rx/HostSession.h"
#include "rx/ModuleTable.h"

namespace {

struct SavedState {
    std::uint64_t drawing = 0, modules = 0, drafts = 0;
    bool never = false;
};

SavedState& savedStateOf(Document& document)
{
    static DocumentData<SavedState> states;
    return states.of(document);
}

std::uint64_t drawingState(Document& document)
{
    return document.database()->impl().undo().state();
}

std::uint64_t stateOf(const std::function<std::uint64_t()>& modules, Document& document)
{
    std::uint64_t state = 0;
    if (modules)
        DocumentList::instance().withCurrent(document, [&] { state = modules(); });
    return state;
}

} // namespace

DrawingChanges& DrawingChanges::instance()
{
    return HostSession::part<DrawingChanges>();
}

std::uint64_t DrawingChanges::state(Document& document) const
{
    constexpr std::uint64_t spread = 0x9E3779B97F4A7C15U; // golden ratio: both numbers count
    return (drawingState(document) * spread + stateOf(m_modules.saved, document)) * spread +
           stateOf(m_modules.drafts, document);
}

bool DrawingChanges::areUnsaved(Document& document) const
{
    const SavedState& saved = savedStateOf(document);
    return saved.never || saved.drawing != drawingState(document) ||
           saved.modules != stateOf(m_modules.saved, document);
}

bool DrawingChanges::hasNewDrafts(Document& document) const
{
    const std::uint64_t drafts = stateOf(m_modules.drafts, document);
    return drafts != 0 && drafts != savedStateOf(document).drafts;
}

void DrawingChanges::setSaved(Document& document)
{
    savedStateOf(document) = {drawingState(document), stateOf(m_modules.saved, document),
                              stateOf(m_modules.drafts, document), false};
}

void DrawingChanges::setNeverSaved(Document& document)
{
    savedStateOf(document).never = true;
}

std::optional<std::wstring> DrawingChanges::writeCopy(Document& document, const std::filesystem::path& path)
{
    if (ObjectOpening::openCount() > 0)
        return L"des objets du dessin sont ouverts";
    std::optional<std::wstring> failure;
    DocumentList::instance().withCurrent(document, [&] {
        const UndoTrial trial(document.database()->impl().undo());
        const std::vector<std::wstring> failed = ModuleTable::instance().tellAll(AcRx::kSaveMsg);
        const std::wstring file = platform::wideFromUtf8(path.string());
        SystemVariables::instance().assign(L"SAVEFILE", file);
        EditorReactors::instance().tellBeginSave(*document.database(), file);
        failure = document.database()->impl().writeCopy(path);
        if (!failure && !failed.empty())
            failure = L"la copie est sans les données du module « " + failed.front() + L" »";
    });
    return failure;
}
