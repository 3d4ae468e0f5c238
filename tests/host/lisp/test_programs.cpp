// Programs with the expected end of each line on the line, behind its last mark:
//   expression ; => value as prin1 shows it
//   expression ; !> what its error message is, or begins with
//   expression ; >> what it prints
// The lines of a file are evaluated one after the other in one context.

#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "lisp/builtins/Builtins.h"
#include "lisp/eval/LispContext.h"
#include "lisp/eval/LispPrinter.h"
#include "platform/CodePage.h"

using namespace std::chrono_literals;
using platform::utf8FromWide;

namespace {

class Listening : public LispHost {
public:
    void print(const std::wstring& text) override { printed += text; }
    std::wstring printed;
};

struct Line {
    std::string expression, mark, expected;

    explicit Line(const std::string& text)
    {
        for (const char* candidate : {" ; =>", " ; !> ", " ; >> "}) {
            const auto at = text.rfind(candidate);
            if (at == std::string::npos || at < expression.size())
                continue;
            expression = text.substr(0, at);
            mark = candidate;
            expected = text.substr(std::min(at + 6, text.size()));
        }
    }
};

/// The message of a failure, without the words that stand before every one and the expression below it.
std::string messageOf(const std::wstring& failure)
{
    constexpr std::wstring_view prefix = L"; erreur : ";
    EXPECT_TRUE(failure.starts_with(prefix)) << utf8FromWide(failure);
    return utf8FromWide(failure.substr(prefix.size(), failure.find(L'\n') - prefix.size()));
}

std::string withEscapedBreaks(const std::wstring& text)
{
    std::string out;
    for (const char c : utf8FromWide(text))
        out += c == '\n' ? std::string("\\n") : std::string(1, c);
    return out;
}

void runLine(LispContext& context, Listening& host, const Line& line)
{
    host.printed.clear();
    // Endless loops only are to meet the limit; a slow machine must not.
    const bool runsOutOfTime = line.expected.find("temps") != std::string::npos;
    context.setTimeLimit(runsOutOfTime ? 300ms : 60s);
    const LispOutcome outcome = context.run(platform::wideFromUtf8(line.expression));
    if (line.mark == " ; =>") {
        EXPECT_EQ(utf8FromWide(outcome.failureText()), "");
        EXPECT_EQ(utf8FromWide(lispPrinted(outcome.value)), line.expected);
    } else if (line.mark == " ; !> ") {
        ASSERT_TRUE(outcome.failed);
        EXPECT_TRUE(messageOf(outcome.failureText()).starts_with(line.expected)) << utf8FromWide(outcome.failureText());
    } else {
        EXPECT_EQ(utf8FromWide(outcome.failureText()), "");
        EXPECT_EQ(withEscapedBreaks(host.printed), line.expected);
    }
}

class Programs : public testing::TestWithParam<const char*> {};

TEST_P(Programs, giveWhatTheirLinesSay)
{
    Listening host;
    LispContext context(host);
    defineBuiltins(context);
    std::ifstream file(std::string(VELA_SOURCE_DIR "/tests/host/lisp/programmes/") + GetParam() + ".lsp");
    int number = 0, checked = 0;
    for (std::string text; std::getline(file, text);) {
        ++number;
        if (text.empty() || text.starts_with(';'))
            continue;
        const Line line(text);
        SCOPED_TRACE(std::to_string(number) + ": " + text);
        ASSERT_NE(line.mark, "") << "no expected value";
        runLine(context, host, line);
        ++checked;
    }
    EXPECT_GT(checked, 0);
}

INSTANTIATE_TEST_SUITE_P(Lisp, Programs, testing::Values("arithmetique", "controle", "listes", "textes"),
                         [](const auto& row) { return std::string(row.param); });

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
    const auto folder = std::filesystem::temp_directory_path() / "vela-lisp-files";
    std::filesystem::create_directories(folder);
    const std::wstring name = L"\"" + platform::wideFromUtf8((folder / "essai.txt").string()) + L"\"";
    Listening host;
    LispContext context(host);
    defineBuiltins(context);
    const auto value = [&](const std::wstring& text) {
        const LispOutcome outcome = context.run(text);
        return utf8FromWide(outcome.failed ? outcome.failureText() : lispPrinted(outcome.value));
    };
    EXPECT_EQ(value(L"(setq n " + name + L" f (open n \"w\")) (write-line \"été\" f) (princ 1.5 f) (close f)"), "nil");
    std::ifstream written(folder / "essai.txt", std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(written), {}), "\xE9t\xE9\r\n1.5");
    EXPECT_EQ(value(L"(setq f (open n \"a\")) (write-char 33 f) (close f) (setq f (open n \"r\"))"
                    L"(list (read-char f) (read-line f) (read-line f) (read-line f) (read-char f))"),
              "(233 \"t\xC3\xA9\" \"1.5!\" nil nil)");
    EXPECT_TRUE(value(L"(close f) (read-line f)").starts_with("; erreur : fichier fermé : "));
    EXPECT_EQ(value(L"(open \"/pas/la.txt\" \"r\")"), "nil");
    EXPECT_EQ(value(L"(setq s \"aaaaaaaaaa\") (repeat 6 (setq s (strcat s s))) (open s \"r\")"), "nil");
    EXPECT_EQ(value(L"(findfile s)"), "nil");

    std::ofstream(folder / "prog.lsp") << "(defun depuis-fichier () 12) ; commentaire\n\"vu\"\n";
    const std::wstring program = L"\"" + platform::wideFromUtf8((folder / "prog").string()) + L"\"";
    EXPECT_EQ(value(L"(load " + program + L")"), "\"vu\"");
    EXPECT_EQ(value(L"(depuis-fichier)"), "12");
    EXPECT_EQ(value(L"(load \"/pas/la\" 'absent)"), "ABSENT");
    EXPECT_TRUE(value(L"(load \"/pas/la\")").starts_with("; erreur : échec de LOAD : \"/pas/la\""));
    std::filesystem::remove_all(folder);
}

} // namespace
