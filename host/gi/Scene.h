#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "gi/Box2d.h"
#include "gi/Placement.h"
#include "gi/SceneView.h"

#include "dbmain.h"

class GraphicsSink;
class SceneContents;

/// What of a drawing is seen: the entities of model space, or of another block, in drawing order.
///
/// Follows the drawing through the database's reactors; what changed is read again when the scene is next asked for
/// something. An entity that is open for write at that time keeps its former look until it is closed.
/// Entities are known by their boxes in a spatial index; what they are made of is read when it comes into view, and
/// kept within a bound of memory. A block is read once for all its references.
class Scene {
public:
    /// The scene of a drawing's model space: made when first asked for, gone with its database.
    static Scene& of(AcDbDatabase& database);

    /// The null id stands for model space.
    explicit Scene(AcDbDatabase& database, AcDbObjectId block = AcDbObjectId::kNull);
    ~Scene();
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    AcDbDatabase& database() const;

    /// Grows with each change of the drawing that may show.
    std::uint64_t revision() const;
    /// Called at each such change, while it happens: to ask for a repaint later, nothing else.
    void onChange(std::function<void()> changed);
    /// Where a picture made at the last call is out of date: empty for nowhere, nothing for everywhere.
    std::optional<Box2d> takeDamage();

    /// Of all that shows: layers that are off or frozen are left out. Empty when nothing shows.
    Box2d extents();
    /// Of one entity of the scene; empty when it shows nothing or is not of the scene.
    Box2d extents(AcDbObjectId entity);

    /// In drawing order, what the view holds.
    void draw(const SceneView& view, GraphicsSink& sink);
    /// One entity of the scene, whatever its order: to show a selection, an attribute's owner, where it would be
    /// `moved` to.
    void draw(AcDbObjectId entity, const SceneView& view, GraphicsSink& sink, const Placement& moved = Placement());
    /// An entity that may be in no drawing, with the layers and linetypes of this one: for jigs. Must be open for read
    /// when it is in a database.
    void draw(const AcDbEntity& entity, const SceneView& view, GraphicsSink& sink);

    /// Calls `take` for each entity whose box touches `box`, the one drawn last first. `take` gives false to stop.
    void visit(const Box2d& box, const std::function<bool(AcDbObjectId entity, const Box2d& itsBox)>& take);

    /// What it holds, for searches of their own.
    SceneContents& contents() { return *m_contents; }

private:
    std::unique_ptr<SceneContents> m_contents;
};
