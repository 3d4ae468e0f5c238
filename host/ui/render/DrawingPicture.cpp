#include "ui/render/DrawingPicture.h"

#include <QPainter>

#include "gi/Scene.h"
#include "ui/render/PictureFile.h"
#include "ui/render/ScenePainter.h"

namespace {

constexpr double screenDotsPerInch = 96.0;
constexpr int finerThanScreen = 4;          // dots of a vector picture for a pixel
constexpr double vectorDotsPerInch = 600.0; // of plots
constexpr double millimetres = 25.4;        // of an inch
constexpr double overviewMargin = 0.02;     // of the picture, around the extents

const QColor darkGround(33, 40, 48);

QColor groundOf(bool dark)
{
    return dark ? darkGround : QColor(Qt::white);
}

} // namespace

QString writeOverview(AcDbDatabase& database, const OverviewRequest& request)
{
    PictureFile file{request.file, request.width, request.height, screenDotsPerInch};
    PaintStyle style;
    style.ground = groundOf(request.darkGround);
    if (file.isVector()) {
        file.width *= finerThanScreen;
        file.height *= finerThanScreen;
        file.dotsPerInch *= finerThanScreen;
        constexpr double thinnest = 0.18; // millimetres; what a line without a weight of its own should weigh
        style.pixelsPerMillimetre = finerThanScreen / (0.25 / thinnest);
    }
    std::optional<Scene> paper;
    if (!request.layout.isNull())
        paper.emplace(database, request.layout);
    Scene& scene = paper ? *paper : Scene::of(database);
    const SceneView view = request.window
                               ? SceneView::showing(*request.window, file.width, file.height)
                               : SceneView::showing(scene.extents(), file.width, file.height, overviewMargin);
    return file.write([&](QPainter& painter) {
        paper ? paintLayout(painter, scene, view, style) : paintScene(painter, scene, view, style);
    });
}

QString writePlot(AcDbDatabase& database, const PlotRequest& request)
{
    PictureFile file{QString::fromStdWString(request.file), 0, 0, static_cast<double>(request.dotsPerInch)};
    if (file.isVector())
        file.dotsPerInch = vectorDotsPerInch;
    const double dots = file.dotsPerInch / millimetres; // of a millimetre
    file.width = qRound(request.paperWidth * dots);
    file.height = qRound(request.paperHeight * dots);
    const double roomAcross = request.paperWidth - 2.0 * request.margin;
    const double roomDown = request.paperHeight - 2.0 * request.margin;
    if (!(roomAcross > 0.0) || !(roomDown > 0.0))
        return QStringLiteral("Les marges ne laissent pas de place sur le papier.");

    Scene& scene = Scene::of(database);
    const Box2d window = request.window ? *request.window : scene.extents();
    const int across = qMax(1, qRound(roomAcross * dots)), down = qMax(1, qRound(roomDown * dots));
    SceneView view = SceneView::showing(window, across, down);
    if (request.scale > 0.0) {
        view.pixel = 1.0 / (request.scale * dots);
        view.width = across * view.pixel;
        view.height = down * view.pixel;
    }
    PaintStyle style;
    style.ground = groundOf(request.darkGround);
    if (request.monochrome)
        style.only = request.darkGround ? Qt::white : Qt::black;
    style.pixelsPerMillimetre = dots;
    return file.write([&](QPainter& painter) {
        painter.fillRect(QRectF(0.0, 0.0, file.width, file.height), style.ground);
        painter.translate(request.margin * dots, request.margin * dots);
        painter.setClipRect(QRectF(0.0, 0.0, across, down));
        paintScene(painter, scene, view, style);
    });
}

void installPlotHook()
{
    PlotHook::instance().plot = [](AcDbDatabase& database, const PlotRequest& request) {
        return writePlot(database, request).toStdWString();
    };
}

void removePlotHook()
{
    PlotHook::instance().plot = nullptr;
}
