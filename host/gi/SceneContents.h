#pragma once

#include <optional>
#include <unordered_map>

#include "gi/BlockGraphics.h"
#include "gi/Box2d.h"
#include "gi/SceneChanges.h"
#include "gi/SceneTables.h"
#include "gi/SceneWalk.h"
#include "gi/SpatialIndex.h"

/// The entities of one block as a scene keeps them: where each one is, what it is made of, and how to find it.
class SceneContents {
public:
    SceneContents(AcDbDatabase& database, AcDbObjectId block);

    AcDbDatabase& database() const { return m_database; }
    SceneTables& tables() { return m_tables; }
    BlockGraphics& blocks() { return m_blocks; }
    SceneChanges& changes() { return m_changes; }

    /// Takes in what changed.
    void update();
    /// What that has touched since the last call: empty for nothing, no box for all of it.
    std::optional<Box2d> takeDamage();

    /// Shows what the view holds, in drawing order, until `stopped`.
    template <class Stopped>
    void walk(SceneWalk& walk, const SceneView& view, const Stopped& stopped)
    {
        update();
        ++m_use;
        const auto show = [&](std::uint32_t at) {
            Item& item = m_items[at];
            if (view.simplified && isSpeck(item, view.pixel)) {
                const AcGePoint2d center = item.core.center();
                walk.shrink(item.look, AcGePoint3d(center.x, center.y, 0.0));
            } else
                walkItem(item, walk);
        };
        for (const std::uint32_t at : touching(view.box().grown(figureReach())))
            if (!stopped())
                show(at);
    }
    /// One entity of the block; false when it is none.
    bool walkEntity(AcDbObjectId entity, SceneWalk& walk, const Placement& place = Placement());

    /// Positions of the items whose boxes touch a box, in drawing order.
    const std::vector<std::uint32_t>& touching(const Box2d& box);
    AcDbObjectId entityAt(std::uint32_t position) const { return AcDbObjectId(m_items[position].stub); }
    const Box2d& boxAt(std::uint32_t position) const { return m_items[position].box; }
    /// Null for an entity that is not of the block.
    const Box2d* boxOf(AcDbObjectId entity);
    /// Of what layers let be seen; what a reference shows, attributes included, goes by the layer of the reference.
    Box2d extents();

    /// The view that point figures of relative size are reckoned from: that of the last picture.
    double figureHeight = 0.0;

private:
    struct Item {
        AcDbStub* stub = nullptr;
        Box2d box;  ///< empty when nothing shows
        Box2d core; ///< the same without attributes and lines without end
        std::unique_ptr<DisplayList> list;
        EntityLook look;
        std::uint32_t used = 0;
        float textHeight = 0.0F; ///< of the tallest text, where there are several parts
        bool showsBlocks = false;
        bool isPoint = false;   ///< shown by a figure, however small its box
        bool isLoose = false;   ///< changed since the index was built
        bool hasLayers = false; ///< pieces of it lie on other layers than it
        bool isEndless = false; ///< lines without end are of it: its box says nothing of the drawing's size
    };

    /// Whether it is a dot at most: of a symbol far away the texts are finer than a line, and left out.
    static bool isSpeck(const Item& item, double pixel)
    {
        return !item.isPoint && !item.isEndless && !item.hasLayers && item.core.width() < pixel &&
               item.core.height() < pixel && static_cast<double>(item.textHeight) < pixel &&
               (item.textHeight > 0.0F || (item.box.width() < pixel && item.box.height() < pixel));
    }

    void readAll();
    void damage(const Item& item);
    void addNewEntities();
    void rereadTables();
    void rereadBlocks();
    /// False when the entity cannot be read now.
    bool read(Item& item);
    std::unique_ptr<DisplayList> listOf(AcDbStub* stub, bool& busy);
    void place(Item& item, const DisplayList& list);
    void keep(Item& item, std::unique_ptr<DisplayList> list);
    void dropUnused();
    void walkItem(Item& item, SceneWalk& walk, const Placement& place = Placement());
    void loosen(std::uint32_t at);
    void buildIndex();
    double figureReach();
    Box2d boxOfBases();
    Box2d boxByLayers(const Item& item);

    AcDbDatabase& m_database;
    AcDbStub* m_block;
    SceneTables m_tables;
    BlockGraphics m_blocks;
    SceneChanges m_changes;
    std::vector<Item> m_items; ///< in drawing order: those of the block's own list, erased ones among them
    std::unordered_map<AcDbStub*, std::uint32_t> m_positions;
    bool m_isRead = false;
    std::size_t m_listBytes = 0;
    std::uint32_t m_use = 0, m_droppedAt = 0;
    SpatialIndex m_index;
    std::vector<std::uint32_t> m_loose;
    Box2d m_whole;
    std::optional<Box2d> m_damage = Box2d();
    bool m_indexed = false;
    int m_attributeMode = 1;
    std::vector<std::uint32_t> m_found;
};
