#include "db/entities/DimensionBlock.h"

#include <memory>
#include <vector>

#include "db/DatabaseImpl.h"

#include "dbsymtb.h"

namespace {

using Entities = std::vector<std::unique_ptr<AcDbEntity>>;

bool copyThrough(AcDbDatabaseImpl& database, AcDbStub* block, const AcGeMatrix3d& matrix, Entities& copies)
{
    for (AcDbStub* stub : database.blocks().of(block).entities) {
        const AcDbObjectPointer<AcDbEntity> entity{AcDbObjectId(stub)};
        AcDbEntity* copy = nullptr;
        if (!entity.object())
            continue;
        if (entity->getTransformedCopy(matrix, copy) != Acad::eOk)
            return false;
        copies.emplace_back(copy);
    }
    return true;
}

/// Counted from the number of blocks on, where names are free as a rule.
std::wstring freeName(AcDbDatabaseImpl& database)
{
    for (std::size_t number = database.names(NameKind::block).records().size();; ++number)
        if (std::wstring name = L"*D" + std::to_wstring(number); !database.named(NameKind::block, name))
            return name;
}

} // namespace

AcDbStub* blockShownThrough(AcDbDatabase& database, AcDbStub* block, const AcGeMatrix3d& matrix)
{
    AcDbDatabaseImpl& impl = database.impl();
    Entities copies;
    AcDbBlockTable* blocks = nullptr;
    if (!copyThrough(impl, block, matrix, copies) || database.getBlockTable(blocks, AcDb::kForWrite) != Acad::eOk)
        return nullptr;
    auto record = std::make_unique<AcDbBlockTableRecord>();
    AcDbObjectId id;
    record->setName(freeName(impl).c_str());
    const Acad::ErrorStatus es = blocks->add(id, record.get());
    blocks->close();
    if (es != Acad::eOk)
        return nullptr;
    AcDbBlockTableRecord* const made = record.release(); // the drawing owns it
    for (auto& copy : copies)
        if (made->appendAcDbEntity(copy.get()) == Acad::eOk)
            copy.release()->close();
    made->close();
    return id.stub();
}
