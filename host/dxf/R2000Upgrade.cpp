#include "dxf/R2000Upgrade.h"

#include <algorithm>

#include "dxf/DxfCursor.h"
#include "dxf/DxfEncoding.h"
#include "dxf/DxfIndexer.h"
#include "dxf/DxfUpgrade.h"
#include "dxf/DxfValue.h"
#include "platform/CodePage.h"
#include "platform/LetterCase.h"

std::string R2000Upgrade::symbolKey(std::string_view name) const
{
    std::wstring key = platform::upperCase(m_old.form().encoding->decode(name));
    if (key == L"$MODEL_SPACE" || key == L"$PAPER_SPACE")
        key[0] = L'*';
    return platform::utf8FromWide(key);
}

std::string_view R2000Upgrade::blockName(std::string_view key, std::string_view name)
{
    return key == modelSpace ? "*Model_Space" : key == paperSpace ? "*Paper_Space" : name;
}

R2000Upgrade::R2000Upgrade(const DxfFile& old) :
    m_old(old),
    m_form(old.form()),
    m_lastHandle(std::max<std::uint64_t>(old.freeHandle(), 0x20) - 1), // low handles are the fixed objects' by custom
    m_skeleton([this] { return newHandle(); })
{
    m_form.version = std::max(m_form.version, firstMarkedVersion);
    m_form.oneByteCodes = false;
}

std::uint64_t R2000Upgrade::newHandle()
{
    do {
        ++m_lastHandle;
    } while (m_lastHandle == 0 || m_old.handles().find(m_lastHandle) != HandleTable::none);
    return m_lastHandle;
}

R2000Upgrade::Tags R2000Upgrade::tagsOf(std::uint32_t at) const
{
    Tags tags;
    DxfCursor cursor(m_old.form(), m_old.bytes(m_old.records()[at]));
    for (DxfTag tag; cursor.next(tag);)
        tags.push_back(tag);
    return tags;
}

bool R2000Upgrade::has(const Tags& tags, int code)
{
    return std::any_of(tags.begin(), tags.end(), [code](const DxfTag& tag) { return tag.code == code; });
}

std::string_view R2000Upgrade::textOf(const Tags& tags, int code) const
{
    const auto found = std::find_if(tags.begin(), tags.end(), [code](const DxfTag& tag) { return tag.code == code; });
    return found == tags.end() ? std::string_view() : dxfText(*found);
}

std::int64_t R2000Upgrade::integerOf(const Tags& tags, int code) const
{
    std::int64_t value = 0;
    const auto found = std::find_if(tags.begin(), tags.end(), [code](const DxfTag& tag) { return tag.code == code; });
    if (found != tags.end() && !dxfInteger(m_old.form(), *found, value))
        return 0;
    return value;
}

// ---- plan: handles for all that needs one, and what is named but defined nowhere

void R2000Upgrade::plan()
{
    const auto& records = m_old.records();
    m_handles.resize(records.size());
    for (const char* name : {"TABLES", "BLOCKS", "ENTITIES", "OBJECTS"}) {
        for (const DxfRange& range : m_old.sections()) {
            if (range.name != name)
                continue;
            for (std::uint32_t at = range.first + 1; at <= range.last; ++at) {
                const bool structural = records[at].type <= DxfIndexer::eof && records[at].type != DxfIndexer::table;
                if (!structural)
                    m_handles[at] = records[at].handle ? records[at].handle : newHandle();
            }
        }
    }
    planBlocks();
    planRoot();
}

std::map<std::string, std::uint64_t> R2000Upgrade::entriesOf(std::uint64_t dictionary) const
{
    std::map<std::string, std::uint64_t> entries;
    const std::uint32_t at = m_old.handles().find(dictionary);
    if (at == HandleTable::none)
        return entries;
    std::string key;
    for (const DxfTag& tag : tagsOf(at)) {
        std::uint64_t handle = 0;
        if (tag.code == 3)
            key = dxfText(tag);
        else if ((tag.code == 350 || tag.code == 360) && !key.empty() && dxfHandle(tag, handle))
            entries.emplace(key, handle);
    }
    return entries;
}

