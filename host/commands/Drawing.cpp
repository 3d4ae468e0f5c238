#include "commands/Drawing.h"

#include "commands/CommandFailed.h"
#include "commands/NumberTexts.h"
#include "commands/Prompt.h"
#include "ed/input/PickFirst.h"

#include "acdocman.h"
#include "acedads.h"
#include "acutmem.h"
#include "dbads.h"
#include "dbapserv.h"
#include "dbsymtb.h"

AcDbDatabase& drawing()
{
    return *curDoc()->database();
}

AcDbObjectId addToDrawing(std::unique_ptr<AcDbEntity> entity)
{
    entity->setDatabaseDefaults(&drawing());
    return addAsItIs(std::move(entity), drawing().currentSpaceId());
}

AcDbObjectId addAsItIs(std::unique_ptr<AcDbEntity> entity, AcDbObjectId block)
{
    AcDbObjectPointer<AcDbBlockTableRecord> space(block, AcDb::kForWrite);
    AcDbObjectId id;
    if (!space.object() || space->appendAcDbEntity(id, entity.get()) != Acad::eOk)
        return {};
    entity.release()->close(); // the drawing owns it
    return id;
}

Acad::ErrorStatus eraseObject(AcDbObjectId id)
{
    return change<AcDbObject>(id, [](AcDbObject& object) { return object.erase(); });
}

namespace {

/// A selection set of the interface, freed at the end of the scope.
class SelectionSet {
public:
    SelectionSet() = default;
    ~SelectionSet()
    {
        if (!ads_name_nil(name))
            acedSSFree(name);
    }
    SelectionSet(const SelectionSet&) = delete;
    SelectionSet& operator=(const SelectionSet&) = delete;

    std::vector<AcDbObjectId> objects() const
    {
        std::vector<AcDbObjectId> found;
        Adesk::Int32 length = 0;
        acedSSLength(name, &length);
        for (Adesk::Int32 i = 0; i < length; ++i) {
            ads_name entity = {0, 0};
            AcDbObjectId id;
            if (acedSSName(name, i, entity) == RTNORM && acdbGetObjectId(id, entity) == Acad::eOk)
                found.push_back(id);
        }
        return found;
    }

    ads_name name = {0, 0};
};

bool isOnLockedLayer(AcDbObjectId id)
{
    const AcDbObjectPointer<AcDbEntity> entity(id);
    if (!entity.object())
        return false;
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(entity->layerId());
    return layer.object() && layer->isLocked();
}

} // namespace

std::vector<AcDbObjectId> askObjects()
{
    SelectionSet set;
    const int status = acedSSGet(nullptr, nullptr, nullptr, nullptr, set.name);
    std::vector<AcDbObjectId> chosen = status == RTNORM ? set.objects() : std::vector<AcDbObjectId>();
    if (chosen.empty())
        throw CommandCancelled();
    PickFirst::of(*curDoc()).setBeingMade(chosen); // stays marked until the command ends
    return chosen;
}

std::vector<AcDbObjectId> askEditable()
{
    std::vector<AcDbObjectId> chosen = askObjects();
    const std::size_t locked = std::erase_if(chosen, isOnLockedLayer);
    const std::wstring left =
        countText(locked, L"objet") + (locked > 1 ? L" étaient" : L" était") + L" sur un calque verrouillé.";
    if (chosen.empty())
        throw CommandFailed(left);
    if (locked > 0)
        say(left);
    return chosen;
}

void tellRefused(std::size_t refused, std::size_t all, const wchar_t* one, const wchar_t* several)
{
    const std::wstring told = countText(refused, L"objet") + (refused > 1 ? several : one);
    if (refused > 0 && refused == all)
        throw CommandFailed(told);
    if (refused > 0)
        say(told);
}

std::wstring recordName(AcDbObjectId record)
{
    const AcDbObjectPointer<AcDbSymbolTableRecord> opened(record);
    const ACHAR* name = nullptr;
    return opened.object() && opened->getName(name) == Acad::eOk ? name : L"";
}
