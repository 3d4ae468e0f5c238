#include <algorithm>
#include <array>
#include <unordered_map>
#include <unordered_set>

#include "db/DatabaseImpl.h"
#include "db/fields/DxfObjectWriter.h"
#include "db/fields/NameReferences.h"
#include "db/Ownership.h"
#include "dxf/DxfCursor.h"
#include "dxf/DxfValue.h"

#include "dbsymtb.h"

namespace {

/// Codes of tags that point to an object by its handle.
bool isPointer(int code)
{
    return (code >= 320 && code < 370) || (code >= 390 && code < 400) || code == 480 || code == 481 || code == 1005;
}

/// The table that a tag names a record of. More than what is renamed: a name that a style of lines or of tables may
/// mean keeps its record.
std::optional<NameKind> mayName(std::string_view type, bool isEntity, int code)
{
    if (const auto kind = namedBy(type, isEntity, code); kind || isEntity || type == "XRECORD")
        return kind;
    return code == 6   ? std::optional(NameKind::linetype)
           : code == 7 ? std::optional(NameKind::textStyle)
           : code == 8 ? std::optional(NameKind::layer)
                       : std::nullopt;
}

} // namespace

/// Which of some definitions nothing needs but those that nothing needs themselves.
class DefinitionPurge {
public:
    DefinitionPurge(AcDbDatabaseImpl& database, const AcDbObjectIdArray& ids) : m_database(database)
    {
        for (int i = 0; i < ids.length(); ++i)
            if (mayGo(ids[i]))
                addCandidate(ids[i].stub());
    }

    /// Those among `ids` that may go, in their order.
    AcDbObjectIdArray unneeded(const AcDbObjectIdArray& ids)
    {
        followHeader();
        for (const DxfRecord& record : m_database.file().records())
            followUnlessPart(record);
        for (std::size_t i = 0; i < m_database.newRecords().size(); ++i)
            followUnlessPart(m_database.newRecords()[i]);
        for (std::size_t i = 0; i < m_needed.size(); ++i)
            for (const DxfRecord* part : std::vector(m_parts.at(m_needed[i])))
                follow(*part);
        AcDbObjectIdArray left;
        for (int i = 0; i < ids.length(); ++i)
            if (!ids[i].isNull() && m_parts.contains(ids[i].stub()) && !isNeeded(ids[i].stub()))
                left.append(ids[i]);
        return left;
    }

private:
    bool mayGo(const AcDbObjectId& id) const
    {
        if (id.isNull() || id.isErased() || id.database() != &m_database.self() || m_parts.contains(id.stub()))
            return false;
        const AcDbObject& object = m_database.object(*recordOf(id));
        const auto* const definition = AcDbSymbolTableRecord::cast(&object);
        const auto* const block = AcDbBlockTableRecord::cast(&object);
        return definition && !definition->isDependent() && !(block && block->isLayout()) &&
               !m_database.isIndispensable(object);
    }

    /// A definition and all that goes with it.
    void addCandidate(AcDbStub* definition)
    {
        std::vector<const DxfRecord*>& parts = m_parts[definition];
        parts.push_back(recordOf(definition));
        m_isPart.insert(recordOf(definition));
        for (std::size_t i = 0; i < parts.size(); ++i) {
            const AcDbObjectIdArray owned =
                m_database.ownership().ownedBy(m_database.object(const_cast<DxfRecord&>(*parts[i])));
            for (int k = 0; k < owned.length(); ++k)
                if (const DxfRecord* part = recordOf(owned[k]); part && m_isPart.insert(part).second)
                    parts.push_back(part);
        }
    }

    void followUnlessPart(const DxfRecord& record)
    {
        if (m_database.holdsObject(record) && !m_isPart.contains(&record))
            follow(record);
    }

    void follow(const DxfRecord& record)
    {
        if (isErased(record) || !m_database.holdsObject(record))
            return;
        const bool asInFile =
            (record.flags & RecordFlags::modified) == 0 && (record.flags & DxfRecord::handleRepaired) == 0;
        std::string_view tags = asInFile ? m_database.bytes(record) : std::string_view();
        if (tags.empty()) {
            m_written.clear();
            DxfObjectWriter(m_database, m_written).write(m_database.object(const_cast<DxfRecord&>(record)));
            tags = m_written;
        }
        const bool isEntity = m_database.classOf(record).isEntity;
        const std::string& type = m_database.typeName(record);
        DxfCursor cursor(m_database.form(), tags);
        for (DxfTag tag; cursor.next(tag);) {
            std::uint64_t handle = 0;
            if (isPointer(tag.code)) {
                if (dxfHandle(tag, handle))
                    need(m_database.byHandle(handle));
            } else if (const auto kind = mayName(type, isEntity, tag.code)) {
                needNamed(*kind, dxfText(tag));
            }
        }
    }

    void followHeader()
    {
        struct Variable {
            NameKind kind;
            const char* name;
        };
        static constexpr std::array<Variable, 9> variables{{{NameKind::layer, "$CLAYER"},
                                                            {NameKind::linetype, "$CELTYPE"},
                                                            {NameKind::textStyle, "$TEXTSTYLE"},
                                                            {NameKind::textStyle, "$DIMTXSTY"},
                                                            {NameKind::dimStyle, "$DIMSTYLE"},
                                                            {NameKind::block, "$DIMBLK"},
                                                            {NameKind::block, "$DIMBLK1"},
                                                            {NameKind::block, "$DIMBLK2"},
                                                            {NameKind::block, "$DIMLDRBLK"}}};
        for (const Variable& v : variables) {
            const std::wstring name = m_database.header().text(v.name);
            need(m_database.named(v.kind, name));
            if (v.kind == NameKind::block)
                need(m_database.named(v.kind, L"_" + name)); // arrows go without their mark there
        }
    }

    /// Bytes of the file may give the former name of a record that was renamed, tags written now the new one.
    void needNamed(NameKind kind, std::string_view bytes)
    {
        SymbolNames& names = m_database.names(kind);
        need(names.findBytes(bytes));
        if (names.hasRenamed())
            need(names.find(m_database.form().encoding->decode(bytes)));
    }

    void need(AcDbStub* definition)
    {
        if (definition && m_parts.contains(definition) && m_isNeeded.insert(definition).second)
            m_needed.push_back(definition);
    }
    bool isNeeded(AcDbStub* definition) const { return m_isNeeded.contains(definition); }

    AcDbDatabaseImpl& m_database;
    std::unordered_map<AcDbStub*, std::vector<const DxfRecord*>> m_parts; // of each candidate, itself first
    std::unordered_set<const DxfRecord*> m_isPart;
    std::unordered_set<AcDbStub*> m_isNeeded;
    std::vector<AcDbStub*> m_needed; // in the order in which that was found: what they need is next
    std::string m_written;
};

Acad::ErrorStatus AcDbDatabase::purge(AcDbObjectIdArray& ids)
{
    if (!m_impl->isLoaded())
        return Acad::eNoDatabase;
    ids = DefinitionPurge(*m_impl, ids).unneeded(ids);
    return Acad::eOk;
}