/// Layouts and plot styles that an old drawing has already stay its own; no others are made beside them.
void R2000Upgrade::planRoot()
{
    std::map<std::string, std::uint64_t> root;
    for (std::uint32_t at = 0; at < m_handles.size() && root.empty(); ++at)
        if (m_handles[at] != 0 && typeOf(at) == "DICTIONARY")
            root = entriesOf(m_handles[at]);
    m_normalPlotStyle = m_skeleton.normalPlotStyle();
    if (const auto styles = root.find("ACAD_PLOTSTYLENAME"); styles != root.end())
        m_normalPlotStyle = entriesOf(styles->second)["Normal"];
    const auto layouts = root.find("ACAD_LAYOUT");
    if (layouts == root.end()) {
        m_layouts = {{m_blockRecords[modelSpace], m_skeleton.modelLayout()},
                     {m_blockRecords[paperSpace], m_skeleton.paperLayout()}};
        return;
    }
    for (const auto& [name, layout] : entriesOf(layouts->second)) {
        const std::uint32_t at = m_old.handles().find(layout);
        std::uint64_t block = 0;
        if (at == HandleTable::none)
            continue;
        for (const DxfTag& tag : tagsOf(at)) // the last one: the first is the dictionary that owns it
            if (tag.code == 330)
                dxfHandle(tag, block);
        m_layouts.emplace(block, layout);
    }
}

void R2000Upgrade::planBlocks()
{
    for (std::uint32_t at = 0; at < m_handles.size(); ++at) {
        if (m_handles[at] == 0)
            continue;
        const Tags tags = tagsOf(at);
        const std::string& type = typeOf(at);
        if (type == "BLOCK_RECORD")
            m_blockRecords.emplace(symbolKey(textOf(tags, 2)), m_handles[at]);
        if (type == "BLOCK") {
            const std::string key = symbolKey(textOf(tags, 2));
            m_blocksDefined.insert(key);
            if (m_blockRecords.try_emplace(key, 0).first->second == 0)
                m_blockNames.emplace(key, textOf(tags, 2));
        }
        m_layersUsed.insert(std::string(textOf(tags, 8)));
    }
    for (const char* space : {modelSpace, paperSpace}) {
        if (m_blockRecords.try_emplace(space, 0).first->second == 0)
            m_blockNames[space] = space;
    }
    for (auto& [key, handle] : m_blockRecords) {
        if (handle == 0)
            handle = newHandle();
    }
    m_layersUsed.erase("");
    m_layersUsed.insert("0");
}

// ---- tags and sections

void R2000Upgrade::put(const DxfTag& tag)
{
    if (m_form == m_old.form())
        return m_write.raw({tag.start, tag.next});
    const bool counted = dxfKind(tag.code) == DxfKind::bytes;
    m_out.push_back(static_cast<char>(tag.code & 0xFF));
    m_out.push_back(static_cast<char>(tag.code >> 8));
    m_out.append(tag.begin - counted, tag.next); // a chunk of bytes opens with its length
}

void R2000Upgrade::putRecord(std::uint32_t at)
{
    if (m_form == m_old.form())
        return m_write.raw(m_old.bytes(m_old.records()[at]));
    for (const DxfTag& tag : tagsOf(at))
        put(tag);
}

template <class Body, class Extra>
void R2000Upgrade::section(const char* name, Body body, Extra extra)
{
    std::vector<DxfRange> ranges;
    std::copy_if(m_old.sections().begin(), m_old.sections().end(), std::back_inserter(ranges),
                 [name](const DxfRange& range) { return range.name == name; });
    if (ranges.empty()) {
        m_write.rawText(0, "SECTION");
        m_write.rawText(2, name);
        extra();
        m_write.rawText(0, "ENDSEC");
    }
    for (std::size_t i = 0; i < ranges.size(); ++i) {
        const bool closed = m_old.records()[ranges[i].last].type == DxfIndexer::endsec;
        putRecord(ranges[i].first);
        for (std::uint32_t at = ranges[i].first + 1; at < ranges[i].last + !closed; ++at)
            body(at);
        if (i + 1 == ranges.size())
            extra();
        if (closed)
            putRecord(ranges[i].last);
        else
            m_write.rawText(0, "ENDSEC");
    }
}

