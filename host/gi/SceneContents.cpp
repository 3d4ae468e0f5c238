#include "gi/SceneContents.h"

#include <algorithm>
#include <utility>

#include "db/DatabaseImpl.h"
#include "gi/EntityGraphics.h"
#include "gi/SceneDrawing.h"

namespace {

constexpr std::size_t mostListBytes = 96U << 20; // kept of what entities are made of
constexpr std::size_t leastLoose = 512;          // changed entities that are looked through one by one

/// What tells the look from afar: the part of the entity, or the first piece of its picture when that part is empty.
const DisplayPart& mainPart(const std::vector<DisplayPart>& parts)
{
    const auto shown = std::ranges::find_if(parts, [](const DisplayPart& part) { return part.first < part.last; });
    return shown != parts.end() && shown->isPiece ? *shown : parts.front();
}

} // namespace

SceneContents::SceneContents(AcDbDatabase& database, AcDbObjectId block) :
    m_database(database),
    m_block(block.isNull() ? database.impl().blocks().modelSpace() : block.stub()),
    m_tables(database),
    m_changes(database)
{
}

// ---- reading

void SceneContents::update()
{
    if (!m_isRead)
        return readAll();
    if (!m_changes.any())
        return;
    if (m_changes.tables || m_changes.header)
        rereadTables();
    if (!m_changes.blocks.empty())
        rereadBlocks();
    addNewEntities();
    std::unordered_set<AcDbStub*> busy;
    for (AcDbStub* stub : m_changes.entities) {
        const auto found = m_positions.find(stub);
        if (found == m_positions.end())
            continue;
        Item& item = m_items[found->second];
        damage(item);
        if (!read(item))
            busy.insert(stub);
        damage(item);
        loosen(found->second);
    }
    m_changes.entities = std::move(busy);
    m_changes.blocks.clear();
    m_changes.tables = m_changes.header = false;
}

void SceneContents::damage(const Item& item)
{
    if (m_damage)
        m_damage->add(item.box);
}

std::optional<Box2d> SceneContents::takeDamage()
{
    update();
    const std::optional<Box2d> damaged = std::exchange(m_damage, Box2d());
    return damaged ? std::optional(damaged->grown(figureReach())) : std::nullopt;
}

void SceneContents::readAll()
{
    m_isRead = true;
    m_damage.reset();
    m_attributeMode = m_tables.settings().attributeMode;
    m_changes.entities.clear();
    m_changes.blocks.clear();
    m_changes.tables = m_changes.header = false;
    m_items.clear();
    m_positions.clear();
    m_loose.clear();
    m_listBytes = 0;
    m_indexed = false;
    addNewEntities();
}

/// The block's list only grows: what stands behind the items that are known is new.
void SceneContents::addNewEntities()
{
    if (!m_block)
        return;
    const std::vector<AcDbStub*>& entities = m_database.impl().blocks().of(m_block).entities;
    for (std::size_t i = m_items.size(); i < entities.size(); ++i) {
        Item& item = m_items.emplace_back();
        item.stub = entities[i];
        m_positions.emplace(item.stub, static_cast<std::uint32_t>(i));
        if (!read(item))
            m_changes.entities.insert(item.stub);
        damage(item);
        if (m_indexed)
            loosen(static_cast<std::uint32_t>(i));
    }
}

void SceneContents::rereadTables()
{
    m_damage.reset();
    m_tables.forget();
    if (m_tables.settings().attributeMode != m_attributeMode)
        readAll(); // other attributes show: the boxes are others
}

/// Boxes of references follow the blocks that they show.
void SceneContents::rereadBlocks()
{
    if (std::ranges::none_of(m_changes.blocks, [&](AcDbStub* block) { return m_blocks.knows(block); }))
        return;
    m_damage.reset();
    m_blocks.forget();
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        if (!m_items[i].showsBlocks)
            continue;
        if (!read(m_items[i]))
            m_changes.entities.insert(m_items[i].stub);
        loosen(static_cast<std::uint32_t>(i));
    }
}

std::unique_ptr<DisplayList> SceneContents::listOf(AcDbStub* stub, bool& busy)
{
    auto list = std::make_unique<DisplayList>();
    const AcDbObjectPointer<AcDbEntity> entity{AcDbObjectId(stub)};
    busy = entity.openStatus() == Acad::eWasOpenForWrite;
    if (entity.object())
        addEntity(*entity.object(), Standing::open, *list);
    return list;
}

bool SceneContents::read(Item& item)
{
    bool busy = false;
    std::unique_ptr<DisplayList> list = listOf(item.stub, busy);
    if (busy)
        return false;
    if (item.list)
        m_listBytes -= item.list->bytes();
    item.list.reset();
    place(item, *list);
    keep(item, std::move(list));
    return true;
}

void SceneContents::place(Item& item, const DisplayList& list)
{
    item.showsBlocks = list.showsBlocks();
    item.box = boxIn(m_blocks.boxOf(list, m_attributeMode == 2), Placement());
    item.core = item.box;
    item.isPoint = item.isEndless = item.hasLayers = false;
    item.textHeight = 0.0F;
    if (list.parts().empty())
        return;
    const DisplayPart& part = list.parts().front();
    item.look = mainPart(list.parts()).look;
    for (const DisplayPart& own : list.parts()) {
        item.hasLayers = item.hasLayers || (own.isPiece && own.look.layer != part.look.layer);
        if (own.isEndless) {
            item.isEndless = true;
            item.box.add(boxIn(own.box, Placement()));
        }
    }
    item.isPoint = part.first < part.last && std::holds_alternative<PointMark>(list.primitive(part.first));
    if (list.parts().size() == 1)
        return;
    Box2d core;
    for (const DisplayPart& own : list.parts())
        if (!own.isAttribute)
            core.add(boxIn(m_blocks.boxOf(list, own), Placement()));
    if (core.isEmpty())
        return; // its texts are all of it
    item.core = core;
    for (const DisplayPart& own : list.parts())
        for (std::uint32_t i = own.first; i < own.last; ++i)
            if (const auto* label = std::get_if<Label>(&list.primitive(i)))
                item.textHeight = std::max(item.textHeight, static_cast<float>(label->up.length()));
}

