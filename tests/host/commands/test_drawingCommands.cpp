#include "CommandTest.h"

/// What is typed, and the entities that stand there after it. Every row is taken back and made again as well.

namespace {

struct Row {
    const char* name;
    const wchar_t* typed;
    std::vector<std::string> expected;
    const wchar_t* told = L""; ///< part of what is printed
};

class DrawingCommands : public CommandTest, public testing::WithParamInterface<Row> {};

TEST_P(DrawingCommands, drawAndAreTakenBack)
{
    const Row& row = GetParam();
    const std::string before = bytes();
    typed(row.typed);
    EXPECT_EQ(entities(), row.expected);
    EXPECT_NE(printed().find(row.told), std::wstring::npos);
    if (row.expected.empty())
        return;
    const std::string after = bytes();
    typed(L"ANNULER | 100");
    EXPECT_EQ(entities(), std::vector<std::string>());
    EXPECT_EQ(bytes(), before);
    typed(L"MRETABLIR | _All");
    EXPECT_EQ(entities(), row.expected);
    EXPECT_EQ(bytes(), after);
}

const Row lines[] = {
    {"a line", L"LIGNE | 0,0 | 10,0 | ", {"LINE 0,0 10,0"}},
    {"its international name, letters small", L"_line | 0,0 | 10,0 | ", {"LINE 0,0 10,0"}},
    {"its alias", L"l | 1,2,3 | 4,5,6 | ", {"LINE 1,2,3 4,5,6"}},
    {"relative and polar points", L"L | 1,1 | @2,3 | @10<90 | ", {"LINE 1,1 3,4", "LINE 3,4 3,14"}},
    {"closed", L"L | 0,0 | 4,0 | 4,3 | C", {"LINE 0,0 4,0", "LINE 4,0 4,3", "LINE 4,3 0,0"}},
    {"a segment taken back", L"L | 0,0 | 4,0 | 9,9 | U | 4,3 | ", {"LINE 0,0 4,0", "LINE 4,0 4,3"}},
    {"taken back beyond the first", L"L | 0,0 | 4,0 | U | U | 5,0 | ", {"LINE 0,0 5,0"}, L"déjà annulés"},
    {"closing wants two segments", L"L | 0,0 | 4,0 | C | ", {"LINE 0,0 4,0"}},
    {"cancelled: what is drawn stays", L"L | 0,0 | 4,0 | 5,5 | ESC", {"LINE 0,0 4,0", "LINE 4,0 5,5"}},
    {"goes on from the last point", L"L | 0,0 | 4,0 |  | L |  | 4,4 | ", {"LINE 0,0 4,0", "LINE 4,0 4,4"}},
    {"cancelled at once", L"L | ESC", {}},
};

// A quarter turn has the bulge tan(22.5°) = 0.4142, a half turn 1.
const Row polylines[] = {
    {"straight", L"POLYLIGN | 0,0 | 10,0 | 10,5 | ", {"PLINE 0,0 10,0 10,5"}},
    {"closed", L"PL | 0,0 | 10,0 | 10,5 | Clore", {"PLINE fermée 0,0 10,0 10,5"}},
    {"with an altitude", L"PL | 0,0,7 | 10,0 | ", {"PLINE 0,0,7 10,0,7"}},
    {"tangent arc: a half turn", L"PL | 0,0 | 10,0 | A | 10,4 | ", {"PLINE 0,0 10,0 b1 10,4"}},
    {"back to lines", L"PL | 0,0 | 10,0 | A | 10,4 | LI | 0,4 | ", {"PLINE 0,0 10,0 b1 10,4 0,4"}},
    {"arc closed by an arc", L"PL | 0,0 | A | 0,4 | CL", {"PLINE fermée 0,0 b1 0,4 b1"}},
    {"arc about a centre", L"PL | 10,0 | A | CE | 0,0 | 0,10 | ", {"PLINE 10,0 b0.4142 0,10"}},
    {"arc about a centre by an angle", L"PL | 10,0 | A | CE | 0,0 | A | -90 | ", {"PLINE 10,0 b-0.4142 0,-10"}},
    {"arc by a chord: a sixth of a turn", L"PL | 10,0 | A | CE | 0,0 | L | 10 | ", {"PLINE 10,0 b0.2679 5,8.6603"}},
    {"arc by its angle", L"PL | 0,0 | A | A | 180 | 0,6 | ", {"PLINE 0,0 b1 0,6"}},
    {"arc by its direction", L"PL | 0,0 | A | DI | 90 | 6,0 | ", {"PLINE 0,0 b-1 6,0"}},
    {"arc by its radius: a quarter", L"PL | 10,0 | A | R | 10 | 0,10 | ", {"PLINE 10,0 b0.4142 0,10"}},
    {"arc through a point", L"PL | 10,0 | A | S | 0,10 | -10,0 | ", {"PLINE 10,0 b1 -10,0"}},
    {"a radius too small", L"PL | 0,0 | A | R | 1 | 10,0 | LI | 5,0 | ", {"PLINE 0,0 5,0"}, L"pas d'arc"},
    {"a length along the last segment", L"PL | 0,0 | 3,4 | LO | 5 | ", {"PLINE 0,0 3,4 6,8"}},
    {"a width", L"PL | 0,0 | LA | 2 | 1 | 10,0 | 20,0 | ", {"PLINE 0,0 l2-1 10,0 l1-1 20,0 l1-1"}},
    {"half widths", L"PL | 0,0 | D | 1 |  | 10,0 | ", {"PLINE 0,0 l2-2 10,0 l2-2"}},
    {"a segment taken back", L"PL | 0,0 | 10,0 | 10,9 | U | 10,5 | ", {"PLINE 0,0 10,0 10,5"}},
    {"all segments taken back", L"PL | 0,0 | 10,0 | U | 5,5 | ", {"PLINE 0,0 5,5"}},
    {"no segment, no entity", L"PL | 0,0 | ", {}},
};

const Row circles[] = {
    {"radius", L"CERCLE | 1,2 | 5", {"CIRCLE 1,2 r5"}},
    {"radius by a point", L"C | 0,0 | 3,4", {"CIRCLE 0,0 r5"}},
    {"diameter", L"C | 0,0 | D | 5", {"CIRCLE 0,0 r2.5"}},
    {"the former radius", L"C | 0,0 | 5 | C | 9,9 | ", {"CIRCLE 0,0 r5", "CIRCLE 9,9 r5"}},
    {"two points", L"C | 2P | 0,0 | 6,8", {"CIRCLE 3,4 r5"}},
    {"three points", L"C | 3P | 5,0 | 0,5 | -5,0", {"CIRCLE 0,0 r5"}},
    {"three points on a line", L"C | 3P | 0,0 | 1,1 | 2,2", {}, L"Aucun cercle"},
    {"a radius of zero is refused, then a good one", L"C | 0,0 | 0 | -3 | 2", {"CIRCLE 0,0 r2"}},
};

const Row arcs[] = {
    {"three points", L"ARC | 10,0 | 0,10 | -10,0", {"ARC 0,0 r10 0>180"}},
    {"three points, clockwise", L"A | -10,0 | 0,10 | 10,0", {"ARC 0,0 r10 0>180"}},
    {"start, centre, end", L"A | 10,0 | C | 0,0 | 0,3", {"ARC 0,0 r10 0>90"}},
    {"start, centre, angle", L"A | 10,0 | C | 0,0 | A | 45", {"ARC 0,0 r10 0>45"}},
    {"start, centre, angle backwards", L"A | 10,0 | C | 0,0 | A | -90", {"ARC 0,0 r10 270>0"}},
    {"grads: a quarter", L"AUNITS | 2 | A | 10,0 | C | 0,0 | A | 100", {"ARC 0,0 r10 0>90"}},
    {"start, centre, chord", L"A | 10,0 | C | 0,0 | L | 10", {"ARC 0,0 r10 0>60"}},
    {"centre first", L"A | C | 0,0 | 0,5 | -1,0", {"ARC 0,0 r5 90>180"}},
    {"start, end, centre", L"A | 10,0 | F | 0,10 | 0,0", {"ARC 0,0 r10 0>90"}},
    {"start, end, angle", L"A | 10,0 | F | -10,0 | A | 180", {"ARC 0,0 r10 0>180"}},
    {"start, end, direction", L"A | 10,0 | F | -10,0 | D | 90", {"ARC 0,0 r10 0>180"}},
    {"start, end, radius: the smaller arc", L"A | 10,0 | F | 0,10 | R | 10", {"ARC 0,0 r10 0>90"}},
    {"start, end, negative radius: the larger one", L"A | 10,0 | F | 0,10 | R | -10", {"ARC 10,10 r10 270>180"}},
    {"three points on a line", L"A | 0,0 | 1,0 | 2,0", {}, L"pas d'arc"},
};

const Row others[] = {
    {"point", L"POINT | 3,4,5", {"POINT 3,4,5"}, L"PDMODE="},
    {"text of two lines, 5/3 of its height apart",
     L"TEXTE | 1,2 | 3 | 0 | Borne OGE | rue du Four | ",
     {"TEXT Borne OGE 1,2 h3", "TEXT rue du Four 1,-3 h3"}},
    {"its height is kept for the next one",
     L"T | 0,0 | 4 |  | a |  | T | 9,0 |  |  | b | ",
     {"TEXT a 0,0 h4", "TEXT b 9,0 h4"}},
    {"turned text goes down to its right", L"T | 0,0 | 3 | 90 | a | b | ", {"TEXT a 0,0 h3 r90", "TEXT b 5,0 h3 r90"}},
    {"middle, centre", L"T | J | MC | 5,5 | 2 | 0 | x | ", {"TEXT x 5,5 h2 1/2"}},
    {"top right", L"T | J | HD | 5,5 | 2 | 0 | x | ", {"TEXT x 5,5 h2 2/3"}},
    {"no text", L"T | 0,0 | 2 | 0 | ", {}},
};

std::string nameOf(const testing::TestParamInfo<Row>& info)
{
    std::string name;
    for (const char c : std::string(info.param.name))
        name += std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
    return name;
}

INSTANTIATE_TEST_SUITE_P(line, DrawingCommands, testing::ValuesIn(lines), nameOf);
INSTANTIATE_TEST_SUITE_P(polyline, DrawingCommands, testing::ValuesIn(polylines), nameOf);
INSTANTIATE_TEST_SUITE_P(circle, DrawingCommands, testing::ValuesIn(circles), nameOf);
INSTANTIATE_TEST_SUITE_P(arc, DrawingCommands, testing::ValuesIn(arcs), nameOf);
INSTANTIATE_TEST_SUITE_P(other, DrawingCommands, testing::ValuesIn(others), nameOf);

} // namespace
