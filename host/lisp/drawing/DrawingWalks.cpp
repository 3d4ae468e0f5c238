#include "lisp/drawing/DrawingWalks.h"

#include <algorithm>

#include "ap/DocumentData.h"
#include "db/DatabaseImpl.h"
#include "db/Ownership.h"
#include "lisp/eval/LispError.h"
#include "lisp/eval/LispTexts.h"

#include "acdocman.h"
#include "dbents.h"

namespace {

const std::vector<AcDbStub*>& entitiesOf(AcDbObjectId block)
{
    return AcDbDatabaseImpl::of(block.stub()).blocks().of(block.stub()).entities;
}

AcDbObjectId ownerOf(AcDbObjectId id)
{
    return AcDbObjectId(AcDbDatabaseImpl::of(id.stub()).ownership().ownerOf(*recordOf(id)));
}

bool isEntity(AcDbObjectId id)
{
    return isOfClass(id, AcDbEntity::desc());
}

} // namespace

DrawingWalks& DrawingWalks::ofCurrentDocument()
{
    static DocumentData<DrawingWalks> ofDocuments;
    AcApDocument* const document = curDoc();
    if (!document)
        throw LispError(lisp_texts::noDrawing);
    return ofDocuments.of(*document);
}

AcDbObjectId EntityWalk::first(AcDbObjectId block)
{
    const auto& entities = entitiesOf(block);
    const auto found = std::ranges::find_if_not(entities, [](AcDbStub* stub) { return isErased(*recordOf(stub)); });
    return found == entities.end() ? AcDbObjectId() : AcDbObjectId(*found);
}

AcDbObjectId EntityWalk::last(AcDbObjectId block)
{
    const auto& entities = entitiesOf(block);
    const auto found =
        std::find_if_not(entities.rbegin(), entities.rend(), [](AcDbStub* stub) { return isErased(*recordOf(stub)); });
    return found == entities.rend() ? AcDbObjectId() : AcDbObjectId(*found);
}

AcDbObjectId EntityWalk::after(AcDbObjectId entity)
{
    const AcDbObjectId owner = ownerOf(entity);
    if (!owner.isNull() && isEntity(owner)) {
        takeSubentities(owner);
        if (m_subentity >= m_subentities.size() || m_subentities[m_subentity] != entity.stub())
            m_subentity =
                static_cast<std::size_t>(std::ranges::find(m_subentities, entity.stub()) - m_subentities.begin());
        const AcDbObjectId next = subentityFrom(m_subentity + 1);
        return next.isNull() ? mainAfter(owner) : next;
    }
    takeSubentities(entity);
    const AcDbObjectId inside = subentityFrom(0);
    return inside.isNull() ? mainAfter(entity) : inside;
}

AcDbObjectId EntityWalk::subentityFrom(std::size_t at)
{
    for (; at < m_subentities.size(); ++at) {
        if (isErased(*recordOf(m_subentities[at])))
            continue;
        m_subentity = at;
        return AcDbObjectId(m_subentities[at]);
    }
    return {};
}

void EntityWalk::takeSubentities(AcDbObjectId parent)
{
    if (m_parent == parent)
        return;
    m_parent = parent;
    m_subentity = 0;
    m_subentities.clear();
    AcDbDatabaseImpl& database = AcDbDatabaseImpl::of(parent.stub());
    DxfRecord& record = *recordOf(parent);
    const std::string& type = database.typeName(record);
    if (type != "INSERT" && type != "POLYLINE")
        return;
    m_subentities = database.ownership().subentities(database.object(record), true);
    if (AcDbStub* const end = database.ownership().sequenceEnd(record); end && !m_subentities.empty())
        m_subentities.push_back(end);
}

/// Places never change: entities join a block at its end, and erased ones keep theirs.
std::size_t EntityWalk::placeOf(AcDbObjectId entity, AcDbObjectId block)
{
    if (m_block != block) {
        m_block = block;
        m_places.clear();
    }
    const auto& entities = entitiesOf(block);
    for (std::size_t at = m_places.size(); at < entities.size(); ++at)
        m_places.emplace(entities[at], at);
    const auto found = m_places.find(entity.stub());
    return found == m_places.end() ? entities.size() : found->second;
}

AcDbObjectId EntityWalk::mainAfter(AcDbObjectId entity)
{
    AcDbObjectId block = ownerOf(entity);
    if (block.isNull())
        return {};
    if (placeOf(entity, block) == entitiesOf(block).size()) { // files may name one block and stand in another
        AcDbDatabaseImpl& database = AcDbDatabaseImpl::of(entity.stub());
        AcDbStub* const around = database.blocks().around(*recordOf(entity));
        block = around ? AcDbObjectId(around) : block;
    }
    const auto& entities = entitiesOf(block);
    for (std::size_t at = placeOf(entity, block) + 1; at < entities.size(); ++at)
        if (!isErased(*recordOf(entities[at])))
            return AcDbObjectId(entities[at]);
    return {};
}
