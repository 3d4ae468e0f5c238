#include "ui/window/DrawingSelection.h"

#include <map>
#include <memory>

#include "dbsymtb.h"

namespace {

class EditableLayers {
public:
    bool holds(AcDbObjectId layer)
    {
        const auto [place, isNew] = m_known.try_emplace(layer.asOldId(), false);
        if (isNew)
            place->second = isEditable(layer);
        return place->second;
    }

private:
    static bool isEditable(AcDbObjectId id)
    {
        const AcDbObjectPointer<AcDbLayerTableRecord> layer(id);
        return layer.openStatus() == Acad::eOk && !layer->isOff() && !layer->isFrozen() && !layer->isLocked();
    }
    std::map<std::int64_t, bool> m_known;
};

} // namespace

std::vector<AcDbObjectId> selectableEntities(AcDbDatabase& database)
{
    std::vector<AcDbObjectId> found;
    const AcDbObjectPointer<AcDbBlockTableRecord> space(database.currentSpaceId());
    AcDbBlockTableRecordIterator* made = nullptr;
    if (space.openStatus() != Acad::eOk || space->newIterator(made) != Acad::eOk)
        return found;
    const std::unique_ptr<AcDbBlockTableRecordIterator> at(made);
    EditableLayers layers;
    for (; !at->done(); at->step()) {
        AcDbObjectId id;
        at->getEntityId(id);
        if (const AcDbObjectPointer<AcDbEntity> entity(id);
            entity.openStatus() == Acad::eOk && layers.holds(entity->layerId()))
            found.push_back(id);
    }
    return found;
}
