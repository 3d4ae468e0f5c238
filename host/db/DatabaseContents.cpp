#include "db/DatabaseImpl.h"
#include "db/ObjectExtras.h"

#include "dbents.h"
#include "dbentvrt.h"
#include "dbsymtb.h"

/// How new entities and blocks join a drawing.

AcDbObjectId AcDbDatabaseImpl::joinBlock(AcDbStub* block, std::unique_ptr<AcDbEntity> entity)
{
    AcDbEntity* made = entity.get();
    if (!made->m_layer)
        made->m_layer = m_self.clayer().stub();
    std::vector<std::unique_ptr<AcDbEntity>> pending;
    if (made->m_extras)
        pending = std::move(made->m_extras->pendingSubentities);
    made->m_paperSpace = m_blocks.of(block).inEntitiesSection && block == m_blocks.paperSpace();
    const AcDbObjectId id = adopt(std::move(entity), block);
    m_blocks.append(block, id.stub());
    for (auto& subentity : pending) {
        AcDbEntity* joined = subentity.release();
        AcDbObjectId subentityId;
        if (made->appendSubentity(subentityId, joined) == Acad::eOk)
            joined->close();
    }
    return id;
}

void AcDbDatabaseImpl::setPaperSpace(AcDbStub* stub, bool paper)
{
    DxfRecord& record = *recordOf(stub);
    AcDbEntity* const entity = isErased(record) ? nullptr : AcDbEntity::cast(&object(record));
    if (!entity || entity->m_paperSpace == paper)
        return;
    entity->m_paperSpace = paper;
    record.flags |= RecordFlags::modified;
}

void AcDbDatabaseImpl::makeBlockBounds(AcDbStub* block)
{
    const std::wstring name = recordName(block);
    auto begin = std::make_unique<AcDbBlockBegin>();
    begin->setName(name.c_str());
    const bool space = block == m_blocks.modelSpace() || block == m_blocks.paperSpace();
    begin->setFlags(name.starts_with(L'*') && !space ? 1 : 0);
    begin->m_layer = named(NameKind::layer, L"0");
    auto end = std::make_unique<AcDbBlockEnd>();
    end->m_layer = begin->m_layer;
    AcDbBlockBegin* madeBegin = begin.get();
    AcDbBlockEnd* madeEnd = end.get();
    AcDbStub* beginStub = adopt(std::move(begin), block).stub();
    AcDbStub* endStub = adopt(std::move(end), block).stub();
    madeBegin->close();
    madeEnd->close();
    m_blocks.addNew(block, beginStub, endStub);
}

// ---- what a block record tells of its content

AcGePoint3d AcDbBlockTableRecord::origin() const
{
    assertReadEnabled();
    if (objectId().isNull())
        return AcGePoint3d::kOrigin;
    AcDbDatabaseImpl& database = AcDbDatabaseImpl::of(objectId().stub());
    AcDbStub* begin = database.blocks().of(objectId().stub()).begin;
    if (!begin)
        return AcGePoint3d::kOrigin;
    const auto* bounds = AcDbBlockBegin::cast(&database.object(*recordOf(begin)));
    return bounds ? bounds->basePoint() : AcGePoint3d::kOrigin;
}

Acad::ErrorStatus AcDbBlockTableRecord::setOrigin(const AcGePoint3d& origin)
{
    if (objectId().isNull())
        return Acad::eNoDatabase;
    AcDbDatabaseImpl& database = AcDbDatabaseImpl::of(objectId().stub());
    AcDbObjectPointer<AcDbBlockBegin> begin(AcDbObjectId(database.blocks().of(objectId().stub()).begin),
                                            AcDb::kForWrite, false, true);
    return begin.object() ? begin->setBasePoint(origin) : begin.openStatus();
}

Acad::ErrorStatus AcDbBlockTableRecord::comments(const ACHAR*& text) const
{
    assertReadEnabled();
    text = L"";
    if (objectId().isNull())
        return Acad::eOk;
    AcDbDatabaseImpl& database = AcDbDatabaseImpl::of(objectId().stub());
    AcDbStub* begin = database.blocks().of(objectId().stub()).begin;
    const auto* bounds = begin ? AcDbBlockBegin::cast(&database.object(*recordOf(begin))) : nullptr;
    if (bounds)
        text = bounds->description();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::setComments(const ACHAR* text)
{
    if (objectId().isNull())
        return Acad::eNoDatabase;
    AcDbDatabaseImpl& database = AcDbDatabaseImpl::of(objectId().stub());
    AcDbObjectPointer<AcDbBlockBegin> begin(AcDbObjectId(database.blocks().of(objectId().stub()).begin),
                                            AcDb::kForWrite, false, true);
    return begin.object() ? begin->setDescription(text ? text : L"") : begin.openStatus();
}

bool AcDbBlockTableRecord::hasAttributeDefinitions() const
{
    assertReadEnabled();
    if (objectId().isNull())
        return false;
    AcDbDatabaseImpl& database = AcDbDatabaseImpl::of(objectId().stub());
    for (AcDbStub* entity : database.blocks().of(objectId().stub()).entities)
        if (!::isErased(*recordOf(entity)) && database.typeName(*recordOf(entity)) == "ATTDEF")
            return true;
    return false;
}

Acad::ErrorStatus AcDbBlockTableRecord::getBlockReferenceIds(AcDbObjectIdArray& ids, bool, bool) const
{
    assertReadEnabled();
    if (objectId().isNull())
        return Acad::eNoDatabase;
    AcDbDatabaseImpl& database = AcDbDatabaseImpl::of(objectId().stub());
    for (AcDbStub* block : database.names(NameKind::block).records())
        for (AcDbStub* entity : database.blocks().of(block).entities) {
            if (::isErased(*recordOf(entity)) || database.typeName(*recordOf(entity)) != "INSERT")
                continue;
            const auto* reference = AcDbBlockReference::cast(&database.object(*recordOf(entity)));
            if (reference && reference->blockTableRecord() == objectId())
                ids.append(AcDbObjectId(entity));
        }
    return Acad::eOk;
}
