#include <QFile>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QTimer>

#include "rx/Console.h"

#include "SampleDialog.h"
#include "ScriptTest.h"

namespace {

class DialogTest : public ScriptTest {
protected:
    /// Shows a sample dialog as the command ESSAI, prepared by `prepare`, looked at by `look` when it is closed.
    void show(std::function<void(SampleDialog&)> prepare, std::function<void(SampleDialog&)> look)
    {
        define([=] {
            SampleDialog dialog;
            prepare(dialog);
            dialog.exec();
            look(dialog);
        });
    }
    QString runIn(const QString& lines)
    {
        show([](SampleDialog&) {}, [](SampleDialog&) {});
        return run("ESSAI\n" + lines + "\n[Fermer]");
    }
};

} // namespace

TEST_F(DialogTest, FillFieldsByTheirLabels)
{
    int edited = 0;
    int finished = 0;
    show(
        [&](SampleDialog& d) {
            QObject::connect(d.number, &QLineEdit::textEdited, [&] { ++edited; });
            QObject::connect(d.number, &QLineEdit::editingFinished, [&] { ++finished; });
        },
        [&](SampleDialog& d) {
            EXPECT_EQ(d.number->text(), "S 1");
            EXPECT_EQ(edited, 1);
            EXPECT_EQ(finished, 1);
            EXPECT_EQ(d.distance->value(), 12.5);
            EXPECT_EQ(d.decimals->value(), 3);
            EXPECT_EQ(d.angles->currentText(), "radians");
            EXPECT_EQ(d.code->currentText(), "150");
            EXPECT_TRUE(d.altitudes->isChecked());
            EXPECT_EQ(d.comment->toPlainText(), "a\nb");
            EXPECT_EQ(d.startX->text(), "1");
            EXPECT_EQ(d.endX->text(), "2");
            EXPECT_TRUE(d.all->isChecked());
            EXPECT_EQ(d.detail->text(), "borne");
            EXPECT_EQ(d.beside->text(), "gauche");
            EXPECT_EQ(d.below->text(), "dessous");
        });
    EXPECT_EQ(run("ESSAI\n"
                  "  Numéro = S 1\n? Numéro = S 1\n? editNumero = S 1\n"
                  "  Distance = 12.5\n? Distance = 12.500\n"
                  "  Décimales = 3\n? Décimales = 3\n"
                  "  Angles = degrés\n? Angles = degrés\n  Angles = 3\n? Angles = radians\n"
                  "? choix Angles = grades | degrés | radians\n"
                  "  Code = 200\n  Code = 150\n? Code = 150\n"
                  "? Placer les altitudes = non\n  Placer les altitudes = oui\n? Placer les altitudes = oui\n"
                  "  Commentaire = \"a\\nb\"\n? Commentaire = \"a\\nb\"\n"
                  "  Départ/X = 1\n  editArriveeX = 2\n? Arrivée/X = 2\n"
                  "? Groupement = Ne pas grouper\n  Tout grouper = oui\n? Groupement = Tout grouper\n"
                  "  Groupement = Ne pas grouper\n? Tout grouper = non\n  Groupement = Tout grouper\n"
                  "  À gauche = gauche\n  Au-dessus = dessous\n"
                  "? Fermeture = 12.5\n"
                  "? onglet = Général\n  onglet: Détail\n? onglet = Détail\n  Repère = borne\n"
                  "? titre = Saisie d'essai\n"
                  "? actif [Calculer !] = oui\n? actif [Grisé] = non\n? actif Repère = oui\n"
                  "  [Fermer]\n"),
              "");
}

