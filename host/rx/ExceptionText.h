#pragma once

#include <string>

/// What the exception being handled says, in French as far as it is ours: for a catch (...) at the border of a module.
std::wstring currentExceptionText();
