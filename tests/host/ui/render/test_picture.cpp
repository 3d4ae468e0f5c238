#include <QFile>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "gi/Scene.h"
#include "platform/CodePage.h"
#include "ui/application/VelaApplication.h"
#include "ui/render/DrawingPicture.h"
#include "ui/render/PictureFile.h"
#include "ui/render/ScenePainter.h"

#include "comparePictures.h"
#include "DrawingWithEntities.h"

namespace {

constexpr double mostMean = 0.005, mostInASquare = 0.02;

/// One application for all tests of the program, as in the program itself.
class WithApplication : public testing::Environment {
public:
    void SetUp() override { m_application = VelaApplication::make(VelaApplication::Screen::none); }
    void TearDown() override { m_application.reset(); }

private:
    std::unique_ptr<VelaApplication> m_application;
};
const auto* const environment = testing::AddGlobalTestEnvironment(new WithApplication);

QString reference(const char* name)
{
    return QStringLiteral(VELA_SOURCE_DIR "/tests/host/ui/render/images/") + name;
}

QImage paint(AcDbDatabase& database, const Box2d& box, int width, int height, const PaintStyle& style)
{
    QImage image(width, height, QImage::Format_RGB32);
    QPainter painter(&image);
    paintScene(painter, Scene::of(database), SceneView::showing(box, width, height), style);
    return image;
}

/// With VELA_IMAGES set to a folder, what was painted is kept there, to be looked at.
void expectPicture(const QImage& painted, const char* name)
{
    if (const QByteArray folder = qgetenv("VELA_IMAGES"); !folder.isEmpty())
        painted.save(QString::fromLocal8Bit(folder) + '/' + name);
    const QImage expected(reference(name));
    ASSERT_FALSE(expected.isNull()) << name;
    ASSERT_EQ(painted.size(), expected.size()) << name;
    const PictureDifference difference = comparePictures(painted, expected);
    EXPECT_LE(difference.mean, mostMean) << name;
    EXPECT_LE(difference.worst, mostInASquare) << name;
}

constexpr Box2d sheet{0, 0, 120, 80};

/// The drawing that README.md describes.
std::unique_ptr<AcDbDatabase> everyEntity(const std::string& name = "entites.dxf")
{
    auto drawing = std::make_unique<AcDbDatabase>(false, true);
    const std::wstring file = platform::wideFromUtf8(VELA_SOURCE_DIR "/tests/host/ui/render/dessins/" + name);
    EXPECT_EQ(drawing->readDwgFile(file.c_str()), Acad::eOk);
    return drawing;
}

} // namespace

TEST(Pictures, eachKindOfEntityOnLightAndDarkGround)
{
    const auto drawing = everyEntity();
    PaintStyle style;
    expectPicture(paint(*drawing, sheet, 1200, 800, style), "entites-clair.png");
    style.ground = QColor(33, 40, 48);
    expectPicture(paint(*drawing, sheet, 1200, 800, style), "entites-sombre.png");
}

/// Many programs give what is drawn an explicit white, or black: seen on the ground of the other kind only.
TEST(Pictures, inkOfTheGroundsColorIsTurned)
{
    struct Row {
        const char* what;
        const char* color;
        QColor ground, seen; // along the line, and on the area's border
        QColor within;       // the area
    };
    const QColor dark(33, 40, 48);
    const Row rows[] = {{"white on white", "420 16777215", Qt::white, Qt::black, Qt::white},
                        {"white of the palette", "62 255", Qt::white, Qt::black, Qt::white},
                        {"black on dark", "420 0", dark, Qt::white, Qt::black},
                        {"yellow stays", "62 2", Qt::white, Qt::yellow, Qt::yellow},
                        {"light grey stays", "62 9", Qt::white, QColor(0xC0, 0xC0, 0xC0), QColor(0xC0, 0xC0, 0xC0)}};
    for (const Row& row : rows) {
        const std::string color = std::string("\n") + row.color;
        DrawingWithEntities drawing("0 LINE" + color + "\n100 AcDbLine\n10 0\n20 5\n11 10\n21 5\n0 SOLID" + color +
                                    "\n100 AcDbTrace\n10 2\n20 1\n11 8\n21 1\n12 2\n22 3\n13 8\n23 3\n");
        PaintStyle style;
        style.ground = row.ground;
        style.smooth = false;
        style.width = 3.0;
        const QImage image = paint(drawing.database(), {0, 0, 10, 10}, 100, 100, style);
        EXPECT_EQ(image.pixelColor(50, 50), row.seen) << row.what;
        EXPECT_EQ(image.pixelColor(50, 80), row.within) << row.what;
    }
}

