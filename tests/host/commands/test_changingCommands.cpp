#include "CommandTest.h"

/// What is drawn first, what is typed then, and what stands there after it. U gives the drawing back byte for byte.

namespace {

struct Row {
    const char* name;
    const wchar_t* first;
    const wchar_t* typed;
    std::vector<std::string> expected;
    const wchar_t* told = L""; ///< part of what is printed
};

class ChangingCommands : public CommandTest, public testing::WithParamInterface<Row> {};

TEST_P(ChangingCommands, changeAndAreTakenBack)
{
    const Row& row = GetParam();
    typed(row.first);
    const auto drawn = entities();
    const std::string before = bytes();
    printed();
    typed(row.typed);
    EXPECT_EQ(entities(), row.expected);
    EXPECT_NE(printed().find(row.told), std::wstring::npos);
    if (entities() == drawn)
        return;
    typed(L"U");
    EXPECT_EQ(entities(), drawn);
    EXPECT_EQ(bytes(), before);
    typed(L"RETABLIR");
    EXPECT_EQ(entities(), row.expected);
}

constexpr const wchar_t* kLine = L"L | 0,0 | 10,0 | ";
constexpr const wchar_t* kTwo = L"L | 0,0 | 10,0 |  | C | 20,0 | 5";
constexpr const wchar_t* kLocked = L"L | 0,0 | 10,0 |  | CA | CR | Bornes |  | C | 20,0 | 5 | CA | V | Bornes | ";

const Row rows[] = {
    {"erase the last", kTwo, L"EFFACER | _L | ", {"LINE 0,0 10,0"}},
    {"erase all", kTwo, L"E | _ALL | ", {}},
    {"erase in a window", kTwo, L"E | _W | 10,-10 | 30,10 | ", {"LINE 0,0 10,0"}},
    {"erase nothing", kLine, L"E | ", {"LINE 0,0 10,0"}},
    {"erasing is cancelled", kLine, L"E | _ALL | ESC", {"LINE 0,0 10,0"}},
    {"a locked layer stays", kLocked, L"E | _C | -5,-10 | 30,10 | ", {"CIRCLE 20,0 r5"}, L"verrouillé"},
    {"a copy of what is locked",
     kLocked,
     L"CO | _C | -5,-10 | 30,10 |  | 0,0 | 0,9 | ",
     {"LINE 0,0 10,0", "CIRCLE 20,0 r5", "LINE 0,9 10,9", "CIRCLE 20,9 r5"}},
    {"a line taken back on a locked layer", L"CA | CR | A | V | A | ", L"L | 0,0 | 1,1 | 2,2 | U | ", {"LINE 0,0 1,1"}},

    {"move by two points", kTwo, L"DEPLACER | _ALL |  | 1,1 | 4,5", {"LINE 3,4 13,4", "CIRCLE 23,4 r5"}},
    {"move by a displacement", kLine, L"M | _L |  | 1,2,3 | ", {"LINE 1,2,3 11,2,3"}},
    {"move by the option", kLine, L"M | _L |  | D | 5,0", {"LINE 5,0 15,0"}},
    {"move, Enter at the base", kLine, L"M | _L |  |  | 5,0", {"LINE 5,0 15,0"}},

    {"scale beyond all numbers", kLine, L"ECHELLE | _L |  | 0,0 | 1e308", {"LINE 0,0 10,0"}, L"transformé"},

    {"a copy scaled beyond all numbers", kLine, L"EC | _L |  | 0,0 | C | 1e308", {"LINE 0,0 10,0"}, L"transformé"},
    {"a copy that was cancelled", kLine, L"RO | _L |  | 0,0 | C | ESC", {"LINE 0,0 10,0"}},

    {"copy many", kLine, L"COPIER | _L |  | 0,0 | 0,1 | 0,2 | ", {"LINE 0,0 10,0", "LINE 0,1 10,1", "LINE 0,2 10,2"}},
    {"a copy taken back", kLine, L"CO | _L |  | 0,0 | 0,1 | 0,2 | U | Q", {"LINE 0,0 10,0", "LINE 0,1 10,1"}},
    {"copy by a displacement", kLine, L"CO | _L |  | 0,3 | ", {"LINE 0,0 10,0", "LINE 0,3 10,3"}},

    {"rotate", kTwo, L"ROTATION | _ALL |  | 0,0 | 90", {"LINE 0,0 0,10", "CIRCLE 0,20 r5"}},
    {"rotate a copy", kLine, L"RO | _L |  | 0,0 | C | 90", {"LINE 0,0 10,0", "LINE 0,0 0,10"}},
    {"rotate from a reference", kLine, L"RO | _L |  | 0,0 | R | 45 | 90", {"LINE 0,0 7.0711,7.0711"}},
    {"rotate by grads", L"AUNITS | 2 | L | 0,0 | 10,0 | ", L"RO | _L |  | 0,0 | 100", {"LINE 0,0 0,10"}},
    {"turn text", L"T | 5,0 | 2 | 0 | x | ", L"RO | _L |  | 0,0 | 90", {"TEXT x 0,5 h2 r90"}},

    {"scale", kTwo, L"ECHELLE | _ALL |  | 0,0 | 2", {"LINE 0,0 20,0", "CIRCLE 40,0 r10"}},
    {"scale from a reference", kLine, L"EC | _L |  | 0,0 | R | 10 | 25", {"LINE 0,0 25,0"}},
    {"scale a copy", kLine, L"EC | _L |  | 0,0 | C | 0.5", {"LINE 0,0 10,0", "LINE 0,0 5,0"}},
    {"a factor of zero is refused", kLine, L"EC | _L |  | 0,0 | 0 | -1 | 3", {"LINE 0,0 30,0"}},

    {"mirror, the originals stay",
     kTwo,
     L"MIROIR | _ALL |  | 0,-5 | 10,-5 | ",
     {"LINE 0,0 10,0", "CIRCLE 20,0 r5", "LINE 0,-10 10,-10", "CIRCLE 20,-10 r5"}},
    {"mirror and erase", kLine, L"MI | _L |  | 0,0 | 0,1 | O", {"LINE 0,0 -10,0"}},
    {"a mirrored arc turns the other way",
     L"A | 10,0 | C | 0,0 | 0,10",
     L"MI | _L |  | 0,0 | 0,1 | O",
     {"ARC 0,0 r10 90>180"}},
    {"mirrored across nothing", kLine, L"MI | _L |  | 0,0 | 0,0", {"LINE 0,0 10,0"}, L"confondus"},
    {"mirrored text is upright: its box is 1.6236 wide, from 5 on",
     L"T | 5,0 | 2 | 0 | x | ",
     L"MI | _L |  | 0,0 | 0,1 | O",
     {"TEXT x -6.6236,0 h2"}},
    {"and upside down it is not either", L"T | 5,0 | 2 | 0 | x | ", L"MI | _L |  | 0,0 | 1,0 | O", {"TEXT x 5,-2 h2"}},

    {"explode a polyline",
     L"PL | 0,0 | 10,0 | A | 10,4 | ",
     L"DECOMPOS | _L | ",
     {"LINE 0,0 10,0", "ARC 10,2 r2 270>90"}},
    {"a line has no parts", kLine, L"X | _L | ", {"LINE 0,0 10,0"}, L"1 objet ne peut être décomposé"},
};

std::string nameOf(const testing::TestParamInfo<Row>& info)
{
    std::string name;
    for (const char c : std::string(info.param.name))
        name += std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
    return name;
}

INSTANTIATE_TEST_SUITE_P(rows, ChangingCommands, testing::ValuesIn(rows), nameOf);

} // namespace
