// AutoLISP in a drawing.

#include <gtest/gtest.h>

#include "ap/DocumentList.h"
#include "ed/CommandRunner.h"
#include "ed/Kernel.h"
#include "lisp/drawing/LispSession.h"
#include "lisp/LispHooks.h"
#include "lisp/LispText.h"
#include "platform/CodePage.h"
#include "rx/Console.h"
#include "rx/ResbufChain.h"
#include "rx/ResbufPool.h"

#include "dbents.h"
#include "dbsymtb.h"

using platform::utf8FromWide;
using platform::wideFromUtf8;

namespace {

class Session : public testing::Test {
protected:
    void SetUp() override
    {
        buffers = ResbufPool::instance().liveBuffers();
        DocumentList::instance().create();
    }
    void TearDown() override
    {
        LispHooks::instance().command = nullptr;
        DocumentList::instance().closeAll();
        EXPECT_EQ(ResbufPool::instance().liveBuffers(), buffers);
    }

    static std::string value(const std::string& text)
    {
        const auto [shown, outcome] = LispSession::of(*curDoc()).evaluate(wideFromUtf8(text));
        return outcome.failed ? utf8FromWide(outcome.message) : utf8FromWide(shown);
    }
    /// Appends an entity to the current space and gives its handle.
    static std::string append(AcDbEntity* entity)
    {
        AcDbBlockTableRecord* space = nullptr;
        EXPECT_EQ(acdbOpenObject(space, curDoc()->database()->currentSpaceId(), AcDb::kForWrite), Acad::eOk);
        EXPECT_EQ(space->appendAcDbEntity(entity), Acad::eOk);
        AcDbHandle handle;
        entity->getAcDbHandle(handle);
        entity->close();
        space->close();
        ACHAR digits[17];
        handle.getIntoAsciiBuffer(digits, 17);
        return utf8FromWide(digits);
    }

