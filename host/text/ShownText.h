#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A stretch of a text of one look.
struct ShownRun {
    std::wstring text;
    bool underlined = false, overlined = false, struck = false;
};

/// What a single-line text shows. Control codes: %%d degree, %%p plus or minus, %%c diameter, %%% or %%%% per cent,
/// %%nnn a character by its number, %%u %%o %%k lines under, over and through what follows, to the next of them;
/// \U+XXXX a character of Unicode. Anything else after %% is shown as it stands. Runs without text are left out.
std::vector<ShownRun> shownText(std::wstring_view text);

/// A character that stands as a code at the beginning of a text: %%d, %%065, \U+00E9.
struct CodedCharacter {
    wchar_t shown;
    std::size_t length; ///< of the code
};
std::optional<CodedCharacter> codedCharacter(std::wstring_view text);

/// The width of what a single-line text shows, in heights of a capital letter.
double shownWidth(std::wstring_view text);
