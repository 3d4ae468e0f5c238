#pragma once

#include <functional>
#include <string>
#include <vector>

#include "aced.h"

/// The editor that the system registry holds: passes on what commands do.
class EditorReactors : public AcEditor {
public:
    static EditorReactors& instance();

    void addReactor(AcEditorReactor* reactor) override;
    void removeReactor(AcEditorReactor* reactor) override;

    /// One of the reactors' members, called for each of them.
    using Event = void (AcEditorReactor::*)(const ACHAR*);
    void tell(Event event, const std::wstring& command) const;
    void tellBeginSave(AcDbDatabase& drawing, const std::wstring& path) const;

private:
    void forEach(const std::function<void(AcEditorReactor&)>& task) const;

    std::vector<AcEditorReactor*> m_reactors;
};
