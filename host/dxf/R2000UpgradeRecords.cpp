#include <algorithm>

#include "dxf/DxfIndexer.h"
#include "dxf/DxfValue.h"
#include "dxf/R2000Upgrade.h"

// Blocks, entities and objects of the upgrade.

void R2000Upgrade::blocksRecord(std::uint32_t at)
{
    if (typeOf(at) == "BLOCK")
        m_block = m_blockRecords[symbolKey(textOf(tagsOf(at), 2))];
    entity(at, m_block);
}

// `space` is 0 for an entity outside blocks: its group 67 tells.
void R2000Upgrade::entity(std::uint32_t at, std::uint64_t space)
{
    const Tags tags = tagsOf(at);
    const std::string& type = typeOf(at);
    const std::int64_t flags = integerOf(tags, 70);
    const bool isPart = type == "ATTRIB" || type == "VERTEX" || type == "SEQEND";
    if (space == 0)
        space = m_blockRecords[integerOf(tags, 67) == 1 ? paperSpace : modelSpace];
    const std::uint64_t owner = isPart && m_parent != 0 ? m_parent : space;
    if (!isPart) {
        m_parent = type == "INSERT" || type == "POLYLINE" ? m_handles[at] : 0;
        m_parentFlags = type == "POLYLINE" ? flags : 0;
    }
    if (tags.empty() || (m_old.records()[at].flags & DxfRecord::spoiled))
        return putRecord(at);
    const bool marked = has(tags, 100);
    if (marked && m_old.records()[at].handle != 0)
        return putRecord(at);
    put(tags.front());
    m_write.handle(5, m_handles[at]);
    if (marked) {
        for (auto tag = tags.begin() + 1; tag < tags.end(); ++tag) {
            if (tag->code != 5)
                put(*tag);
        }
        return;
    }
    m_write.handle(330, owner);
    m_write.rawText(100, "AcDbEntity");
    entityTags(tags, r12Subclasses(type, flags, m_parentFlags));
    if (type == "SEQEND")
        m_parent = 0;
}

void R2000Upgrade::entityTags(const Tags& tags, const std::vector<R12Subclass>& subclasses)
{
    const bool isBlock = dxfText(tags.front()) == "BLOCK";
    Tags own(tags.begin() + 1, tags.end());
    if (const auto handle = std::ranges::find(own, 5, &DxfTag::code); handle != own.end())
        own.erase(handle);
    const auto sorted = sortedBelowMarkers(own, subclasses);
    const auto putAll = [&](const Tags& below) {
        for (const DxfTag& tag : below)
            putNamed(tag, isBlock);
    };
    putAll(sorted.front());
    if (!has(tags, 8))
        m_write.rawText(8, "0");
    for (std::size_t i = 0; i < subclasses.size(); ++i) {
        m_write.rawText(100, subclasses[i].marker);
        putAll(sorted[i + 1]);
    }
    putAll(sorted.back());
}

void R2000Upgrade::putNamed(const DxfTag& tag, bool isBlock)
{
    const std::string_view name = dxfText(tag);
    const bool space =
        isBlock && (tag.code == 2 || tag.code == 3) && name.starts_with('$') && symbolKey(name).starts_with('*');
    if (!space)
        return put(tag);
    std::string renamed(name);
    renamed[0] = '*';
    m_write.rawText(tag.code, renamed);
}

void R2000Upgrade::newBlock(const char* name)
{
    if (m_blocksDefined.contains(name))
        return;
    const std::string_view written = blockName(name, name);
    const auto start = [&](const char* type, const char* marker) {
        m_write.rawText(0, type);
        m_write.handle(5, newHandle());
        m_write.handle(330, m_blockRecords[name]);
        m_write.rawText(100, "AcDbEntity");
        m_write.rawText(8, "0");
        m_write.rawText(100, marker);
    };
    start("BLOCK", "AcDbBlockBegin");
    m_write.rawText(2, written);
    m_write.integer(70, 0);
    m_write.point(10, 0.0, 0.0, 0.0);
    m_write.rawText(3, written);
    m_write.rawText(1, "");
    start("ENDBLK", "AcDbBlockEnd");
}

// ---- objects

// The first dictionary is the root: it is given the entries it lacks.
void R2000Upgrade::objectRecord(std::uint32_t at)
{
    const bool root = m_root == 0 && typeOf(at) == "DICTIONARY";
    if (!root && m_old.records()[at].handle != 0)
        return putRecord(at);
    const Tags tags = tagsOf(at);
    if (root) {
        m_root = m_handles[at];
        for (const DxfTag& tag : tags) {
            if (tag.code == 3)
                m_rootKeys.emplace_back(dxfText(tag));
        }
    }
    const std::vector<std::string_view> present(m_rootKeys.begin(), m_rootKeys.end());
    bool added = !root;
    for (const DxfTag& tag : tags) {
        if (tag.code >= firstExtendedData && !added) {
            m_skeleton.writeRootEntries(m_write, present);
            added = true;
        }
        if (tag.code != 5 || m_old.records()[at].handle != 0)
            put(tag);
        if (tag.code == 0 && m_old.records()[at].handle == 0)
            m_write.handle(5, m_handles[at]);
    }
    if (!added)
        m_skeleton.writeRootEntries(m_write, present);
}

void R2000Upgrade::missingObjects()
{
    if (m_root == 0) {
        m_root = newHandle();
        m_skeleton.startRoot(m_write, m_root);
        m_skeleton.writeRootEntries(m_write, {});
    }
    const std::vector<std::string_view> present(m_rootKeys.begin(), m_rootKeys.end());
    m_skeleton.writeObjects(m_write, m_root, present, m_blockRecords[modelSpace], m_blockRecords[paperSpace]);
}
