#include "lisp/drawing/EntitySequence.h"

#include <algorithm>

#include "ap/DocumentData.h"
#include "db/DatabaseImpl.h"
#include "db/fields/DxfObjectReader.h"
#include "lisp/drawing/RecordList.h"
#include "lisp/drawing/RecordMaking.h"
#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispError.h"
#include "lisp/eval/LispTexts.h"
#include "platform/CodePage.h"

#include "acdocman.h"
#include "dbentvrt.h"
#include "dbsymtb.h"

namespace {

constexpr int kFlags = 70;
constexpr int kPartsFollow = 66;

int integerUnder(int code, const std::vector<GroupPair>& pairs)
{
    const LispValue* const value = valueUnder(code, pairs);
    return value ? lisp_argument::integer(*value) : 0;
}

/// Of the classes that share a name in drawing files, the one that the flags tell.
const AcRxClass* polylineClass(int flags)
{
    constexpr int inSpace = 8, mesh = 16, faces = 64;
    if ((flags & inSpace) != 0)
        return AcDb3dPolyline::desc();
    if ((flags & mesh) != 0)
        return AcDbPolygonMesh::desc();
    return (flags & faces) != 0 ? AcDbPolyFaceMesh::desc() : AcDb2dPolyline::desc();
}

const AcRxClass* vertexClass(const AcDbEntity& parent, int flags)
{
    constexpr int position = 64;
    if (parent.isA() == AcDb3dPolyline::desc())
        return AcDb3dPolylineVertex::desc();
    if (parent.isA() == AcDbPolygonMesh::desc())
        return AcDbPolygonMeshVertex::desc();
    if (parent.isA() == AcDb2dPolyline::desc())
        return AcDb2dVertex::desc();
    return (flags & position) != 0 ? AcDbPolyFaceMeshVertex::desc() : AcDbFaceRecord::desc();
}

bool hasMarker(const std::vector<GroupPair>& pairs, std::string_view marker)
{
    constexpr int markerCode = 100;
    const std::wstring wanted = platform::wideFromUtf8(std::string(marker));
    return std::ranges::any_of(pairs, [&wanted](const GroupPair& pair) {
        return pair.code == markerCode && pair.value.isText() && pair.value.text() == wanted;
    });
}

/// The class that the markers of the list tell; where they tell none, the plain one of the name.
const DxfClass& entityClass(const std::wstring& kind, const std::vector<GroupPair>& pairs)
{
    const DxfClasses& all = DxfClasses::all();
    if (kind == L"POLYLINE")
        return *all.of(polylineClass(integerUnder(kFlags, pairs)));
    const auto& classes = all.named(platform::utf8FromWide(kind));
    const auto found = std::ranges::find_if(classes, [&pairs](const DxfClass* candidate) {
        return !candidate->distinctive || hasMarker(pairs, candidate->distinctive);
    });
    if (found == classes.end() || !(*found)->isEntity)
        throw LispError(lisp_texts::cannotMake + kind);
    return **found;
}

/// Extended data need their applications registered.
bool areRegistered(AcDbDatabaseImpl& database, const resbuf* data)
{
    constexpr int applicationCode = 1001;
    for (; data; data = data->rbnext)
        if (data->restype == applicationCode && !database.named(NameKind::regApp, data->resval.rstring))
            return false;
    return true;
}

/// Null when a name is not known or a value does not fit.
std::unique_ptr<AcDbEntity> entityOf(const DxfClass& dxfClass, const std::vector<GroupPair>& pairs)
{
    AcDbDatabaseImpl& database = currentDatabase().impl();
    if (!areNamesKnown(dxfClass, pairs))
        return nullptr;
    std::unique_ptr<AcDbEntity> entity(static_cast<AcDbEntity*>(dxfClass.create()));
    if (!DxfObjectReader(database).read(tagsOfPairs(database, dxfClass, pairs), dxfClass, *entity))
        return nullptr;
    if (!valueUnder(8, pairs))
        entity->setLayer(currentDatabase().clayer());
    const ResbufChain data = extendedDataOf(pairs);
    if (data && (!areRegistered(database, data.get()) || entity->setXData(data.get()) != Acad::eOk))
        return nullptr;
    return entity;
}

template <class Parent, class Part>
bool joins(AcDbEntity& parent, AcDbEntity& part, Acad::ErrorStatus (Parent::*append)(Part*))
{
    Parent* const to = Parent::cast(&parent);
    Part* const what = Part::cast(&part);
    return to && what && (to->*append)(what) == Acad::eOk;
}

bool joinParent(AcDbEntity& parent, AcDbEntity& part)
{
    return joins<AcDb2dPolyline, AcDb2dVertex>(parent, part, &AcDb2dPolyline::appendVertex) ||
           joins<AcDb3dPolyline, AcDb3dPolylineVertex>(parent, part, &AcDb3dPolyline::appendVertex) ||
           joins<AcDbPolygonMesh, AcDbPolygonMeshVertex>(parent, part, &AcDbPolygonMesh::appendVertex) ||
           joins<AcDbPolyFaceMesh, AcDbPolyFaceMeshVertex>(parent, part, &AcDbPolyFaceMesh::appendVertex) ||
           joins<AcDbPolyFaceMesh, AcDbFaceRecord>(parent, part, &AcDbPolyFaceMesh::appendFaceRecord) ||
           joins<AcDbBlockReference, AcDbAttribute>(parent, part, &AcDbBlockReference::appendAttribute);
}

AcDbObjectId append(AcDbObjectId blockId, std::unique_ptr<AcDbEntity> entity)
{
    const AcDbObjectPointer<AcDbBlockTableRecord> block(blockId, AcDb::kForWrite);
    AcDbObjectId id;
    if (block.openStatus() != Acad::eOk || block.object()->appendAcDbEntity(id, entity.get()) != Acad::eOk)
        return {};
    entity.release()->close();
    return id;
}

/// "*U" is a name without a user: the first number that is free goes behind it.
std::wstring freeName(AcDbBlockTable& blocks, const std::wstring& name)
{
    if (name.size() != 2 || name.front() != L'*')
        return name;
    for (int number = 1;; ++number)
        if (std::wstring numbered = name + std::to_wstring(number); !blocks.has(numbered.c_str()))
            return numbered;
}

/// The block of a name, made or emptied. Null when it cannot be.
AcDbObjectId emptyBlock(std::wstring& name, const AcGePoint3d& origin)
{
    AcDbObjectId id;
    {
        const AcDbObjectPointer<AcDbBlockTable> blocks(currentDatabase().blockTableId(), AcDb::kForWrite);
        if (blocks.openStatus() != Acad::eOk)
            return {};
        name = freeName(*blocks.object(), name);
        if (blocks.object()->getAt(name.c_str(), id) != Acad::eOk) {
            auto block = std::make_unique<AcDbBlockTableRecord>();
            if (block->setName(name.c_str()) != Acad::eOk || blocks.object()->add(id, block.get()) != Acad::eOk)
                return {};
            block->setOrigin(origin);
            block.release()->close();
            return id;
        }
    }
    const AcDbObjectPointer<AcDbBlockTableRecord> block(id, AcDb::kForWrite);
    if (block.openStatus() != Acad::eOk || block.object()->isLayout())
        return {};
    const auto entities = currentDatabase().impl().blocks().of(id.stub()).entities;
    for (AcDbStub* const stub : entities) {
        const AcDbObjectPointer<AcDbEntity> entity(AcDbObjectId(stub), AcDb::kForWrite, false, true);
        if (entity.openStatus() == Acad::eOk)
            entity.object()->erase();
    }
    block.object()->setOrigin(origin);
    return id;
}

} // namespace

