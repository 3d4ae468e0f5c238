#include <QDir>
#include <QEventLoop>
#include <QTimer>

#include "ed/input/CommandLine.h"
#include "ed/input/EditorInput.h"

#include "acdocman.h"
#include "Drawing.h"
#include "ScriptTest.h"

namespace {

/// A window: it types what it is given, then waits in an event loop for a person, until it is told that all is done.
class Window : public InputSource {
public:
    explicit Window(QStringList typed) : m_typed(std::move(typed)) {}
    InputAnswer answer(const InputRequest& request) override
    {
        InputAnswer answer;
        asked << QString::fromStdWString(request.prompt);
        if (!m_typed.isEmpty()) {
            answer.kind = InputAnswer::Kind::text;
            answer.text = m_typed.takeFirst().toStdWString();
        } else {
            QEventLoop loop;
            QTimer::singleShot(100, &loop, &QEventLoop::quit);
            loop.exec();
        }
        return answer;
    }
    void refused(const InputRequest&, const std::wstring&) override {}

    QStringList asked;

private:
    QStringList m_typed;
};

/// What a command that asks received, one after the other.
class CommandLineTest : public ScriptTest {
protected:
    CommandLineTest()
    {
        define([this] { ask(false); }, [this] { ask(true); });
    }
    void ask(bool takesBlanks)
    {
        for (;;) {
            InputRequest request;
            request.kind = InputRequest::Kind::string;
            request.prompt = L"Texte : ";
            request.takesBlanks = takesBlanks;
            const InputAnswer answer = EditorInput::instance().ask(request);
            const bool over = answer.kind != InputAnswer::Kind::text || answer.text.empty();
            const QString text = QString::fromStdWString(answer.text);
            received << (answer.kind == InputAnswer::Kind::cancel ? QStringLiteral("annulé") : text);
            if (text == u"non")
                EditorInput::instance().refuse(request, L"pas cela.");
            if (over)
                return;
        }
    }
    QStringList received;
};

} // namespace

