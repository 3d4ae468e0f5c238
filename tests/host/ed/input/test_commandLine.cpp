// What is typed where nothing asks, and commands that code runs.

#include "ed/input/CommandLine.h"
#include "ed/input/Fiber.h"
#include "ed/input/PendingCommands.h"
#include "lisp/drawing/LispSession.h"
#include "platform/CodePage.h"
#include "rx/Console.h"

#include "accmd.h"
#include "aced.h"
#include "acedCmdNF.h"
#include "Drawing.h"
#include "InputTest.h"

using platform::utf8FromWide;

namespace {

/// What the commands below were given.
std::wstring told;
std::wstring taken()
{
    return std::exchange(told, {});
}

/// Asks for points until Enter, as commands that draw do.
void traceCommand()
{
    told += L"[";
    for (ads_point point; acedGetPoint(nullptr, L"Point suivant : ", point) == RTNORM;)
        told += std::to_wstring(static_cast<int>(point[0])) + L" ";
    told += L"]";
}
/// Asks for a name and a number; tells how it ended.
void nameCommand()
{
    ACHAR name[133] = L"";
    int number = 0;
    const int named = acedGetString(0, L"Nom : ", name);
    const int numbered = named == RTNORM ? acedGetInt(L"Nombre : ", &number) : named;
    told += named == RTCAN || numbered == RTCAN ? L"annulé;" : std::wstring(name) + std::to_wstring(number) + L";";
}
void lookCommand()
{
    told += L"(look)";
}
/// Runs another command from its own code.
void outerCommand()
{
    told += std::to_wstring(acedCommandS(RTSTR, L"ESSAI_NOM", RTSTR, L"a", RTSHORT, 5, 0)) + L";";
}
void countCommand()
{
    ads_name set;
    if (acedSSGet(nullptr, nullptr, nullptr, nullptr, set) != RTNORM)
        return;
    Adesk::Int32 length = 0;
    acedSSLength(set, &length);
    told += std::to_wstring(length) + L" objets;";
    acedSSFree(set);
}

class CommandLineTest : public InputTest {
protected:
    CommandLineTest()
    {
        told.clear();
        acedRegCmds->addCommand(L"ESSAIS", L"ESSAI_TRACE", L"ESSAI_TRACE", ACRX_CMD_MODAL, traceCommand);
        acedRegCmds->addCommand(L"ESSAIS", L"TEST_NAME", L"ESSAI_NOM", ACRX_CMD_MODAL, nameCommand);
        acedRegCmds->addCommand(L"ESSAIS", L"ESSAI_VOIR", L"ESSAI_VOIR", ACRX_CMD_TRANSPARENT, lookCommand);
        acedRegCmds->addCommand(L"ESSAIS", L"ESSAI_DEHORS", L"ESSAI_DEHORS", ACRX_CMD_MODAL, outerCommand);
        acedRegCmds->addCommand(L"ESSAIS", L"ESSAI_COMPTE", L"ESSAI_COMPTE", ACRX_CMD_MODAL | ACRX_CMD_USEPICKSET,
                                countCommand);
    }
    ~CommandLineTest() override { acedRegCmds->removeGroup(L"ESSAIS"); }