TEST(Pictures, farCoordinatesLookTheSame)
{
    const double x = 1650000.0, y = 8180000.0;
    const auto near = everyEntity(), far = everyEntity("entites-loin.dxf");
    const PaintStyle style;
    const QImage here = paint(*near, sheet, 1200, 800, style);
    const QImage there = paint(*far, {x, y, x + 120, y + 80}, 1200, 800, style);
    const PictureDifference difference = comparePictures(here, there);
    EXPECT_LE(difference.mean, 0.001);
    EXPECT_LE(difference.worst, mostInASquare);
}

TEST(Pictures, aMissingEntityIsNoticed)
{
    const auto drawing = everyEntity();
    const PaintStyle style;
    const QImage whole = paint(*drawing, sheet, 1200, 800, style);
    for (int y = 200; y < 800; y += 200)
        for (int x = 0; x < 1200; x += 200) {
            QImage without = whole;
            QPainter(&without).fillRect(x, y, 200, 165, Qt::white); // a cell that lost what it holds, not its name
            EXPECT_GT(comparePictures(whole, without).worst, mostInASquare) << x << " " << y;
        }
}

TEST(Pictures, vectorFilesShowWhatPixelsShow)
{
    const auto drawing = everyEntity();
    const QTemporaryDir folder;
    OverviewRequest request;
    request.file = folder.filePath("plan.png");
    request.width = 1200;
    request.height = 800;
    request.window = sheet;
    ASSERT_EQ(writeOverview(*drawing, request), QString());
    const QImage pixels(request.file);
    ASSERT_EQ(pixels.size(), QSize(1200, 800));

    request.file = folder.filePath("plan.svg");
    ASSERT_EQ(writeOverview(*drawing, request), QString());
    QSvgRenderer svg(request.file);
    ASSERT_TRUE(svg.isValid());
    QImage drawn(1200, 800, QImage::Format_RGB32);
    QPainter painter(&drawn);
    svg.render(&painter);
    painter.end();
    const PictureDifference difference = comparePictures(pixels, drawn);
    EXPECT_LE(difference.mean, 0.02); // its lines have a weight

    request.file = folder.filePath("plan.pdf");
    ASSERT_EQ(writeOverview(*drawing, request), QString());
    QFile pdf(request.file);
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    const QByteArray bytes = pdf.readAll();
    EXPECT_TRUE(bytes.startsWith("%PDF-"));
    EXPECT_TRUE(bytes.contains("/MediaBox [0 0 900")); // 1200 pixels at 96 an inch, in points
}