TEST_F(CommandLineTest, GivesInputsAsTheyAreTyped)
{
    struct Row {
        const char* name;
        const char* script;
        QStringList received;
    };
    const Row rows[] = {
        {"a blank ends an input", "ESSAI a b\nc\n\n", {"a", "b", "c", ""}},
        {"a blank line is Enter", "ESSAI\n\n", {""}},
        {"each blank ends one, a last one too", "ESSAI a \n", {"a", ""}},
        {"two blanks hold Enter", "ESSAI a  \n", {"a", ""}},
        {"a text takes blanks", "ESSAI2 a b \n\n", {"a b", ""}},
        {"quotes keep blanks", "ESSAI \"a b\" c\n\n", {"\"a b\"", "c", ""}},
        {"AutoLISP answers", "ESSAI (strcat \"a\" \"b\") c\n\n", {"ab", "c", ""}},
        {"over several lines", "ESSAI\n(strcat \"a\"\n  \"b\")\n\n", {"ab", ""}},
        {"Escape", "ESSAI a\n*Cancel*\n", {"a", "annulé"}},
        {"checks between inputs", "ESSAI a\n? (+ 1 2) = 3\nb\n\n", {"a", "b", ""}},
        {"a lone question mark is an input", "ESSAI ?\n?\n\n", {"?", "?", ""}},
        {"comments and empty lines between commands", "\n; rien\n(+ 1 2) ; trois\n\nESSAI\n\n\n\n", {""}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        received.clear();
        EXPECT_EQ(run(row.script), "");
        EXPECT_EQ(received, row.received) << received.join('|').toStdString();
    }
}

TEST_F(CommandLineTest, StopsAtTheLineThatFails)
{
    struct Row {
        const char* name;
        const char* script;
        const char* failure;
    };
    constexpr Row rows[] = {
        {"check without a value", "? entités LINE",
         "essai.scr, ligne 1 : « ? entités LINE » n'est pas un contrôle : « ? sujet = valeur » est attendu."},
        {"unknown command", "; a\n\nPAS_CA\n(setq suite 1)", "essai.scr, ligne 3 : Commande inconnue : « PAS_CA »."},
        {"AutoLISP", "(car 5)\n(setq suite 1)",
         "essai.scr, ligne 1 : argument de type incorrect : listp: 5, dans (CAR 5)"},
        {"refused input", "ESSAI a\nnon\nb\n\n(setq suite 1)",
         "essai.scr, ligne 2 : « non » est refusé (Texte :) : pas cela."},
        {"a check", "? (+ 1 2) = 4\n(setq suite 1)", "essai.scr, ligne 1 : (+ 1 2) vaut « 3 » (attendu « 4 »)."},
        {"a check while a command asks", "ESSAI a\n? (+ 1 2) = 4\nb\n\n(setq suite 1)",
         "essai.scr, ligne 2 : (+ 1 2) vaut « 3 » (attendu « 4 »)."},
        {"an unknown subject", "? Numéro = 4",
         "essai.scr, ligne 1 : « Numéro » ne se contrôle pas ici : aucun dialogue n'est ouvert."},
        {"a button without a dialog", "[Fermer]",
         "essai.scr, ligne 1 : « [Fermer] » s'adresse à un dialogue, et aucun n'est ouvert."},
        {"nothing left to answer", "ESSAI a\n; fin",
         "essai.scr, ligne 1 : le script se termine alors qu'une réponse est attendue : « Texte : »."},
        {"no layer", "? entités calque ABSENT = 0", "essai.scr, ligne 1 : le dessin n'a pas de calque « ABSENT »."},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(run("(setq suite 0)"), "");
        EXPECT_EQ(run(row.script), row.failure);
        EXPECT_EQ(run("? (eval suite) = 0"), "") << "the next line was run";
    }
}

TEST_F(CommandLineTest, StopsAfterTheLineThatIsInterrupted)
{
    bool asked = false;
    options.interrupted = [&] { return asked; };
    define([&] { asked = true; }, [] { FAIL() << "a command after it"; });
    EXPECT_EQ(run("ESSAI3\nESSAI\nESSAI2\n"), "essai.scr, ligne 2 : le script est interrompu.");
}

TEST_F(CommandLineTest, ChecksTheDrawing)
{
    addLayer(*curDoc()->database(), L"Mes points");
    EXPECT_EQ(run("? entités = 0\n"
                  "(entmake '((0 . \"POINT\") (8 . \"Mes points\") (10 1.0 2.0 3.0)))\n"
                  "(entmake '((0 . \"POINT\") (10 1.0 2.0 3.0)))\n"
                  "(entmake '((0 . \"LINE\") (8 . \"Mes points\") (10 1.0 2.0 3.0) (11 4.0 2.0 3.0)))\n"
                  "? entités = 3\n? entités POINT = 2\n? entités point calque Mes points = 1\n"
                  "? entités calque mes points = 2\n? entités INSERT = 0\n"
                  "? (cdr (assoc 10 (entget (entlast)))) = (1 2 3) ± 1e-9\n"
                  "(progn (princ \"\\nfini : 3 points\") (princ))\n"
                  "? dernier = fini : 3 points\n? dernier contient 3"),
              "");
    write("rapport.txt", "Fermeture : 0.012\n");
    EXPECT_EQ(run("? fichier rapport.txt contient \"0.012\"\n? existe rapport.txt = oui\n? existe absent.txt = non"),
              "");
}

TEST_F(CommandLineTest, EchoesWhenAsked)
{
    run("ESSAI a\n\n");
    EXPECT_FALSE(printed.contains("Texte : a"));
    options.echo = true;
    run("ESSAI a\n\n");
    EXPECT_TRUE(printed.contains("Texte : a")) << printed.join('|').toStdString();
}

TEST_F(CommandLineTest, CallsOtherScripts)
{
    QDir().mkdir(path("dossier"));
    write("dossier/dedans.scr", "ESSAI b\n");
    write("dossier/dehors.scr", "SCRIPT dedans.scr\n\nESSAI c\n\n");
    EXPECT_EQ(run("ESSAI a\n\nSCRIPT dossier/dehors.scr\n(setq suite 2)"), "");
    EXPECT_EQ(received, (QStringList{"a", "", "b", "", "c", ""}))
        << "the inner one left its input open to the outer one";
    EXPECT_EQ(run("? (eval suite) = 2"), "");

    write("faux.scr", "; rien\n\nPAS_CA\n");
    EXPECT_EQ(run("\nSCRIPT faux.scr\n"), "faux.scr, ligne 3 : Commande inconnue : « PAS_CA ».");
    EXPECT_TRUE(run("SCRIPT essai.scr\n").contains("plus de 100 scripts s'appellent l'un l'autre"));
    EXPECT_TRUE(run("SCRIPT absent.scr\n").contains("absent.scr : lecture impossible du fichier"));
}

TEST_F(CommandLineTest, RunsInAWindowOnceItsCommandLineIsFree)
{
    write("levé.scr", "ESSAI a\nb\n\n(setq suite 1)\n");
    write("faux.scr", "PAS_CA\n");
    options.interactive = true;
    const ScriptCommand command(options);
    Window window({"SCRIPT", "levé.scr"});
    const EditorInput::Source source(window);
    while (CommandLine::instance().runNext()) {
    }
    EXPECT_EQ(received, (QStringList{"a", "b", ""}));
    EXPECT_EQ(window.asked.last(), "Commande : ") << "the script left nothing to the person";

    Window other({"SCRIPT", "faux.scr"});
    const EditorInput::Source above(other);
    while (CommandLine::instance().runNext()) {
    }
    const QStringList told = printed.filter("faux.scr, ligne 1 : Commande inconnue : « PAS_CA ».");
    EXPECT_EQ(told.size(), 1) << printed.join('|').toStdString();

    // What a script does not answer is for the person.
    write("moitié.scr", "ESSAI a\n");
    Window person({"SCRIPT", "moitié.scr"});
    const EditorInput::Source top(person);
    received.clear();
    while (CommandLine::instance().runNext()) {
    }
    EXPECT_EQ(received, (QStringList{"a", "annulé"}));
    EXPECT_TRUE(person.asked.contains("Texte : "));
}

TEST_F(CommandLineTest, StopsWhereAutoLispGivesNoAnswer)
{
    EXPECT_EQ(run("ESSAI a\n(car nil)\nb\n\n"),
              "essai.scr, ligne 2 : « (car nil) » est refusé (Texte :) : L'expression ne donne pas de réponse.");
    EXPECT_EQ(received, (QStringList{"a", "annulé"}));
    define([] {
        InputRequest request;
        request.kind = InputRequest::Kind::point;
        request.prompt = L"Point : ";
        EditorInput::instance().ask(request);
    });
    EXPECT_TRUE(run("ESSAI 'PAS_CA\n0,0").startsWith("essai.scr, ligne 1 : « 'PAS_CA » est refusé (Point :)"));
}
