// acedSSGet and what is done with selection sets.

#include "ed/input/InputTexts.h"
#include "ed/input/PickFirst.h"
#include "ed/input/PickFirstRule.h"
#include "ed/select/EntitySearch.h"
#include "ed/select/InteractiveSelection.h"
#include "rx/Console.h"
#include "rx/ResbufChain.h"
#include "rx/ResbufKind.h"

#include "acdocman.h"
#include "aced.h"
#include "dbads.h"

namespace {

AcDbObjectId entityOf(const ads_name name)
{
    AcDbObjectId id;
    if (name)
        id.setFromOldId(name[0]);
    return id.isValid() ? id : AcDbObjectId();
}

std::vector<AcGePoint3d> pointsOf(const resbuf* chain)
{
    std::vector<AcGePoint3d> points;
    for (; chain; chain = chain->rbnext)
        if (resbufKind(chain->restype) == ResbufKind::point)
            points.push_back(pointOf(chain->resval.rpoint));
    return points;
}

/// One call of acedSSGet.
class Selecting {
public:
    Selecting(AcApDocument& document, const SelectionCall& call, const EntityFilter& filter) :
        m_document(document),
        m_database(*document.database()),
        m_call(call),
        m_search(m_database, filter)
    {
    }

    int run(const void* first, const void* second)
    {
        using Mode = SelectionCall::Mode;
        const bool isPoint = first && !m_call.prompts;
        if (m_call.mode == Mode::ask && !isPoint)
            return ask(m_call.prompts ? static_cast<const ACHAR* const*>(first) : nullptr);
        EditorInput::instance().takeInitGet();
        switch (m_call.mode) {
        case Mode::whole:
            take(m_search.everywhere());
            break;
        case Mode::editable:
            take(m_search.inBlock(m_database.currentSpaceId(), EntitySearch::Layers::editable));
            break;
        case Mode::previous:
            take(passing(previousSelection()));
            break;
        case Mode::last:
            take(passing({m_search.lastVisible(m_database.currentSpaceId())}));
            break;
        case Mode::implied:
            take(passing(PickFirst::of(m_document).objects()));
            break;
        default:
            return pointAt(first, second);
        }
        return RTNORM;
    }
    SelectionSet& found() { return m_found; }

private:
    void take(const std::vector<AcDbObjectId>& entities)
    {
        m_found.reserve(entities.size());
        for (const AcDbObjectId entity : entities)
            m_found.add(entity);
    }

    std::vector<AcDbObjectId> passing(const std::vector<AcDbObjectId>& entities)
    {
        return m_search.passing(entities, m_call.unlocked ? EntitySearch::Layers::unlocked : EntitySearch::Layers::all);
    }

    int ask(const ACHAR* const* prompts)
    {
        if (usesPickFirst()) {
            take(passing(PickFirst::of(m_document).objects()));
            if (!m_found.empty()) {
                EditorInput::instance().takeInitGet();
                Console::instance().print(L"\n" + std::to_wstring(m_found.size()) + L" trouvé(s)");
                return RTNORM;
            }
        }
        InteractiveSelection asking(m_database, m_call,
                                    {prompts && prompts[0] ? prompts[0] : input_texts::pickObjects,
                                     prompts && prompts[1] ? prompts[1] : input_texts::pickToRemove},
                                    [this](const auto& entities) { return passing(entities); });
        const int status = asking.ask();
        if (status == RTNORM)
            m_found = asking.takeSelection();
        return status;
    }

    int pointAt(const void* first, const void* second)
    {
        using Mode = SelectionCall::Mode;
        const auto* const point = static_cast<const ads_real*>(first);
        const auto* const other = static_cast<const ads_real*>(second);
        if (!first || ((m_call.mode == Mode::window || m_call.mode == Mode::crossing) && !other))
            return RTERROR;
        switch (m_call.mode) {
        case Mode::ask: {
            auto under = passing(entitiesUnder(m_database, pointOf(point), true));
            if (!m_call.everything && under.size() > 1)
                under.resize(1);
            take(under);
            break;
        }
        case Mode::window:
        case Mode::crossing:
            take(passing(entitiesInBox(m_database, pointOf(point), pointOf(other), extent())));
            break;
        case Mode::fence:
            take(passing(entitiesOnFence(m_database, pointsOf(static_cast<const resbuf*>(first)))));
            break;
        default:
            take(passing(entitiesInPolygon(m_database, pointsOf(static_cast<const resbuf*>(first)), extent())));
        }
        return RTNORM;
    }

