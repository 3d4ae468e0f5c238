#pragma once

#include <functional>

/// Median processor time of a work, seconds, over at least `passes` runs and a tenth of a second of them.
/// @param preparer called before each run and not counted
double mediane(int passes, const std::function<void()>& preparer, const std::function<void()>& travail);

/// How many more seconds of processor time a work takes than another: the median of the differences of `passes` pairs,
/// each run right after the other. What the machine does to both of them alike does not count.
/// @param preparer called before each run and not counted
double medianeDesEcarts(int passes, const std::function<void()>& preparer, const std::function<void()>& moindre,
                        const std::function<void()>& travail);