TEST_F(DialogTest, SayWhatIsWrong)
{
    struct Row {
        const char* line;
        const char* failure;
    };
    constexpr Row rows[] = {
        {"? Numéro = S1", "Numéro vaut «  » (attendu « S1 »)."},
        {"Fixe = 1", "champ « Fixe » : le champ ne se modifie pas."},
        {"Borné = 12a", "champ « Borné » : la valeur « 12a » est refusée : le champ vaut «  »."},
        {"Décimales = 7", "champ « Décimales » : la valeur « 7 » est refusée : le champ vaut « 0 »."},
        {"Angles = minutes",
         "champ « Angles » : « minutes » n'est pas un choix de la liste : grades | degrés | radians."},
        {"Angles = 4", "champ « Angles » : « 4 » n'est pas un choix de la liste : grades | degrés | radians."},
        {"Placer les altitudes = peut-être",
         "champ « Placer les altitudes » : « peut-être » : « oui » ou « non » est attendu."},
        {"Ne pas grouper = non",
         "champ « Ne pas grouper » : un choix s'enlève en choisissant un autre du même groupe."},
        {"Groupement = Autre",
         "champ « Groupement » : « Autre » n'est pas un choix du groupe : Ne pas grouper | Tout grouper."},
        {"X = 1", "plusieurs champs s'appellent « X » : Départ/X (editDepartX), Arrivée/X (editArriveeX)."},
        {"[Grisé]", "le bouton « Grisé » est grisé."},
        {"onglet: Absent", "le dialogue n'a pas d'onglet « Absent ». Ses onglets : Général, Détail."},
        {"liste: tout", "le dialogue « Saisie d'essai » n'a pas de liste."},
        {"[Fermer", "il manque le « ] » derrière le nom du bouton."},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.line);
        EXPECT_EQ(runIn(row.line), QStringLiteral("essai.scr, ligne 2 : ") + row.failure);
        EXPECT_EQ(DialogPump::dialogOnTop(), nullptr) << "the dialog was closed";
    }
    struct Part {
        const char* line;
        QStringList parts;
    };
    const Part parts[] = {
        {"Numero = 1", {"n'a pas de champ « Numero »", "Ses champs : ", "Numéro", "Départ/X", "Au-dessus"}},
        {"Repère = 1", {"n'a pas de champ « Repère »"}}, // on the other tab
        {"[Placer]", {"n'a pas de bouton « Placer »", "[Calculer !]", "[Fermer]"}},
        {"QSAVE", {"« QSAVE » ne dit rien au dialogue « Saisie d'essai », qui est ouvert", "Ses boutons : "}},
        {"? Numero = 1", {"« Numero » ne se contrôle pas dans le dialogue « Saisie d'essai »", "Numéro"}},
        {"? actif Numero = oui", {"n'a pas de champ « Numero »"}},
        {"? actif [Absent] = non", {"n'a pas de bouton « Absent »", "[Grisé]"}},
    };
    for (const Part& row : parts) {
        const QString failure = runIn(row.line);
        for (const QString& part : row.parts)
            EXPECT_TRUE(failure.contains(part)) << failure.toStdString() << " lacks " << part.toStdString();
    }
}

TEST_F(DialogTest, ChooseOpenAndSortRows)
{
    QStringList events;
    QString selection;
    define([&] {
        TableDialog dialog;
        dialog.exec();
        events = dialog.events;
    });
    EXPECT_EQ(run("ESSAI\n"
                  "? lignes = 4\n? lignes Observations = 4\n? titres = Station | Angle | Code\n"
                  "? liste 2,1 = S2\n? liste 2,Angle = 101.5\n? 2,1 = S2\n? Observations 4,Station = S4\n"
                  "? liste 1,3 = non\n? liste 2,3 = oui\n"
                  "liste: sélection 1,3-4\n? sélection = 1,3-4\n"
                  "liste: tout\n? sélection = 1-4\nliste: rien\n? sélection =\n"
                  "liste: ouvrir 2\nObservations: ouvrir 3,Angle\nliste: titre Code\nliste: titre 1\n"
                  "liste 3,Angle = 77\n? liste 3,2 = 77\n"
                  "[Fermer]"),
              "");
    EXPECT_EQ(events,
              (QStringList{"clic 1,1", "clic 2,1", "ouvert 2,1", "clic 3,2", "ouvert 3,2", "titre 3", "titre 1"}))
        << events.join('|').toStdString();

    struct Row {
        const char* line;
        const char* failure;
    };
    constexpr Row rows[] = {
        {"? liste 2,1 = S1", "liste 2,1 vaut « S2 » (attendu « S1 »)."},
        {"? liste 5,1 = S1", "la ligne « 5 » n'existe pas : la liste en a 4."},
        {"? liste 1,Distance = 3", "la colonne « Distance » n'existe pas : Station | Angle | Code."},
        {"? lignes Absente = 1",
         "le dialogue « Table d'essai » n'a pas de liste « Absente ». Ses listes : liste, Observations ou "
         "tableObservations."},
        {"liste: sélection 3-1", "la ligne « 3-1 » n'existe pas : la liste en a 4."},
        {"liste: sélection 0", "la ligne « 0 » n'existe pas : la liste en a 4."},
        {"liste: trier", "« trier » ne se fait pas sur une liste : sélection 1,3-5 ; tout ; rien ; ouvrir 2 ; titre "
                         "Code ; cocher 1 ; décocher 1."},
        {"liste 1,1 = x", "la cellule 1,1 ne se modifie pas."},
        {"liste: cocher 1", "la ligne 1 n'a pas de case à cocher."},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.line);
        EXPECT_EQ(run(QStringLiteral("ESSAI\n%1\n[Fermer]").arg(row.line)),
                  QStringLiteral("essai.scr, ligne 2 : ") + row.failure);
    }
}

