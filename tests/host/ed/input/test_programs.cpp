// AutoLISP that asks and selects, in a drawing. Lines of the programs:
//   expression ; => value as prin1 shows it
//   expression ; !> what its error message begins with
//   ; < answer | answer     what the user gives to the next line
// The lines of a file are evaluated one after the other.

#include <fstream>

#include "lisp/drawing/LispSession.h"
#include "platform/CodePage.h"

#include "InputTest.h"

using platform::utf8FromWide;
using platform::wideFromUtf8;

namespace {

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

class AskingPrograms : public InputTest, public testing::WithParamInterface<const char*> {};

TEST_P(AskingPrograms, giveWhatTheirLinesSay)
{
    std::ifstream file(std::string(VELA_SOURCE_DIR "/tests/host/ed/input/programmes/") + GetParam());
    int number = 0, checks = 0;
    for (std::string line; std::getline(file, line);) {
        ++number;
        SCOPED_TRACE(std::to_string(number) + ": " + line);
        if (line.starts_with("; <")) {
            answers.give(answersOf(wideFromUtf8(line.substr(3))));
            continue;
        }
        const auto value = line.find(" ; => "), failure = line.find(" ; !> ");
        const auto mark = std::min(value, failure);
        if (mark == std::string::npos)
            continue;
        const auto [shown, outcome] = LispSession::of(*curDoc()).evaluate(wideFromUtf8(line.substr(0, mark)));
        const std::string expected = line.substr(mark + 6),
                          text = utf8FromWide(outcome.failed ? outcome.message : shown);
        EXPECT_EQ(outcome.failed, value == std::string::npos) << text;
        EXPECT_EQ(outcome.failed ? text.substr(0, expected.size()) : text, expected);
        EXPECT_TRUE(answers.areUsedUp());
        answers.clear();
        ++checks;
    }
    EXPECT_GT(checks, 0);
}

INSTANTIATE_TEST_SUITE_P(All, AskingPrograms, testing::Values("demandes.lsp", "entites.lsp", "selection.lsp"));

} // namespace
