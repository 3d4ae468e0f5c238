// What scenarios cannot do in the points dialog: press a button while work goes on, draw where the drawing refuses.

#include <QApplication>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QTimer>
#include <set>

#include <gtest/gtest.h>

#include "ap/DocumentList.h"
#include "codification/codificationDuModule.h"
#include "db/DatabaseImpl.h"
#include "ed/Kernel.h"
#include "exchange/DlgPntsDuDessin.h"
#include "exchange/placerTableau.h"
#include "points/listePointsDuDessin.h"
#include "points/projetDansDessin.h"
#include "points/projetsTopo.h"
#include "services/dialogueProgression.h"
#include "services/espaceObjet.h"
#include "services/selection.h"
#include "ui/application/VelaApplication.h"

#include "acdocman.h"
#include "Answers.h"
#include "dbents.h"
#include "dbsymtb.h"
#include "supportEssai.h"

namespace {

/// A table of points of the one code that the module defines by itself, in a drawing of its own.
class DialoguePointsTest : public testing::Test {
protected:
    static constexpr int nombre = 60;

    DialoguePointsTest()
    {
        codificationDuModule().initDefauts();
        for (int i = 0; i < nombre; ++i) {
            pointDuDessin point;
            point.setParams(std::to_wstring(i + 1).c_str(), {i * 2.0, i * 3.0, 100.0}, 1);
            table.Ajouter(point);
        }
        setSrcInfosTopo(document.database(), &projet, 0, 0);
        dialogueProgression::patience = std::chrono::milliseconds{0};
    }
    ~DialoguePointsTest() override
    {
        dialogueProgression::patience = patience;
        setSrcInfosTopo(document.database(), nullptr, 0, 0);
        DocumentList::instance().closeAll();
    }

    /// Opens the dialog, presses a button of it, and "Annuler" once the work has come so far.
    /// @return what the dialog says then
    QString presser(const char* bouton, int arretA)
    {
        DlgPntsDuDessin dialogue(table, codificationDuModule(), modeMiseAJour);
        QTimer guet;
        QObject::connect(&guet, &QTimer::timeout, &dialogue, [arretA] {
            auto* const progression = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
            if (progression && progression->value() >= arretA)
                progression->findChild<QPushButton*>()->click();
        });
        guet.start(0);
        QTimer::singleShot(0, &dialogue, [&dialogue, bouton] {
            dialogue.findChild<QPushButton*>(bouton)->click();
            dialogue.accept();
        });
        dialogue.exec();
        return dialogue.findChild<QPlainTextEdit*>("textProblemes")->toPlainText();
    }

    /// Points that have a symbol of their own, which is in the drawing under their name.
    int dessines() const
    {
        std::set<std::int64_t> symboles;
        for (int i = 0; i < lue.nbPoint(); ++i) {
            const AcDbObjectId& id = lue.getData(i)->getId();
            pointDuDessin symbole;
            if (id.isNull() || id.isErased() || !symbole.updateFromDrawing(id))
                continue;
            EXPECT_TRUE(symbole == *lue.getData(i)) << i;
            symboles.insert(id.asOldId());
        }
        return static_cast<int>(symboles.size());
    }
    static int dansLeDessin() { return static_cast<int>(selectionDuDessin(L"INSERT").size()); }

