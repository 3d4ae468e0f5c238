// Reports in a real browser engine: what a user sees of them, and the dialog around it.

#include <QEventLoop>
#include <QFile>
#include <QFileDialog>
#include <QImage>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTimer>
#include <QWebEnginePage>
#include <QWebEngineSettings>
#include <QWebEngineView>

#include <gtest/gtest.h>

#include "calculs/fichierPolygonale.h"
#include "calculs/polygonaleCalculee.h"
#include "reports/htmlDocument.h"
#include "reports/resultPolygo.h"
#include "ui/application/VelaApplication.h"

namespace {

constexpr int patience = 30'000; // ms: a busy machine starts a web engine slowly

/// Asks the page for a JSON object.
QJsonObject interroger(QWebEnginePage& page, const QString& expression)
{
    QJsonObject reponse;
    QEventLoop attente;
    QTimer::singleShot(patience, &attente, &QEventLoop::quit);
    page.runJavaScript(QStringLiteral("JSON.stringify(%1)").arg(expression), [&](const QVariant& valeur) {
        reponse = QJsonDocument::fromJson(valeur.toString().toUtf8()).object();
        attente.quit();
    });
    attente.exec();
    return reponse;
}

std::string texte(const QJsonObject& objet, const char* nom)
{
    return objet[QLatin1String(nom)].toString().toStdString();
}

void charger(QWebEnginePage& page, const QUrl& url)
{
    QEventLoop attente;
    QTimer::singleShot(patience, &attente, &QEventLoop::quit);
    QObject::connect(&page, &QWebEnginePage::loadFinished, &attente, &QEventLoop::quit);
    page.load(url);
    attente.exec();
}

/// What a report shows, as the engine sees it.
constexpr char lectureRapport[] = R"js((() => {
    const textes = (selecteur) => [...document.querySelectorAll(selecteur)].map(e => e.textContent.trim());
    const style = (selecteur) => getComputedStyle(document.querySelector(selecteur));
    return {
        titre: document.title,
        jeu: document.characterSet,
        grand: textes('.grand').join('|'),
        titres: textes('.titre').join('|'),
        tables: [...document.querySelectorAll('table')].map(
            t => [...t.rows].map(r => [...r.cells].reduce((n, c) => n + c.colSpan, 0)).join(',')).join(' / '),
        enTetes: textes('table:nth-of-type(1) tr:first-child td').join('|'),
        taille: style('.grand').fontSize,
        souligne: style('.titre').textDecorationLine,
        police: style('.grand').fontFamily,
        fond: style('.celgris').backgroundColor,
        bord: style('.celnorm').borderLeftStyle + ' ' + style('.celnorm').borderLeftWidth + ' ' +
              style('.celnorm').borderLeftColor,
        marge: style('.celnorm').paddingTop,
        deborde: document.documentElement.textContent.includes('\uFFFD'),
        dernier: textes('table:last-of-type tr:last-child td').join('|'),
    };
})())js";

class ResultPolygo : public testing::Test {
protected:
    template <class Donnees>
    QString rapportDe(const char* exemple, int nivellement)
    {
        Donnees donnees;
        EXPECT_TRUE(chargerPolygonale(std::string(VELA_SOURCE_DIR "/examples/") + exemple, donnees).lisible);
        donnees.nivellement = nivellement;
        donnees.depart.nom = L"Mât & <1>";
        htmlDocument document;
        calculerPolygonale(donnees, &document);
        const QString nom = dossier.filePath(QStringLiteral("é %1.html").arg(exemple));
        document.setFileName(nom.toStdString());
        EXPECT_TRUE(document.write());
        return nom;
    }

    // One for all: a web engine does not start twice in a process.
    static void SetUpTestSuite() { application = VelaApplication::make(VelaApplication::Screen::none); }
    static void TearDownTestSuite() { application.reset(); }

    static inline std::unique_ptr<VelaApplication> application;
    QTemporaryDir dossier;
};

} // namespace

