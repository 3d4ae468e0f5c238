#include <map>
#include <optional>
#include <set>
#include <unordered_map>

#include "db/DatabaseImpl.h"
#include "db/fields/DxfFields.h"
#include "db/fields/DxfObjectReader.h"
#include "db/fields/DxfObjectWriter.h"
#include "db/fields/NameReferences.h"
#include "db/ObjectExtras.h"
#include "db/ObjectOpening.h"
#include "db/Ownership.h"
#include "dxf/DxfCursor.h"
#include "dxf/DxfTranscode.h"
#include "dxf/DxfValue.h"

#include "dbdict.h"
#include "dbsymtb.h"

/// Copies of objects, within a drawing or from one to another.
/// A copy is made of the tags of its origin, so that what no class models is copied too: handles are given anew,
/// references followed, and the named definitions that the tags use are brought along.

// ---- the mapping ----------------------------------------------------------------------------------------------------

struct AcDbIdMapping::Pairs {
    std::unordered_map<std::int64_t, AcDbObjectId> byKey;
};

AcDbIdMapping::AcDbIdMapping() : m_pairs(std::make_unique<Pairs>()) {}
AcDbIdMapping::~AcDbIdMapping() = default;

bool AcDbIdMapping::find(AcDbObjectId key, AcDbObjectId& value) const
{
    const auto found = m_pairs->byKey.find(key.asOldId());
    if (found == m_pairs->byKey.end())
        return false;
    value = found->second;
    return true;
}

void AcDbIdMapping::assign(AcDbObjectId key, AcDbObjectId value)
{
    m_pairs->byKey[key.asOldId()] = value;
}
int AcDbIdMapping::count() const
{
    return static_cast<int>(m_pairs->byKey.size());
}

// ---- the copying ----------------------------------------------------------------------------------------------------

/// Copies objects of `from` into `to`, which may be the same drawing.
class ObjectCloner {
public:
    ObjectCloner(AcDbDatabaseImpl& from, AcDbDatabaseImpl& to, AcDbIdMapping& mapping) :
        m_from(from),
        m_to(to),
        m_mapping(mapping)
    {
    }

    void cloneInto(const AcDbObjectIdArray& objects, AcDbStub* owner)
    {
        for (int i = 0; i < objects.length(); ++i)
            cloneUnder(objects[i].stub(), owner);
        fillTags();
    }

    void cloneContent(const BlockContent& content, AcDbStub* block)
    {
        for (AcDbStub* entity : content.entities)
            if (!isErased(*recordOf(entity)))
                cloneUnder(entity, block);
        fillTags();
    }

private:
    struct Copy {
        AcDbStub* origin;
        AcDbStub* twin;
        std::optional<NameKind> definition = {}; // one that tags name, brought along
    };

    /// One object with what it owns, in the block or under the object `owner`.
    AcDbStub* cloneUnder(AcDbStub* origin, AcDbStub* owner)
    {
        AcDbStub* twin = reserve(origin);
        if (AcDbStub* oldOwner = m_from.ownership().ownerOf(m_from.object(*recordOf(origin))))
            m_handles.emplace(recordOf(oldOwner)->handle, recordOf(owner)->handle);
        if (m_to.typeName(*recordOf(owner)) == "BLOCK_RECORD") {
            m_to.blocks().append(owner, twin);
            if (m_from.ownership().ownerOf(*recordOf(origin)) != owner)
                m_moved.push_back({twin, owner});
        }
        cloneTree();
        return twin;
    }

    /// What the objects reserved last own, and so on down: a list, for a file may nest without end.
    void cloneTree()
    {
        for (; m_expanded < m_copies.size(); ++m_expanded)
            cloneOwned(Copy(m_copies[m_expanded]));
    }

    void cloneOwned(const Copy copy)
    {
        AcDbStub* const origin = copy.origin;
        AcDbObject& object = m_from.object(*recordOf(origin));
        const AcDbObjectId dictionary = object.extensionDictionary();
        if (!dictionary.isNull() && !dictionary.isErased())
            reserveOnce(dictionary.stub());
        if (AcDbDictionary::cast(&object))
            return cloneEntries(origin);
        const auto subentities = m_from.ownership().subentities(object, false);
        AcDbStub* end = m_from.ownership().sequenceEnd(*recordOf(origin));
        if (!subentities.empty() || end)
            m_sequences.push_back(copy);
        for (AcDbStub* subentity : subentities)
            reserve(subentity);
        if (end)
            reserve(end);
    }

