#include "lisp/drawing/RecordList.h"

#include <algorithm>

#include "db/DatabaseImpl.h"
#include "db/fields/DxfObjectWriter.h"
#include "db/Layouts.h"
#include "db/Ownership.h"
#include "db/ResbufTags.h"
#include "dxf/DxfAngle.h"
#include "lisp/drawing/LispConversion.h"
#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispContext.h"
#include "lisp/eval/LispError.h"
#include "lisp/eval/LispTexts.h"
#include "platform/LetterCase.h"
#include "rx/ResbufKind.h"
#include "rx/WildcardMatch.h"

#include "dbapserv.h"
#include "dbents.h"
#include "dbsymtb.h"

namespace {

constexpr int kFirstExtendedData = 1000;
constexpr int kApplication = 1001;

ResbufChain tagsOf(AcDbObject& object)
{
    AcDbDatabaseImpl& database = object.database()->impl();
    std::string bytes;
    DxfObjectWriter writer(database, bytes);
    if (const auto* const entity = AcDbEntity::cast(&object))
        writer.writeComplete(*entity);
    else
        writer.write(object);
    return chainOfTags(database, bytes);
}

/// The layout that shows an entity; what lies in a block counts as drawn in model space.
std::wstring layoutOf(const AcDbObject& entity)
{
    AcDbObjectId owner = entity.ownerId();
    // Of vertices and attributes, one step; a damaged drawing may name owners in a ring.
    for (int steps = 0; steps < 4 && isOfClass(owner, AcDbEntity::desc()); ++steps)
        owner = AcDbObjectId(AcDbDatabaseImpl::of(owner.stub()).ownership().ownerOf(*recordOf(owner)));
    const std::wstring name = isOfClass(owner, AcDbBlockTableRecord::desc()) ? layoutName(owner) : L"";
    return name.empty() ? L"Model" : name;
}

/// Programs look the space and the layout of an entity up behind its first marker.
void addPlace(const AcDbObject& entity, std::vector<LispValue>& pairs)
{
    constexpr std::int32_t marker = 100, paperSpace = 67, layout = 410;
    const auto coded = [&pairs](std::int32_t code) {
        return std::ranges::find_if(pairs, [code](const LispValue& pair) { return pair.car().integer() == code; });
    };
    if (coded(marker) == pairs.end())
        return;
    if (coded(paperSpace) == pairs.end())
        pairs.insert(coded(marker) + 1, LispValue::pair(LispValue(paperSpace), LispValue(std::int32_t{0})));
    pairs.insert(coded(paperSpace) + 1, LispValue::pair(LispValue(layout), LispValue(layoutOf(entity))));
}

/// Files may leave the owner of an entity out, or give none: where it stands tells it.
void addOwner(const AcDbObject& entity, std::vector<LispValue>& pairs)
{
    constexpr std::int32_t marker = 100, group = 102, owner = 330;
    if (entity.ownerId().isNull())
        return;
    const LispValue pair = LispValue::pair(LispValue(owner), objectName(entity.ownerId()));
    bool inGroup = false; // of reactors, which are references too
    for (auto at = pairs.begin(); at != pairs.end(); ++at) {
        const std::int32_t code = at->car().integer();
        if (code == group)
            inGroup = at->cdr().text().starts_with(L'{');
        if (code == owner && !inGroup) {
            if (const LispName* const given = at->cdr().name(); !given || given->words[0] == 0)
                *at = pair;
            return;
        }
        if (code == marker) {
            pairs.insert(at, pair);
            return;
        }
    }
}

LispValue pairOf(LispContext& context, const resbuf& item, bool inPlane, bool rawAngles)
{
    LispValue value = valueOfBuffer(context, item);
    if (item.restype >= 50 && item.restype <= 58 && value.isReal() && !rawAngles)
        value = LispValue(dxfRadians(value.real()));
    if (item.restype == 10 && inPlane && value.isPair()) {
        const LispValue plane[] = {value.car(), value.cdr().car()};
        value = listOf(plane);
    }
    return LispValue::pair(LispValue(std::int32_t{item.restype}), std::move(value));
}

bool isWanted(const std::wstring& application, const std::vector<std::wstring>& wanted)
{
    const std::wstring lower = platform::lowerCase(application);
    return std::ranges::any_of(
        wanted, [&lower](const std::wstring& pattern) { return wildcardMatch(lower, platform::lowerCase(pattern)); });
}

/// (-3 ("APPLICATION" (1000 . "...") ...) ...); nil when no application is wanted.
LispValue extendedData(LispContext& context, const resbuf* item, const std::vector<std::wstring>& wanted)
{
    std::vector<LispValue> applications, current;
    const auto finish = [&] {
        if (!current.empty())
            applications.push_back(listOf(current));
        current.clear();
    };
    bool taking = false;
    for (; item; item = item->rbnext) {
        if (item->restype == kApplication) {
            finish();
            taking = isWanted(item->resval.rstring, wanted);
            if (taking)
                current.emplace_back(item->resval.rstring);
        } else if (taking) {
            current.push_back(pairOf(context, *item, false, true));
        }
    }
    finish();
    return applications.empty() ? LispValue() : LispValue::pair(LispValue(-3), listOf(applications));
}

} // namespace

LispValue recordList(LispContext& context, AcDbObjectId id, const std::vector<std::wstring>& applications)
{
    const AcDbObjectPointer<AcDbObject> object(id, AcDb::kForRead);
    if (object.openStatus() != Acad::eOk)
        return {};
    const ResbufChain tags = tagsOf(*object.object());
    const std::string& type = AcDbDatabaseImpl::of(id.stub()).typeName(*recordOf(id));
    const bool inPlane = type == "LWPOLYLINE", rawAngles = type == "XRECORD";
    std::vector<LispValue> pairs{LispValue::pair(LispValue(-1), objectName(id))};
    const resbuf* item = tags.get();
    for (; item && item->restype < kFirstExtendedData; item = item->rbnext)
        pairs.push_back(pairOf(context, *item, inPlane, rawAngles));
    if (object->isKindOf(AcDbEntity::desc())) {
        addOwner(*object.object(), pairs);
        addPlace(*object.object(), pairs);
    }
    if (LispValue data = extendedData(context, item, applications); !data.isNil())
        pairs.push_back(std::move(data));
    return listOf(pairs);
}

AcDbDatabase& currentDatabase()
{
    AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    if (!database)
        throw LispError(lisp_texts::noDrawing);
    return *database;
}

AcDbObjectId objectArgument(const LispValue& value)
{
    const LispName* const name = value.name();
    AcDbObjectId id;
    if (name && name->kind == LispName::Kind::entity)
        id.setFromOldId(name->words[0]);
    if (!id.isValid())
        lisp_argument::refuse(L"lentityp:", value);
    return id.isErased() ? AcDbObjectId() : id;
}

LispValue objectName(AcDbObjectId id)
{
    return id.isNull() ? LispValue() : LispValue(LispName{LispName::Kind::entity, {id.asOldId(), 0}});
}