TEST_F(DialogTest, TellListsApart)
{
    define([&] {
        TableDialog dialog;
        dialog.showFiles();
        dialog.exec();
    });
    EXPECT_EQ(run("ESSAI\n? lignes listeFichiers = 2\nlisteFichiers: sélection 2\n? sélection listeFichiers = 2\n"
                  "? listeFichiers 2,1 = b.obs\n? lignes Observations = 4\n[Fermer]"),
              "");
    EXPECT_EQ(run("ESSAI\nliste: tout\n[Fermer]"),
              "essai.scr, ligne 2 : plusieurs listes peuvent être « liste ». Ses listes : Observations ou "
              "tableObservations, listeFichiers.");
    EXPECT_EQ(run("ESSAI\nlisteFichiers: sélection 1-2\n[Fermer]"),
              "essai.scr, ligne 2 : la liste ne prend qu'une ligne à la fois.");
}

TEST_F(DialogTest, AnswerMessageBoxes)
{
    QMessageBox::StandardButton answer = QMessageBox::NoButton;
    define([&] { answer = QMessageBox::question(nullptr, "Vela", "Remplacer le point 12 ?"); });
    EXPECT_EQ(run("ESSAI\n? message = \"Remplacer le point 12 ?\"\n? titre = Vela\n[Oui]\n"
                  "? message = \"Remplacer le point 12 ?\"\n"),
              "");
    EXPECT_EQ(answer, QMessageBox::Yes);
    EXPECT_EQ(run("ESSAI\n[Non]"), "");
    EXPECT_EQ(answer, QMessageBox::No);
    EXPECT_EQ(run("ESSAI\n? message = autre\n[Non]"),
              "essai.scr, ligne 2 : message vaut « Remplacer le point 12 ? » (attendu « autre »).");
}

TEST_F(DialogTest, RunInsideEachOther)
{
    QStringList story;
    define([&] {
        SampleDialog outer;
        QObject::connect(outer.compute, &QPushButton::clicked, [&] {
            SampleDialog inner;
            inner.setWindowTitle("Dedans");
            inner.exec();
            outer.number->setText(inner.number->text() + u'!');
            QMessageBox::information(&outer, "Calculs", "Fini");
            story << "calculé";
        });
        outer.exec();
        story << outer.number->text();
    });
    // What stands behind the closing of a dialog has run when the next line speaks.
    EXPECT_EQ(run("ESSAI\n[Calculer !]\n? titre = Dedans\nNuméro = S1\n[Fermer]\n? message = Fini\n[OK]\n"
                  "? titre = Saisie d'essai\n? Numéro = S1!\n[Fermer]\n(setq suite 1)"),
              "");
    EXPECT_EQ(story, (QStringList{"calculé", "S1!"}));

    EXPECT_EQ(run("ESSAI\n[Calculer !]\nNumero = S1\n"), run("ESSAI\n[Calculer !]\nNumero = S1\n"));
    EXPECT_EQ(DialogPump::dialogOnTop(), nullptr) << "both are closed, and the message box behind them";
    EXPECT_TRUE(run("ESSAI\n[Calculer !]\n")
                    .contains("ligne 2 : le script se termine alors que le dialogue « Dedans » est ouvert."));
}

TEST_F(DialogTest, AnswerFileDialogs)
{
    QString chosen;
    const auto ask = [&](QFileDialog::AcceptMode mode) {
        QFileDialog files(nullptr, "Fichier", QString(), "Observations (*.obs)");
        files.setOption(QFileDialog::DontUseNativeDialog);
        files.setAcceptMode(mode);
        files.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
        files.setDefaultSuffix("obs");
        chosen = files.exec() == QDialog::Accepted ? files.selectedFiles().value(0) : QStringLiteral("annulé");
    };
    const auto dialogThatAsks = [&](QFileDialog::AcceptMode mode) {
        return [&, mode] {
            SampleDialog dialog;
            QObject::connect(dialog.compute, &QPushButton::clicked, [&, mode] { ask(mode); });
            dialog.exec();
        };
    };
    define(dialogThatAsks(QFileDialog::AcceptOpen), dialogThatAsks(QFileDialog::AcceptSave));
    write("là.obs", "");
    EXPECT_EQ(run("ESSAI\n[Calculer !] là.obs\n[Fermer]"), "");
    EXPECT_EQ(chosen, path("là.obs"));
    EXPECT_EQ(run("ESSAI\n[Calculer !]\n\"là.obs\"\n[Fermer]"), "");
    EXPECT_EQ(chosen, path("là.obs"));
    EXPECT_EQ(run("ESSAI\n[Calculer !] absent.obs\n[Fermer]"),
              "essai.scr, ligne 2 : absent.obs : fichier introuvable.");
    EXPECT_EQ(run("ESSAI\n[Calculer !]\n[Annuler]\n[Fermer]"), "");
    EXPECT_EQ(chosen, "annulé");
    EXPECT_EQ(run("ESSAI2\n[Calculer !] neuf\n[Fermer]"), "");
    EXPECT_EQ(chosen, path("neuf.obs"));
    EXPECT_EQ(run("ESSAI2\n[Calculer !] là.obs\n? message contient là.obs\n[Oui]\n[Fermer]"), "");
    EXPECT_EQ(chosen, path("là.obs")) << "replaced once agreed";
}