    void reserveOnce(AcDbStub* origin)
    {
        if (!m_handles.contains(recordOf(origin)->handle))
            reserve(origin);
    }

    void cloneEntries(AcDbStub* dictionary)
    {
        const auto* opened = AcDbDictionary::cast(&m_from.object(*recordOf(dictionary)));
        for (const auto& [name, id] : opened->entriesAsIds())
            if (!id.isNull() && !id.isErased())
                reserveOnce(id.stub());
    }

    /// A record for the copy, without tags.
    Copy makeTwin(AcDbStub* origin)
    {
        const DxfRecord& record = *recordOf(origin);
        AcDbStub* twin = m_to.adoptBytes(m_from.typeName(record), m_to.takeHandle(), {});
        m_handles[record.handle] = recordOf(twin)->handle;
        m_mapping.assign(AcDbObjectId(origin), AcDbObjectId(twin));
        m_twins.push_back(twin);
        return {origin, twin};
    }

    /// The same; its tags come when every handle is known.
    AcDbStub* reserve(AcDbStub* origin)
    {
        m_copies.push_back(makeTwin(origin));
        return m_copies.back().twin;
    }

    void fillTags()
    {
        cloneTree();
        for (; m_filled < m_copies.size(); ++m_filled) { // definitions brought along are added meanwhile
            cloneTree();
            fill(Copy(m_copies[m_filled]));
        }
        linkSequences();
        placeMoved();
        tellAppended();
    }

    /// Entities tell whether they are part of paper space: copies that left it, or joined it, say so.
    void placeMoved()
    {
        for (const auto& [twin, block] : m_moved) {
            const bool paper = block == m_to.blocks().paperSpace() && m_to.blocks().of(block).inEntitiesSection;
            m_to.setPaperSpace(twin, paper);
            if (!isErased(*recordOf(twin)))
                for (AcDbStub* subentity : m_to.ownership().subentities(m_to.object(*recordOf(twin)), false))
                    m_to.setPaperSpace(subentity, paper);
        }
        m_moved.clear();
    }

    void fill(const Copy copy)
    {
        const std::string tags =
            withoutForeignLinks(bringNamed(*recordOf(copy.origin), currentTags(*recordOf(copy.origin))));
        const DxfTranscoder transcoder(m_from.form(), m_to.form(),
                                       [this](int, std::uint64_t handle) { return mappedHandle(handle); });
        if (!transcoder.append(tags, static_cast<NewRecord*>(recordOf(copy.twin))->bytes))
            refuse(*recordOf(copy.twin));
        else
            m_to.undo().created(copy.twin);
        if (copy.definition)
            enter(copy);
    }

    /// A definition whose name can be read joins its table, with what it holds.
    void enter(const Copy& definition)
    {
        m_to.names(*definition.definition).append(definition.twin);
        if (definition.definition == NameKind::block)
            bringBlockContent(definition.origin, definition.twin);
    }

    /// The lists of reactors and of references to a block name objects of the other drawing: those not copied go, and a
    /// list with nothing left.
    std::string withoutForeignLinks(std::string tags)
    {
        if (&m_from == &m_to || (tags.find("{ACAD_") == tags.npos && tags.find("{BLKREFS") == tags.npos))
            return tags;
        std::string kept;
        DxfCursor cursor(m_from.form(), tags);
        DxfTag tag;
        std::size_t opened = std::string::npos; // where the list being copied starts
        bool empty = true;
        while (cursor.next(tag)) {
            const std::string_view text = dxfText(tag);
            std::uint64_t handle = 0;
            if (tag.code == 102 && opensGroup(tag)) {
                const bool list = text == "{ACAD_REACTORS" || text == "{ACAD_XDICTIONARY" || text == "{BLKREFS";
                opened = list ? kept.size() : std::string::npos;
                empty = true;
            } else if (opened != std::string::npos && tag.code != 102) {
                if (!dxfHandle(tag, handle) || mappedHandle(handle) == 0)
                    continue;
                empty = false;
            }
            kept.append(tag.start, tag.next);
            if (tag.code == 102 && !opensGroup(tag) && opened != std::string::npos) {
                if (empty)
                    kept.resize(opened);
                opened = std::string::npos;
            }
        }
        kept.append(tags, static_cast<std::size_t>(cursor.position() - tags.data())); // a tag that is cut
        return kept;
    }

