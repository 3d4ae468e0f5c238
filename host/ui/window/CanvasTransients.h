#pragma once

#include "gi/SceneView.h"

#include "gepnt3d.h"

class Document;
class QPainter;
class Scene;
struct PaintStyle;

/// Paints what is shown over a drawing without being of it: vectors drawn by commands, transient graphics.
void paintTransients(QPainter& painter, Document& document, Scene& scene, const SceneView& view,
                     const PaintStyle& style);
/// Paints the entity that follows the cursor, if one does.
void paintDragged(QPainter& painter, Document& document, Scene& scene, const SceneView& view, const PaintStyle& style);

struct Stretch {
    AcGePoint3d from, to;
};
/// Paints the entities that a command would move, where the place at the end of a stretched line would take them.
void paintGhost(QPainter& painter, Document& document, Scene& scene, const SceneView& view, const PaintStyle& style,
                const Stretch& stretch);
