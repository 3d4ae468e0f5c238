#include <QCoreApplication>
#include <QPlainTextEdit>
#include <QTest>

#include "ap/DocumentList.h"
#include "commands/CommandTable.h"
#include "ed/input/CurrentView.h"
#include "ed/input/PickFirst.h"
#include "ed/input/Transients.h"
#include "ed/SystemVariables.h"
#include "ui/window/Canvas.h"
#include "ui/window/CommandEdit.h"

#include "dbents.h"
#include "dbjig.h"
#include "dbsymtb.h"
#include "WindowTest.h"

/// What the canvas paints: the drawing in parts, what a command works on, what follows the cursor.

namespace {

class CanvasTest : public WindowTest {
protected:
    CanvasTest()
    {
        DocumentList::instance().create();
        SystemVariables::instance().set(L"OSMODE", short{0});
        show(0, 0, 100, 100);
    }
    QImage picture() const
    {
        QCoreApplication::processEvents();
        return canvas().grab().toImage();
    }
    QImage paintedAnew() const
    {
        canvas().refresh();
        return picture();
    }
    void pan(int right, int down) const
    {
        const CanvasView now = canvas().view();
        CurrentView::set({now.center.x - right * now.pixel, now.center.y + down * now.pixel}, now.height());
    }
    /// Whether something is painted near a place of the drawing.
    bool shows(double x, double y) const
    {
        const QImage all = picture();
        const QPoint at = pixelOf(x, y);
        for (int dx = -2; dx <= 2; ++dx)
            for (int dy = -2; dy <= 2; ++dy)
                if (all.pixelColor(at.x() + dx, at.y() + dy) != all.pixelColor(3, 3))
                    return true;
        return false;
    }
    void hover(double x, double y) const { QTest::mouseMove(&canvas(), pixelOf(x, y)); }
};

/// Of one colour of one pixel, from 0 to 255: smooth edges differ by a few.
int mostDifference(const QImage& a, const QImage& b)
{
    int most = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
            most = std::max(
                {most, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)), std::abs(qBlue(p) - qBlue(q))});
        }
    return most;
}

TEST_F(CanvasTest, whatIsPaintedInPartsIsWhatIsPaintedAtOnce)
{
    SystemVariables::instance().set(L"PDMODE", short{3});
    SystemVariables::instance().set(L"PDSIZE", 0.0); // a share of the picture, not of the part
    const AcDbObjectId point = add(new AcDbPoint({50, 50, 0}));
    add(new AcDbPoint({50, 99, 0}));
    const AcDbObjectId circle = add(new AcDbCircle({30, 40, 0}, AcGeVector3d::kZAxis, 12));
    const AcDbObjectId text = add(new AcDbText({20, 70, 0}, L"Égyptien", AcDbObjectId(), 5));
    const auto moved = [](AcDbObjectId id, double x, double y) {
        return [=] {
            AcDbObjectPointer<AcDbEntity>(id, AcDb::kForWrite)->transformBy(AcGeMatrix3d::translation({x, y, 0}));
        };
    };
    const struct {
        const char* name;
        std::function<void()> change;
    } steps[] = {
        {"down by a few pixels", [this] { pan(0, 30); }},
        {"up and aside", [this] { pan(-41, -83); }},
        {"a new line",
         [] {
             add(new AcDbLine({10, 10, 0}, {90, 60, 0}));
         }},
        {"a line thinner than it is long, far out",
         [] {
             add(new AcDbLine({-5000, 20, 0}, {5000, 20, 0}));
         }},
        {"a moved point", moved(point, 7, -3)},
        {"a moved circle", moved(circle, 20, 10)},
        {"a moved text", moved(text, 3, 2)},
        {"an erased text", [text] { AcDbObjectPointer<AcDbEntity>(text, AcDb::kForWrite)->erase(); }},
        {"a circle that leaves", moved(circle, 1000, 0)},
        {"an edit out of sight", moved(circle, 1000, 0)},
        {"an edit and a pan at once", [=, this] { moved(circle, -2000, 5)(), pan(12, 7); }},
        {"another colour of a layer",
         [] {
             AcCmColor green;
             green.setColorIndex(3);
             AcDbObjectPointer<AcDbLayerTableRecord>(document().database()->layerZero(), AcDb::kForWrite)
                 ->setColor(green);
         }},
        {"larger points", [] { SystemVariables::instance().set(L"PDSIZE", -9.0); }},
    };
    picture();
    for (const auto& step : steps) {
        const QImage before = picture();
        step.change();
        const QImage parts = picture();
        EXPECT_LT(mostDifference(parts, paintedAnew()), 16) << step.name;
        EXPECT_EQ(parts == before, std::string(step.name) == "an edit out of sight") << step.name;
    }
}