    /// What cannot be carried over is no object here.
    void refuse(DxfRecord& twin)
    {
        m_to.problems().add(twin, "objet illisible, non copié");
        twin.flags |= RecordFlags::erased;
    }

    void linkSequences()
    {
        for (const Copy& copy : m_sequences) {
            AcDbObject& origin = m_from.object(*recordOf(copy.origin));
            std::vector<AcDbStub*> twins;
            for (AcDbStub* subentity : m_from.ownership().subentities(origin, false))
                twins.push_back(twinOf(subentity));
            AcDbStub* end = m_from.ownership().sequenceEnd(*recordOf(copy.origin));
            m_to.ownership().linkSubentities(m_to.object(*recordOf(copy.twin)), std::move(twins),
                                             end ? twinOf(end) : nullptr);
        }
        m_sequences.clear();
    }

    /// Told when they are whole.
    void tellAppended()
    {
        if (!m_to.reactors().empty())
            for (AcDbStub* twin : m_twins)
                if (!isErased(*recordOf(twin)))
                    ObjectOpening::tellAppended(m_to.object(*recordOf(twin)));
        m_twins.clear();
    }

    AcDbStub* twinOf(AcDbStub* origin) const { return m_to.byHandle(m_handles.at(recordOf(origin)->handle)); }

    std::string currentTags(DxfRecord& record)
    {
        const bool asInFile =
            (record.flags & RecordFlags::modified) == 0 && (record.flags & DxfRecord::handleRepaired) == 0;
        if (asInFile && !m_from.bytes(record).empty())
            return m_from.hasRenamed() ? m_from.withNewNames(record, m_from.bytes(record))
                                       : std::string(m_from.bytes(record));
        std::string tags;
        DxfObjectWriter(m_from, tags).write(m_from.object(record));
        return tags;
    }

    std::uint64_t mappedHandle(std::uint64_t handle)
    {
        const auto mapped = m_handles.find(handle);
        if (mapped != m_handles.end())
            return mapped->second;
        if (&m_from == &m_to)
            return handle;
        // A definition of the other drawing: the one of the same name here.
        AcDbStub* origin = m_from.byHandle(handle);
        const std::wstring name = origin ? m_from.recordName(origin) : L"";
        for (const NameKind kind : nameKinds)
            if (!name.empty() && m_from.named(kind, name) == origin)
                if (AcDbStub* record = bring(kind, name))
                    return recordOf(record)->handle;
        return 0;
    }

    /// Brings the definitions that some tags name. Unnamed blocks go by a number of their drawing: here the same one
    /// may be another block's, so they take a free one.
    std::string bringNamed(const DxfRecord& record, std::string tags)
    {
        if (&m_from == &m_to)
            return tags;
        const DxfForm& form = m_from.form();
        const auto newName = [&](NameKind kind, std::string_view bytes) -> std::optional<std::wstring> {
            const std::wstring name = form.encoding->decode(bytes);
            bring(kind, name);
            if (kind != NameKind::block || !isUnnamed(name))
                return {};
            const auto given = m_unnamed.find(m_from.named(kind, name));
            return given == m_unnamed.end() ? std::nullopt : std::optional(given->second);
        };
        std::string renamed;
        appendRenamed(form, m_from.typeName(record), m_from.classOf(record).isEntity, tags, newName, renamed);
        return renamed;
    }

    static bool isUnnamed(const std::wstring& block)
    {
        const std::wstring name = foldedName(block);
        return name.starts_with(L'*') && !name.starts_with(L"*model_space") && !name.starts_with(L"*paper_space");
    }

    std::wstring freeName(const std::wstring& unnamed)
    {
        const std::wstring stem = unnamed.substr(0, unnamed.find_first_of(L"0123456789"));
        int& number = m_lastNumbers[foldedName(stem)];
        std::wstring name = unnamed;
        while (m_to.named(NameKind::block, name) || m_given.contains(foldedName(name)))
            name = stem + std::to_wstring(++number);
        m_given.insert(foldedName(name));
        return name;
    }

    /// The record of that name here, copied from the other drawing if need be; null when neither has it. A copy gets
    /// its tags in its turn: definitions may need each other without end.
    AcDbStub* bring(NameKind kind, const std::wstring& name)
    {
        const bool unnamed = kind == NameKind::block && isUnnamed(name);
        AcDbStub* origin = m_from.named(kind, name);
        if (const auto twin = m_brought.find(origin); origin && twin != m_brought.end())
            return twin->second;
        AcDbStub* present = m_to.named(kind, name);
        if (!origin || (present && !unnamed))
            return present;
        m_handles.emplace(recordOf(m_from.names(kind).table)->handle, recordOf(m_to.names(kind).table)->handle);
        AcDbStub* const twin = reserve(origin);
        m_copies.back().definition = kind;
        m_brought.emplace(origin, twin);
        if (unnamed)
            m_unnamed.emplace(origin, freeName(name));
        return twin;
    }

