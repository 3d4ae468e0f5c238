#pragma once

#include <string>

#include "commands/CommandHooks.h"

/// A file, chosen in a dialog when there are any, else typed. Throws CommandCancelled.
std::wstring askFile(const CommandHooks::FileQuestion& question);