TEST_F(DialogTest, ChooseInMenus)
{
    QString chosen;
    define([&] {
        SampleDialog dialog;
        QObject::connect(dialog.compute, &QPushButton::clicked, [&] {
            QMenu menu;
            menu.addAction("&Tous");
            menu.addAction("Aucun")->setEnabled(false);
            if (const QAction* const action = menu.exec(QPoint(10, 10)))
                chosen = action->text();
        });
        dialog.exec();
    });
    EXPECT_EQ(run("ESSAI\n[Calculer !] [Tous]\n[Fermer]"), "");
    EXPECT_EQ(chosen, "&Tous");
    EXPECT_EQ(run("ESSAI\n[Calculer !]\n[Autre]"),
              "essai.scr, ligne 3 : le menu n'a pas de choix « Autre » : Tous | Aucun.");
    EXPECT_EQ(run("ESSAI\n[Calculer !]\n[Aucun]"), "essai.scr, ligne 3 : le choix « Aucun » du menu est grisé.");
}

TEST_F(DialogTest, NeverWaitForEver)
{
    // A dialog that refuses to be closed, and one that comes back.
    struct Stubborn : QDialog {
        void reject() override {}
    };
    define([] { Stubborn().exec(); });
    EXPECT_TRUE(run("ESSAI\n").contains("le script se termine alors que le dialogue"));
    int shown = 0;
    define([&] {
        while (QMessageBox(QMessageBox::Warning, "Vela", "Encore", QMessageBox::Ok).exec() != QMessageBox::Ok &&
               shown < 500)
            ++shown;
    });
    QString given;
    options.giveUp = [&](const QString& failure) {
        given = failure;
        shown = 500; // a program would end here
    };
    run("ESSAI\n");
    EXPECT_TRUE(given.contains("le dialogue « Vela » est ouvert")) << given.toStdString();
}

TEST_F(DialogTest, OpenedWithoutALoopOfTheirOwnAreServed)
{
    std::unique_ptr<SampleDialog> dialog;
    define([&] {
        dialog = std::make_unique<SampleDialog>();
        dialog->open();
    });
    EXPECT_EQ(run("ESSAI\nNuméro = S1\n[Fermer]\n(+ 1 2)"), "");
    EXPECT_EQ(dialog->number->text(), "S1");
}

TEST_F(DialogTest, ALoopThatWaitsForNothingIsEnded)
{
    define([] { QEventLoop().exec(); });
    options.patience = std::chrono::milliseconds(50);
    EXPECT_EQ(run("ESSAI\n"), "essai.scr, ligne 1 : le programme attend depuis 0.05 s un événement qui ne vient pas, "
                              "sans dialogue ouvert.");
    QTimer::singleShot(0, qApp, &QCoreApplication::quit); // a loop that was told to end all ends the later ones
    QCoreApplication::exec();
    options.patience = std::chrono::seconds(30);
    define([] { // one that ends by itself in time is none of the script's business
        QEventLoop loop;
        QTimer::singleShot(20, &loop, &QEventLoop::quit);
        loop.exec();
    });
    EXPECT_EQ(run("ESSAI\n(+ 1 2)"), "");
}

TEST_F(DialogTest, ErrorsOfHandlersAreTold)
{
    show(
        [](SampleDialog& d) {
            // Not the click of a button: Qt does not free its own guard of the button when it is left that way.
            QObject::connect(d.angles, &QComboBox::activated, [] { throw std::runtime_error("perdu"); });
        },
        [](SampleDialog&) {});
    const QString failure = run("ESSAI\nAngles = degrés\n[Fermer]");
    EXPECT_TRUE(failure.contains("perdu")) << failure.toStdString();
}
