// The dialogs of codes and points, off-screen.

#include <deque>
#include <functional>
#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QTimer>

#include <gtest/gtest.h>

#include "codification/CformulaireXYZ.h"
#include "codification/codificationDuModule.h"
#include "codification/DlgChoixCode.h"
#include "codification/DlgChoixPoint.h"
#include "codification/DlgCodification.h"
#include "codification/DlgTableCodification.h"
#include "codification/regleCode.h"
#include "points/listePointsDuDessin.h"
#include "ui/application/VelaApplication.h"

#include "dbapserv.h"
#include "dbents.h"
#include "supportEssai.h"

namespace {

class DialoguesCodesTest : public testing::Test {
protected:
    void SetUp() override
    {
        acdbHostApplicationServices()->setWorkingDatabase(&db);
        codificationDuModule().initDefauts();
    }
    void TearDown() override { acdbHostApplicationServices()->setWorkingDatabase(nullptr); }

    static void ensuite(std::function<void()> tache) { QTimer::singleShot(0, qApp, std::move(tache)); }
    template <class Widget>
    static Widget& widget(const char* nom)
    {
        QWidget* const dialogue = QApplication::activeModalWidget();
        Widget* const trouve = dialogue ? dialogue->findChild<Widget*>(nom) : nullptr;
        EXPECT_NE(trouve, nullptr) << nom;
        return *trouve;
    }
    static void presser(const QString& libelle)
    {
        const QWidget* const dialogue = QApplication::activeModalWidget();
        ASSERT_NE(dialogue, nullptr);
        for (QAbstractButton* const bouton : dialogue->findChildren<QAbstractButton*>())
            if (bouton->text().remove(u'&') == libelle)
                return bouton->click();
        FAIL() << "no button " << libelle.toStdString();
    }
    /// Presses a button that a message box follows, and the button of that box.
    static std::string message(const QString& libelle, const QString& reponse = "OK")
    {
        std::string vu = "none";
        ensuite([&] {
            const auto* const boite = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!boite)
                return;
            vu = (boite->windowTitle() + ": " + boite->text()).toStdString();
            presser(reponse);
        });
        presser(libelle);
        QCoreApplication::processEvents();
        return vu;
    }
    static void taper(const char* champ, const QString& texte) { widget<QLineEdit>(champ).setText(texte); }
    static QStringList ligne(const QTableWidget& liste, int rang)
    {
        QStringList cellules;
        for (int c = 0; c < liste.columnCount(); ++c)
            cellules << liste.item(rang, c)->text();
        return cellules;
    }
    static QString colonne(const QTableWidget& liste, int c)
    {
        QStringList cellules;
        for (int i = 0; i < liste.rowCount(); ++i)
            cellules << liste.item(i, c)->text();
        return cellules.join(u'|');
    }

    std::unique_ptr<VelaApplication> application = VelaApplication::make(VelaApplication::Screen::none);
    AcDbDatabase db;
};

TEST_F(DialoguesCodesTest, judgesCodeNumbers)
{
    tableCodification& table = codificationDuModule();
    table.getCodif(2);
    struct Row {
        const wchar_t* saisie;
        verdictCode creation, edition;
        int code;
    };
    const Row rows[] = {
        {L"3", verdictCode::accepte, verdictCode::accepte, 3},
        {L" ;9999.", verdictCode::accepte, verdictCode::accepte, 9999},
        {L"0", verdictCode::horsBornes, verdictCode::horsBornes, 0},
        {L"10000", verdictCode::horsBornes, verdictCode::horsBornes, 0},
        {L"", verdictCode::horsBornes, verdictCode::horsBornes, 0},
        {L"abc", verdictCode::horsBornes, verdictCode::horsBornes, 0},
        {L"7x", verdictCode::accepte, verdictCode::accepte, 7},
        {L"100", verdictCode::dejaExistant, verdictCode::accepte, 100},
        {L" ?. ", verdictCode::propose, verdictCode::propose, 3},
        {L"??", verdictCode::horsBornes, verdictCode::horsBornes, 0},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(CStringA(r.saisie).GetString());
        const avisCode creation = validerCode(r.saisie, table, true), edition = validerCode(r.saisie, table, false);
        EXPECT_EQ(creation.verdict, r.creation);
        EXPECT_EQ(edition.verdict, r.edition);
        EXPECT_EQ(edition.code, r.code);
    }
    for (int code = 1; code <= 9999; ++code)
        table.getCodif(code);
    EXPECT_EQ(validerCode(L"?", table, true).verdict, verdictCode::aucunLibre);
}