EntitySequence& EntitySequence::ofCurrentDocument()
{
    static DocumentData<EntitySequence> ofDocuments;
    AcApDocument* const document = curDoc();
    if (!document)
        throw LispError(lisp_texts::noDrawing);
    return ofDocuments.of(*document);
}

EntitySequence::Made EntitySequence::take(const std::wstring& kind, const std::vector<GroupPair>& pairs)
{
    const bool isPart = kind == L"VERTEX" || kind == L"ATTRIB" || kind == L"SEQEND";
    if (isPart != (m_parent != nullptr)) {
        giveUp();
        if (isPart)
            return {};
    }
    if (isPart)
        return takePart(kind, pairs);
    if (kind == L"BLOCK")
        return beginBlock(pairs);
    if (kind == L"ENDBLK")
        return endBlock();
    return begin(kind, pairs);
}

EntitySequence::Made EntitySequence::begin(const std::wstring& kind, const std::vector<GroupPair>& pairs)
{
    std::unique_ptr<AcDbEntity> entity = entityOf(entityClass(kind, pairs), pairs);
    if (!entity) {
        giveUp();
        return {};
    }
    if (kind != L"POLYLINE" && !(kind == L"INSERT" && integerUnder(kPartsFollow, pairs) != 0))
        return finish(std::move(entity));
    m_parent = std::move(entity);
    return {{}, true};
}

EntitySequence::Made EntitySequence::takePart(const std::wstring& kind, const std::vector<GroupPair>& pairs)
{
    if (kind == L"SEQEND")
        return finish(std::move(m_parent));
    const DxfClass& partClass = kind == L"VERTEX"
                                    ? *DxfClasses::all().of(vertexClass(*m_parent, integerUnder(kFlags, pairs)))
                                    : entityClass(kind, pairs);
    std::unique_ptr<AcDbEntity> part = entityOf(partClass, pairs);
    if (!part || !joinParent(*m_parent, *part)) {
        giveUp();
        return {};
    }
    static_cast<void>(part.release()); // the parent's from now on
    return {{}, true};
}

EntitySequence::Made EntitySequence::beginBlock(const std::vector<GroupPair>& pairs)
{
    giveUp();
    const LispValue* const name = valueUnder(2, pairs);
    const LispValue* const origin = valueUnder(10, pairs);
    if (!name)
        return {};
    m_blockName = lisp_argument::text(*name);
    m_blockOrigin = origin ? lisp_argument::point(*origin) : AcGePoint3d();
    m_inBlock = true;
    return {{}, true};
}

EntitySequence::Made EntitySequence::endBlock()
{
    if (!m_inBlock)
        return {};
    m_inBlock = false;
    auto entities = std::move(m_blockEntities);
    m_blockEntities.clear();
    const AcDbObjectId block = emptyBlock(m_blockName, m_blockOrigin);
    if (block.isNull())
        return {};
    for (auto& entity : entities)
        append(block, std::move(entity));
    return {block, true};
}

EntitySequence::Made EntitySequence::finish(std::unique_ptr<AcDbEntity> entity)
{
    if (m_inBlock) {
        m_blockEntities.push_back(std::move(entity));
        return {{}, true};
    }
    const AcDbObjectId id = append(currentDatabase().currentSpaceId(), std::move(entity));
    return {id, !id.isNull()};
}

void EntitySequence::giveUp()
{
    m_parent.reset();
    m_inBlock = false;
    m_blockEntities.clear();
}
