// entmake and entmod: entities and records of tables from lists of pairs (group code . value), by the tables that read
// drawing files.

#include <algorithm>

#include "db/DatabaseImpl.h"
#include "db/fields/DxfObjectReader.h"
#include "dbents.h"
#include "dbpl.h"
#include "dbsymtb.h"
#include "lisp/drawing/DrawingBuiltins.h"
#include "lisp/drawing/EntityLists.h"
#include "lisp/drawing/EntitySequence.h"
#include "lisp/drawing/RecordList.h"
#include "lisp/drawing/RecordMaking.h"
#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispContext.h"
#include "lisp/eval/LispError.h"
#include "lisp/eval/LispTexts.h"
#include "platform/CodePage.h"

namespace {

/// What entmake makes of a list, at once or as a part of something bigger.
EntitySequence::Made made(const std::vector<GroupPair>& pairs)
{
    const std::wstring kind = kindOf(pairs);
    if (kind.empty())
        throw LispError(std::wstring(lisp_texts::cannotMake) + L"nil");
    if (isTableRecord(kind)) {
        const AcDbObjectId id = madeRecord(kind, pairs);
        return {id, !id.isNull()};
    }
    return EntitySequence::ofCurrentDocument().take(kind, pairs);
}

LispValue make(LispContext&, LispArguments arguments)
{
    return made(groupPairs(arguments[0])).taken ? arguments[0] : LispValue();
}

/// The name of what was made; while its parts are still to come, the list.
LispValue makeNamed(LispContext&, LispArguments arguments)
{
    const EntitySequence::Made result = made(groupPairs(arguments[0]));
    if (!result.taken)
        return {};
    return result.id.isNull() ? arguments[0] : objectName(result.id);
}

/// Fields that are lists of tags, such as the paths of a hatch, would grow instead of changing. Vertices of lightweight
/// polylines are cleared first.
void refuseLists(const DxfClass& dxfClass)
{
    if (dxfClass.rxClass == AcDbPolyline::desc())
        return;
    for (const DxfSubclass* subclass : dxfClass.subclasses)
        for (const DxfField& field : subclass->fields())
            if (field.isList())
                throw LispError(lisp_texts::cannotModify + platform::wideFromUtf8(dxfClass.dxfName));
}

bool isLayerKnown(const std::vector<GroupPair>& pairs)
{
    const LispValue* const layer = valueUnder(8, pairs);
    return !layer || currentDatabase().impl().named(NameKind::layer, lisp_argument::text(*layer)) != nullptr;
}

/// Values that the list does not name stay as they are.
LispValue modify(LispContext&, LispArguments arguments)
{
    constexpr int vertexCode = 10;
    const std::vector<GroupPair> pairs = groupPairs(arguments[0]);
    const LispValue* const name = valueUnder(-1, pairs);
    const AcDbObjectId id = objectArgument(name ? *name : LispValue());
    const ResbufChain data = extendedDataOf(pairs);
    const AcDbObjectPointer<AcDbObject> object(id, AcDb::kForWrite);
    if (object.openStatus() != Acad::eOk || !isLayerKnown(pairs))
        return {};
    AcDbDatabaseImpl& database = AcDbDatabaseImpl::of(id.stub());
    const DxfClass& dxfClass = database.classOf(*recordOf(id));
    refuseLists(dxfClass);
    const std::string tags = tagsOfPairs(database, dxfClass, pairs);
    DxfObjectReader reader(database);
    const std::unique_ptr<AcDbObject> trial(dxfClass.create());
    if (!reader.read(tags, dxfClass, *trial))
        return {};
    if (data && object.object()->setXData(data.get()) != Acad::eOk)
        return {};
    object.object()->assertWriteEnabled();
    if (AcDbPolyline* const polyline = AcDbPolyline::cast(object.object()); polyline && valueUnder(vertexCode, pairs))
        while (polyline->numVerts() > 0)
            polyline->removeVertexAt(polyline->numVerts() - 1);
    return reader.read(tags, dxfClass, *object.object()) ? arguments[0] : LispValue();
}

constexpr LispBuiltin kRows[] = {
    {L"ENTMAKE", 1, 1, make},
    {L"ENTMAKEX", 1, 1, makeNamed},
    {L"ENTMOD", 1, 1, modify},
};

} // namespace

std::span<const LispBuiltin> entityMakingBuiltins()
{
    return kRows;
}