// ---- what is kept of it

void SceneContents::keep(Item& item, std::unique_ptr<DisplayList> list)
{
    if (m_listBytes + list->bytes() > mostListBytes)
        dropUnused();
    if (m_listBytes + list->bytes() > mostListBytes)
        return;
    m_listBytes += list->bytes();
    item.used = m_use;
    item.list = std::move(list);
}

/// Gives up what the present picture did not need, once a picture.
void SceneContents::dropUnused()
{
    if (m_droppedAt == m_use)
        return;
    m_droppedAt = m_use;
    for (Item& item : m_items) {
        if (!item.list || item.used == m_use)
            continue;
        m_listBytes -= item.list->bytes();
        item.list.reset();
    }
}

void SceneContents::walkItem(Item& item, SceneWalk& walk, const Placement& place)
{
    if (!item.list) {
        bool busy = false;
        std::unique_ptr<DisplayList> list = listOf(item.stub, busy);
        if (busy)
            return;
        walk.walk(*list, place);
        return keep(item, std::move(list));
    }
    item.used = m_use;
    walk.walk(*item.list, place);
}

bool SceneContents::walkEntity(AcDbObjectId entity, SceneWalk& walk, const Placement& place)
{
    update();
    const auto found = m_positions.find(entity.stub());
    if (found == m_positions.end())
        return false;
    Item& item = m_items[found->second];
    if (!item.box.isEmpty())
        walkItem(item, walk, place);
    return true;
}

// ---- finding

double SceneContents::figureReach()
{
    const SceneTables::Settings& settings = m_tables.settings();
    return settings.pointMode <= 1 ? 0.0 : 2.0 * pointFigureSize(settings, figureHeight);
}

void SceneContents::loosen(std::uint32_t at)
{
    m_whole.add(m_items[at].box);
    if (m_items[at].isLoose)
        return;
    m_items[at].isLoose = true;
    m_loose.push_back(at);
    if (m_loose.size() > std::max(leastLoose, m_items.size() / 16))
        m_indexed = false;
}

void SceneContents::buildIndex()
{
    m_indexed = true;
    m_loose.clear();
    m_whole = Box2d();
    std::vector<Box2d> boxes;
    boxes.reserve(m_items.size());
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        Item& item = m_items[i];
        item.isLoose = item.isEndless; // in the tree one of them would blur all the others
        if (item.isEndless)
            m_loose.push_back(static_cast<std::uint32_t>(i));
        boxes.push_back(item.isEndless ? Box2d() : item.box);
        m_whole.add(item.box);
    }
    m_index.build(boxes);
}

const std::vector<std::uint32_t>& SceneContents::touching(const Box2d& box)
{
    update();
    if (!m_indexed)
        buildIndex();
    m_found.clear();
    if (box.holds(m_whole)) {
        for (std::uint32_t i = 0; i < m_items.size(); ++i)
            if (!m_items[i].box.isEmpty())
                m_found.push_back(i);
        return m_found;
    }
    m_index.query(box, [&](std::uint32_t at) {
        if (!m_items[at].isLoose)
            m_found.push_back(at);
    });
    for (const std::uint32_t at : m_loose)
        if (m_items[at].box.touches(box))
            m_found.push_back(at);
    std::ranges::sort(m_found);
    return m_found;
}

const Box2d* SceneContents::boxOf(AcDbObjectId entity)
{
    update();
    const auto found = m_positions.find(entity.stub());
    return found == m_positions.end() ? nullptr : &m_items[found->second].box;
}

/// Where lines without end begin: all there is to go by in a drawing of nothing else.
Box2d SceneContents::boxOfBases()
{
    Box2d box;
    for (const Item& item : m_items) {
        bool busy = false;
        if (!item.isEndless)
            continue;
        const std::unique_ptr<DisplayList> list = listOf(item.stub, busy);
        if (!list->parts().empty())
            if (const auto* base = std::get_if<Anchor>(&list->primitive(0)))
                box.add(base->point);
    }
    return box;
}

/// Of an entity whose picture has several layers: nothing where its own is frozen, else each piece by its layer.
Box2d SceneContents::boxByLayers(const Item& item)
{
    bool busy = false;
    const std::unique_ptr<DisplayList> fresh = item.list ? nullptr : listOf(item.stub, busy);
    const DisplayList& list = item.list ? *item.list : *fresh;
    Box2d box;
    if (list.parts().empty() || m_tables.layer(list.parts().front().look.layer).frozen)
        return box;
    for (const DisplayPart& part : list.parts()) {
        const LayerState& layer = m_tables.layer(part.look.layer);
        if (!layer.off && !layer.frozen)
            box.add(boxIn(m_blocks.boxOf(list, part), Placement()));
    }
    return box;
}

Box2d SceneContents::extents()
{
    update();
    Box2d box;
    for (const Item& item : m_items) {
        if (item.hasLayers) {
            box.add(boxByLayers(item));
            continue;
        }
        const LayerState& layer = m_tables.layer(item.look.layer);
        const Box2d& sized = item.isEndless ? item.core : item.box;
        if (!sized.isEmpty() && !layer.off && !layer.frozen)
            box.add(sized);
    }
    return box.isEmpty() ? boxOfBases() : box;
}
