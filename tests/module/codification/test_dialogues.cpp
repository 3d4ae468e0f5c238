// What the scenarios do not see of codes: which numbers are taken, and what editing keeps without showing it.

#include <functional>
#include <QAbstractButton>
#include <QApplication>
#include <QDeadlineTimer>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QSpinBox>
#include <QTimer>

#include <gtest/gtest.h>

#include "codification/codificationDuModule.h"
#include "codification/regleCode.h"
#include "services/codages.h"
#include "ui/application/VelaApplication.h"

#include "dbapserv.h"
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
    static void taper(const char* champ, const QString& texte) { widget<QLineEdit>(champ).setText(texte); }

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
        SCOPED_TRACE(versAnsi(r.saisie));
        const avisCode creation = validerCode(r.saisie, table, true), edition = validerCode(r.saisie, table, false);
        EXPECT_EQ(creation.verdict, r.creation);
        EXPECT_EQ(edition.verdict, r.edition);
        EXPECT_EQ(edition.code, r.code);
    }
    for (int code = 1; code <= 9999; ++code)
        table.getCodif(code);
    EXPECT_EQ(validerCode(L"?", table, true).verdict, verdictCode::aucunLibre);
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
    for (const auto& [tapee, gardee] : {std::pair(5, 5), std::pair(9, 8)}) {
        ensuite([valeur = tapee] {
            widget<QSpinBox>("editPrecision").setValue(valeur);
            presser("OK");
        });
        EXPECT_EQ(table.modifierCode(1), 1);
        EXPECT_EQ(table[1].precisionAltitudes, gardee) << "what is typed is held by the control";
    }
    ensuite([] {
        taper("editLibelle", "jamais");
        presser("Cancel");
    });
    EXPECT_EQ(table.modifierCode(1), 1);
    EXPECT_TRUE(table[1].libelle == L"Stations");
}

TEST_F(DialoguesCodesTest, choosesABlockByItsPicture)
{
    QString dossier;
    QStringList images, sansImage;
    QSize taille;
    ensuite([&] {
        ensuite([&] {
            auto* const fichiers = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(fichiers, nullptr);
            dossier = fichiers->directory().dirName();
            const auto* const liste = fichiers->findChild<QListView*>("listView");
            QAbstractItemModel& modele = *liste->model();
            const QDeadlineTimer delai(5000); // the folder is read by a thread of its own
            while (modele.rowCount(liste->rootIndex()) < 22 && !delai.hasExpired())
                QApplication::processEvents(QEventLoop::AllEvents, 20);
            taille = liste->iconSize();
            for (int i = 0; i < modele.rowCount(liste->rootIndex()); ++i) {
                const QModelIndex index = modele.index(i, 0, liste->rootIndex());
                const QImage image = index.data(Qt::DecorationRole).value<QIcon>().pixmap(64, 64).toImage();
                const bool symbole = image.width() == 64 && image.pixelColor(0, 0).alpha() == 0;
                (symbole ? images : sansImage) << index.data().toString();
            }
            fichiers->reject();
        });
        presser("Block...");
        presser("Cancel");
    });
    EXPECT_EQ(codificationDuModule().modifierCode(1), 1);
    EXPECT_EQ(dossier.toStdString(), "biblio");
    EXPECT_GE(taille.width(), 32);
    EXPECT_GE(images.size(), 22) << sansImage.join(' ').toStdString();
}

} // namespace