    const std::chrono::milliseconds patience = dialogueProgression::patience;
    std::unique_ptr<VelaApplication> application = VelaApplication::make(VelaApplication::Screen::none);
    Kernel noyau;
    Document& document = DocumentList::instance().create();
    projetsTopo projet;
    listePointsDuDessin& table = *projet.currTable();
    const listePointsDuDessin& lue = table;
};

TEST_F(DialoguePointsTest, drawingStoppedHalfwayLeavesTableAndDrawingAgreeing)
{
    const QString dit = presser("boutonPlacer", nombre / 2);
    EXPECT_TRUE(dit.contains("Placement arrêté : les points suivants ne sont pas dessinés.")) << dit.toStdString();
    const int faits = dansLeDessin();
    EXPECT_TRUE(dit.startsWith(QString("%1 point(s) placé(s).").arg(faits))) << dit.toStdString();
    EXPECT_GE(faits, nombre / 2);
    EXPECT_LT(faits, nombre);
    EXPECT_EQ(dessines(), faits);

    UndoRecorder& histoire = document.database()->impl().undo();
    ASSERT_TRUE(histoire.undo());
    EXPECT_EQ(dansLeDessin(), 0) << "one undo group";
    EXPECT_EQ(dessines(), 0);
    EXPECT_EQ(lue.nbPoint(), nombre);
    ASSERT_TRUE(histoire.redo());
    EXPECT_EQ(dansLeDessin(), faits);
    EXPECT_EQ(dessines(), faits);

    presser("boutonPlacer", nombre + 1);
    EXPECT_EQ(dansLeDessin(), nombre) << "what was drawn is not drawn twice";
    EXPECT_EQ(dessines(), nombre);
}

TEST_F(DialoguePointsTest, readingBackStoppedHalfwayLeavesTheTableAsItWas)
{
    presser("boutonPlacer", nombre + 1);
    {
        const AcDbObjectPointer<AcDbBlockReference> symbole(lue.getData(0)->getId(), AcDb::kForWrite);
        symbole->setPosition({7.0, 8.0, 0.0});
    }
    EXPECT_EQ(presser("boutonRaffraichir", nombre / 2), "Lecture arrêtée : la table n'a pas changé.");
    ASSERT_EQ(lue.nbPoint(), nombre);
    for (int i = 0; i < nombre; ++i)
        EXPECT_STREQ(lue.getData(i)->getNomPoint(), std::to_string(i + 1).c_str());
    EXPECT_EQ(lue.getData(0)->getX(), 0.0);

    presser("boutonRaffraichir", nombre + 1);
    EXPECT_EQ(lue.nbPoint(), nombre);
    EXPECT_EQ(dessines(), nombre) << "places too";
}

TEST_F(DialoguePointsTest, everyCommandHoldsTheDocumentLockedForAsLongAsItsDialogIsOpen)
{
    for (void (*const commande)() : {commandeImportPoints, commandeExportPoints, commandeTableXYZ, commandeMajPoints})
        for (const bool abandonne : {false, true}) {
            auto pendant = AcAp::kNotLocked;
            QTimer::singleShot(0, [&] {
                pendant = curDoc()->lockMode(true);
                auto* const dialogue = qobject_cast<QDialog*>(QApplication::activeModalWidget());
                abandonne ? dialogue->reject() : dialogue->accept();
            });
            commande();
            EXPECT_EQ(pendant, AcAp::kWrite);
            EXPECT_EQ(curDoc()->lockMode(true), AcAp::kNotLocked);
        }
}

TEST_F(DialoguePointsTest, aTableThatTheDrawingRefusesLeavesTheOneThatIsThere)
{
    Answers reponses({L"100,100"});
    paramsTable params;
    const auto placer = [&] { return placerTableau(table, std::vector{0, 1}, codificationDuModule(), params); };
    ASSERT_TRUE(placer());
    const std::vector<AcDbObjectId> premiere = selectionDuDessin(L"*");
    QString dit;
    QTimer guet; // answers yes: the old table is to go
    QObject::connect(&guet, &QTimer::timeout, &guet, [&dit] {
        if (auto* const boite = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            dit = boite->text();
            boite->defaultButton()->click();
        }
    });
    guet.start(0);
    for (const bool grouper : {true, false}) {
        params.grouper = grouper;
        const AcDbObjectPointer<AcDbBlockTableRecord> tenu(espaceObjetDuDessin(), AcDb::kForRead);
        EXPECT_FALSE(placer());
        EXPECT_EQ(dit, "Le dessin refuse la nouvelle table : l'ancienne y reste");
        EXPECT_EQ(selectionDuDessin(L"*"), premiere);
    }
    EXPECT_TRUE(placer());
    const std::vector<AcDbObjectId> seconde = selectionDuDessin(L"*");
    EXPECT_EQ(seconde.size(), premiere.size());
    EXPECT_NE(seconde, premiere);
    ASSERT_TRUE(document.database()->impl().undo().undo());
    EXPECT_EQ(selectionDuDessin(L"*"), premiere) << "one undo group";
}

} // namespace
