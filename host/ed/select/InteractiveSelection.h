#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ed/input/Question.h"
#include "ed/select/AreaPicking.h"
#include "ed/select/PickEffect.h"
#include "ed/select/SelectionCall.h"
#include "ed/select/SelectionSets.h"

#include "dbmain.h"

/// "Choix des objets" until Enter: points, windows, fences, options, entities; adding and removing.
class InteractiveSelection {
public:
    /// Those of some entities that may be taken, in their order.
    using Taken = std::function<std::vector<AcDbObjectId>(const std::vector<AcDbObjectId>&)>;
    struct Prompts {
        std::wstring adding, removing;
    };
    /// Takes what acedInitGet has set.
    InteractiveSelection(AcDbDatabase& database, const SelectionCall& call, Prompts prompts, Taken taken);
    ~InteractiveSelection();
    InteractiveSelection(const InteractiveSelection&) = delete;
    InteractiveSelection& operator=(const InteractiveSelection&) = delete;

    /// @return RTNORM when the user is done, RTCAN, RTKWORD.
    int ask();
    /// What was selected, once: sets of whole drawings are too large to be copied about.
    SelectionSet takeSelection() { return std::move(m_selection); }

private:
    /// What one answer changed, so that it can be taken back.
    struct Change {
        std::vector<AcDbObjectId> entities;
        bool removed;
    };

    bool isUnderstood(const InputAnswer& answer) const;
    int handle(const InputAnswer& answer);
    int handleOption(const std::wstring& name);
    int pickAt(const AcGePoint3d& point);
    int askBox(const std::wstring& option);
    int askOppositeCorner(const AcGePoint3d& corner, std::optional<PickExtent> extent);
    int askPolygon(const std::wstring& option);
    PickEffect effectOf(const std::vector<AcDbObjectId>& entities) const;
    void take(const std::vector<AcDbObjectId>& entities);
    /// @return how many of them joined or left
    std::size_t change(const std::vector<AcDbObjectId>& entities, bool removes);
    void takeBack();

    AcDbDatabase& m_database;
    SelectionCall m_call;
    Prompts m_prompts;
    Taken m_taken;
    Question m_question;
    SelectionSet m_selection;
    std::vector<Change> m_changes;
    bool m_removing = false; ///< by the option
    bool m_picking = false;  ///< the last answer was picked in the window
    bool m_withShift = false;
};

/// The selection made last in the current document: for "Précédent".
std::vector<AcDbObjectId>& previousSelection();
