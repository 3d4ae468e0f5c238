#include "LispProgram.h"

#include <fstream>

#include <gtest/gtest.h>

#include "platform/CodePage.h"

namespace {

using platform::utf8FromWide;
using platform::wideFromUtf8;

struct Line {
    std::string expression, mark, expected;

    explicit Line(const std::string& text)
    {
        for (const char* candidate : {" ; =>", " ; !>", " ; >>"}) {
            const auto at = text.rfind(candidate);
            if (at == std::string::npos || at < expression.size())
                continue;
            expression = text.substr(0, at);
            mark = candidate;
            expected = text.substr(std::min(at + 6, text.size()));
        }
    }
};

std::vector<std::wstring> answersOf(const std::wstring& line)
{
    std::vector<std::wstring> found;
    for (std::size_t start = 0, end = 0; end != std::wstring::npos; start = end + 1) {
        end = line.find(L'|', start);
        std::wstring one = line.substr(start, end == std::wstring::npos ? end : end - start);
        one.erase(0, one.find_first_not_of(L' '));
        one.erase(one.find_last_not_of(L' ') + 1);
        found.push_back(one);
    }
    return found;
}

std::string withEscapedBreaks(const std::wstring& text)
{
    std::string out;
    for (const char c : utf8FromWide(text))
        out += c == '\n' ? std::string("\\n") : std::string(1, c);
    return out;
}

void check(const Line& line, const LispEnd& end)
{
    const std::string text = utf8FromWide(end.text);
    EXPECT_EQ(end.failed, line.mark == " ; !>") << text;
    if (end.failed)
        EXPECT_EQ(text.substr(0, line.expected.size()), line.expected);
    else if (line.mark == " ; =>")
        EXPECT_EQ(text, line.expected);
    else
        EXPECT_EQ(withEscapedBreaks(end.printed), line.expected);
}

} // namespace

void runLispProgram(const std::filesystem::path& file, const LispEvaluate& evaluate, const LispAnswers& answers)
{
    std::ifstream stream(file);
    int number = 0, checks = 0;
    for (std::string text; std::getline(stream, text);) {
        SCOPED_TRACE(file.filename().string() + ":" + std::to_string(++number) + ": " + text);
        if (text.starts_with("; <"))
            answers(answersOf(wideFromUtf8(text.substr(3))));
        if (text.empty() || text.starts_with(';'))
            continue;
        const Line line(text);
        ASSERT_NE(line.mark, "") << "no expected end";
        check(line, evaluate(wideFromUtf8(line.expression), line.expected));
        ++checks;
    }
    EXPECT_GT(checks, 0) << file;
}
