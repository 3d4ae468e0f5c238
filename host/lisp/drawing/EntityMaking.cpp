// entmake and entmod: entities from lists of pairs (group code . value), by the tables that read drawing files.

#include <algorithm>
#include <numbers>

#include "db/DatabaseImpl.h"
#include "db/fields/DxfObjectReader.h"
#include "db/ResbufTags.h"
#include "dbents.h"
#include "dbsymtb.h"
#include "dxf/R12Subclasses.h"
#include "lisp/drawing/DrawingBuiltins.h"
#include "lisp/drawing/RecordList.h"
#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispContext.h"
#include "lisp/eval/LispError.h"
#include "lisp/eval/LispTexts.h"
#include "platform/CodePage.h"
#include "rx/ResbufChain.h"
#include "rx/ResbufKind.h"

namespace {

using lisp_argument::integer;
using lisp_argument::number;

/// A pair of a list given to entmake or entmod.
struct Pair {
    int code;
    LispValue value;
};

std::vector<Pair> pairsOf(const LispValue& list)
{
    std::vector<Pair> pairs;
    for (const LispValue& item : lisp_argument::items(list)) {
        if (!item.isPair())
            lisp_argument::refuse(L"consp:", item);
        pairs.push_back({integer(item.car()), item.cdr()});
    }
    return pairs;
}

const LispValue* valueUnder(int code, const std::vector<Pair>& pairs)
{
    const auto found = std::ranges::find(pairs, code, &Pair::code);
    return found == pairs.end() ? nullptr : &found->value;
}

/// One item of a drawing file. Angles are degrees there.
ResbufChain bufferOf(const Pair& pair)
{
    constexpr double degreesPerRadian = 180.0 / std::numbers::pi;
    ResbufChain buffer(acutNewRb(pair.code));
    ads_u_val& to = buffer->resval;
    switch (resbufKind(pair.code)) {
    case ResbufKind::real:
        to.rreal = number(pair.value) * (pair.code >= 50 && pair.code <= 58 ? degreesPerRadian : 1.0);
        break;
    case ResbufKind::point: {
        const AcGePoint3d point = lisp_argument::point(pair.value);
        to.rpoint[0] = point.x;
        to.rpoint[1] = point.y;
        to.rpoint[2] = point.z;
        break;
    }
    case ResbufKind::int16:
        to.rint = static_cast<short>(integer(pair.value));
        break;
    case ResbufKind::int32:
        to.rlong = integer(pair.value);
        break;
    case ResbufKind::int64:
        to.mnInt64 = integer(pair.value);
        break;
    case ResbufKind::name:
        to.rlname[0] = objectArgument(pair.value).asOldId();
        break;
    case ResbufKind::text:
        acutNewString(lisp_argument::text(pair.value).c_str(), to.rstring);
        break;
    case ResbufKind::bytes:
    case ResbufKind::none:
    case ResbufKind::unknown:
        lisp_argument::refuse(L"code de groupe:", LispValue(std::int32_t{pair.code}));
    }
    return buffer;
}

/// What the tables take up: not names, owners, groups and extended data.
bool isField(int code)
{
    return code > 0 && code != 5 && code != 102 && code != 105 && code != 330 && code != 360 && code < 1000;
}

/// The first subclass with a row for a code; the entity's own properties are looked for in the first one only.
std::size_t subclassOf(const DxfClass& dxfClass, int code)
{
    const auto& all = dxfClass.subclasses;
    for (std::size_t i = isCommonEntityCode(code) ? 0 : 1; i < all.size(); ++i)
        if (code <= dxfLastCode && all[i]->rowOf(code) >= 0)
            return i;
    return 0;
}

/// The tags of an entity, in the order that its class asks for; a list with markers of its own keeps its order.
class EntityTags {
public:
    EntityTags(const AcDbDatabaseImpl& database, const DxfClass& dxfClass) :
        m_class(dxfClass),
        m_writer(database.form(), m_bytes)
    {
    }

    const std::string& write(const std::vector<Pair>& pairs)
    {
        const bool marked = std::ranges::any_of(pairs, [](const Pair& pair) {
            return pair.code == 100 && pair.value.isText() && pair.value.text() != L"AcDbEntity";
        });
        if (marked)
            writeIf(pairs, [](int) { return true; });
        for (std::size_t i = 0; !marked && i < m_class.subclasses.size(); ++i) {
            m_writer.rawText(100, m_class.subclasses[i]->marker());
            writeIf(pairs, [&](int code) { return code != 100 && subclassOf(m_class, code) == i; });
        }
        return m_bytes;
    }

private:
    template <class Wanted>
    void writeIf(const std::vector<Pair>& pairs, Wanted wanted)
    {
        for (const Pair& pair : pairs)
            if (isField(pair.code) && wanted(pair.code) && !writeChain(bufferOf(pair).get(), m_writer))
                lisp_argument::refuse(L"valeur d'un groupe:", pair.value);
    }

