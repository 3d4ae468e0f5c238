#include "ed/EditorReactors.h"

#include <algorithm>
#include <memory>

#include "rx/SystemRegistry.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcEditor, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcEditorReactor, AcRxObject)

namespace {

const bool reactorsRegistered =
    registerAtStart(ACRX_EDITOR_OBJ, []() -> AcRxObject* { return std::make_unique<EditorReactors>().release(); });

} // namespace

EditorReactors& EditorReactors::instance()
{
    return static_cast<EditorReactors&>(*acrxSysRegistry()->at(ACRX_EDITOR_OBJ));
}

void EditorReactors::addReactor(AcEditorReactor* reactor)
{
    if (reactor && std::ranges::find(m_reactors, reactor) == m_reactors.end())
        m_reactors.push_back(reactor);
}

void EditorReactors::removeReactor(AcEditorReactor* reactor)
{
    std::erase(m_reactors, reactor);
}

void EditorReactors::forEach(const std::function<void(AcEditorReactor&)>& task) const
{
    const std::vector<AcEditorReactor*> told = m_reactors; // they may come and go meanwhile
    for (AcEditorReactor* const reactor : told)
        if (std::ranges::find(m_reactors, reactor) != m_reactors.end())
            task(*reactor);
}

void EditorReactors::tell(Event event, const std::wstring& command) const
{
    forEach([&](AcEditorReactor& reactor) { (reactor.*event)(command.c_str()); });
}

void EditorReactors::tellBeginSave(AcDbDatabase& drawing, const std::wstring& path) const
{
    forEach([&](AcEditorReactor& reactor) { reactor.beginSave(&drawing, path.c_str()); });
}