    static std::string run(const wchar_t* typed)
    {
        return utf8FromWide(CommandLine::instance().execute(typed).failure);
    }
    /// The value of an expression, or what went wrong.
    static std::string lisp(const char* text)
    {
        const auto [shown, outcome] = LispSession::of(*curDoc()).evaluate(platform::wideFromUtf8(text));
        return utf8FromWide(outcome.failed ? outcome.message : shown);
    }
};

TEST_F(CommandLineTest, readsCommandsExpressionsAndSymbols)
{
    answers.give({L"a", L"1", L"b", L"2"});
    EXPECT_EQ(run(L" essai_nom "), "");
    EXPECT_EQ(run(L""), "") << "repeats";
    EXPECT_EQ(told, L"a1;b2;");
    EXPECT_EQ(run(L"_test_name"), "");
    EXPECT_EQ(told, L"a1;b2;annulé;") << "nobody answers any more";
    EXPECT_EQ(run(L"(setq x (+ 1 2))"), "");
    EXPECT_EQ(Console::instance().lastLine(), L"3");
    EXPECT_EQ(run(L"!x"), "");
    EXPECT_EQ(Console::instance().lastLine(), L"3");
    EXPECT_TRUE(run(L"(+ 1 \"a\")").starts_with("argument de type incorrect : numberp: \"a\""));
    EXPECT_EQ(run(L"INCONNUE"), "Commande inconnue : « INCONNUE ».");
    EXPECT_EQ(CommandLine::instance().lastCommand(), L"_test_name");
    EXPECT_EQ(run(L"-ESSAI_VOIR"), "") << "the form without a dialog is the same here";
    EXPECT_EQ(run(L"_-essai_voir"), "");
    EXPECT_EQ(CommandLine::instance().lastCommand(), L"_-essai_voir");
}

TEST_F(CommandLineTest, asksTheSourceOnTop)
{
    answers.give({L"essai_voir", L"<Esc>"});
    EXPECT_TRUE(CommandLine::instance().runNext());
    EXPECT_EQ(told, L"(look)");
    EXPECT_EQ(answers.asked[0].kind, InputRequest::Kind::command);
    EXPECT_FALSE(CommandLine::instance().runNext());
    EXPECT_FALSE(CommandLine::instance().runNext());
}

TEST_F(CommandLineTest, transparentCommandsRunWithinAPrompt)
{
    answers.give({L"1,0", L"'essai_voir", L"'essai_nom", L"2,0", L""});
    EXPECT_EQ(run(L"ESSAI_TRACE"), "");
    EXPECT_EQ(told, L"[1 (look)2 ]") << "the one that may not run meanwhile is refused, and the question comes again";
}

TEST_F(CommandLineTest, sourcesStandOnEachOther)
{
    answers.give({L"3,0", L"4,0", L""});
    Answers above({L"1,0", L"2,0"});
    EXPECT_EQ(run(L"ESSAI_TRACE"), "");
    EXPECT_EQ(told, L"[1 2 3 4 ]");
    EXPECT_TRUE(above.areUsedUp());
}

TEST_F(CommandLineTest, aCommandRunsAnotherWithItsInputs)
{
    EXPECT_EQ(run(L"ESSAI_DEHORS"), "");
    EXPECT_EQ(taken(), L"a5;5100;");
    EXPECT_EQ(acedCommandS(RTSTR, L"_TEST_NAME", RTSTR, L"b", 0), RTERROR) << "the inputs end before the command";
    EXPECT_EQ(told, L"annulé;");
    EXPECT_EQ(acedCommandS(RTSTR, L"INCONNUE", 0), RTERROR);
    EXPECT_EQ(acedCommandS(RTSTR, L"TEST_NAME", RTSTR, L"b", RTSTR, L"x", RTSHORT, 1, 0), RTERROR)
        << "an input was refused";
    EXPECT_EQ(acedCommandS(RTSTR, L"ESSAI_VOIR", RTSTR, L"ESSAI_VOIR", 0), RTNORM) << "one after the other";
    EXPECT_EQ(acedCommandS(0), RTNORM);
}

TEST_F(CommandLineTest, lispCommandsWaitForMore)
{
    EXPECT_EQ(lisp("(command \"ESSAI_TRACE\" '(1 0) \"2,0\" \"\")"), "nil");
    EXPECT_EQ(taken(), L"[1 2 ]");
    EXPECT_EQ(
        lisp("(command \"ESSAI_TRACE\") (foreach x '(1 2 3) (command (list x 0.0))) (setq n (getvar \"CMDNAMES\"))"
             "(command \"\") n"),
        "\"ESSAI_TRACE\"");
    EXPECT_EQ(taken(), L"[1 2 3 ]") << "point by point, while AutoLISP goes on";
    EXPECT_EQ(lisp("(command \"ESSAI_TRACE\" '(1 0)) (command) (getvar \"CMDACTIVE\")"), "0") << "(command) cancels";
    EXPECT_EQ(taken(), L"[1 ]");
    EXPECT_EQ(lisp("(vl-cmdf \"INCONNUE\")"), "Commande inconnue : « INCONNUE ».");
    EXPECT_EQ(lisp("(command \"ESSAI_VOIR\" \"ESSAI_VOIR\")"), "nil");
    EXPECT_EQ(told, L"(look)(look)");
    EXPECT_EQ(PendingCommands::instance().count(), 0U);
}

TEST_F(CommandLineTest, whatStillWaitsIsTheUsersToFinish)
{
    answers.give({L"7,0", L""});
    EXPECT_EQ(lisp("(command \"ESSAI_TRACE\" '(1 0))"), "nil");
    EXPECT_EQ(taken(), L"[1 7 ]");
    answers.give({L"8,0"});
    EXPECT_EQ(lisp("(command \"ESSAI_TRACE\" '(1 0) PAUSE '(2 0) \"\")"), "nil");
    EXPECT_EQ(taken(), L"[1 8 2 ]") << "PAUSE is the user's turn";
    answers.give({L"9,0", L""});
    EXPECT_EQ(lisp("(command \"ESSAI_TRACE\" '(1 0)) (car 1)"), "argument de type incorrect : listp: 1");
    EXPECT_EQ(told, L"[1 ]") << "cancelled after a failure";
    EXPECT_FALSE(answers.areUsedUp());
    EXPECT_EQ(PendingCommands::instance().count(), 0U);
    EXPECT_FALSE(CommandRunner::instance().isRunning());
}

TEST_F(CommandLineTest, commandInATypedExpressionAnswersTheOneThatAsks)
{
    answers.give({L"(foreach x '(1 2) (command (list x 0)))", L"3,0", L"(command '(4 0) PAUSE '(6 0))", L"5,0",
                  L"(command \"\" \"ESSAI_VOIR\")"});
    EXPECT_EQ(run(L"ESSAI_TRACE"), "");
    EXPECT_EQ(taken(), L"[1 2 3 4 5 6 ](look)") << "what is left goes on with the next command";
    answers.refusals.clear();
    // As in a script: each line is an evaluation of its own, and the command goes on in the next one.
    answers.give({L"(command '(7 0))", L"(command \"\")"});
    EXPECT_EQ(run(L"(command \"ESSAI_TRACE\")"), "");
    EXPECT_EQ(told, L"[7 ]");
    EXPECT_TRUE(answers.refusals.empty());
    EXPECT_TRUE(answers.areUsedUp());
    EXPECT_EQ(PendingCommands::instance().count(), 0U);
    told.clear();
    answers.give({L"(command)"});
    EXPECT_EQ(run(L"ESSAI_TRACE"), "");
    EXPECT_EQ(told, L"[]") << "cancelled";
}

TEST_F(CommandLineTest, lispCommandsRunEachOther)
{
    lisp("(defun c:dedans () (command \"ESSAI_TRACE\") (command '(5 0)) (command \"\") (princ))");
    lisp("(defun profonde (n) (if (> n 0) (1+ (profonde (1- n))) 0))");
    EXPECT_EQ(lisp("(command \"DEDANS\")"), "nil");
    EXPECT_EQ(told, L"[5 ]");
    lisp("(defun c:creuse () (setq r (profonde 200)) (setq f (vl-catch-all-apply 'infinie '(1))) (princ))");
    lisp("(defun infinie (n) (infinie (1+ n)) 0)");
    EXPECT_EQ(lisp("(command \"CREUSE\") (list r (vl-catch-all-error-message f))"),
              "(200 \"récursivité trop profonde\")")
        << "on its own stack as well";
}

TEST_F(CommandLineTest, whatWasSelectedBeforeIsTaken)
{
    addEntity(*curDoc()->database(), new AcDbPoint(AcGePoint3d(1, 0, 0)));
    addEntity(*curDoc()->database(), new AcDbPoint(AcGePoint3d(2, 0, 0)));
    EXPECT_EQ(lisp("(sssetfirst nil (ssget \"X\")) (sslength (cadr (ssgetfirst)))"), "2");
    EXPECT_EQ(run(L"ESSAI_COMPTE"), "");
    EXPECT_EQ(told, L"2 objets;");
    EXPECT_EQ(lisp("(cadr (ssgetfirst))"), "nil") << "let go afterwards";
    told.clear();
    lisp("(sssetfirst nil (ssget \"X\"))");
    answers.give({L"a", L"1"});
    EXPECT_EQ(run(L"ESSAI_NOM"), "");
    EXPECT_EQ(lisp("(ssget \"I\")"), "nil") << "a command that takes none lets it go";
    EXPECT_EQ(lisp("(command \"ESSAI_COMPTE\" (ssget \"X\") \"\")"), "nil");
    EXPECT_EQ(taken(), L"a1;2 objets;");
    EXPECT_EQ(lisp("(command \"ESSAI_COMPTE\" (entlast) \"\")"), "nil");
    EXPECT_EQ(told, L"1 objets;");
}

TEST(Fiber, stopsAndGoesOn)
{
    std::string order;
    Fiber* inside = nullptr;
    Fiber fiber([&] {
        order += "a";
        inside->stop();
        try {
            throw 1;
        } catch (int) {
            inside->stop(); // with an exception under way on this side
            order += "c";
        }
        throw std::runtime_error("fin");
    });
    inside = &fiber;
    fiber.resume();
    order += "1";
    try {
        throw 'x';
    } catch (char) {
        fiber.resume();
        order += "2";
    }
    EXPECT_FALSE(fiber.hasEnded());
    EXPECT_THROW(fiber.resume(), std::runtime_error);
    EXPECT_TRUE(fiber.hasEnded());
    EXPECT_EQ(order, "a12c");
    EXPECT_EQ(std::uncaught_exceptions(), 0);
}

} // namespace