TEST_F(ResultPolygo, ReportsReadWellInABrowser)
{
    struct cas {
        const char* nom;
        QString rapport;
        std::string titres, tables, enTetes, dernier;
    };
    // Rows of a table by their number of columns: each heading row, then what is to be under it.
    const cas lignes[] = {
        {"closed, by distance", rapportDe<donneesPolygonaleFermee>("polygonale-fermee-altitudes.obs", 2),
         "Données|Observations|Fermeture Angulaire|Correction des distances|Correction des altitudes|"
         "Correction proportionnelle aux distances|Coordonnées finales",
         "5,5,5,5,5,5,5 / 8,8,8,8,8,8,8,8,8,8 / 11,11,11,11,11,11,11,11 / 10,10,10,10,10,10,10,10 / 4,4,4,4,4,4,4",
         "Station|Vise|Angle|Distance|Altitude", "G6|708291.3946|6512171.9054|739.6001"},
        {"open, by root", rapportDe<donneesPolygonaleOuverte>("polygonale-ouverte-altitudes.obs", 3),
         "Données|Fermeture angulaire|Comprensation des distances|Correction des altitudes|"
         "Correction proportionnelle aux racines distances|Résultats finaux :",
         "6,6,6,6 / 5,5,5,5,5,5,5,5,5 / 9,9,9,9,9,9,9,9,9 / 9,9,9,9,9,9,9,9,9 / 4,4,4,4,4,4,4", "|Station|X|Y|Z|Gis",
         "R6|658861.2500|6439150.6600|826.9480"},
    };
    for (const cas& c : lignes) {
        SCOPED_TRACE(c.nom);
        resultPolygo dialogue(c.rapport.toStdWString());
        auto* const vue = dialogue.findChild<QWebEngineView*>();
        ASSERT_NE(vue, nullptr) << "the web engine is there";
        // The viewer runs no scripts; the test does.
        vue->page()->settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, true);
        charger(*vue->page(), QUrl::fromLocalFile(c.rapport));
        const QJsonObject lu = interroger(*vue->page(), lectureRapport);
        EXPECT_EQ(texte(lu, "titre"), "Corrections de fermeture polygonale");
        EXPECT_EQ(texte(lu, "jeu"), "windows-1252");
        EXPECT_EQ(texte(lu, "grand"), "Corrections de fermeture polygonale");
        EXPECT_EQ(texte(lu, "titres"), c.titres);
        EXPECT_EQ(texte(lu, "tables"), c.tables);
        EXPECT_EQ(texte(lu, "enTetes"), c.enTetes);
        EXPECT_EQ(texte(lu, "taille"), "24px") << "18 points";
        EXPECT_EQ(texte(lu, "souligne"), "underline");
        EXPECT_TRUE(texte(lu, "police").starts_with("Arial")) << texte(lu, "police");
        EXPECT_EQ(texte(lu, "fond"), "rgb(239, 239, 239)");
        EXPECT_EQ(texte(lu, "bord"), "solid 1px rgb(0, 0, 0)");
        EXPECT_EQ(texte(lu, "marge"), "4px");
        EXPECT_FALSE(lu["deborde"].toBool()) << "no replacement characters";
        EXPECT_EQ(texte(lu, "dernier"), c.dernier);
    }
}

TEST_F(ResultPolygo, ShowsThePageAndTheRemarks)
{
    const QString rapport = rapportDe<donneesPolygonaleFermee>("polygonale-fermee-grades.obs", 0);
    resultPolygo dialogue(rapport.toStdWString(), {L"Première remarque.", L"Seconde remarque."});
    EXPECT_EQ(dialogue.windowTitle(), "Résultats des calculs");
    EXPECT_EQ(dialogue.findChild<QLabel*>("remarques")->text(), "Première remarque.\nSeconde remarque.");
    auto* const vue = dialogue.findChild<QWebEngineView*>("page");
    ASSERT_NE(vue, nullptr);
    EXPECT_FALSE(vue->page()->settings()->testAttribute(QWebEngineSettings::JavascriptEnabled));
    dialogue.show();
    charger(*vue->page(), QUrl::fromLocalFile(rapport));
    // The page is painted some time after it is loaded: black cell borders on white.
    int noirs = 0;
    for (int essai = 0; essai < 100 && noirs < 500; ++essai) {
        QEventLoop attente;
        QTimer::singleShot(100, &attente, &QEventLoop::quit);
        attente.exec();
        const QImage image = vue->grab().toImage();
        noirs = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                noirs += qGray(image.pixel(x, y)) < 40;
    }
    EXPECT_GE(noirs, 500);
}

TEST_F(ResultPolygo, SavesACopyAndAsksBeforeReplacing)
{
    const QString rapport = rapportDe<donneesPolygonaleFermee>("polygonale-fermee-grades.obs", 0);
    resultPolygo dialogue(rapport.toStdWString());
    EXPECT_FALSE(dialogue.findChild<QLabel*>("remarques")->isVisibleTo(&dialogue));
    const auto lire = [](const QString& nom) {
        QFile fichier(nom);
        return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
    };
    const auto sauver = [&](const QString& nom, const char* reponse) {
        QTimer::singleShot(0, qApp, [nom, reponse] {
            auto* const fichiers = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(fichiers, nullptr);
            fichiers->findChild<QLineEdit*>("fileNameEdit")->setText(nom);
            if (reponse)
                QTimer::singleShot(0, qApp, [reponse, fichiers] {
                    auto* const question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                    ASSERT_NE(question, nullptr);
                    question->button(QLatin1String(reponse) == "oui" ? QMessageBox::Yes : QMessageBox::No)->click();
                    if (QLatin1String(reponse) == "non")
                        QTimer::singleShot(0, fichiers, &QDialog::reject);
                });
            static_cast<QDialog*>(fichiers)->accept();
        });
        dialogue.findChild<QPushButton*>("boutonSauvegarder")->click();
    };
    const QString copie = dossier.filePath("copie.html");
    sauver(dossier.filePath("copie"), nullptr);
    EXPECT_EQ(lire(copie), lire(rapport)) << "with the extension";
    ASSERT_TRUE(QFile(copie).resize(3));
    sauver(copie, "non");
    EXPECT_EQ(QFile(copie).size(), 3) << "refused";
    sauver(copie, "oui");
    EXPECT_EQ(lire(copie), lire(rapport)) << "replaced";
    EXPECT_TRUE(QFile::exists(rapport));
}

TEST_F(ResultPolygo, AReportThatIsMissingShowsAnEmptyPage)
{
    resultPolygo dialogue(dossier.filePath("absent.html").toStdWString());
    dialogue.show();
    QTextBrowser* texte = nullptr;
    for (int essai = 0; essai < 300 && !texte; ++essai) {
        QEventLoop attente;
        QTimer::singleShot(100, &attente, &QEventLoop::quit);
        attente.exec();
        texte = dialogue.findChild<QTextBrowser*>("page");
    }
    ASSERT_NE(texte, nullptr);
    EXPECT_EQ(texte->toPlainText(), "");
}