// What stands between sections belongs nowhere; it is kept before EOF.
void R2000Upgrade::putOutsideSections()
{
    std::uint32_t next = 0;
    const auto copyUpTo = [&](std::uint32_t end) {
        for (; next < end; ++next) {
            if (!(m_old.records()[next].flags & DxfRecord::pseudo) && m_old.records()[next].type != DxfIndexer::eof)
                putRecord(next);
        }
    };
    for (const DxfRange& range : m_old.sections()) {
        copyUpTo(range.first);
        next = range.last + 1;
    }
    copyUpTo(static_cast<std::uint32_t>(m_old.records().size()));
}

std::string R2000Upgrade::run()
{
    plan();
    section(
        "CLASSES",
        [this](std::uint32_t at) {
            m_classes.insert(std::string(textOf(tagsOf(at), 1)));
            putRecord(at);
        },
        [this] { m_skeleton.writeClasses(m_write, m_classes); });
    section(
        "TABLES", [this](std::uint32_t at) { tableRecord(at); }, [this] { missingTables(); });
    section(
        "BLOCKS", [this](std::uint32_t at) { blocksRecord(at); },
        [this] {
            newBlock(modelSpace);
            newBlock(paperSpace);
        });
    section(
        "ENTITIES", [this](std::uint32_t at) { entity(at, 0); }, [] {});
    section(
        "OBJECTS", [this](std::uint32_t at) { objectRecord(at); }, [this] { missingObjects(); });
    for (const DxfRange& range : m_old.sections()) {
        constexpr std::string_view done[] = {"HEADER", "CLASSES", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS"};
        if (std::find(std::begin(done), std::end(done), range.name) != std::end(done))
            continue;
        for (std::uint32_t at = range.first; at <= range.last; ++at)
            putRecord(at);
    }
    putOutsideSections();
    m_write.rawText(0, "EOF");

    // The header comes last: only now is it known which handles are taken.
    const std::string body = std::move(m_out);
    m_out.clear();
    const DxfRecord& first = m_old.records().front();
    const DxfRecord& last = m_old.records().back();
    if (first.flags & DxfRecord::pseudo)
        putHead(m_old.bytes(first));
    const bool stated = m_old.form().version >= firstMarkedVersion; // and its texts are encoded by it
    headerVariables(stated ? m_old.headerValue("$ACADVER", 1) : "AC1015");
    m_out += body;
    if ((last.flags & DxfRecord::pseudo) && &last != &first)
        m_write.raw(m_old.bytes(last));
    return std::move(m_out);
}

// The mark of a binary file or of UTF-8, and comments.
void R2000Upgrade::putHead(std::string_view head)
{
    if (m_form == m_old.form())
        return m_write.raw(head);
    m_write.raw(dxfBinaryMark);
    DxfCursor cursor(m_old.form(), head.substr(dxfBinaryMark.size()));
    for (DxfTag tag; cursor.next(tag);)
        put(tag);
}

void R2000Upgrade::headerVariables(std::string_view acadVersion)
{
    const bool paged = !m_old.headerValue("$DWGCODEPAGE", 3).empty();
    const auto ownVariables = [&] {
        m_write.rawText(9, "$ACADVER");
        m_write.rawText(1, acadVersion);
        if (!paged) {
            m_write.rawText(9, "$DWGCODEPAGE");
            m_write.rawText(3, "ANSI_1252");
        }
        m_write.rawText(9, "$HANDSEED");
        m_write.handle(5, newHandle());
    };
    const DxfRange* old = m_old.section("HEADER");
    if (!old) {
        m_write.rawText(0, "SECTION");
        m_write.rawText(2, "HEADER");
        ownVariables();
        m_write.rawText(0, "ENDSEC");
        return;
    }
    bool started = false;
    std::string_view variable;
    for (const DxfTag& tag : tagsOf(old->first)) {
        if (tag.code == 9)
            variable = dxfText(tag);
        const bool ours = variable == "$ACADVER" || variable == "$HANDSEED";
        if (!ours || tag.code == 999)
            put(tag);
        if (tag.code == 2 && !started) {
            ownVariables();
            started = true;
        }
    }
    for (std::uint32_t at = old->first + 1; at <= old->last; ++at)
        putRecord(at);
    if (m_old.records()[old->last].type != DxfIndexer::endsec)
        m_write.rawText(0, "ENDSEC");
}

std::string upgradeToR2000(const DxfFile& old)
{
    return R2000Upgrade(old).run();
}