TEST_F(DialoguesCodesTest, makesACode)
{
    tableCodification& table = codificationDuModule();
    table.getCodif(2);
    DlgCodification dialogue(codifPoint(), table, DlgCodification::mode::creation);
    ensuite([&] {
        EXPECT_EQ(dialogue.windowTitle(), "Codification");
        auto& code = widget<QLineEdit>("editCode");
        EXPECT_FALSE(code.isReadOnly());
        EXPECT_EQ(message("OK"), "Erreur: Code incorrect\nTapez un nombre compris entre 1 et 9999");
        code.setText("10000");
        EXPECT_EQ(message("OK"), "Erreur: Code incorrect\nTapez un nombre compris entre 1 et 9999");
        EXPECT_EQ(code.text(), "") << "the field is emptied";
        EXPECT_EQ(dialogue.focusWidget(), &code);
        code.setText("100");
        EXPECT_EQ(message("OK"),
                  "Erreur: Code déjà existant\nTapez un '?' pour qu'un numéro soit attribué automatiquement");
        EXPECT_EQ(code.text(), "100");
        code.setText("?");
        emit code.editingFinished();
        EXPECT_EQ(code.text(), "3");
        taper("editTaille", "0");
        EXPECT_EQ(message("OK"), "Erreur: Entrez un nombre compris entre 1e-006 et 1e+006.");
        taper("editTaille", "0.5");
        taper("editLibelle", "Borne");
        taper("editLayerNumeros", "NUM");
        widget<QSpinBox>("editPrecision").setValue(9);
        widget<QSpinBox>("couleurLayerObs").setValue(12);
        presser("OK");
    });
    ASSERT_EQ(dialogue.exec(), QDialog::Accepted);
    const codifPoint code = dialogue.code();
    EXPECT_EQ(code.code, 3);
    EXPECT_TRUE(code.libelle == L"Borne");
    EXPECT_EQ(code.tailleBlock, 0.5);
    EXPECT_EQ(code.precisionAltitudes, 8) << "held by the control";
    EXPECT_TRUE(code.layers[calqueNumero] == L"NUM");
    EXPECT_TRUE(code.layers[calqueAltitudes] == L"_ Altitudes Points");
    EXPECT_EQ(code.couleurs[calqueObs], 12);
    EXPECT_TRUE(code.chemin == codifPoint().chemin);
}

TEST_F(DialoguesCodesTest, editsACodeAndKeepsWhatItDoesNotShow)
{
    tableCodification& table = codificationDuModule();
    codifPoint& code = table[1];
    code.precisionAltitudes = 12; // an older file may hold it
    code.couleurs[calqueCode] = 300;
    code.tailleBlock = 1.0 / 3.0;
    EXPECT_EQ(table.modifierCode(-1), 0);
    EXPECT_EQ(table.modifierCode(2), 0);
    ensuite([] {
        EXPECT_TRUE(widget<QLineEdit>("editCode").isReadOnly());
        EXPECT_EQ(widget<QLineEdit>("editCode").text(), "100");
        EXPECT_TRUE(widget<QLabel>("labelChemin").text().endsWith("velablk3.dwg"));
        taper("editLibelle", "Stations");
        taper("editTaille", "0.333333333333333");
        presser("OK");
    });
    EXPECT_EQ(table.modifierCode(1), 1);
    EXPECT_TRUE(table[1].libelle == L"Stations");
    EXPECT_EQ(table[1].precisionAltitudes, 12);
    EXPECT_EQ(table[1].couleurs[calqueCode], 300);
    ensuite([] {
        taper("editLibelle", "jamais");
        presser("Cancel");
    });
    EXPECT_EQ(table.modifierCode(1), 1);
    EXPECT_TRUE(table[1].libelle == L"Stations");
}

