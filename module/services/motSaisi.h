#pragma once

#include <string>

/// The word that answered the last prompt: a keyword, whole, or what was typed instead, without the quotes around a
/// name that has blanks. Empty when there is none.
std::wstring motSaisi();
