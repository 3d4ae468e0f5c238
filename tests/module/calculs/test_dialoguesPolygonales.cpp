// The traverse dialogs, off-screen: what the scenarios do not see, such as tab order, the clipboard and files byte for
// byte.

#include <deque>
#include <functional>
#include <QAbstractButton>
#include <QClipboard>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

#include "calculs/CCalcGisementDlg.h"
#include "calculs/corrPolygoDLG.h"
#include "calculs/corrPolygoOuverteDLG.h"
#include "calculs/CParamMisePlaceResultCalcs.h"
#include "calculs/listeObservations.h"
#include "ui/application/VelaApplication.h"

#include "TestFolder.h"

namespace {

class DialoguesPolygonales : public testing::Test {
protected:
    using tache = std::function<void(QWidget& devant)>;

    /// Does the tasks one after the other, each with the modal dialog that is then in front.
    void ensuite(std::initializer_list<tache> taches)
    {
        m_taches.assign(taches);
        attendre();
    }
    void TearDown() override { EXPECT_TRUE(m_taches.empty()) << "dialogs that never came"; }

    static void presser(const QWidget& dialogue, const QString& libelle)
    {
        for (QAbstractButton* const bouton : dialogue.findChildren<QAbstractButton*>())
            if (bouton->text().remove(u'&') == libelle)
                return bouton->click();
        FAIL() << "no button " << libelle.toStdString();
    }
    static void ecrire(const QWidget& dialogue, const char* champ, const QString& texte)
    {
        auto* const widget = dialogue.findChild<QLineEdit*>(champ);
        ASSERT_NE(widget, nullptr) << champ;
        widget->setText(texte);
    }
    static QString lu(const QWidget& dialogue, const char* champ)
    {
        const auto* const widget = dialogue.findChild<QLineEdit*>(champ);
        return widget ? widget->text() : QStringLiteral("?");
    }
    static listeObservations& liste(const QWidget& dialogue) { return *dialogue.findChild<listeObservations*>(); }
    static QString bilan(const QWidget& dialogue) { return dialogue.findChild<QLabel*>("bilan")->text(); }

    /// A task that presses the file dialog's button on that name.
    static tache repondreFichier(const QString& nom, int filtre = 0)
    {
        return [nom, filtre](QWidget& devant) {
            auto* const dialogue = qobject_cast<QFileDialog*>(&devant);
            ASSERT_NE(dialogue, nullptr);
            EXPECT_EQ(dialogue->nameFilters().size(), 4);
            dialogue->selectNameFilter(dialogue->nameFilters()[filtre]);
            emit dialogue->filterSelected(dialogue->selectedNameFilter());
            dialogue->findChild<QLineEdit*>("fileNameEdit")->setText(nom);
            static_cast<QDialog*>(dialogue)->accept();
        };
    }
    static tache presserDevant(const QString& libelle)
    {
        return [libelle](QWidget& devant) { presser(devant, libelle); };
    }

    std::unique_ptr<VelaApplication> application = VelaApplication::make(VelaApplication::Screen::none);
    QTemporaryDir dossier;

private:
    /// One shot a task: a task that opens a dialog runs on while the next ones come.
    void attendre()
    {
        QTimer::singleShot(0, qApp, [this] {
            QWidget* const devant = QApplication::activeModalWidget();
            if (!devant)
                return attendre();
            const tache suivante = m_taches.front();
            m_taches.pop_front();
            if (!m_taches.empty())
                attendre();
            suivante(*devant);
        });
    }

    std::deque<tache> m_taches;
};

const char* const exemple = VELA_SOURCE_DIR "/examples/polygonale-fermee-grades.obs";

} // namespace

TEST_F(DialoguesPolygonales, TabOrderFollowsTheFields)
{
    const auto ordre = [](const QWidget& dialogue) {
        QStringList noms;
        for (const QWidget* w = dialogue.nextInFocusChain(); w != &dialogue; w = w->nextInFocusChain())
            if (w->focusPolicy() & Qt::TabFocus && !w->objectName().startsWith("qt_"))
                noms << w->objectName();
        return noms.join(u' ').toStdString();
    };
    const std::string panneau = "editStation editAngle editDistance editAltitude boutonAjouter boutonEnlever liste "
                                "comboAngles comboNivellement boutonCharger boutonSauvegarder boutonCalculer "
                                "boutonPlacer boutonFermer boutonComparer boutonReprendre";
    EXPECT_EQ(ordre(corrPolygoDLG()), "editNumero editX editY editZ editNord " + panneau);
    EXPECT_EQ(ordre(corrPolygoOuverteDLG()),
              "editNumeroDepart editXDepart editYDepart editZDepart editGisementDepart boutonCalDepart "
              "editNumeroArrivee editXArrivee editYArrivee editZArrivee editGisementArrivee boutonCalArrivee "
              "editDernierAngle " +
                  panneau);
}

