#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ed/input/InputSource.h"

/// Keywords as acedInitGet takes them.

/// Reads "Local1 Local2 _ Global1 Global2", or words without "_" that are both. Nothing when the halves differ in
/// length.
std::optional<std::vector<InputKeyword>> keywordsOf(std::wstring_view list);

/// The keyword that a typed text means: the whole word, or an abbreviation that holds at least its capitals (or what
/// stands behind the comma), in any case; with "_" in front the common word is meant. The first one that fits wins,
/// those that fit only without their accents after all others.
const InputKeyword* matchingKeyword(const std::vector<InputKeyword>& keywords, std::wstring_view typed);

/// What is given back for a keyword: its common word, without what stands behind a comma and without a closing "_".
std::wstring keywordAnswer(const InputKeyword& keyword);
/// The same of one word.
std::wstring keywordText(std::wstring_view word);