    PickExtent extent() const
    {
        using Mode = SelectionCall::Mode;
        return m_call.mode == Mode::window || m_call.mode == Mode::windowPolygon ? PickExtent::inside
                                                                                 : PickExtent::crossing;
    }

    AcApDocument& m_document;
    AcDbDatabase& m_database;
    SelectionCall m_call;
    EntitySearch m_search;
    SelectionSet m_found;
};

/// A new set of entities, as a chain; null for none.
resbuf* chainOfSet(const std::vector<AcDbObjectId>& entities)
{
    ads_name name;
    SelectionSet* const set = entities.empty() ? nullptr : SelectionSets::instance().make(name);
    if (!set)
        return nullptr;
    for (const AcDbObjectId entity : entities)
        set->add(entity);
    return acutBuildList(RTPICKS, name, 0);
}

} // namespace

int acedSSGet(const ACHAR* how, const void* first, const void* second, const resbuf* filter, ads_name set)
{
    AcApDocument* const document = curDoc();
    const auto call = SelectionCall::read(how);
    const auto wanted = EntityFilter::of(filter);
    if (set)
        ads_name_clear(set);
    if (!set || !document || !call || !wanted) {
        EditorInput::instance().takeInitGet();
        return RTERROR;
    }
    Selecting selecting(*document, *call, *wanted);
    if (const int status = selecting.run(first, second); status != RTNORM)
        return status;
    if (selecting.found().empty())
        return RTERROR;
    SelectionSet* const made = SelectionSets::instance().make(set);
    if (!made)
        return RTREJ;
    *made = std::move(selecting.found());
    previousSelection() = made->objects();
    return RTNORM;
}

int acedSSAdd(const ads_name entity, const ads_name set, ads_name result)
{
    const AcDbObjectId joining = entityOf(entity);
    if (!result || (entity && joining.isNull()))
        return RTERROR;
    ads_name name = {0, 0};
    SelectionSet* joined = nullptr;
    if (set && !ads_name_nil(set)) {
        joined = SelectionSets::instance().find(set);
        ads_name_set(set, name);
    } else {
        joined = SelectionSets::instance().make(name);
        if (!joined)
            return RTREJ;
    }
    if (!joined)
        return RTERROR;
    if (entity)
        joined->add(joining);
    ads_name_set(name, result);
    return RTNORM;
}

int acedSSDel(const ads_name entity, const ads_name set)
{
    SelectionSet* const from = SelectionSets::instance().find(set);
    return from && from->remove(entityOf(entity)) ? RTNORM : RTERROR;
}

int acedSSMemb(const ads_name entity, const ads_name set)
{
    const SelectionSet* const in = SelectionSets::instance().find(set);
    return in && in->has(entityOf(entity)) ? RTNORM : RTERROR;
}

int acedSSLength(const ads_name set, Adesk::Int32* length)
{
    const SelectionSet* const of = SelectionSets::instance().find(set);
    if (!of || !length)
        return RTERROR;
    *length = static_cast<Adesk::Int32>(of->size());
    return RTNORM;
}

int acedSSName(const ads_name set, Adesk::Int32 place, ads_name entity)
{
    const SelectionSet* const of = SelectionSets::instance().find(set);
    if (!of || !entity || place < 0)
        return RTERROR;
    const AcDbObjectId found = of->at(static_cast<std::size_t>(place));
    if (found.isNull())
        return RTERROR;
    entity[0] = found.asOldId();
    entity[1] = 0;
    return RTNORM;
}

int acedSSFree(const ads_name set)
{
    return SelectionSets::instance().free(set) ? RTNORM : RTERROR;
}

int acedSSGetFirst(resbuf** gripSet, resbuf** pickFirstSet)
{
    AcApDocument* const document = curDoc();
    if (!document)
        return RTERROR;
    if (gripSet)
        *gripSet = nullptr;
    if (pickFirstSet)
        *pickFirstSet = chainOfSet(PickFirst::of(*document).objects());
    return RTNORM;
}

int acedSSSetFirst(const ads_name set, const ads_name)
{
    AcApDocument* const document = curDoc();
    const bool selectsNone = !set || ads_name_nil(set);
    const SelectionSet* const selected = selectsNone ? nullptr : SelectionSets::instance().find(set);
    if (!document || (!selectsNone && !selected))
        return RTERROR;
    PickFirst::of(*document).set(selected ? selected->objects() : std::vector<AcDbObjectId>());
    return RTNORM;
}