TEST_F(CanvasTest, whatACommandMovesIsMarkedAndFollowsTheCursor)
{
    const struct {
        const char* name;
        std::vector<const char*> lines; ///< up to the place that is asked for
        double x, y;                    ///< where the cursor goes
        double seenX, seenY;            ///< where the line from (10,10) to (20,10) then shows
    } rows[] = {
        {"move", {"_move", "_L", "", "10,10"}, 50, 60, 55, 60},
        {"copy", {"_copy", "_L", "", "10,10"}, 50, 60, 55, 60},
        {"copy again", {"_copy", "_L", "", "10,10", "10,90"}, 50, 60, 55, 60},
        {"rotate", {"_rotate", "_L", "", "10,10"}, 10, 60, 10, 15},
        {"rotate by a reference", {"_rotate", "_L", "", "10,10", "_R", "90"}, 60, 10, 10, 5},
        {"scale", {"_scale", "_L", "", "10,10"}, 10, 14, 45, 10},
        {"scale by a reference", {"_scale", "_L", "", "10,10", "_R", "10"}, 10, 50, 40, 10},
        {"mirror", {"_mirror", "_L", "", "40,0"}, 40, 90, 65, 10},
    };
    AcDbObjectId line;
    std::vector<Step> steps;
    for (const auto& row : rows) {
        steps.push_back([&line] { line = add(new AcDbLine({10, 10, 0}, {20, 10, 0})); });
        for (const char* const typed : row.lines)
            steps.push_back(type(typed));
        steps.push_back([this, &row] { hover(row.x, row.y); });
        steps.push_back([this, &row, &line] {
            EXPECT_TRUE(shows(row.seenX, row.seenY)) << row.name;
            EXPECT_EQ(PickFirst::of(document()).highlighted(), std::vector{line}) << row.name;
        });
        steps.push_back(key(Qt::Key_Escape));
        steps.push_back([this, &row] {
            hover(95, 3);
            EXPECT_FALSE(shows(row.seenX, row.seenY)) << row.name << ", given up";
            EXPECT_TRUE(PickFirst::of(document()).highlighted().empty()) << row.name;
        });
        for (const char* const typed : {"_erase", "_all", ""})
            steps.push_back(type(typed));
    }
    play(std::move(steps));
}

/// A circle about (30,40) that reaches to the cursor.
class CircleJig : public AcEdJig {
public:
    CircleJig() : m_circle({30, 40, 0}, AcGeVector3d::kZAxis, 1) {}
    DragStatus sampler() override
    {
        const double before = m_radius;
        const DragStatus status = acquireDist(m_radius, m_circle.center());
        return status == kNormal && m_radius == before ? kNoChange : status;
    }
    Adesk::Boolean update() override { return m_circle.setRadius(m_radius) == Acad::eOk; }
    AcDbEntity* entity() const override { return const_cast<AcDbCircle*>(&m_circle); }

private:
    AcDbCircle m_circle;
    double m_radius = 1;
};

TEST_F(CanvasTest, aJigFollowsTheCursor)
{
    acedRegCmds->addCommand(L"ESSAI", L"TESTJIG", L"TESTJIG", ACRX_CMD_MODAL, [] {
        CircleJig jig;
        jig.setDispPrompt(L"\nRayon : ");
        jig.drag();
    });
    play({
        type("testjig"),
        [this] { hover(50, 40); },
        [this] { EXPECT_TRUE(shows(30, 60) && shows(10, 40)) << "twenty units around"; },
        [this] { hover(30, 70); },
        [this] {
            EXPECT_TRUE(shows(60, 40) && shows(0, 40));
            EXPECT_FALSE(shows(10, 40)) << "where it was before";
        },
        click(30, 50),
        [this] {
            hover(95, 3);
            EXPECT_FALSE(shows(20, 40)) << "the jig's entity is of no drawing";
        },
    });
}

TEST_F(CanvasTest, whatIsTypedOverAPanelGoesToTheCommandLine)
{
    play({
        [this] {
            QTest::mouseClick(child<QPlainTextEdit>("historique").viewport(), Qt::LeftButton);
            QTest::keyClicks(&child<QPlainTextEdit>("historique"), QStringLiteral("t"));
            EXPECT_EQ(edit().text(), QStringLiteral("t"));
            EXPECT_EQ(window->focusWidget(), &edit());
        },
        key(Qt::Key_Escape),
    });
}

TEST_F(CanvasTest, aLegIsToldBesideTheCursorAndAPlaceIsMarked)
{
    addLineCommand();
    const auto inked = [this](double x, double y, int right, int down) { // pixels of a box beside a place
        const QImage all = picture();
        const QPoint at = pixelOf(x, y);
        int count = 0;
        for (int dx = 0; dx < right; ++dx)
            for (int dy = 0; dy < std::abs(down); ++dy)
                count += all.pixelColor(at.x() + 14 + dx, at.y() + (down < 0 ? -14 - dy : dy)) != all.pixelColor(3, 3);
        return count;
    };
    play({
        type("testligne"),
        [this] { EXPECT_EQ(prompt(), "Premier point : "); },
        [this] { hover(60, 40); },
        [&] { EXPECT_EQ(inked(60, 40, 100, -10), 0) << "no base yet"; },
        type("10,40"),
        [this] { hover(60, 40); },
        [&] { EXPECT_GT(inked(60, 40, 100, -10), 60) << "50.0000   100.0000 gr"; },
        key(Qt::Key_Escape),
        [&] {
            EXPECT_EQ(inked(60, 40, 100, -10), 0);
            canvas().mark({60, 20});
            EXPECT_FALSE(shows(60, 20)) << "what stands there is to be seen";
            EXPECT_GT(inked(60, 20, 10, 2), 4);
        },
        key(Qt::Key_Escape),
        [&] { EXPECT_EQ(inked(60, 20, 10, 2), 0); },
    });
}

} // namespace
