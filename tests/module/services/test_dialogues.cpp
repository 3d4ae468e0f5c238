#include <functional>
#include <QAbstractButton>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <stdexcept>
#include <thread>

#include <gtest/gtest.h>
#include <unistd.h>

#include "rx/Console.h"
#include "services/dialogueFichier.h"
#include "services/dialogueMessage.h"
#include "services/dialogueModule.h"
#include "services/dialogueProgression.h"
#include "ui/application/VelaApplication.h"

#include "ui_DlgEssai.h"

namespace {

struct DlgEssai : dialogueModule, Ui::DlgEssai {
    DlgEssai()
    {
        setupUi(this);
        connect(boutonFermer, &QPushButton::clicked, this, &QDialog::accept);
    }
};

class DialoguesTest : public testing::Test {
protected:
    /// Runs something once the dialog that the test shows next waits.
    static void ensuite(std::function<void()> tache) { QTimer::singleShot(0, qApp, std::move(tache)); }
    static void presser(const QString& libelle)
    {
        const QWidget* const dialogue = QApplication::activeModalWidget();
        ASSERT_NE(dialogue, nullptr);
        for (QAbstractButton* const bouton : dialogue->findChildren<QAbstractButton*>())
            if (bouton->text().remove(u'&') == libelle)
                return bouton->click();
        FAIL() << "no button " << libelle.toStdString();
    }

    std::unique_ptr<VelaApplication> application = VelaApplication::make(VelaApplication::Screen::none);
};

} // namespace

TEST(SansFenetres, MessagesGoToTheCommandLine)
{
    std::wstring imprime;
    Console::instance().setSink([&](const std::wstring& texte) { imprime += texte; });
    afficherErreur(L"Erreur", L"Ouverture impossible du fichier");
    EXPECT_EQ(imprime, L"\nErreur : Ouverture impossible du fichier");
    EXPECT_FALSE(demanderOuiNon(L"Q", L"?"));
    EXPECT_FALSE(demanderConfirmation(L"Q", L"?"));
    EXPECT_EQ(demanderOuiNonAnnuler(L"Q", L"?"), reponseQuestion::annuler);
    imprime.clear();
    EXPECT_FALSE(dialoguesPossibles());
    EXPECT_EQ(demanderFichierALire({}), std::nullopt);
    EXPECT_NE(imprime.find(L"Cette commande ouvre une boîte de dialogue"), std::wstring::npos);
    Console::instance().setSink({});
}

TEST_F(DialoguesTest, StepAsideForAPickAndComeBack)
{
    DlgEssai dessous;
    dessous.move(40, 30);
    int vus = 0;
    const auto prelever = [&](DlgEssai& dialogue) {
        const QPoint place = dialogue.pos();
        dialogue.editNumero->setFocus();
        const int valeur = dialogueModule::saisirDansDessin([&] {
            EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "the drawing can be reached";
            EXPECT_FALSE(dialogue.isVisible() || dessous.isVisible());
            return ++vus;
        });
        EXPECT_EQ(valeur, vus);
        EXPECT_TRUE(dialogue.isVisible() && dessous.isVisible());
        EXPECT_EQ(QApplication::activeModalWidget(), &dialogue);
        EXPECT_EQ(dialogue.pos(), place);
        EXPECT_EQ(dialogue.focusWidget(), dialogue.editNumero);
    };
    ensuite([&] {
        DlgEssai dessus;
        ensuite([&] {
            prelever(dessus);
            EXPECT_THROW(dialogueModule::saisirDansDessin([]() -> int { throw std::runtime_error("annulé"); }),
                         std::runtime_error);
            EXPECT_EQ(QApplication::activeModalWidget(), &dessus) << "back after an exception";
            presser("Fermer");
        });
        EXPECT_EQ(dessus.exec(), QDialog::Accepted);
        EXPECT_EQ(dessus.parentWidget(), &dessous);
        prelever(dessous);
        presser("Fermer");
    });
    EXPECT_EQ(dessous.exec(), QDialog::Accepted) << "hiding did not end exec";
    EXPECT_EQ(vus, 2);
}

