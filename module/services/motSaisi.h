#pragma once

#include <string>

/// The word that answered the last prompt: a keyword, whole, or what was typed instead. Empty when there is none.
std::wstring motSaisi();
