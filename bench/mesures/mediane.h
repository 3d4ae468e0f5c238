#pragma once

#include <functional>

/// Median processor time of a work, seconds, over at least `passes` runs and a tenth of a second of them.
/// @param preparer called before each run and not counted
double mediane(int passes, const std::function<void()>& preparer, const std::function<void()>& travail);
