#pragma once

#include <algorithm>
#include <span>

#include "gi/BlockGraphics.h"
#include "gi/Box2d.h"
#include "gi/GraphicsSink.h"
#include "gi/Placement.h"
#include "gi/SceneTables.h"
#include "gi/SceneView.h"

/// The look of what is shown, and the dashes that it is cut into, in drawing units.
struct Pen {
    Appearance look;
    const Dashes* dashes = nullptr; ///< null: none
    double dashScale = 1.0;
};

/// Walks display lists as a view shows them: resolves layers and blocks, goes into references, leaves out what lies
/// outside the view or shows nothing. What derives from it does something with each primitive.
///
/// Bounded whatever the drawing: nesting by depth, and entities within blocks by number; past that, blocks are shown
/// as their boxes, and past as many of those, no more.
class SceneWalk {
public:
    SceneWalk(SceneTables& tables, BlockGraphics& blocks, const SceneView& view);
    virtual ~SceneWalk() = default;
    SceneWalk(const SceneWalk&) = delete;
    SceneWalk& operator=(const SceneWalk&) = delete;

    void walk(const DisplayList& list, const Placement& place = Placement());
    /// A dot in place of what is too small to see.
    void shrink(const EntityLook& look, const AcGePoint3d& at);

protected:
    virtual bool enter(AcDbObjectId /*entity*/, const Placement& /*place*/) { return true; }
    virtual void leave() {}
    /// What follows up to `endClip` shows within a ring of the world only.
    // NOLINTNEXTLINE(performance-unnecessary-value-param): whoever overrides it keeps the ring.
    virtual void beginClip(std::vector<AcGePoint3d> /*ring*/) {}
    virtual void endClip() {}
    virtual bool stopped() { return false; }
    virtual void show(const Path& path, const Placement& place, const Pen& pen) = 0;
    virtual void show(const WidePath& path, const Placement& place, const Pen& pen) = 0;
    virtual void show(const Area& area, const Placement& place, const Pen& pen) = 0;
    virtual void show(const Pattern& pattern, const Placement& place, const Pen& pen) = 0;
    virtual void show(const PointMark& mark, const Placement& place, const Pen& pen) = 0;
    virtual void show(const Label& label, const Placement& place, const Pen& pen) = 0;
    virtual void show(const Anchor& anchor, const Placement& place) = 0;
    virtual void shrunk(const AcGePoint3d& at, const Pen& pen) = 0;

    SceneTables& tables() { return m_tables; }
    const SceneView& view() const { return m_view; }
    const Box2d& viewBox() const { return m_viewBox; }
    /// That of a run of text that has a colour of its own.
    Appearance lookOf(const Label& label, const Pen& pen) const { return lookOf(pen, label.color, label.trueColor); }
    Appearance lookOf(const Area& area, const Pen& pen) const { return lookOf(pen, area.color, area.trueColor); }

private:
    /// What a reference hands down to the entities of its block.
    struct Reference {
        const LayerState* layer;
        Pen pen;
    };
    struct Resolved {
        const LayerState* layer;
        Pen pen;
        bool frozen, shows;
    };

    Resolved resolve(const EntityLook& look, const Reference* within);
    static Appearance lookOf(const Pen& pen, std::int16_t color, std::int32_t trueColor);
    void walkParts(const DisplayList& list, const Placement& place, const Reference* within);
    bool afford(const Reference* within);
    void showEntity(const DisplayList& list, std::span<const DisplayPart> parts, const Placement& place,
                    const Reference* within);
    void changeClip(const PartClip*& on, const PartClip* next, const Placement& place);
    void chargeClip(std::size_t corners);
    void showPart(const DisplayList& list, const DisplayPart& part, const Placement& place, const Resolved& resolved);
    void showPrimitive(const Primitive& primitive, const Placement& place, const Resolved& resolved);
    void showBlocks(const BlockUse& use, const Placement& place, const Resolved& resolved);
    void showClipped(const BlockUse& use, const BlockGraphics::Block& block, const Placement& place,
                     const Resolved& resolved);
    void showCell(const BlockGraphics::Block& block, const Placement& place, const Resolved& resolved);
    bool isSmall(const Box2d& box) const;
    bool isSpent() const;
    long cost() const;

    SceneTables& m_tables;
    BlockGraphics& m_blocks;
    SceneView m_view;
    Box2d m_viewBox;
    std::vector<const BlockGraphics::Block*> m_entered;
    long m_left; // entities within blocks that may still be shown
};

/// The box of a box that is moved, seen from above.
Box2d boxIn(const AcDbExtents& box, const Placement& place);
