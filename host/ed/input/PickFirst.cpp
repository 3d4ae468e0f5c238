#include "ed/input/PickFirst.h"

#include <algorithm>
#include <unordered_set>

#include "ap/DocumentData.h"
#include "rx/HostSession.h"

namespace {

struct Listener {
    std::function<void(AcApDocument&)> changed;
};

std::function<void(AcApDocument&)>& listener()
{
    return HostSession::part<Listener>().changed;
}

std::vector<AcDbObjectId> withoutErased(const std::vector<AcDbObjectId>& objects)
{
    std::vector<AcDbObjectId> kept;
    std::ranges::copy_if(objects, std::back_inserter(kept), [](AcDbObjectId id) { return !id.isErased(); });
    return kept;
}

std::vector<AcDbObjectId> eachOnce(const std::vector<AcDbObjectId>& objects)
{
    std::vector<AcDbObjectId> kept;
    std::unordered_set<AcDbStub*> known;
    for (const AcDbObjectId id : objects)
        if (id.isValid() && known.insert(id.stub()).second)
            kept.push_back(id);
    return kept;
}

} // namespace

PickFirst& PickFirst::of(AcApDocument& document)
{
    static DocumentData<PickFirst> ofDocuments;
    PickFirst& selected = ofDocuments.of(document);
    selected.m_document = &document;
    return selected;
}

void PickFirst::onChange(std::function<void(AcApDocument&)> changed)
{
    listener() = std::move(changed);
}

void PickFirst::changed()
{
    if (listener())
        listener()(*m_document);
}

std::vector<AcDbObjectId> PickFirst::objects() const
{
    return withoutErased(m_objects);
}

void PickFirst::set(const std::vector<AcDbObjectId>& objects)
{
    if (objects.empty() && m_objects.empty())
        return;
    m_objects = eachOnce(objects);
    changed();
}

std::vector<AcDbObjectId> PickFirst::highlighted() const
{
    std::vector<AcDbObjectId> all = m_beingMade.empty() ? m_objects : m_beingMade;
    all.insert(all.end(), m_highlighted.begin(), m_highlighted.end());
    return withoutErased(eachOnce(all));
}

void PickFirst::setBeingMade(std::vector<AcDbObjectId> objects)
{
    if (objects.empty() && m_beingMade.empty())
        return;
    m_beingMade = std::move(objects);
    changed();
}

void PickFirst::setHighlighted(AcDbObjectId entity, bool highlighted)
{
    std::erase(m_highlighted, entity);
    if (highlighted)
        m_highlighted.push_back(entity);
    changed();
}