    Kernel kernel;
    std::size_t buffers = 0;
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

TEST_F(Session, readsAndSetsSystemVariables)
{
    EXPECT_EQ(value("(setvar \"OSMODE\" 33)"), "33");
    EXPECT_EQ(value("(getvar \"osmode\")"), "33");
    EXPECT_EQ(value("(setvar \"LTSCALE\" 2)"), "2");
    EXPECT_EQ(value("(getvar \"LTSCALE\")"), "2.0");
    EXPECT_EQ(value("(setvar \"LASTPOINT\" '(1 2 3))"), "(1 2 3)");
    EXPECT_EQ(value("(getvar \"LASTPOINT\")"), "(1.0 2.0 3.0)");
    EXPECT_EQ(value("(getvar \"PAS_LA\")"), "nil");
    EXPECT_EQ(value("(setvar \"OSMODE\" \"a\")"), "variable système refusée : OSMODE");
    EXPECT_EQ(value("(setvar \"LUPREC\" 2) (rtos 1.23456)"), "\"1.23\"");
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

TEST_F(Session, showsEntitiesAsLists)
{
    auto* line = new AcDbLine(AcGePoint3d(1, 2, 3), AcGePoint3d(4, 5, 6));
    line->setLayer(L"0");
    line->setColorIndex(3);
    const std::string handle = append(line);
    EXPECT_EQ(value("(setq e (entlast) l (entget e)) (cdr (assoc 5 l))"), "\"" + handle + "\"");
    EXPECT_EQ(value("(eq (cdr (assoc -1 l)) e)"), "T");
    EXPECT_EQ(value("(list (assoc 0 l) (assoc 8 l) (assoc 62 l) (assoc 10 l) (assoc 11 l))"),
              "((0 . \"LINE\") (8 . \"0\") (62 . 3) (10 1.0 2.0 3.0) (11 4.0 5.0 6.0))");
    EXPECT_EQ(value("(eq (handent \"" + handle + "\") e)"), "T");
    EXPECT_EQ(value("(handent \"FFFFF\")"), "nil");
    EXPECT_EQ(value("(entget 5)"), "argument de type incorrect : lentityp: 5");

    auto* arc = new AcDbArc(AcGePoint3d(0, 0, 0), 2.0, 0.5, 1.5);
    append(arc);
    EXPECT_EQ(value("(setq l (entget (entlast))) (list (assoc 40 l) (assoc 50 l) (assoc 51 l))"),
              "((40 . 2.0) (50 . 0.5) (51 . 1.5))")
        << "radians, where a drawing file has degrees";

    auto* polyline = new AcDbPolyline(2);
    polyline->addVertexAt(0, AcGePoint2d(1, 1));
    polyline->addVertexAt(1, AcGePoint2d(2, 3));
    append(polyline);
    EXPECT_EQ(value("(vl-remove-if-not '(lambda (p) (= (car p) 10)) (entget (entlast)))"),
              "((10 1.0 1.0) (10 2.0 3.0))");
}

TEST_F(Session, makesAndChangesEntities)
{
    EXPECT_EQ(value("(entmake '((0 . \"CIRCLE\") (8 . \"0\") (62 . 5) (10 1 2 3) (40 . 2.5)))"),
              "((0 . \"CIRCLE\") (8 . \"0\") (62 . 5) (10 1 2 3) (40 . 2.5))");
    EXPECT_EQ(
        value("(setq l (entget (entlast))) (list (assoc 0 l) (assoc 8 l) (assoc 62 l) (assoc 10 l) (assoc 40 l))"),
        "((0 . \"CIRCLE\") (8 . \"0\") (62 . 5) (10 1.0 2.0 3.0) (40 . 2.5))");
    EXPECT_EQ(value("(entmod (subst '(40 . 7.0) (assoc 40 l) l)) (cdr (assoc 40 (entget (entlast))))"), "7.0");
    EXPECT_EQ(value("(cdr (assoc 62 (entget (entlast))))"), "5") << "the others stay";
    EXPECT_EQ(value("(entmod (list (assoc -1 l) '(62 . 1))) (cdr (assoc 40 (entget (entlast))))"), "7.0");
    EXPECT_EQ(value("(entmod (subst '(8 . \"A_FAIRE\") (assoc 8 l) l)) (cdr (assoc 8 (entget (entlast))))"),
              "\"A_FAIRE\"")
        << "a layer that is not there is made";

    EXPECT_EQ(value("(type (entmakex '((0 . \"ARC\") (10 0 0) (40 . 1.0) (50 . 0.5) (51 . 1.0))))"), "ENAME");
    EXPECT_EQ(value("(setq l (entget (entlast))) (list (assoc 8 l) (assoc 50 l))"), "((8 . \"0\") (50 . 0.5))");
    EXPECT_EQ(value("(entmake '((0 . \"LWPOLYLINE\") (100 . \"AcDbEntity\") (100 . \"AcDbPolyline\") (90 . 2)"
                    " (70 . 0) (10 1 1) (10 2 3)))"
                    " (vl-remove-if-not '(lambda (p) (= (car p) 10)) (entget (entlast)))"),
              "((10 1.0 1.0) (10 2.0 3.0))");
    EXPECT_EQ(value("(equal (setq l (entget (entlast))) (entmod l))"), "T");
    EXPECT_EQ(value("(entmod (append l '((-3 (\"ACAD\" (1004 . \"00fF10\"))))))"
                    " (assoc -3 (setq l (entget (entlast) '(\"*\"))))"),
              "(-3 (\"ACAD\" (1004 . \"00FF10\")))");
    EXPECT_EQ(value("(equal (entmod l) l)"), "T");
    EXPECT_EQ(value("(entmod (append (entget (entlast)) '((-3 (\"ACAD\" (1004 . \"0x\"))))))"),
              "argument de type incorrect : octets: \"0x\"");
    EXPECT_EQ(value("(entmake '((0 . \"TABLE\") (2 . \"A\")))"), "ENTMAKE ne crée pas ce type d'objet : TABLE");
    EXPECT_EQ(value("(entmake '((0 . \"LINE\") (6 . \"PAS_LA\") (10 0 0) (11 1 1)))"), "nil");
    EXPECT_EQ(value("(entmake '((0 . \"LINE\") (10 . \"a\")))"), "point incorrect : \"a\"");
}

TEST_F(Session, walksThroughEntities)
{
    EXPECT_EQ(value("(entnext)"), "nil");
    EXPECT_EQ(value("(entlast)"), "nil");
    for (int i = 0; i < 4; ++i)
        append(new AcDbPoint(AcGePoint3d(i, 0, 0)));
    EXPECT_EQ(value("(defun abscisses (/ e r) (setq e (entnext))"
                    " (while e (setq r (cons (cadr (assoc 10 (entget e))) r) e (entnext e))) (reverse r))"
                    " (abscisses)"),
              "(0.0 1.0 2.0 3.0)");
    EXPECT_EQ(value("(setq e (entnext (entnext))) (eq (entdel e) e)"), "T");
    EXPECT_EQ(value("(abscisses)"), "(0.0 2.0 3.0)");
    EXPECT_EQ(value("(entget e)"), "nil");
    EXPECT_EQ(value("(cadr (assoc 10 (entget (entnext e))))"), "2.0") << "goes on from an erased one";
    EXPECT_EQ(value("(entdel e) (abscisses)"), "(0.0 1.0 2.0 3.0)");
    append(new AcDbPoint(AcGePoint3d(9, 0, 0)));
    EXPECT_EQ(value("(abscisses)"), "(0.0 1.0 2.0 3.0 9.0)");
}

TEST_F(Session, changesNothingOnALockedLayer)
{
    append(new AcDbPoint(AcGePoint3d(1, 0, 0)));
    EXPECT_NE(value("(setq e (entlast) l (entget e) c (entget (tblobjname \"LAYER\" \"0\")))"
                    " (entmod (subst '(70 . 4) (assoc 70 c) c))"),
              "nil");
    EXPECT_EQ(value("(entmod (subst '(10 5.0 5.0 0.0) (assoc 10 l) l))"), "nil");
    EXPECT_EQ(value("(entdel e)"), "nil");
    EXPECT_EQ(value("(assoc 10 (entget e))"), "(10 1.0 0.0 0.0)");
    EXPECT_NE(value("(entmake '((0 . \"POINT\") (8 . \"0\") (10 2 0 0)))"), "nil");
}

TEST_F(Session, looksIntoTablesAndDictionaries)
{
    EXPECT_EQ(value("(setq l (tblsearch \"LAYER\" \"0\")) (list (assoc 0 l) (assoc 2 l) (assoc 5 l))"),
              "((0 . \"LAYER\") (2 . \"0\") nil)");
    EXPECT_EQ(value("(tblsearch \"LAYER\" \"PAS_LA\")"), "nil");
    EXPECT_EQ(value("(tblsearch \"VUES\" \"0\")"), "argument de type incorrect : nom de table: \"VUES\"");
    EXPECT_EQ(value("(cdr (assoc 2 (tblnext \"layer\" t)))"), "\"0\"");
    EXPECT_EQ(value("(while (tblnext \"LAYER\")) (tblnext \"LAYER\")"), "nil");
    EXPECT_EQ(value("(cdr (assoc 2 (entget (tblobjname \"LAYER\" \"0\"))))"), "\"0\"");
    append(new AcDbPoint(AcGePoint3d(0, 0, 0)));
    EXPECT_EQ(value("(setq l (tblsearch \"BLOCK\" \"*Model_Space\")) (eq (cdr (assoc -2 l)) (entnext))"), "T");
    EXPECT_EQ(value("(cdr (assoc 0 (entget (namedobjdict))))"), "\"DICTIONARY\"");
    EXPECT_EQ(value("(dictsearch (namedobjdict) \"PAS_LA\")"), "nil");
    EXPECT_EQ(value("(equal (dictnext (namedobjdict) t) (entget (cdr (assoc -1 (dictnext (namedobjdict) t)))))"), "T");
}

} // namespace