TEST(Plots, scaleAndPaper)
{
    // 1:500 in metres: 2 mm a unit. A circle of 20 m stands 80 mm wide in the middle of the paper.
    DrawingWithEntities drawing("0 CIRCLE\n100 AcDbCircle\n10 1000\n20 500\n40 20\n");
    const QTemporaryDir folder;
    PlotRequest request;
    request.file = folder.filePath("plan.png").toStdWString();
    request.paperWidth = 200.0;
    request.paperHeight = 100.0;
    request.dotsPerInch = 254; // ten dots a millimetre
    request.scale = 2.0;
    ASSERT_EQ(writePlot(drawing.database(), request), QString());
    const QImage image(QString::fromStdWString(request.file));
    ASSERT_EQ(image.size(), QSize(2000, 1000));
    EXPECT_NEAR(image.dotsPerMeterX(), 10000, 1);
    int left = 2000, right = 0;
    for (int x = 0; x < 2000; ++x)
        for (int y = 400; y < 600; ++y)
            if (qGray(image.pixel(x, y)) < 128) {
                left = std::min(left, x);
                right = std::max(right, x);
            }
    EXPECT_NEAR(left, 1000 - 400, 3);
    EXPECT_NEAR(right, 1000 + 400, 3);

    request.scale = 0.0; // fitted between margins of 5 mm: 90 mm high
    ASSERT_EQ(writePlot(drawing.database(), request), QString());
    const QImage fitted(QString::fromStdWString(request.file));
    int top = 1000;
    for (int y = 0; y < 1000; ++y)
        if (qGray(fitted.pixel(1000, y)) < 128)
            top = std::min(top, y);
    EXPECT_NEAR(top, 50, 4);
}

TEST(Plots, theKernelsHookPaints)
{
    DrawingWithEntities drawing("0 CIRCLE\n100 AcDbCircle\n10 0\n20 0\n40 20\n");
    const QTemporaryDir folder;
    PlotRequest request;
    request.file = folder.filePath("plan.pdf").toStdWString();
    ASSERT_TRUE(PlotHook::instance().plot);
    EXPECT_EQ(PlotHook::instance().plot(drawing.database(), request), L"");
    QFile pdf(folder.filePath("plan.pdf"));
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    static const QRegularExpression box("/MediaBox \\[0 0 ([0-9.]+) ([0-9.]+)\\]");
    const QRegularExpressionMatch paper = box.match(QString::fromLatin1(pdf.readAll()));
    EXPECT_NEAR(paper.captured(1).toDouble(), 297.0 / 25.4 * 72.0, 1.0); // points
    EXPECT_NEAR(paper.captured(2).toDouble(), 210.0 / 25.4 * 72.0, 1.0);
}

TEST(Plots, monochromeAndRefusals)
{
    DrawingWithEntities drawing("0 LINE\n62 1\n100 AcDbLine\n10 0\n20 0\n11 10\n21 10\n");
    const QTemporaryDir folder;
    PlotRequest request;
    request.file = folder.filePath("plan.png").toStdWString();
    request.monochrome = true;
    ASSERT_EQ(writePlot(drawing.database(), request), QString());
    const QImage image(QString::fromStdWString(request.file));
    for (int y = 0; y < image.height(); y += 3)
        for (int x = 0; x < image.width(); ++x)
            ASSERT_EQ(qRed(image.pixel(x, y)), qBlue(image.pixel(x, y)));

    request.file = folder.filePath("plan.bmp").toStdWString();
    EXPECT_TRUE(writePlot(drawing.database(), request).contains("forme d'image inconnue"));
    request.file = folder.filePath("nulle/part.pdf").toStdWString();
    EXPECT_TRUE(writePlot(drawing.database(), request).contains("écriture impossible"));
    request.file = folder.filePath("grand.png").toStdWString();
    request.dotsPerInch = 1000000;
    EXPECT_TRUE(writePlot(drawing.database(), request).contains("ne peut pas être faite"));
    EXPECT_FALSE(QFile::exists(folder.filePath("grand.png")));
    request.margin = 200.0;
    EXPECT_TRUE(writePlot(drawing.database(), request).contains("marges"));
}

TEST(Plots, aRefusedPlotLeavesTheOldFile)
{
    DrawingWithEntities drawing("");
    const QTemporaryDir folder;
    QFile old(folder.filePath("plan.png"));
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("ancien");
    old.close();
    const QString failure = PictureFile{old.fileName(), 100000, 10, 96.0}.write([](QPainter&) {});
    EXPECT_FALSE(failure.isEmpty());
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    EXPECT_EQ(old.readAll(), "ancien");
}
