#include "ui/window/CanvasTransients.h"

#include <array>

#include "ap/Document.h"
#include "ed/input/Transients.h"
#include "gi/AciPalette.h"
#include "gi/Scene.h"
#include "ui/render/ScenePainter.h"

namespace {

/// A vector in colour -1 inverts what is below it: it stands out as colour 7 does.
Appearance appearanceOf(const Transients::Vector& vector)
{
    constexpr int contrasting = 7;
    Appearance look;
    look.contrasting = vector.color == contrasting || vector.color < 0;
    if (!look.contrasting)
        look.rgb = aciColor(vector.color);
    return look;
}

void paintVectors(QPainter& painter, const std::vector<Transients::Vector>& vectors, bool highlighted,
                  const SceneView& view, PaintStyle style)
{
    style.dashed = highlighted;
    ScenePainter sink(painter, view, style);
    for (const Transients::Vector& vector : vectors)
        if (vector.highlighted == highlighted)
            sink.polyline(std::array{vector.from, vector.to}, appearanceOf(vector));
}

} // namespace

void paintTransients(QPainter& painter, Document& document, Scene& scene, const SceneView& view,
                     const PaintStyle& style)
{
    const Transients& transients = Transients::of(document);
    for (const bool highlighted : {false, true})
        paintVectors(painter, transients.vectors(), highlighted, view, style);
    for (const Transients::Item& item : transients.items()) {
        const AcDbEntity* const entity = AcDbEntity::cast(item.drawable);
        if (!entity)
            continue;
        PaintStyle own = style;
        own.dashed = item.mode == kAcGiHighlight;
        ScenePainter sink(painter, view, own);
        if (entity->objectId().isNull())
            scene.draw(*entity, view, sink);
        else
            scene.draw(entity->objectId(), view, sink); // one of the drawing
    }
}

void paintDragged(QPainter& painter, Document& document, Scene& scene, const SceneView& view, const PaintStyle& style)
{
    if (const AcDbEntity* const dragged = Transients::of(document).dragged()) {
        ScenePainter sink(painter, view, style);
        scene.draw(*dragged, view, sink);
    }
}

void paintGhost(QPainter& painter, Document& document, Scene& scene, const SceneView& view, const PaintStyle& style,
                const Stretch& stretch)
{
    constexpr std::size_t most = 1000; // at each movement of the cursor: of more, some here and there
    const auto& ghost = Transients::of(document).ghost();
    if (!ghost || ghost->base != stretch.from)
        return;
    const Placement moved(ghost->moved(stretch.to));
    ScenePainter sink(painter, view, style);
    const std::size_t step = 1 + ghost->entities.size() / most;
    for (std::size_t i = 0; i < ghost->entities.size(); i += step)
        if (!ghost->entities[i].isErased())
            scene.draw(ghost->entities[i], view, sink, moved);
}
