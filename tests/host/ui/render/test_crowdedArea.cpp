#include <cmath>
#include <limits>
#include <QPainter>
#include <QPainterPath>
#include <random>

#include <gtest/gtest.h>

#include "gi/Scene.h"
#include "ui/render/CrowdedArea.h"
#include "ui/render/ScenePainter.h"

#include "DrawingWithEntities.h"

namespace {

using Rings = QList<QPolygonF>;

/// Corners anywhere in a square that reaches out of the picture on all sides.
QPolygonF ringAnywhere(int corners, std::mt19937& random)
{
    std::uniform_real_distribution<double> place(-30.0, 230.0);
    QPolygonF ring;
    for (int i = 0; i < corners; ++i)
        ring.append(QPointF(place(random), place(random)));
    return ring;
}

QImage byQt(const Rings& rings, QSize size, const QColor& color, bool smooth)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    for (const QPolygonF& ring : rings) {
        path.addPolygon(ring);
        path.closeSubpath();
    }
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, smooth);
    painter.fillPath(path, color);
    return image;
}

/// Of all pixels, the share that differ by more than a third in how much of them is covered.
double shareApart(const QImage& a, const QImage& b)
{
    int apart = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            apart += std::abs(qAlpha(a.pixel(x, y)) - qAlpha(b.pixel(x, y))) > 85;
    return apart / double(a.width() * a.height());
}

} // namespace

TEST(CrowdedAreas, areFilledAsQtFillsThem)
{
    std::mt19937 random(7); // one picture, always
    const QPolygonF square({{20.25, 30.5}, {170.75, 30.5}, {170.75, 160.0}, {20.25, 160.0}});
    const QPolygonF closed({{20, 20}, {180, 20}, {100, 190}, {20, 20}});
    const QPolygonF within({{60.5, 40}, {100, 90.25}, {140, 40}});
    struct Row {
        const char* name;
        Rings rings;
    };
    const Row rows[] = {{"square", {square}},
                        {"a hole", {square, within}},
                        {"closed by its own point", {closed, within}},
                        {"crossing itself", {ringAnywhere(12, random)}},
                        {"several that cross", {ringAnywhere(6, random), ringAnywhere(6, random)}}};
    const QRect picture(0, 0, 200, 190); // more rows than are looked at together
    for (const Row& row : rows)
        for (const bool smooth : {true, false}) {
            SCOPED_TRACE(row.name);
            const QImage expected = byQt(row.rings, picture.size(), Qt::red, smooth);
            const QImage whole = CrowdedArea(row.rings).filled(picture, Qt::red, smooth);
            EXPECT_LT(shareApart(whole, expected), smooth ? 0.002 : 0.01); // along edges, all or nothing
            const QRect part(37, 41, 101, 140);
            EXPECT_EQ(CrowdedArea(row.rings).filled(part, Qt::red, smooth), whole.copy(part)) << smooth;
        }
}

TEST(CrowdedAreas, colorsAndSmoothEdges)
{
    const Rings rings{QPolygonF(QRectF(1.0, 0.0, 1.5, 2.0))}; // one pixel whole, the next one half
    const QColor color(200, 100, 0, 128);
    const auto at = [](const QImage& image, int x) { return qAlpha(image.pixel(x, 1)); };
    const QImage smooth = CrowdedArea(rings).filled({0, 0, 4, 2}, color, true);
    EXPECT_EQ(at(smooth, 0), 0);
    EXPECT_EQ(smooth.pixelColor(1, 1).alpha(), 128);
    EXPECT_NEAR(smooth.pixelColor(1, 1).red(), 200, 1);
    EXPECT_EQ(at(smooth, 2), 64);
    EXPECT_EQ(at(smooth, 3), 0);
    EXPECT_EQ(at(CrowdedArea(rings).filled({0, 0, 4, 2}, color, false), 2), 128);
}

TEST(CrowdedAreas, areToldByTheirSides)
{
    const QRect picture(0, 0, 100, 100);
    std::mt19937 random(1);
    const Rings few{ringAnywhere(60, random)}, many{ringAnywhere(600, random)};
    EXPECT_FALSE(CrowdedArea(few).isOneOn(picture));
    EXPECT_TRUE(CrowdedArea(many).isOneOn(picture));
    const Rings beside{many.front().translated(0.0, 1000.0)};
    EXPECT_FALSE(CrowdedArea(beside).isOneOn(picture)) << "none of it is seen";
    EXPECT_TRUE(CrowdedArea(beside).frameOn(picture).isEmpty());
    QPolygonF fine; // thousands of sides, of which each row meets two
    for (int i = 0; i < 5000; ++i)
        fine.append(QPointF(50.0 + 40.0 * std::cos(i / 5000.0 * 6.2832), 50.0 + 40.0 * std::sin(i / 5000.0 * 6.2832)));
    EXPECT_FALSE(CrowdedArea(Rings{fine}).isOneOn(picture));
    EXPECT_EQ(CrowdedArea(Rings{fine}).frameOn(picture), QRect(10, 10, 80, 80));
}

TEST(CrowdedAreas, pointsThatAreNone)
{
    const double none = std::numeric_limits<double>::quiet_NaN(), far = 1e300, endless = HUGE_VAL;
    const Rings rings{QPolygonF({{none, 3}, {2, 2}, {8, 2}, {8, 8}, {2, 8}, {2, 2}, {endless, -endless}}),
                      QPolygonF({{-far, -far}, {far, -far}, {far, far}, {-far, far}})};
    const CrowdedArea area(rings);
    EXPECT_EQ(area.frameOn({0, 0, 10, 10}), QRect(0, 0, 10, 10));
    const QImage image = area.filled({0, 0, 10, 10}, Qt::red, false);
    EXPECT_EQ(qAlpha(image.pixel(0, 5)), 255);
    EXPECT_EQ(qAlpha(image.pixel(5, 5)), 0) << "a hole";
}

/// A damaged hatch of some thousand corners took minutes: unbounded work meets the time limit of a test.
TEST(CrowdedAreas, areSeenInPictures)
{
    constexpr int corners = 6000;
    std::mt19937 random(3);
    std::uniform_real_distribution<double> place(10.0, 90.0);
    std::string hatch = "0 HATCH\n420 16711680\n100 AcDbHatch\n10 0\n20 0\n30 0\n210 0\n220 0\n230 1\n2 SOLID\n70 1\n"
                        "71 0\n91 1\n92 3\n72 0\n73 1\n93 " +
                        std::to_string(corners) + "\n";
    for (int i = 0; i < corners; ++i)
        hatch += "10 " + std::to_string(place(random)) + "\n20 " + std::to_string(place(random)) + "\n";
    DrawingWithEntities drawing(hatch + "97 0\n75 0\n76 1\n98 0\n");
    QImage image(400, 400, QImage::Format_RGB32);
    {
        QPainter painter(&image);
        painter.setClipRect(0, 0, 400, 200);
        paintScene(painter, Scene::of(drawing.database()), SceneView::showing({0, 0, 100, 100}, 400, 400), {});
    }
    const auto red = [&](const QRect& part) {
        const QImage one = image.copy(part).scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        return one.pixelColor(0, 0) != QColor(Qt::white);
    };
    EXPECT_TRUE(red({150, 100, 100, 90}));
    EXPECT_FALSE(red({0, 0, 30, 30})) << "beside it";
}