TEST_F(DialoguesCodesTest, showsTheTable)
{
    tableCodification& table = codificationDuModule();
    table.getCodif(20).libelle = L"arbre";
    table.getCodif(3).libelle = L"Borne";
    ensuite([&] {
        auto& liste = widget<QTableWidget>("liste");
        QStringList titres;
        for (int c = 0; c < liste.columnCount(); ++c)
            titres << liste.horizontalHeaderItem(c)->text();
        EXPECT_EQ(titres.join(u'|'), "Code|Libéllé|PreciZ|Chemin");
        EXPECT_EQ(colonne(liste, 0), "1|100|20|3") << "table order";
        EXPECT_EQ(ligne(liste, 1).mid(0, 3), QStringList({"100", "Station", "2"}));
        const struct {
            int titre, colonne;
            const char* ordre;
        } tris[] = {{0, 0, "1|3|20|100"}, {0, 0, "100|20|3|1"}, {1, 1, "arbre|Borne|Point topo|Station"}};
        for (const auto& t : tris) {
            auto* const titre = liste.horizontalHeader();
            const auto sens =
                titre->sortIndicatorSection() == t.titre && titre->sortIndicatorOrder() == Qt::AscendingOrder
                    ? Qt::DescendingOrder
                    : Qt::AscendingOrder;
            titre->setSortIndicator(t.titre, sens);
            emit titre->sectionClicked(t.titre);
            EXPECT_EQ(colonne(liste, t.colonne), t.ordre);
        }
        ensuite([] {
            taper("editLibelle", "Stations");
            presser("OK");
        });
        emit liste.cellDoubleClicked(3, 0);
        EXPECT_EQ(ligne(liste, 3)[1], "Stations") << "the row that was opened";
        liste.clearSelection();
        EXPECT_EQ(message("Supprimer"), "none") << "nothing is selected";
        liste.selectRow(0);
        liste.selectionModel()->select(liste.model()->index(2, 0),
                                       QItemSelectionModel::Select | QItemSelectionModel::Rows);
        EXPECT_EQ(message("Supprimer", "Non"), "Suppression: Confirmez la suppression\ndes éléments sélectionnés");
        EXPECT_EQ(table.nombre(), 4);
        message("Supprimer", "Oui");
        EXPECT_EQ(colonne(liste, 1), "Borne|Stations") << "sorted as before";
        ensuite([] {
            taper("editCode", "7");
            presser("OK");
        });
        presser("Nouveau");
        EXPECT_EQ(ligne(liste, 2)[0], "7");
        presser("Fermer");
    });
    DlgTableCodification(table).exec();
    ASSERT_EQ(table.nombre(), 3);
    EXPECT_EQ(table[0].code, 100);
    EXPECT_TRUE(table[0].libelle == L"Stations");
    EXPECT_EQ(table[2].code, 7);
    EXPECT_TRUE(table[2].libelle == L"Point Topo") << "the label of a new record";
}

TEST_F(DialoguesCodesTest, choosesACodeOrAPoint)
{
    ensuite([] {
        EXPECT_FALSE(widget<QPushButton>("boutonOk").isEnabled());
        taper("editChercher", "stat");
        EXPECT_TRUE(widget<QTableWidget>("liste").isRowHidden(0));
        presser("OK");
    });
    DlgChoixCode code(codificationDuModule());
    ASSERT_EQ(code.exec(), QDialog::Accepted);
    EXPECT_EQ(code.code(), 100);

    listePointsDuDessin table;
    for (const wchar_t* nom : {L"P1", L"P2", L"S1"}) {
        pointDuDessin p;
        p.setParams(nom, {1, 2, 3.456}, 1);
        table.Ajouter(p);
    }
    ensuite([] {
        auto& liste = widget<QTableWidget>("liste");
        EXPECT_EQ(ligne(liste, 0), QStringList({"P1", "1.000", "2.000", "3.46", "1"}));
        emit liste.horizontalHeader()->setSortIndicator(0, Qt::DescendingOrder);
        emit liste.horizontalHeader()->sectionClicked(0);
        liste.selectRow(0);
        emit liste.cellDoubleClicked(0, 0);
    });
    DlgChoixPoint point(table);
    ASSERT_EQ(point.exec(), QDialog::Accepted);
    EXPECT_EQ(point.position(), 2) << "the place in the table, whatever the sort";
}

