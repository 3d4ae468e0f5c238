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

/// What a work takes, seconds of processor time, and how many times its floor that is.
struct dureeAuPlancher {
    double secondes, rapport;
};

/// Medians of `passes` runs, each right after one of its floor: what slows the machine for a while slows both.
/// @param preparer called before each pair of runs and not counted
dureeAuPlancher medianeAuPlancher(int passes, const std::function<void()>& preparer,
                                  const std::function<void()>& plancher, const std::function<void()>& travail);
