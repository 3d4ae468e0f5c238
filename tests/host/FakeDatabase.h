#pragma once

#include <string>
#include <vector>

#include "dbmain.h"

/// A database that holds nothing, for tests of the folders above it.
namespace fakeDatabase {

/// What was asked of any of them, as "read /a.dxf", "write /a.dxf".
extern std::vector<std::wstring> log;
/// The next read or save fails with this reason, unless it is empty.
extern std::wstring nextFailure;
/// How many are alive.
extern int alive;

} // namespace fakeDatabase