TEST_F(DialoguesPolygonales, RowsArePastedFromASpreadsheet)
{
    corrPolygoDLG dialogue;
    dialogue.afficher({{}, 0, 0, {{L"A", L"1", L"2", L"3"}, {L"B", L"4", L"5", L"6"}}});
    QGuiApplication::clipboard()->setText("Station\tAngle\tDistance\tdZ\nX1\t10,5\t20,25\t0,1\nX2\t11\t21\t\n");
    liste(dialogue).selectRow(0);
    liste(dialogue).coller();
    const auto lignes = liste(dialogue).lignes();
    ASSERT_EQ(lignes.size(), 4u);
    EXPECT_EQ(lignes[1], (ligneObservation{L"X1", L"10.5", L"20.25", L"0.1"})) << "after the selected row";
    EXPECT_EQ(lignes[3].station, L"B");
    liste(dialogue).selectRow(3);
    liste(dialogue).copier();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "B\t4\t5\t6\n");
}

TEST_F(DialoguesPolygonales, ClosedFileGoesThroughTheDialogUnchanged)
{
    corrPolygoDLG dialogue;
    const QString copie = dossier.filePath("Copie.obs");
    ensuite({presserDevant("Charger"), repondreFichier(exemple), presserDevant("Sauvegarder"), repondreFichier(copie),
             presserDevant("Fermer")});
    dialogue.exec();
    EXPECT_EQ(lu(dialogue, "editNumero"), "A");
    EXPECT_EQ(lu(dialogue, "editY"), "-1814.522");
    EXPECT_EQ(lu(dialogue, "editNord"), "174.696");
    EXPECT_EQ(contents(dossier.filePath("copie.obs").toStdString()), contents(exemple))
        << "saved in lower case, byte for byte";
    EXPECT_FALSE(QFile::exists(copie));
}

TEST_F(DialoguesPolygonales, SavingAsksBeforeReplacingUnderAnotherName)
{
    corrPolygoDLG dialogue;
    dialogue.afficher({{L"A", 1, 2, 3, 4}, 0, 0, {{L"", L"1", L"2", L"3"}}});
    ASSERT_TRUE(QFile(dossier.filePath("plan.")).open(QIODevice::WriteOnly));
    ensuite({presserDevant("Sauvegarder"), repondreFichier(dossier.filePath("PLAN"), 2),
             [](QWidget& devant) {
                 EXPECT_TRUE(dynamic_cast<QMessageBox&>(devant).text().contains("existe déjà"));
                 presser(devant, "Non");
             },
             presserDevant("Sauvegarder"), repondreFichier(dossier.filePath("autre"), 3), presserDevant("Fermer")});
    dialogue.exec();
    EXPECT_EQ(QFileInfo(dossier.filePath("plan.")).size(), 0);
    EXPECT_TRUE(QFile::exists(dossier.filePath("autre.txt")));
    // What the file dialog has asked is not asked again, whatever the letters of the name and of its folders.
    for (const char* const nom : {"boucle.obs", "Boucle2.obs"}) {
        ASSERT_TRUE(QDir(dossier.path()).mkpath("Documents"));
        ASSERT_TRUE(QFile(dossier.filePath(QStringLiteral("Documents/") + nom)).open(QIODevice::WriteOnly));
        ensuite({presserDevant("Sauvegarder"), repondreFichier(dossier.filePath(QStringLiteral("Documents/") + nom)),
                 presserDevant("Oui"), presserDevant("Fermer")});
        dialogue.exec();
        EXPECT_GT(QFileInfo(dossier.filePath(QStringLiteral("Documents/") + nom)).size(), 0) << nom;
    }
    EXPECT_EQ(QDir(dossier.filePath("Documents")).count(), 4u) << "with . and ..";
    EXPECT_TRUE(bilan(dialogue).startsWith("Ligne 1 : une cellule est vide")) << bilan(dialogue).toStdString();
}

