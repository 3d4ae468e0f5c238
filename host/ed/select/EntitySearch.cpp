#include "ed/select/EntitySearch.h"

#include <algorithm>

#include "db/DatabaseImpl.h"
#include "db/Layouts.h"

#include "dbsymtb.h"

std::vector<AcDbObjectId> EntitySearch::inBlock(AcDbObjectId block, Layers layers)
{
    std::vector<AcDbObjectId> found;
    if (block.isNull())
        return found;
    const auto& entities = m_database.impl().blocks().of(block.stub()).entities;
    for (auto entity = entities.rbegin(); entity != entities.rend(); ++entity)
        if (!isErased(*recordOf(*entity)) && passes(AcDbObjectId(*entity), layers))
            found.emplace_back(*entity);
    return found;
}

std::vector<AcDbObjectId> EntitySearch::everywhere()
{
    std::vector<AcDbObjectId> all;
    for (const AcDbObjectId block : layoutBlocks(m_database)) {
        const auto found = inBlock(block);
        all.insert(all.end(), found.begin(), found.end());
    }
    return all;
}

AcDbObjectId EntitySearch::lastVisible(AcDbObjectId block)
{
    if (block.isNull())
        return {};
    const auto& entities = m_database.impl().blocks().of(block.stub()).entities;
    for (auto entity = entities.rbegin(); entity != entities.rend(); ++entity) {
        DxfRecord& record = *recordOf(*entity);
        if (isErased(record))
            continue;
        m_tags.moveTo(record);
        if (layerOf(record).shows)
            return AcDbObjectId(*entity);
    }
    return {};
}

std::vector<AcDbObjectId> EntitySearch::passing(const std::vector<AcDbObjectId>& entities, Layers layers)
{
    std::vector<AcDbObjectId> passed;
    std::ranges::copy_if(entities, std::back_inserter(passed), [&](AcDbObjectId entity) {
        return entity.isValid() && !entity.isErased() && passes(entity, layers);
    });
    return passed;
}

bool EntitySearch::passes(AcDbObjectId entity, Layers layers)
{
    DxfRecord& record = *recordOf(entity);
    m_tags.moveTo(record);
    if (!m_filter.takes(record, m_tags))
        return false;
    if (layers == Layers::all)
        return true;
    const LayerState& layer = layerOf(record);
    return !layer.locked && (layers == Layers::unlocked || !layer.frozen);
}

/// The tags must be those of the record.
const EntitySearch::LayerState& EntitySearch::layerOf(DxfRecord& record)
{
    constexpr int layerCode = 8;
    // Asking a changed entity costs less than writing its tags; one that is open for changes does not answer.
    const AcDbObjectPointer<AcDbEntity> changed(m_tags.isChanged() ? AcDbObjectId(stubOf(&record)) : AcDbObjectId());
    if (changed.openStatus() == Acad::eOk) {
        const AcDbObjectId layer = changed->layerId();
        const auto [known, isFirst] = m_layersOfObjects.try_emplace(layer.stub());
        if (isFirst)
            known->second = stateOf(layer.isNull() ? m_database.layerZero().stub() : layer.stub());
        return known->second;
    }
    const std::string_view bytes = m_tags.bytesOf(layerCode);
    const auto [known, isFirst] = m_layers.try_emplace(std::string(bytes));
    if (isFirst)
        known->second = stateOf(m_database.impl().named(NameKind::layer, bytes.empty() ? L"0" : m_tags.decoded(bytes)));
    return known->second;
}

EntitySearch::LayerState EntitySearch::stateOf(AcDbStub* stub)
{
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(AcDbObjectId(stub), AcDb::kForRead);
    if (layer.openStatus() != Acad::eOk)
        return {};
    return {!layer->isOff() && !layer->isFrozen(), layer->isLocked(), layer->isFrozen()};
}
