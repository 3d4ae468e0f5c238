// AutoLISP in a drawing: what programs cannot tell of themselves.

#include "ed/CommandRunner.h"
#include "lisp/drawing/LispSession.h"
#include "lisp/LispHooks.h"
#include "lisp/LispText.h"
#include "platform/CodePage.h"

#include "InputTest.h"
#include "SmallDrawing.h"

using platform::utf8FromWide;
using platform::wideFromUtf8;

namespace {

class Session : public InputTest {
protected:
    ~Session() override { LispHooks::instance().command = nullptr; }
    static std::string value(const std::string& text)
    {
        const auto [shown, outcome] = LispSession::of(*curDoc()).evaluate(wideFromUtf8(text));
        return outcome.failed ? utf8FromWide(outcome.message) : utf8FromWide(shown);
    }
};

TEST_F(Session, eachDocumentHasItsOwnSymbols)
{
    DocumentList& list = DocumentList::instance();
    AcApDocument* const first = curDoc();
    EXPECT_EQ(value("(setq a 5)"), "5");
    list.create();
    EXPECT_EQ(value("a"), "nil");
    list.setCurDocument(first, AcAp::kNone, false);
    EXPECT_EQ(value("a"), "5");
}

/// What stands in a block is its, whether its file says so, says nothing or gives no object.
TEST_F(Session, eachEntityHasAnOwner)
{
    SmallDrawing drawing;
    for (const char* owner : {"330 1F\n", "", "330 0\n", "102 {ACAD_REACTORS\n330 C\n102 }\n"})
        drawing.entities += std::string("0 POINT\n") + owner + "100 AcDbEntity\n8 0\n100 AcDbPoint\n10 0\n20 0\n30 0\n";
    const TestFolder folder;
    folder.write("plan.dxf", drawing.text());
    DocumentList::instance().open((folder / "plan.dxf").wstring());
    EXPECT_EQ(value("(setq e nil n 0) (while (setq e (if e (entnext e) (entnext))) (setq n (1+ n) l (entget e)) "
                    "(if (/= (cdr (assoc 2 (entget (cdr (assoc 330 (member '(100 . \"AcDbEntity\") (reverse l))))))) "
                    "\"*Model_Space\") (princ n))) n"),
              "4");
}

TEST_F(Session, functionsCalledCAreCommands)
{
    EXPECT_EQ(value("(defun c:compter () (setq n (if n (1+ n) 1)) (princ n))"), "C:COMPTER");
    EXPECT_EQ(CommandRunner::instance().run(L"compter").failure, L"");
    EXPECT_EQ(CommandRunner::instance().run(L"Compter").failure, L"");
    EXPECT_EQ(value("n"), "2");
    EXPECT_NE(CommandRunner::instance().run(L".compter").failure, L"") << "not in the command stack";
    EXPECT_EQ(value("(defun c:rater () (/ 1 0))"), "C:RATER");
    EXPECT_EQ(utf8FromWide(CommandRunner::instance().run(L"rater").failure),
              "; erreur : division par zéro\n; dans : (/ 1 0)");
    DocumentList::instance().create();
    EXPECT_NE(CommandRunner::instance().run(L"compter").failure, L"") << "belongs to the other drawing";
}

TEST_F(Session, typesAtTheCommandLineWhenThereIsOne)
{
    LispHooks::instance().command = nullptr;
    EXPECT_EQ(value("(command \"LIGNE\")"), "COMMAND : la ligne de commande n'est pas disponible ici");
    std::wstring typed;
    LispHooks::instance().command = [&typed](const resbuf* inputs) {
        typed = lispText(inputs);
        return std::wstring();
    };
    EXPECT_EQ(value("(command \"_LINE\" '(1 2) \"10,5\" 3.5 pause \"\")"), "nil");
    EXPECT_EQ(utf8FromWide(typed), "\"_LINE\" (1 2) \"10,5\" 3.5 \"\\\\\" \"\"");
    LispHooks::instance().command = [](const resbuf*) { return std::wstring(L"Commande inconnue."); };
    EXPECT_EQ(value("(command \"PAS_CA\")"), "Commande inconnue.");
}

} // namespace
