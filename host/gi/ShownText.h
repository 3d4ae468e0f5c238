#pragma once

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
