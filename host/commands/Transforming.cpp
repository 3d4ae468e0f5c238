#include "commands/Transforming.h"

#include <map>

#include "commands/Drawing.h"
#include "commands/NumberTexts.h"
#include "commands/Prompt.h"
#include "gemat3d.h"

std::vector<AcDbObjectId> copyObjects(const std::vector<AcDbObjectId>& objects)
{
    AcDbIdMapping mapping;
    std::map<std::int64_t, std::pair<AcDbObjectId, AcDbObjectIdArray>> byOwner; // all of a block at once
    for (const AcDbObjectId id : objects) {
        const AcDbObjectPointer<AcDbEntity> entity(id);
        if (!entity.object())
            continue;
        auto& [owner, ids] = byOwner[entity->ownerId().asOldId()];
        owner = entity->ownerId();
        ids.append(id);
    }
    for (auto& [key, group] : byOwner)
        drawing().deepCloneObjects(group.second, group.first, mapping);
    std::vector<AcDbObjectId> copies;
    for (const AcDbObjectId id : objects)
        if (AcDbObjectId copy; mapping.find(id, copy) && !copy.isErased())
            copies.push_back(copy);
    return copies;
}

void transformObjects(const std::vector<AcDbObjectId>& objects, const AcGeMatrix3d& matrix)
{
    std::size_t refused = 0;
    for (const AcDbObjectId id : objects)
        if (change<AcDbEntity>(id, [&](AcDbEntity& entity) { return entity.transformBy(matrix); }) != Acad::eOk)
            ++refused;
    if (refused > 0)
        say(countText(refused, L"objet") +
            (refused > 1 ? L" ne peuvent être transformés." : L" ne peut être transformé."));
}
