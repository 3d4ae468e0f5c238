#include "db/fields/DxfObjectReader.h"

#include "db/DatabaseImpl.h"
#include "dxf/DxfCursor.h"
#include "dxf/DxfTexts.h"

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
    return isInEntitySections(record) ? classes.proxyEntity() : classes.proxyObject();
}

bool DxfObjectReader::isInEntitySections(const DxfRecord& record) const
{
    return hasMarker(record, "AcDbEntity");
}

bool DxfObjectReader::hasMarker(const DxfRecord& record, std::string_view marker) const
{
    DxfCursor cursor(m_database.form(), m_database.bytes(record));
    DxfTag tag;
    while (cursor.next(tag))
        if ((tag.code == 100 || tag.code == 2) && dxfText(tag) == marker) // 2: name of a table
            return true;
        else if (tag.code >= 1000)
            break;
    return false;
}

bool DxfObjectReader::read(std::string_view bytes, const DxfClass& dxfClass, AcDbObject& object)
{
    DxfCursor cursor(m_context.form, bytes);
    DxfSubclassWalk walk(dxfClass);
    DxfTag tag;
    bool inGroup = false; // between 102 "{..." and 102 "}"
    while (cursor.next(tag)) {
        if (tag.code == extendedDataCode || walk.opensData(tag.code))
            break; // both stay bytes
        if (tag.code == 100 && !inGroup) {
            walk.enter(dxfText(tag));
            continue;
        }
        if (tag.code == 102) {
            inGroup = opensGroup(tag);
            continue;
        }
        const DxfSubclass* subclass = walk.subclass();
        if (!subclass || inGroup || tag.code < 0)
            continue;
        const int row = subclass->rowOf(tag.code);
        if (row < 0)
            continue;
        const DxfField& field = subclass->fields()[static_cast<std::size_t>(row)];
        const int part = field.isList() ? 0 : (tag.code - field.code) / 10;
        if (!field.read(m_context, object, tag, part)) {
            m_refused = tag;
            return false;
        }
    }
    return true;
}

std::string DxfObjectReader::complaint() const
{
    const std::string_view value = m_context.form.binary ? std::string_view() : dxfText(m_refused);
    return "valeur illisible" + dxf_texts::valueUnder(m_refused.code, value) + " ; l'objet est conservé tel quel";
}
