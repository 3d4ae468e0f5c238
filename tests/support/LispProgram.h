#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

/// AutoLISP programs as tests: the expected end of each line stands on the line, behind its last mark.
///
///     expression ; => value as prin1 shows it
///     expression ; !> what its error message begins with
///     expression ; >> what it prints, with "\n" for the end of a line
///     ; < answer | answer      what the user gives to the next line
///
/// The lines of a file are evaluated one after the other; those that begin with ";" are comments.
struct LispEnd {
    bool failed = false;
    std::wstring text;    ///< its value, or the message of its failure
    std::wstring printed; ///< meanwhile
};
using LispEvaluate = std::function<LispEnd(const std::wstring& expression, const std::string& expected)>;
using LispAnswers = std::function<void(const std::vector<std::wstring>& answers)>;

void runLispProgram(const std::filesystem::path& file, const LispEvaluate& evaluate, const LispAnswers& answers = {});
