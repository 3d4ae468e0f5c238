#include "db/fields/DxfObjectReader.h"

#include "db/DatabaseImpl.h"
#include "dxf/DxfCursor.h"
#include "dxf/DxfTexts.h"
#include "dxf/DxfValue.h"
#include "dxf/R12Subclasses.h"

DxfObjectReader::DxfObjectReader(AcDbDatabaseImpl& database) :
    m_database(database),
    m_context{database.form(), database}
{
}

const DxfClass& DxfObjectReader::classOf(const DxfRecord& record, bool& sharedName) const
{
    const DxfClasses& classes = DxfClasses::all();
    const auto& candidates = classes.named(m_database.typeName(record));
    sharedName = candidates.size() > 1;
    if (candidates.size() == 1)
        return *candidates.front();
    for (const DxfClass* candidate : candidates)
        if (!candidate->distinctive || hasMarker(record, candidate->distinctive))
            return *candidate;
    const std::string_view implied = candidates.empty() ? std::string_view() : impliedMarker(record);
    for (const DxfClass* candidate : candidates)
        if (candidate->distinctive == implied)
            return *candidate;
    return isInEntitySections(record) ? classes.proxyEntity() : classes.proxyObject();
}

bool DxfObjectReader::isInEntitySections(const DxfRecord& record) const
{
    return hasMarker(record, "AcDbEntity");
}

bool DxfObjectReader::hasMarker(const DxfRecord& record, std::string_view marker) const
{
    const std::string_view bytes = m_database.bytes(record);
    if (bytes.find(marker) == std::string_view::npos)
        return false; // as most: a walk by tags takes ten times as long
    DxfCursor cursor(m_database.form(), bytes);
    DxfTag tag;
    while (cursor.next(tag))
        if ((tag.code == 100 || tag.code == 2) && dxfText(tag) == marker) // 2: name of a table
            return true;
        else if (tag.code >= 1000)
            break;
    return false;
}

/// The marker that a polyline, a vertex or a dimension would bear whose own tags stand before any marker: empty for
/// others. What every entity has may follow below its marker: we add a colour so.
std::string_view DxfObjectReader::impliedMarker(const DxfRecord& record) const
{
    constexpr int place = 10, flagsCode = 70;
    DxfCursor cursor(m_database.form(), m_database.bytes(record));
    DxfTag tag;
    std::int64_t flags = 0;
    bool hasOwn = false;
    while (cursor.next(tag) && tag.code < extendedDataCode && tag.code != 100) {
        hasOwn = hasOwn || tag.code == place || tag.code == flagsCode;
        if (tag.code == flagsCode && !dxfInteger(m_database.form(), tag, flags))
            return {};
    }
    const auto& markers = r12Subclasses(m_database.typeName(record), flags, polylineFlagsOf(flags));
    return !hasOwn || markers.empty() ? std::string_view() : markers.back().marker;
}

bool DxfSubclassWalk::isCommonHere(int code) const
{
    constexpr int linetype = 6, layer = 8, color = 62, space = 67; // no class that we know has them for itself
    const bool isKnown = m_class->subclasses.size() > 1;
    if (!m_marked)
        return true;
    if (!isKnown)
        return m_onlyCommon && !m_inPlace;
    return m_onlyCommon || code == linetype || code == layer || code == color || code == space;
}

/// An entity without any marker, as before R13: its rows are those of its class.
DxfRowPlace DxfSubclassWalk::rowWithoutMarker(int code) const
{
    constexpr int handle = 5, owner = 330;
    if (code == handle || code == owner)
        return {}; // the object's own, which stand before the first marker where there is one
    const auto& subclasses = m_class->subclasses;
    for (std::size_t i = 1; i < subclasses.size(); ++i)
        if (const int row = subclasses[i]->rowOf(code); row >= 0)
            return {static_cast<int>(i), row};
    return {};
}

/// `inPlace`: below the marker of every entity.
DxfRowPlace DxfSubclassWalk::commonRowFor(int code, bool inPlace)
{
    constexpr int layer = 8;
    const int row = m_common->rowOf(code);
    if (row < 0) {
        m_onlyCommon = false;
        return m_marked ? DxfRowPlace() : rowWithoutMarker(code);
    }
    const unsigned bit = 1U << row;
    if (!inPlace && ((m_commonMet & bit) != 0 || !isCommonHere(code)))
        return {};
    m_commonMet |= bit;
    m_inPlace = m_inPlace || (inPlace && code == layer);
    return {0, row};
}

bool DxfObjectReader::read(std::string_view bytes, const DxfClass& dxfClass, AcDbObject& object)
{
    return readTelling(bytes, dxfClass, object, [](const DxfTag&, DxfRowPlace) {});
}

bool DxfObjectReader::read(std::string_view bytes, const DxfClass& dxfClass, AcDbObject& object,
                           std::vector<DxfPlacedTag>& placed)
{
    placed.clear();
    return readTelling(bytes, dxfClass, object, [&placed](const DxfTag& tag, DxfRowPlace place) {
        placed.push_back({tag, place});
    });
}

template <class Tell>
bool DxfObjectReader::readTelling(std::string_view bytes, const DxfClass& dxfClass, AcDbObject& object, Tell tell)
{
    DxfCursor cursor(m_context.form, bytes);
    DxfSubclassWalk walk(dxfClass);
    DxfTag tag;
    bool readable = true;
    bool inGroup = false; // between 102 "{..." and 102 "}"
    while (cursor.next(tag)) {
        if (tag.code == extendedDataCode || walk.opensData(tag.code))
            break; // both stay bytes
        if (tag.code == 100 && !inGroup) {
            walk.enter(dxfText(tag));
            tell(tag, DxfRowPlace{walk.position(), DxfRowPlace::none});
            continue;
        }
        if (tag.code == 102)
            inGroup = opensGroup(tag);
        const bool bare = inGroup || tag.code == 102 || tag.code < 0;
        const DxfRowPlace place = bare ? DxfRowPlace() : walk.rowFor(tag.code);
        tell(tag, place);
        if (place.row < 0)
            continue;
        const DxfSubclass& subclass = *dxfClass.subclasses[static_cast<std::size_t>(place.subclass)];
        const DxfField& field = subclass.fields()[static_cast<std::size_t>(place.row)];
        const int part = partOf(field, tag.code);
        if (readable && !field.read(m_context, object, tag, part)) {
            m_refused = tag;
            readable = false;
        }
    }
    return readable;
}

std::string DxfObjectReader::complaint() const
{
    const std::string_view value = m_context.form.binary ? std::string_view() : dxfText(m_refused);
    return "valeur illisible" + dxf_texts::valueUnder(m_refused.code, value) + " ; l'objet est conservé tel quel";
}
