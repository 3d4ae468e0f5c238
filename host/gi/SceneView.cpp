#include "gi/SceneView.h"

SceneView SceneView::showing(const Box2d& box, int pixelsAcross, int pixelsDown, double margin)
{
    const double across = std::max(pixelsAcross, 1), down = std::max(pixelsDown, 1);
    const double room = std::clamp(1.0 - 2.0 * margin, 0.01, 1.0);
    SceneView view;
    if (!box.isEmpty())
        view.center = box.center();
    const double pixel = std::max(box.width() / (across * room), box.height() / (down * room));
    view.pixel = std::isfinite(pixel) && pixel > 0.0 ? pixel : 1.0 / down;
    view.width = view.pixel * across;
    view.height = view.pixel * down;
    return view;
}
