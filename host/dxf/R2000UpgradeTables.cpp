#include <algorithm>

#include "dxf/DxfIndexer.h"
#include "dxf/DxfValue.h"
#include "dxf/R2000Upgrade.h"

// The TABLES section of the upgrade: markers and owners for what is there, then what no drawing is without.

void R2000Upgrade::tableRecord(std::uint32_t at)
{
    const std::uint16_t type = m_old.records()[at].type;
    if (type == DxfIndexer::table) {
        if (!m_table.empty()) {
            finishTable();
            m_write.rawText(0, "ENDTAB");
        }
        startTable(at);
    } else if (type == DxfIndexer::endtab) {
        finishTable();
        putRecord(at);
    } else {
        tableEntry(at);
    }
}

void R2000Upgrade::startTable(std::uint32_t at)
{
    const Tags tags = tagsOf(at);
    m_table = std::string(textOf(tags, 2));
    m_tableHandle = m_handles[at];
    m_entries.clear();
    const bool marked = has(tags, 100);
    const bool named = m_old.records()[at].handle != 0;
    for (const DxfTag& tag : tags) {
        if (tag.code == 5 && !named)
            continue;
        put(tag);
        if ((tag.code == 2 && !marked) || (tag.code == 0 && marked && !named)) {
            if (!named)
                m_write.handle(5, m_tableHandle);
            if (marked)
                continue;
            m_write.handle(330, 0);
            m_write.rawText(100, "AcDbSymbolTable");
        }
    }
    if (!marked && m_table == "DIMSTYLE")
        m_write.rawText(100, "AcDbDimStyleTable");
}

void R2000Upgrade::tableEntry(std::uint32_t at)
{
    const Tags tags = tagsOf(at);
    const bool marked = has(tags, 100);
    const int handleCode = typeOf(at) == "DIMSTYLE" ? 105 : 5;
    m_entries.insert(symbolKey(textOf(tags, 2)));
    bool handleMet = false;
    bool added = false;
    for (const DxfTag& tag : tags) {
        if (tag.code == handleCode && !handleMet) {
            handleMet = true; // written after the group 0
            continue;
        }
        if (tag.code >= firstExtendedData && !added) {
            addToEntry(tags);
            added = true;
        }
        put(tag);
        if (tag.code == 49 && typeOf(at) == "LTYPE" && !has(tags, 74))
            m_write.integer(74, 0); // a dash without shape
        if (&tag == &tags.front())
            m_write.handle(handleCode, m_handles[at]);
        if (&tag != &tags.front() || marked)
            continue;
        m_write.handle(330, m_tableHandle);
        m_write.rawText(100, "AcDbSymbolTableRecord");
        if (const std::string_view marker = symbolMarker(m_table); !marker.empty())
            m_write.rawText(100, marker);
    }
    if (!added)
        addToEntry(tags);
}

void R2000Upgrade::addToEntry(const Tags& tags)
{
    const std::string key = symbolKey(textOf(tags, 2));
    if (m_table == "LAYER" && !has(tags, 390) && m_normalPlotStyle != 0)
        m_write.handle(390, m_normalPlotStyle);
    if (m_table == "BLOCK_RECORD" && !has(tags, 340))
        layoutOf(key);
    if (m_table != "DIMSTYLE")
        return;
    // Arrow blocks went by name; the names stay where they were.
    constexpr int arrows[][2] = {{5, 342}, {6, 343}, {7, 344}};
    for (const auto& [nameCode, handleCode] : arrows) {
        const auto block = m_blockRecords.find(symbolKey(textOf(tags, nameCode)));
        if (block != m_blockRecords.end() && !has(tags, handleCode))
            m_write.handle(handleCode, block->second);
    }
}

// Which layout shows a block: spaces have one, other blocks none.
void R2000Upgrade::layoutOf(const std::string& key)
{
    const auto block = m_blockRecords.find(key);
    const auto layout = block == m_blockRecords.end() ? m_layouts.end() : m_layouts.find(block->second);
    m_write.handle(340, layout == m_layouts.end() ? 0 : layout->second);
}

void R2000Upgrade::newEntry(std::string_view name)
{
    if (!m_entries.insert(symbolKey(name)).second)
        return;
    const std::string key = symbolKey(name);
    const bool block = m_table == "BLOCK_RECORD";
    m_write.rawText(0, m_table);
    m_write.handle(m_table == "DIMSTYLE" ? 105 : 5, block ? m_blockRecords[key] : newHandle());
    m_write.handle(330, m_tableHandle);
    m_write.rawText(100, "AcDbSymbolTableRecord");
    m_write.rawText(100, symbolMarker(m_table));
    m_write.rawText(2, name);
    if (block)
        return layoutOf(key);
    m_write.integer(70, 0);
    if (m_table == "LAYER") {
        m_write.integer(62, 7);
        m_write.rawText(6, "Continuous");
        if (m_normalPlotStyle != 0)
            m_write.handle(390, m_normalPlotStyle);
    } else if (m_table == "LTYPE") {
        m_write.rawText(3, "");
        m_write.integer(72, 65);
        m_write.integer(73, 0);
        m_write.real(40, 0.0);
    } else if (m_table == "STYLE") {
        m_write.real(40, 0.0);
        m_write.real(41, 1.0);
        m_write.real(50, 0.0);
        m_write.integer(71, 0);
        m_write.real(42, 2.5);
        m_write.rawText(3, "txt");
        m_write.rawText(4, "");
    }
}

// Entries that no drawing is without, layers drawn on but never defined, and the blocks' records.
void R2000Upgrade::finishTable()
{
    static const std::map<std::string_view, std::vector<const char*>> usual = {
        {"LTYPE", {"ByBlock", "ByLayer", "Continuous"}},
        {"STYLE", {"Standard"}},
        {"APPID", {"ACAD"}},
        {"DIMSTYLE", {"Standard"}}};
    if (const auto found = usual.find(m_table); found != usual.end())
        std::for_each(found->second.begin(), found->second.end(), [this](const char* name) { newEntry(name); });
    if (m_table == "LAYER" && !m_tablesDone.contains(m_table))
        std::for_each(m_layersUsed.begin(), m_layersUsed.end(), [this](const auto& name) { newEntry(name); });
    if (m_table == "BLOCK_RECORD" && !m_tablesDone.contains(m_table)) {
        for (const auto& [key, name] : m_blockNames)
            newEntry(blockName(key, name));
    }
    m_tablesDone.insert(m_table);
    m_table.clear();
}

void R2000Upgrade::missingTables()
{
    if (!m_table.empty()) {
        finishTable();
        m_write.rawText(0, "ENDTAB");
    }
    for (const char* name : {"VPORT", "LTYPE", "LAYER", "STYLE", "VIEW", "UCS", "APPID", "DIMSTYLE", "BLOCK_RECORD"}) {
        if (!m_tablesDone.contains(name))
            newTable(name);
    }
}

void R2000Upgrade::newTable(const char* name)
{
    m_table = name;
    m_tableHandle = newHandle();
    m_entries.clear();
    m_write.rawText(0, "TABLE");
    m_write.rawText(2, name);
    m_write.handle(5, m_tableHandle);
    m_write.handle(330, 0);
    m_write.rawText(100, "AcDbSymbolTable");
    m_write.integer(70, 0);
    if (m_table == "DIMSTYLE")
        m_write.rawText(100, "AcDbDimStyleTable");
    finishTable();
    m_write.rawText(0, "ENDTAB");
}
