#include <filesystem>
#include <QProgressDialog>
#include <QTimer>

#include <gtest/gtest.h>

#include "ap/DocumentList.h"
#include "codification/codificationDuModule.h"
#include "ed/Kernel.h"
#include "exchange/placerPoints.h"
#include "points/listePointsDuDessin.h"
#include "points/projetDansDessin.h"
#include "points/projetsTopo.h"
#include "services/selection.h"
#include "ui/application/VelaApplication.h"

#include "aced.h"
#include "adscodes.h"

namespace {

/// A table of points of the one code that is drawn without a library, in a drawing of its own.
class PlacementTest : public testing::Test {
protected:
    static constexpr int nombre = 20000; // more than a tenth of a second of work: the progress is shown

    PlacementTest()
    {
        codificationDuModule().initDefauts();
        setSrcInfosTopo(document.database(), &projet, 0, 0);
        for (int i = 0; i < nombre; ++i) {
            pointDuDessin point;
            point.setParams(std::to_wstring(i + 1).c_str(), {i % 100 * 2.0, i / 100 * 2.0, 100.0}, 1);
            table.Ajouter(point);
            places.push_back(i);
        }
    }
    ~PlacementTest() override
    {
        setSrcInfosTopo(document.database(), nullptr, 0, 0);
        DocumentList::instance().closeAll();
    }

    /// As the user does once the progress is seen.
    static void annulerBientot()
    {
        auto* const guet = new QTimer(qApp);
        QObject::connect(guet, &QTimer::timeout, qApp, [guet] {
            for (QWidget* const fenetre : QApplication::topLevelWidgets())
                if (auto* const progression = qobject_cast<QProgressDialog*>(fenetre)) {
                    progression->cancel();
                    guet->deleteLater();
                }
        });
        guet->start(0);
    }

    int dessines() const
    {
        int n = 0;
        const listePointsDuDessin& lue = table;
        for (int i = 0; i < lue.nbPoint(); ++i)
            n += !lue.getData(i)->getId().isNull() && !lue.getData(i)->getId().isErased();
        return n;
    }

    std::unique_ptr<VelaApplication> application = VelaApplication::make(VelaApplication::Screen::none);
    Kernel noyau;
    Document& document = DocumentList::instance().create();
    projetsTopo projet;
    listePointsDuDessin& table = *projet.currTable();
    std::vector<int> places;
    observationsEnAttente observations;
};

} // namespace

TEST_F(PlacementTest, StoppedHalfwayLeavesTableAndDrawingAgreeing)
{
    annulerBientot();
    const bilanPlacement bilan = placerPoints(table, places, observations);
    ASSERT_TRUE(bilan.arrete);
    EXPECT_GT(bilan.dessines, 0);
    EXPECT_LT(bilan.dessines, nombre);
    EXPECT_EQ(dessines(), bilan.dessines);
    EXPECT_EQ(selectionDuDessin(L"INSERT").size(), static_cast<std::size_t>(bilan.dessines));

    // Reading the symbols back and stopping changes neither.
    EXPECT_FALSE(placerPoints(table, places, observations).arrete) << "the rest is drawn";
    annulerBientot();
    const bilanReleve releve = releverSymboles(table);
    if (releve.arrete) {
        EXPECT_EQ(releve.lus, 0);
    }
    EXPECT_EQ(table.nbPoint(), nombre);
    EXPECT_EQ(dessines(), nombre);
}