    void bringBlockContent(AcDbStub* origin, AcDbStub* twin)
    {
        const BlockContent& content = m_from.blocks().of(origin);
        if (!content.begin || !content.end)
            return m_to.makeBlockBounds(twin);
        m_to.blocks().addNew(twin, reserve(content.begin), reserve(content.end));
        for (AcDbStub* entity : content.entities)
            if (!isErased(*recordOf(entity)))
                cloneUnder(entity, twin);
    }

    AcDbDatabaseImpl& m_from;
    AcDbDatabaseImpl& m_to;
    AcDbIdMapping& m_mapping;
    std::unordered_map<std::uint64_t, std::uint64_t> m_handles; // of the origin to that of the copy
    std::vector<Copy> m_copies;
    std::vector<AcDbStub*> m_twins;                        // all copies, those of definitions among them
    std::unordered_map<AcDbStub*, AcDbStub*> m_brought;    // definitions, with their copies
    std::unordered_map<AcDbStub*, std::wstring> m_unnamed; // names that unnamed blocks take here
    std::set<std::wstring> m_given;                        // those names
    std::map<std::wstring, int> m_lastNumbers;             // given to unnamed blocks, by what stands before the number
    std::vector<std::pair<AcDbStub*, AcDbStub*>> m_moved;  // copies in another block than their origin's, with it
    std::vector<Copy> m_sequences;                         // parents whose sub-entities are to be linked
    std::size_t m_expanded = 0;                            // of m_copies, how many had what they own reserved
    std::size_t m_filled = 0;                              // and how many got their tags
};

// ---- the database's operations --------------------------------------------------------------------------------------

Acad::ErrorStatus AcDbDatabase::deepCloneObjects(const AcDbObjectIdArray& objects, AcDbObjectId owner,
                                                 AcDbIdMapping& mapping, bool)
{
    if (owner.isNull())
        return Acad::eNullObjectId;
    for (int i = 0; i < objects.length(); ++i)
        if (objects[i].isNull() || objects[i].database() != this || owner.database() != this)
            return Acad::eWrongDatabase;
    ObjectCloner(*m_impl, *m_impl, mapping).cloneInto(objects, owner.stub());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::wblockCloneObjects(const AcDbObjectIdArray& objects, AcDbObjectId owner,
                                                   AcDbIdMapping& mapping, AcDb::DuplicateRecordCloning, bool)
{
    if (owner.isNull() || owner.database() != this)
        return Acad::eWrongDatabase;
    if (objects.length() == 0)
        return Acad::eOk;
    AcDbDatabase* source = objects[0].database();
    for (int i = 0; i < objects.length(); ++i)
        if (objects[i].isNull() || objects[i].database() != source)
            return Acad::eWrongDatabase;
    ObjectCloner(source->impl(), *m_impl, mapping).cloneInto(objects, owner.stub());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::insert(AcDbObjectId& blockId, const ACHAR* blockName, AcDbDatabase* source, bool)
{
    blockId.setNull();
    if (!source || !source->impl().isLoaded() || source == this)
        return Acad::eNoDatabase;
    AcDbBlockTable* table = nullptr;
    Acad::ErrorStatus es = getSymbolTable(table, AcDb::kForWrite);
    if (es != Acad::eOk)
        return es;
    if (table->getAt(blockName, blockId) == Acad::eOk)
        return table->close();
    auto block = std::make_unique<AcDbBlockTableRecord>();
    es = block->setName(blockName);
    if (es == Acad::eOk)
        es = table->add(blockId, block.get());
    table->close();
    if (es != Acad::eOk)
        return es;
    AcDbBlockTableRecord* made = block.release();
    made->setOrigin(source->insbase());
    made->close();

    AcDbDatabaseImpl& other = source->impl();
    AcDbIdMapping mapping;
    if (AcDbStub* model = other.blocks().modelSpace())
        ObjectCloner(other, *m_impl, mapping).cloneContent(other.blocks().of(model), blockId.stub());
    return Acad::eOk;
}