TEST_F(DialoguesTest, QuestionsAreAnsweredByCaption)
{
    struct cas {
        const char* bouton; // null: Escape
        reponseQuestion attendue;
    };
    for (const cas& c : {cas{"Oui", reponseQuestion::oui}, cas{"Non", reponseQuestion::non},
                         cas{"Annuler", reponseQuestion::annuler}, cas{nullptr, reponseQuestion::annuler}}) {
        ensuite([&] {
            auto* const boite = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(boite, nullptr);
            EXPECT_EQ(boite->text(), "Enregistrer <a.dxf> ?");
            EXPECT_EQ(boite->windowTitle(), "Vela");
            c.bouton ? presser(c.bouton) : boite->reject();
        });
        EXPECT_EQ(demanderOuiNonAnnuler(L"Vela", L"Enregistrer <a.dxf> ?"), c.attendue);
    }
    ensuite([] { presser("Oui"); });
    EXPECT_TRUE(demanderOuiNon(L"Vela", L"?"));
    ensuite([] { presser("Annuler"); });
    EXPECT_FALSE(demanderConfirmation(L"Vela", L"?"));
    ensuite([] { presser("OK"); });
    afficherMessage(L"Vela", L"Fini");
}

TEST_F(DialoguesTest, FileDialogsTakeANameAndItsExtension)
{
    QTemporaryDir dossier;
    const QString existant = dossier.filePath("là.xyz");
    ASSERT_TRUE(QFile(existant).open(QIODevice::WriteOnly));
    const demandeFichier demande{L"Points", L"Fichier (.xyz)|*.xyz|Page HTML|*.htm; *.html|Tous (*.*)|*.*||", L"XYZ",
                                 dossier.path().toStdWString()};
    struct cas {
        const char* nom;
        bool ecrire;
        int filtre;
        QString saisi;
        QString obtenu;
    };
    for (const cas& c : {cas{"an existing file", false, 0, existant, existant},
                         cas{"a new file, its extension added", true, 0, "neuf", dossier.filePath("neuf.xyz")},
                         cas{"the extension of the filter", true, 1, "page", dossier.filePath("page.htm")},
                         cas{"that of the request for all files", true, 2, "tout", dossier.filePath("tout.XYZ")},
                         cas{"an extension typed stays", true, 0, "a.txt", dossier.filePath("a.txt")}}) {
        SCOPED_TRACE(c.nom);
        ensuite([&] {
            auto* const dialogue = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialogue, nullptr);
            EXPECT_EQ(dialogue->windowTitle(), "Points");
            EXPECT_EQ(dialogue->directory().canonicalPath(), QDir(dossier.path()).canonicalPath());
            dialogue->selectNameFilter(dialogue->nameFilters()[c.filtre]);
            emit dialogue->filterSelected(dialogue->selectedNameFilter());
            dialogue->findChild<QLineEdit*>("fileNameEdit")->setText(c.saisi);
            presser(c.ecrire ? "Enregistrer" : "Ouvrir");
        });
        const auto fichier = c.ecrire ? demanderFichierAEcrire(demande) : demanderFichierALire(demande);
        ASSERT_TRUE(fichier.has_value());
        EXPECT_EQ(*fichier, c.obtenu.toStdWString());
    }
    ensuite([] { presser("Annuler"); });
    EXPECT_EQ(demanderFichierALire(demande), std::nullopt);
}

TEST_F(DialoguesTest, ALongRunShowsItselfSoonAndStops)
{
    using namespace std::chrono_literals;
    constexpr int etapes = 2000;
    dialogueProgression avancement(L"Placement", etapes, dialogueProgression::arret::permis);
    int faites = 0;
    for (; faites < etapes && avancement.avancer(); ++faites) {
        std::this_thread::sleep_for(1ms);
        if (auto* const montre = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget()))
            montre->findChild<QPushButton*>()->click();
    }
    EXPECT_LT(faites, etapes / 2) << "not Qt's own four seconds";
}
