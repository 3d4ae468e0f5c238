#pragma once

#include <string>

/// How the user plots: what PLOT proposes.
struct PlotHabits {
    std::wstring paper = L"A4";
    bool landscape = true;
    int denominator = 0; ///< of the scale; 0 fits the paper
    bool monochrome = false;
};

/// As the user plotted last, in this session or another. Without windows always the ones above: a script that answers
/// nothing must plot the same sheet every day.
PlotHabits plotHabits();
/// Remembers them; without windows nothing happens. What cannot be written is told on the command line.
void keep(const PlotHabits& habits);
