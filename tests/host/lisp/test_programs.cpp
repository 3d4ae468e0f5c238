// The language by itself, and what it does in a drawing, by programs that tell what each of their lines gives.

#include <gtest/gtest.h>

#include "lisp/builtins/Builtins.h"
#include "lisp/drawing/LispSession.h"
#include "lisp/eval/LispContext.h"
#include "lisp/eval/LispPrinter.h"
#include "platform/CodePage.h"

#include "InputTest.h"
#include "LispProgram.h"
#include "TestFolder.h"

using namespace std::chrono_literals;
using platform::utf8FromWide;

namespace {

std::filesystem::path program(const std::string& name)
{
    return VELA_SOURCE_DIR "/tests/host/lisp/programmes/" + name + ".lsp";
}

std::string named(const testing::TestParamInfo<const char*>& row)
{
    return row.param;
}

class Listening : public LispHost {
public:
    void print(const std::wstring& text) override { printed += text; }
    std::wstring printed;
};

class Programs : public testing::TestWithParam<const char*> {};

TEST_P(Programs, giveWhatTheirLinesSay)
{
    Listening host;
    LispContext context(host);
    defineBuiltins(context);
    runLispProgram(program(GetParam()), [&](const std::wstring& expression, const std::string& expected) {
        host.printed.clear();
        // Endless loops only are to meet the limit; a slow machine must not.
        context.setTimeLimit(expected.find("temps") != std::string::npos ? 300ms : 60s);
        const LispOutcome outcome = context.run(expression);
        const bool told = !outcome.failureText().empty(); // *error* may have dealt with it
        return LispEnd{told, told ? outcome.message : lispPrinted(outcome.value), host.printed};
    });
}

INSTANTIATE_TEST_SUITE_P(Lisp, Programs, testing::Values("arithmetique", "controle", "listes", "textes"), named);

class DrawingPrograms : public InputTest, public testing::WithParamInterface<const char*> {};

TEST_P(DrawingPrograms, giveWhatTheirLinesSay)
{
    runLispProgram(
        program(GetParam()),
        [this](const std::wstring& expression, const std::string&) {
            const auto [shown, outcome] = LispSession::of(*curDoc()).evaluate(expression);
            EXPECT_TRUE(answers.areUsedUp());
            answers.clear();
            return LispEnd{outcome.failed, outcome.failed ? outcome.message : shown, {}};
        },
        [this](const std::vector<std::wstring>& given) { answers.give(given); });
}

INSTANTIATE_TEST_SUITE_P(Lisp, DrawingPrograms,
                         testing::Values("demandes", "entites", "filtres", "listesEntites", "selection", "tables"),
                         named);

TEST(LispContext, tellsTheExpressionThatFailed)
{
    Listening host;
    LispContext context(host);
    defineBuiltins(context);
    EXPECT_EQ(utf8FromWide(context.run(L"(list 1 (car (+ 1 \"a\")))").failureText()),
              "; erreur : argument de type incorrect : numberp: \"a\"\n; dans : (+ 1 \"a\")");
    EXPECT_EQ(utf8FromWide(context.run(L"1\n(2").failureText()), "; erreur : parenthèse fermante manquante (ligne 2)");
}

class Impatient : public LispHost {
public:
    void print(const std::wstring&) override {}
    bool interrupted() override { return true; }
};

TEST(LispContext, isInterruptedByItsUser)
{
    Impatient host;
    LispContext context(host);
    defineBuiltins(context);
    EXPECT_EQ(utf8FromWide(context.run(L"(setq i 0) (while t (setq i (1+ i)))").failureText()).substr(0, 30),
              "; erreur : Fonction annulée\n;");
    EXPECT_EQ(context.run(L"(< 0 i 100000)").value.isNil(), false) << "and goes on afterwards";
}

TEST(LispContext, readsAndWritesFiles)
{
    const TestFolder folder;
    const std::wstring name = L"\"" + platform::wideFromUtf8((folder / "essai.txt").string()) + L"\"";
    Listening host;
    LispContext context(host);
    defineBuiltins(context);
    const auto value = [&](const std::wstring& text) {
        const LispOutcome outcome = context.run(text);
        return utf8FromWide(outcome.failed ? outcome.failureText() : lispPrinted(outcome.value));
    };
    EXPECT_EQ(value(L"(setq n " + name + L" f (open n \"w\")) (write-line \"été\" f) (princ 1.5 f) (close f)"), "nil");
    EXPECT_EQ(folder.read("essai.txt"), "\xE9t\xE9\r\n1.5");
    EXPECT_EQ(value(L"(setq f (open n \"a\")) (write-char 33 f) (close f) (setq f (open n \"r\"))"
                    L"(list (read-char f) (read-line f) (read-line f) (read-line f) (read-char f))"),
              "(233 \"t\xC3\xA9\" \"1.5!\" nil nil)");
    EXPECT_TRUE(value(L"(close f) (read-line f)").starts_with("; erreur : fichier fermé : "));
    EXPECT_EQ(value(L"(open \"/pas/la.txt\" \"r\")"), "nil");
    EXPECT_EQ(value(L"(setq s \"aaaaaaaaaa\") (repeat 6 (setq s (strcat s s))) (open s \"r\")"), "nil");
    EXPECT_EQ(value(L"(findfile s)"), "nil");

    folder.write("prog.lsp", "(defun depuis-fichier () 12) ; commentaire\n\"vu\"\n");
    const std::wstring program = L"\"" + platform::wideFromUtf8((folder / "prog").string()) + L"\"";
    EXPECT_EQ(value(L"(load " + program + L")"), "\"vu\"");
    EXPECT_EQ(value(L"(depuis-fichier)"), "12");
    EXPECT_EQ(value(L"(load \"/pas/la\" 'absent)"), "ABSENT");
    EXPECT_TRUE(value(L"(load \"/pas/la\")").starts_with("; erreur : échec de LOAD : \"/pas/la\""));
}

} // namespace
