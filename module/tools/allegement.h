#pragma once

#include <span>
#include <vector>

#include "geometrie/axe.h"

/// What of lines a drawing can do without. Values only.

/// A line or polyline of the drawing.
struct ligneAllegee {
    std::vector<sommetAxe> sommets;
    bool fermee = false;
    bool intouchable = false; ///< keeps its vertices, and those that others share with it
};

/// The vertices of each line that stay, ascending: it strays from none of its straight parts by more than `tolerance`.
/// Arcs stay, with their ends. Vertices equal to the one after them go. A stretch that several lines share, run in
/// either sense, loses the same vertices in all of them: it is cut where lines meet or part, and looked at in one
/// sense. A closed line keeps three vertices at least, or all it had. Linear but for what Douglas and Peucker ask.
std::vector<std::vector<std::size_t>> sommetsGardes(std::span<const ligneAllegee> lignes, double tolerance);

/// A level segment; only those of one family (layer, colour...) are brought together.
struct segmentAllege {
    point3 debut, fin;
    int famille = 0;
};
struct segmentReuni {
    bool part = false;   ///< another one covers its place
    bool change = false; ///< it reaches farther now
    point3 debut, fin;
};
/// Segments that lie on one another, within `tolerance`, become one: the longest of them, lengthened to the ends of
/// all. Those that only touch end to end stay.
std::vector<segmentReuni> reunirSegments(std::span<const segmentAllege> segments, double tolerance);