TEST_F(DialoguesCodesTest, entersAndEditsPoints)
{
    listePointsDuDessin table;
    pointDuDessin p;
    p.setParams(L"P1", {0.1 + 0.2, 1234567.891, 1e38}, 1);
    table.Ajouter(p);
    table.updateDrawing();
    const AcDbObjectId symbole = table.getData(0)->getId();
    ensuite([&] {
        EXPECT_EQ(widget<QLabel>("labelRang").text(), "Point 1 sur 1");
        EXPECT_EQ(widget<QLineEdit>("editX").text(), "0.30000000000000004");
        EXPECT_EQ(widget<QLineEdit>("editZ").text(), "") << "unknown";
        EXPECT_EQ(widget<QComboBox>("comboCode").currentText(), "0001   Point topo");
        EXPECT_FALSE(widget<QPushButton>("boutonSuivant").isEnabled());
        presser("Enregistrer");
        EXPECT_EQ(table.getData(0)->getX(), 0.1 + 0.2) << "written again, a point does not move";
        taper("editX", "12,5");
        EXPECT_EQ(message("Enregistrer"), "Erreur: X n'est pas un nombre");
        taper("editX", "12.5");
        taper("editZ", "7");
        taper("editNumero", "Q1");
        widget<QComboBox>("comboCode").setEditText("100");
        EXPECT_EQ(message("Nouveau", "Annuler"),
                  "Coordonnées XYZ: Le point a été modifié.\nEnregistrer les modifications ?");
        EXPECT_EQ(widget<QLabel>("labelRang").text(), "Point 1 sur 1") << "still there";
        message("Nouveau", "Oui");
        EXPECT_EQ(widget<QLabel>("labelRang").text(), "Nouveau point");
        EXPECT_EQ(widget<QLineEdit>("editNumero").text(), "1");
        taper("editNumero", "q1");
        taper("editX", "1");
        taper("editY", "2");
        widget<QComboBox>("comboCode").setEditText("10000");
        EXPECT_EQ(message("Enregistrer"), "Erreur: Code incorrect\nTapez un nombre compris entre 1 et 9999");
        widget<QComboBox>("comboCode").setEditText("1");
        EXPECT_EQ(message("Enregistrer", "Non"),
                  "Coordonnées XYZ: Un autre point porte ce numéro.\nEnregistrer quand même ?");
        taper("editNumero", "5");
        presser("Enregistrer");
        EXPECT_EQ(widget<QLabel>("labelRang").text(), "Point 2 sur 2");
        presser("<");
        EXPECT_EQ(widget<QLineEdit>("editNumero").text(), "Q1");
        presser(">>");
        EXPECT_EQ(message("Supprimer", "Oui"), "Suppression: Supprimer le point 5 et son symbole ?");
        EXPECT_EQ(widget<QLabel>("labelRang").text(), "Point 1 sur 1");
        presser("Fermer");
    });
    CformulaireXYZ(table, codificationDuModule()).exec();
    ASSERT_EQ(table.nbPoint(), 1);
    const pointDuDessin& ecrit = *table.getData(0);
    EXPECT_EQ(ecrit.getAs3dPnt(), AcGePoint3d(12.5, 1234567.891, 7));
    EXPECT_EQ(ecrit.getId(), symbole) << "the same symbol goes on";
    int position = -1;
    EXPECT_TRUE(table.existPoint(L"q1", position));
    EXPECT_FALSE(table.existPoint(L"p1", position)) << "the former name finds nothing";
    pointDuDessin lu;
    ASSERT_TRUE(lu.updateFromDrawing(symbole));
    EXPECT_TRUE(lu == ecrit) << "name, place, altitude and code reached the symbol";
}

} // namespace