    const DxfClass& m_class;
    std::string m_bytes;
    DxfTagWriter m_writer;
};

/// Kinds that are one record in a drawing file; those that others follow are not made here.
const DxfClass& entityClass(const std::vector<Pair>& pairs)
{
    const LispValue* const type = valueUnder(0, pairs);
    if (!type)
        throw LispError(std::wstring(lisp_texts::cannotMake) + L"nil");
    const std::wstring& name = lisp_argument::text(*type);
    const auto& classes = DxfClasses::all().named(platform::utf8FromWide(name));
    constexpr std::wstring_view parts[] = {L"VERTEX", L"ATTRIB", L"SEQEND", L"BLOCK", L"ENDBLK", L"POLYLINE"};
    const bool isPart = std::ranges::find(parts, name) != std::end(parts);
    if (isPart || classes.size() != 1 || !classes.front()->isEntity)
        throw LispError(lisp_texts::cannotMake + name);
    return *classes.front();
}

bool isLayerKnown(const std::vector<Pair>& pairs)
{
    const LispValue* const layer = valueUnder(8, pairs);
    return !layer || currentDatabase().impl().named(NameKind::layer, lisp_argument::text(*layer)) != nullptr;
}

AcDbObjectId append(std::unique_ptr<AcDbEntity> entity)
{
    const AcDbObjectPointer<AcDbBlockTableRecord> space(currentDatabase().currentSpaceId(), AcDb::kForWrite);
    AcDbObjectId id;
    if (space.openStatus() != Acad::eOk || space.object()->appendAcDbEntity(id, entity.get()) != Acad::eOk)
        return {};
    entity.release()->close();
    return id;
}

/// Null when the layer is not known or a value does not fit.
AcDbObjectId made(const std::vector<Pair>& pairs)
{
    AcDbDatabaseImpl& database = currentDatabase().impl();
    const DxfClass& dxfClass = entityClass(pairs);
    std::unique_ptr<AcDbEntity> entity(static_cast<AcDbEntity*>(dxfClass.create()));
    const std::string tags = EntityTags(database, dxfClass).write(pairs);
    if (!isLayerKnown(pairs) || !DxfObjectReader(database).read(tags, dxfClass, *entity))
        return {};
    if (!valueUnder(8, pairs))
        entity->setLayer(currentDatabase().clayer());
    return append(std::move(entity));
}

LispValue make(LispContext&, LispArguments arguments)
{
    return made(pairsOf(arguments[0])).isNull() ? LispValue() : arguments[0];
}

LispValue makeNamed(LispContext&, LispArguments arguments)
{
    return objectName(made(pairsOf(arguments[0])));
}

/// Fields that are lists of tags, such as vertices, would grow instead of changing.
void refuseLists(const DxfClass& dxfClass)
{
    for (const DxfSubclass* subclass : dxfClass.subclasses)
        for (const DxfField& field : subclass->fields())
            if (field.isList())
                throw LispError(lisp_texts::cannotModify + platform::wideFromUtf8(dxfClass.dxfName));
}

/// Values that the list does not name stay as they are.
LispValue modify(LispContext&, LispArguments arguments)
{
    const std::vector<Pair> pairs = pairsOf(arguments[0]);
    const LispValue* const name = valueUnder(-1, pairs);
    const AcDbObjectId id = objectArgument(name ? *name : LispValue());
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
    if (entity.openStatus() != Acad::eOk || !isLayerKnown(pairs))
        return {};
    AcDbDatabaseImpl& database = AcDbDatabaseImpl::of(id.stub());
    const DxfClass& dxfClass = database.classOf(*recordOf(id));
    refuseLists(dxfClass);
    const std::string tags = EntityTags(database, dxfClass).write(pairs);
    DxfObjectReader reader(database);
    const std::unique_ptr<AcDbObject> trial(dxfClass.create());
    if (!reader.read(tags, dxfClass, *trial))
        return {};
    entity.object()->assertWriteEnabled();
    return reader.read(tags, dxfClass, *entity.object()) ? arguments[0] : LispValue();
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