TEST_F(DialoguesPolygonales, SavesInTheFolderThatWasChosen)
{
    corrPolygoDLG dialogue;
    dialogue.afficher({{L"A", 1, 2, 3, 4}, 0, 0, {{L"B", L"1", L"2", L"3"}}});
    for (const char* const nom : {"Chantier", "chantier"})
        ASSERT_TRUE(QDir(dossier.path()).mkpath(nom));
    ensuite(
        {presserDevant("Sauvegarder"), repondreFichier(dossier.filePath("Chantier/Boucle")), presserDevant("Fermer")});
    dialogue.exec();
    EXPECT_TRUE(QFile::exists(dossier.filePath("Chantier/boucle.obs")));
    EXPECT_FALSE(QFile::exists(dossier.filePath("chantier/boucle.obs")));
}

TEST_F(DialoguesPolygonales, AsksBeforePlacingWhatCannotBe)
{
    corrPolygoDLG dialogue;
    dialogue.afficher({{L"A", 0, 0, 0, 0}, 0, 0, {{L"B", L"300", L"100", L"0"}, {L"A", L"300", L"30", L"0"}}});
    ensuite({presserDevant("Placer !!!"),
             [](QWidget& devant) {
                 const QString texte = dynamic_cast<QMessageBox&>(devant).text();
                 EXPECT_TRUE(
                     texte.startsWith("La fermeture est hors de toute pratique (erreur angulaire de 200.00000 gr"));
                 EXPECT_TRUE(texte.endsWith("Placer quand même les stations ?"));
                 presser(devant, "Non");
             },
             presserDevant("Placer !!!"), presserDevant("Oui"), presserDevant("Annuler"), presserDevant("Fermer")});
    dialogue.exec();
}

TEST_F(DialoguesPolygonales, CancelledFileDialogsChangeNothing)
{
    corrPolygoDLG dialogue;
    const donneesPolygonaleFermee avant{{L"A", 1, 2, 3, 4}, 1, 2, {{L"B", L"1", L"2", L"3"}}};
    dialogue.afficher(avant);
    const tache annuler = [](QWidget& devant) { static_cast<QDialog&>(devant).reject(); };
    ensuite({presserDevant("Charger"), annuler, presserDevant("Sauvegarder"), annuler, presserDevant("Fermer")});
    dialogue.exec();
    EXPECT_EQ(dialogue.donnees(), avant);
}

TEST_F(DialoguesPolygonales, PlacementParameters)
{
    struct ligne {
        const char* code;
        int attendu;
    };
    for (const ligne& l : {ligne{"100", 100}, ligne{"12", 12}, ligne{"0", 100}, ligne{"9999", 9999},
                           ligne{"10000", 100}, ligne{"-3", 100}, ligne{"abc", 100}, ligne{"1e20", 100}}) {
        CParamMisePlaceResultCalcs parametres;
        EXPECT_EQ(lu(parametres, "editCode"), "100");
        ecrire(parametres, "editCode", l.code);
        EXPECT_EQ(parametres.placement().code, l.attendu) << l.code;
    }
}

TEST_F(DialoguesPolygonales, BearingsOfAnUnlistedUnit)
{
    EXPECT_EQ(CCalcGisementDlg(5, {}).findChild<QLabel*>("labelUnite")->text(), "Grades");
}

TEST_F(DialoguesPolygonales, BearingCalculatorTellsWhatIsNoNumber)
{
    CCalcGisementDlg calcul(0, {});
    auto& remarques = *calcul.findChild<QLabel*>("remarques");
    ecrire(calcul, "editXDirection", "100,9");
    EXPECT_TRUE(remarques.text().startsWith("X de la direction « 100,9 » n'est pas un nombre"));
    ecrire(calcul, "editXDirection", "300");
    EXPECT_TRUE(remarques.isHidden());
}

// A comma was told under the list, by a sentence that the next one replaced.
TEST_F(DialoguesPolygonales, WhatIsNoNumberIsToldInItsFieldUntilMended)
{
    corrPolygoDLG dialogue;
    auto& angle = *dialogue.findChild<QLineEdit*>("editAngle");
    auto& x = *dialogue.findChild<QLineEdit*>("editX");
    const auto faute = [](QLineEdit& champ) {
        const auto* const signe = champ.findChild<QAction*>("signeNombre");
        return signe && signe->isVisible() ? signe->toolTip() : QString();
    };
    EXPECT_EQ(faute(angle), "");
    angle.setText("217,63");
    x.setText("100,5");
    EXPECT_TRUE(faute(angle).contains("Le séparateur décimal est le point")) << faute(angle).toStdString();
    presser(dialogue, "Ajouter");
    EXPECT_FALSE(faute(angle).isEmpty()) << "whatever the summary says meanwhile";
    EXPECT_FALSE(faute(x).isEmpty());
    angle.setText("217.63");
    EXPECT_EQ(faute(angle), "");
    EXPECT_EQ(angle.toolTip(), "");
}
