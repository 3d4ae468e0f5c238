#include <algorithm>
#include <cstring>
#include <tuple>

#include "gi/EntityGraphics.h"
#include "gi/LayoutDrawing.h"

#include "dbdim.h"
#include "DrawingWithEntities.h"
#include "SceneTest.h"
#include "SmallDrawing.h"

/// What shows by its own data: dimensions whose block is missing, classes that are not modelled.

namespace {

Lines linesOf(const std::string& records)
{
    DrawingWithEntities drawing(records);
    return drawn(Scene::of(drawing.database()));
}

/// Texts and arrows a unit high, a point of decimals: the dimension's own values.
const std::string ownStyle = "1001 ACAD\n1000 DSTYLE\n1002 {\n1070 140\n1040 1\n1070 41\n1040 1\n1070 42\n1040 0.5\n"
                             "1070 44\n1040 1\n1070 40\n1040 1\n1070 142\n1040 0\n1070 271\n1070 2\n1070 278\n1070 46\n"
                             "1070 78\n1070 0\n1070 144\n1040 1\n1002 }\n";

std::string dimension(const char* common, const char* marker, const char* points)
{
    return std::string("0 DIMENSION\n100 AcDbDimension\n") + common + "100 " + marker + "\n" + points + ownStyle;
}

/// A chunk of the picture of a proxy: its size and kind, then its numbers.
struct PictureChunk {
    std::string bytes;

    explicit PictureChunk(std::int32_t kind) { integer(kind); }
    PictureChunk& integer(std::int32_t value)
    {
        bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
        return *this;
    }
    PictureChunk& reals(std::initializer_list<double> values)
    {
        for (const double value : values)
            bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
        return *this;
    }
    PictureChunk& text(const std::string& value)
    {
        bytes += value + std::string(4 - value.size() % 4, '\0');
        return *this;
    }
};

/// Values in bits, the highest of a byte first.
struct Bits {
    std::string bytes;
    int used = 8; // of the last byte

    Bits& code(unsigned value, int count = 2)
    {
        for (; count > 0; --count, ++used) {
            if (used == 8) {
                bytes += '\0';
                used = 0;
            }
            if ((value >> (count - 1) & 1U) != 0)
                bytes.back() = static_cast<char>(bytes.back() | 0x80 >> used);
        }
        return *this;
    }
    Bits& byte(unsigned value) { return code(1).code(value, 8); }
    Bits& shortInteger(unsigned value) { return code(0).code(value & 255, 8).code(value >> 8, 8); }
    /// Some bytes of a real, in the order that they are written in.
    Bits& partOf(double value, std::initializer_list<unsigned> which)
    {
        unsigned char all[sizeof value];
        std::memcpy(all, &value, sizeof value);
        for (const unsigned i : which)
            code(all[i], 8);
        return *this;
    }
    Bits& real(double value) { return partOf(value, {0, 1, 2, 3, 4, 5, 6, 7}); }
    Bits& otherReal(double value) { return code(3).real(value); }
};

/// A lightweight polyline in bits.
PictureChunk polylineOf(const Bits& bits, bool counted = false)
{
    PictureChunk chunk(33);
    if (counted)
        chunk.integer(static_cast<std::int32_t>(bits.bytes.size()));
    chunk.bytes += bits.bytes;
    return chunk;
}

/// From (64, 2) by (64, 7) to (65, 7), with the points in full as before 2000, or each as what it has of its own.
Bits corner(unsigned flags, bool wholePoints)
{
    Bits bits;
    bits.shortInteger(flags).byte(3).real(64).real(2);
    if (wholePoints)
        return bits.real(64).real(7).real(65).real(7);
    return bits.code(0).otherReal(7).code(2).partOf(65, {4, 5, 0, 1, 2, 3}).code(0);
}

/// A clip by two corners of a rectangle, moved by ten to the right.
PictureChunk clipTo(double left, double low, double right, double high, bool lastRows = true)
{
    PictureChunk clip(27);
    clip.reals({0, 0, 1, 0, 0, 0}).integer(2).reals({left, low, right, high});
    for (const double moved : {0, 10}) {
        clip.reals({1, 0, 0, moved, 0, 1, 0, 0, 0, 0, 1, 0});
        if (lastRows)
            clip.reals({0, 0, 0, 1});
    }
    return clip.integer(0).integer(0).reals({0, 0}).integer(0);
}

PictureChunk lineBetween(double x, double y, double toX, double toY)
{
    return PictureChunk(6).integer(2).reals({x, y, 0, toX, toY, 0});
}

std::string proxy(const std::vector<PictureChunk>& chunks)
{
    std::string picture(8, '\0');
    for (const PictureChunk& chunk : chunks) {
        const auto size = static_cast<std::int32_t>(chunk.bytes.size() + sizeof(std::int32_t));
        picture.append(reinterpret_cast<const char*>(&size), sizeof size);
        picture += chunk.bytes;
    }
    std::string tags = "0 ACAD_PROXY_ENTITY\n92 " + std::to_string(picture.size()) + "\n310 ";
    for (const char byte : picture) {
        char digits[3] = "";
        std::snprintf(digits, sizeof digits, "%02X", static_cast<unsigned>(static_cast<unsigned char>(byte)));
        tags += digits;
    }
    return tags + "\n100 AcDbProxyEntity\n90 498\n91 500\n93 8\n310 FF\n94 0\n";
}

/// Two units high, its lower left corner at the origin.
const std::string multiText = "0 MTEXT\n100 AcDbMText\n10 0\n20 0\n30 0\n40 2\n71 7\n72 1\n";

struct Row {
    const char* name;
    std::string records;
    Lines expected; ///< the first lines; a text by a part of it
};

const Row rows[] = {
    {"aligned dimension",
     dimension("10 10\n20 5\n30 0\n70 1\n", "AcDbAlignedDimension", "13 0\n23 0\n33 0\n14 10\n24 0\n34 0\n"),
     {"line 7: 0,0.5 0,6", "line 7: 10,0.5 10,6", "line 7: 0,5 10,5", "area 7: 0,5 1,4.833 1,5.167",
      "area 7: 10,5 9,5.167 9,4.833", "<10.00>"}},
    {"turned dimension with a text of its own",
     dimension("10 5\n20 5\n30 0\n70 0\n1 H = <> m\n", "AcDbAlignedDimension",
               "13 0\n23 0\n33 0\n14 3\n24 4\n34 0\n50 90\n100 AcDbRotatedDimension\n"),
     {"line 7: 0.5,0 6,0", "line 7: 3.5,4 6,4", "line 7: 5,0 5,4", "area 7:", "area 7:", "<H = 4.00 m>"}},
    {"radius",
     dimension("10 0\n20 0\n30 0\n70 4\n", "AcDbRadialDimension", "15 3\n25 4\n35 0\n40 0\n"),
     {"line 7: 0,0 3,4", "area 7: 3,4", "<R5.00>"}},
    {"angle between two legs",
     dimension("10 3\n20 3\n30 0\n70 5\n", "AcDb3PointAngularDimension",
               "13 1\n23 0\n33 0\n14 0\n24 1\n34 0\n15 0\n25 0\n35 0\n"),
     {"line 7: 4.243,0 ", "area 7:", "area 7:", "line 7: 1.5,0 ", "line 7: 0,1.5 ", "<90\xC2\xB0>"}},
    {"half line", "0 RAY\n100 AcDbRay\n10 0\n20 0\n30 0\n11 1\n21 0\n31 0\n", {"line 7: 0,0 500,0"}},
    {"construction line far from its base",
     "0 XLINE\n100 AcDbXline\n10 7\n20 100000\n30 0\n11 0\n21 1\n31 0\n",
     {"line 7: 7,-500 7,500"}},
    {"multiple line, one side cut from 2 to 4",
     "0 MLINE\n100 AcDbMline\n2 STANDARD\n40 1\n70 0\n71 1\n72 2\n73 2\n10 0\n20 0\n30 0\n210 0\n220 0\n230 1\n"
     "11 0\n21 0\n31 0\n12 1\n22 0\n32 0\n13 0\n23 1\n33 0\n74 4\n41 0.5\n41 0\n41 2\n41 4\n75 0\n74 2\n41 -0.5\n41 0\n"
     "75 0\n11 10\n21 0\n31 0\n12 1\n22 0\n32 0\n13 0\n23 1\n33 0\n74 2\n41 0.5\n41 0\n75 0\n74 2\n41 -0.5\n41 0\n75 "
     "0\n",
     {"line 7: 0,0.5 2,0.5", "line 7: 4,0.5 10,0.5", "line 7: 0,-0.5 10,-0.5"}},
    {"tolerance",
     "0 TOLERANCE\n100 AcDbFcf\n3 Standard\n10 1\n20 1\n30 0\n1 {\\Fgdt;j}%%v0.1%%vA^J{\\Fgdt;r}%%vB\n11 1\n21 0\n31 "
     "0\n",
     {"line 7: 1,", "text 7: <\xE2\x8A\x95>", "line 7:", "text 7: <0.1>", "line 7:", "text 7: <A>", "line 7: 1,0.46",
      "text 7: <\xE2\x97\x8E>", "line 7:", "text 7: <B>"}},
    {"leader",
     "0 LEADER\n100 AcDbLeader\n71 0\n72 0\n76 3\n10 0\n20 0\n30 0\n10 5\n20 5\n30 0\n10 9\n20 5\n30 0\n",
     {"line 7: 0,0 5,5 9,5"}},
    {"multileader: line, arrow, landing, text",
     "0 MULTILEADER\n100 AcDbMLeader\n300 CONTEXT_DATA{\n40 1\n41 1\n140 1\n290 1\n304 N\n12 10\n22 5\n32 0\n13 1\n"
     "23 0\n33 0\n171 1\n302 LEADER{\n10 5\n20 5\n30 0\n11 1\n21 0\n31 0\n40 4\n304 LEADER_LINE{\n10 5\n20 0\n30 0\n"
     "305 }\n303 }\n301 }\n170 1\n",
     {"line 7: 5,0 5,5", "area 7: 5,0 4.833,1 5.167,1", "line 7: 5,5 9,5", "<N>"}},
    {"image: a frame; its definition is missing",
     "0 IMAGE\n100 AcDbRasterImage\n10 1\n20 2\n30 0\n11 0.5\n21 0\n31 0\n12 0\n22 0.5\n32 0\n13 20\n23 10\n280 0\n",
     {"line 7: 1,2 11,2 11,7 1,7 1,2"}},
    {"wipeout, clipped: hides, then its frame",
     "0 WIPEOUT\n100 AcDbWipeout\n10 0\n20 0\n30 0\n11 10\n21 0\n31 0\n12 0\n22 10\n32 0\n13 1\n23 1\n71 2\n91 4\n"
     "14 -0.5\n24 -0.5\n14 0.5\n24 -0.5\n14 0\n24 0.5\n14 -0.5\n24 -0.5\n",
     {"area ground: 0,10 10,10 5,0", "line 7: 0,10 10,10 5,0 0,10"}},
    {"underlay, turned by a right angle, within its clipping line",
     "0 PDFUNDERLAY\n100 AcDbUnderlayReference\n10 0\n20 0\n30 0\n41 2\n42 2\n43 2\n50 90\n11 0\n21 0\n11 4\n21 3\n",
     {"line 7: 0,0 0,8 -6,8 -6,0 0,0"}},
    {"proxy: its picture, in its colours, moved by a matrix",
     proxy({PictureChunk(6).integer(3).reals({0, 0, 0, 5, 0, 0, 5, 5, 0}), PictureChunk(14).integer(3),
            PictureChunk(29).reals({1, 0, 0, 10, 0, 1, 0, 20, 0, 0, 1, 0, 0, 0, 0, 1}), PictureChunk(20).integer(1),
            PictureChunk(7).integer(3).reals({0, 0, 0, 4, 0, 0, 4, 4, 0}), PictureChunk(31),
            PictureChunk(22).integer(static_cast<std::int32_t>(0xC3000005)),
            PictureChunk(10).reals({1, 2, 0, 0, 0, 1, 1, 0, 0, 2.5, 1, 0}).text("N 12")}),
     {"line 7: 0,0 5,0 5,5", "area 00FF00: 10,20 14,20 14,24", "text 0000FF: <N 12>"}},
    {"proxy: an arc through three points, a face of a shell, a net",
     proxy({PictureChunk(5).reals({1, 0, 0, 0, 1, 0, -1, 0, 0}).integer(0),
            PictureChunk(9)
                .integer(3)
                .reals({0, 0, 0, 9, 0, 0, 9, 9, 0})
                .integer(4)
                .integer(3)
                .integer(0)
                .integer(1)
                .integer(2),
            PictureChunk(8).integer(2).integer(2).reals({0, 0, 0, 2, 0, 0, 0, 2, 0, 2, 2, 0})}),
     {"line 7: 1,0 ", "line 7: 0,0 9,0 9,9 0,0", "line 7: 0,0 2,0", "line 7: 0,2 2,2", "line 7: 0,0 0,2",
      "line 7: 2,0 2,2"}},
    {"proxy: chunks that lie about their sizes end its picture, or show what is there",
     proxy({PictureChunk(6).integer(2000000000).reals({0, 0, 0, 1, 1, 0}),
            PictureChunk(8).integer(70000).integer(70000), PictureChunk(9).integer(-1).integer(-5), PictureChunk(31),
            PictureChunk(4)}),
     {"line 7: 0,0 1,1"}},
    {"proxy: polylines in bits, as older and newer drawings have them, with bulges, widths and names of their points",
     proxy({polylineOf(corner(0, false)), polylineOf(corner(512, true)), polylineOf(corner(512, false), true),
            PictureChunk(29).reals({2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 1}),
            polylineOf(Bits().shortInteger(4 | 8).code(1).code(2).byte(2).real(0).real(0).otherReal(10).code(0)),
            PictureChunk(31), PictureChunk(29).reals({1, 0, 0, 0, 0, 0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 1}),
            polylineOf(Bits().shortInteger(4 | 8).code(1).code(2).byte(2).real(0).real(0).otherReal(10).code(0)),
            PictureChunk(31), PictureChunk(29).reals({1, 0, 0, 0, 0, 3, 0, 0, 0, 0, 9, 0, 0, 0, 0, 1}),
            polylineOf(Bits().shortInteger(4 | 8).code(1).code(2).byte(2).real(0).real(0).otherReal(10).code(0)),
            PictureChunk(31),
            polylineOf(Bits()
                           .shortInteger(1 | 16 | 1024)
                           .code(2)
                           .code(2)
                           .code(1) // normal
                           .byte(2)
                           .byte(1)
                           .byte(1)
                           .real(2)
                           .real(0)
                           .code(0)
                           .otherReal(3)
                           .code(1) // bulge
                           .byte(7))}),
     {"line 7: 64,2 64,7 65,7", "line 7: 64,2 64,7 65,7 64,2", "line 7: 64,2 64,7 65,7 64,2",
      "area 7: 0,1 20,1 20,-1 0,-1", "area 7: 0,0 10,0 10,0 0,0", "area 7: 0,1.5 10,1.5 10,-1.5 0,-1.5",
      "line 7: 2,0 2.168"}},
    {"proxy: bits that make no polyline are passed by",
     proxy({polylineOf(Bits().shortInteger(0).code(0).code(0xFFFFFF7F, 32)), PictureChunk(33),
            polylineOf(Bits().code(0xFFFFFFFF, 32)),
            polylineOf(Bits().shortInteger(0).byte(2).real(1).real(1).otherReal(5).code(0).real(0).real(0)),
            lineBetween(0, 0, 1, 1)}),
     {"line 7: 0,0 1,1"}},
    {"proxy: clips within each other, until they are taken away",
     proxy({clipTo(0, 0, 10, 10), lineBetween(0, 5, 50, 5), clipTo(5, 0, 50, 50, false), PictureChunk(14).integer(1),
            lineBetween(0, 6, 50, 6), PictureChunk(28), lineBetween(0, 7, 50, 7), PictureChunk(27).reals({0, 0, 1}),
            lineBetween(0, 8, 50, 8), PictureChunk(28), PictureChunk(28), lineBetween(0, 9, 50, 9), PictureChunk(28),
            clipTo(3, 3, 3, 9), lineBetween(0, 1, 2, 1)}),
     {"line 7: 10,5 20,5", "line FF0000: 15,6 20,6", "line FF0000: 10,7 20,7", "line FF0000: 10,8 20,8",
      "line FF0000: 0,9 50,9", "line FF0000: 0,1 2,1"}},
    {"proxy: lines without end among others, text with a control code",
     proxy({PictureChunk(13).reals({0, 1, 0, 5, 1, 0}), lineBetween(0, 0, 1, 1),
            PictureChunk(12).reals({7, 3, 0, 7, 4, 0}), PictureChunk(12).reals({7, 3, 0, 7, 3, 0}),
            PictureChunk(10).reals({1, 2, 0, 0, 0, 1, 1, 0, 0, 2.5, 1, 0}).text("%%c 12")}),
     {"line 7: 0,1 500,1", "line 7: 0,0 1,1", "line 7: 7,-500 7,500", "<\xC3\x98 12>"}},
    {"table that lost its block: its cells",
     "0 ACAD_TABLE\n100 AcDbBlockReference\n2 \n10 1\n20 9\n30 0\n100 AcDbTable\n91 1\n92 2\n141 4\n142 10\n142 20\n"
     "171 1\n1 A\n171 1\n1 B\n",
     {"line 7: 1,9 1,5", "line 7: 11,9 11,5", "line 7: 31,9 31,5", "line 7: 1,9 31,9", "line 7: 1,5 31,5", "<A>",
      "<B>"}},
    {"sheet of another program",
     "0 OLE2FRAME\n100 AcDbOle2Frame\n70 2\n3 Feuille\n10 1\n20 9\n30 0\n11 7\n21 5\n31 0\n",
     {"line 7: 1,5 7,5 7,9 1,9 1,5", "<Feuille>"}},
    {"text over a colour", multiText + "90 1\n63 2\n45 2\n1 a\n", {"area FFFF00: -2,-2", "<a>"}},
    {"text that masks", multiText + "90 3\n63 2\n421 255\n45 1\n1 a\n", {"area ground: 0,0", "<a>"}},
    {"gradient: the colour in the middle",
     "0 HATCH\n100 AcDbHatch\n10 0\n20 0\n30 0\n210 0\n220 0\n230 1\n2 SOLID\n70 1\n71 0\n91 1\n92 2\n72 0\n73 1\n93 "
     "3\n"
     "10 0\n20 0\n10 4\n20 0\n10 0\n20 4\n97 0\n75 0\n76 1\n98 0\n450 1\n453 2\n463 0\n63 5\n421 255\n463 1\n63 1\n"
     "421 16711680\n470 LINEAR\n",
     {"area 7F007F: "}},
};

} // namespace

TEST(OwnData, isDrawn)
{
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const Lines lines = linesOf(row.records);
        ASSERT_GE(lines.size(), row.expected.size());
        for (std::size_t i = 0; i < row.expected.size(); ++i)
            EXPECT_NE(lines[i].find(row.expected[i]), std::string::npos) << lines[i] << " for " << row.expected[i];
    }
}

/// Layers and linetypes of pictures are numbers of the drawing's tables, those of layers and blocks not counted.
TEST(OwnData, piecesOfPicturesHaveLayersAndLinetypes)
{
    const auto layer = [](const char* handle, const char* name, const char* flags, const char* color) {
        return recordTags("LAYER", handle,
                          std::string("2 ") + name + "\n70 " + flags + "\n62 " + color + "\n6 TIRETS\n370 -3\n");
    };
    const auto on = [](int layerNumber, int linetypeNumber, double y) {
        return std::vector{PictureChunk(16).integer(layerNumber), PictureChunk(18).integer(linetypeNumber),
                           lineBetween(0, y, 10, y)};
    };
    constexpr int byLayer = 32767, byBlock = 32766, whole = 0, dashed = 1;
    std::vector<PictureChunk> chunks{lineBetween(0, 0, 10, 0)};
    for (const auto& piece : {on(1, whole, 1), on(2, whole, 80), on(3, whole, -80), on(0, dashed, 4), on(1, byLayer, 5),
                              on(1, byBlock, 6), on(-1, 99, 7)})
        chunks.insert(chunks.end(), piece.begin(), piece.end());
    SmallDrawing drawing;
    drawing.linetypes = recordTags("LTYPE", "60", "2 TIRETS\n70 0\n3 \n72 65\n73 2\n40 6\n49 4\n74 0\n49 -2\n74 0\n");
    drawing.layers = layer("61", "ROUGE", "0", "1") + layer("62", "GELE", "1", "2") + layer("63", "ETEINT", "0", "-3");
    const std::string tags = proxy(chunks);
    const std::string rest = tags.substr(tags.find("92 "));
    Box2d box;
    const auto shown = [&](const char* own) {
        drawing.entities = "0 ACAD_PROXY_ENTITY\n5 80\n330 1F\n100 AcDbEntity\n8 " + std::string(own) + "\n" + rest;
        AcDbDatabase database(false);
        database.impl().load(std::make_unique<DxfFile>(drawing.text(), "essai.dxf"));
        Scene& scene = Scene::of(database);
        box = scene.extents();
        return drawn(scene);
    };
    EXPECT_EQ(shown("0"),
              (Lines{"line 7: 0,0 10,0", "line FF0000: 0,1 10,1", "line 7: 0,4 4,4", "line 7: 6,4 10,4",
                     "line FF0000: 0,5 4,5", "line FF0000: 6,5 10,5", "line FF0000: 0,6 10,6", "line 7: 0,7 10,7"}));
    EXPECT_EQ(box.minY, 0.0);
    EXPECT_EQ(box.maxY, 7.0) << "of the layers that show";
    EXPECT_EQ(shown("ETEINT").front(), "line FF0000: 0,1 10,1") << "the rest lies on a layer of its own";
    EXPECT_EQ(box.minY, 1.0);
    EXPECT_EQ(shown("GELE"), Lines());
    EXPECT_TRUE(box.isEmpty());
}

TEST(OwnData, picturesAreDotsFromAfar)
{
    DrawingWithEntities picture(
        proxy({PictureChunk(16).integer(0), PictureChunk(14).integer(1), lineBetween(0, 0, 1, 1)}));
    SceneView far = wideView();
    far.pixel = 10.0;
    EXPECT_EQ(drawn(Scene::of(picture.database()), far), Lines{"dot FF0000: 0.5,0.5"});
}

TEST(OwnData, dimensionsWithoutBlockHaveABox)
{
    for (const auto& [row, low, high] : {std::tuple(0, AcGePoint3d(0, 0, 0), AcGePoint3d(10, 5, 0)),
                                         std::tuple(1, AcGePoint3d(0, 0, 0), AcGePoint3d(5, 4, 0)),
                                         std::tuple(2, AcGePoint3d(0, 0, 0), AcGePoint3d(3, 4, 0)),
                                         std::tuple(3, AcGePoint3d(0, 0, 0), AcGePoint3d(3, 3, 0))}) {
        SCOPED_TRACE(rows[row].name);
        const DrawingWithEntities drawing(rows[row].records);
        AcDbExtents box;
        ASSERT_EQ(drawing.open<AcDbDimension>(0)->getGeomExtents(box), Acad::eOk);
        EXPECT_TRUE(box.minPoint().isEqualTo(low) && box.maxPoint().isEqualTo(high))
            << box.maxPoint().x << " " << box.maxPoint().y;
    }
}

TEST(OwnData, whatIsNotDrawnIsTold)
{
    DrawingWithEntities drawing("0 REGION\n100 AcDbModelerGeometry\n0 3DSOLID\n100 AcDbModelerGeometry\n"
                                "0 3DSOLID\n100 AcDbModelerGeometry\n0 RAY\n100 AcDbRay\n");
    EXPECT_EQ(notDrawnSentence(drawing.database()), "3 entités ne sont pas dessinées : 2 3DSOLID, 1 REGION");
    EXPECT_EQ(notDrawnSentence(DrawingWithEntities("0 RAY\n100 AcDbRay\n").database()), "");
}

/// A layout shows model space turned and scaled through its viewports, cut at them, without the layers they freeze.
TEST(OwnData, layoutsShowModelSpaceInTheirViewports)
{
    SmallDrawing drawing;
    const std::string paper = "330 1B\n100 AcDbEntity\n67 1\n8 0\n";
    const auto viewport = [&](const char* handle, const char* rest) {
        return std::string("0 VIEWPORT\n5 ") + handle + "\n" + paper +
               "100 AcDbViewport\n30 0\n16 0\n26 0\n36 1\n17 0\n" + "27 0\n37 0\n12 0\n22 0\n" + rest;
    };
    drawing.entities =
        "0 LINE\n5 80\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbLine\n10 0\n20 0\n30 0\n11 100\n21 0\n31 0\n" +
        viewport("81", "10 50\n20 50\n40 90\n41 90\n68 1\n69 1\n45 90\n") +
        viewport("82", "10 20\n20 20\n40 10\n41 10\n68 2\n69 2\n45 20\n") +
        viewport("83", "10 60\n20 20\n40 10\n41 10\n68 3\n69 3\n45 20\n51 90\n") +
        viewport("84", "10 90\n20 20\n40 10\n41 10\n68 4\n69 4\n45 20\n331 10\n") +
        viewport("85", "10 90\n20 60\n40 10\n41 10\n68 0\n69 5\n45 20\n");
    AcDbDatabase database(false);
    database.impl().load(std::make_unique<DxfFile>(drawing.text(), "essai.dxf"));
    const std::vector<LayoutTab> tabs = paperLayouts(database);
    ASSERT_EQ(tabs.size(), 1U);
    Scene scene(database, tabs.front().block);
    RecordingSink sink;
    drawLayout(scene, wideView(), sink);
    const auto count = [&](const char* line) { return std::ranges::count(sink.lines, line); };
    EXPECT_EQ(count("line 7: 15,15 25,15 25,25 15,25 15,15"), 1) << "a frame";
    EXPECT_EQ(count("line 7: 20,20 25,20"), 1) << "half the size, cut at the frame";
    EXPECT_EQ(count("line 7: 60,20 60,25"), 1) << "turned";
    EXPECT_EQ(sink.lines.size(), 4U + 2U) << "one layer is frozen, one viewport off, one the paper itself";
}

/// Of a file cut in its objects, the dictionary names layouts that are not there.
TEST(OwnData, aLayoutThatTheFileLostHasTheUsualName)
{
    SmallDrawing drawing;
    drawing.rootEntries = "3 ACAD_LAYOUT\n350 90\n";
    drawing.objects = "0 DICTIONARY\n5 90\n330 C\n100 AcDbDictionary\n3 Plan\n350 91\n";
    AcDbDatabase database(false);
    database.impl().load(std::make_unique<DxfFile>(drawing.text(), "essai.dxf"));
    const std::vector<LayoutTab> tabs = paperLayouts(database);
    ASSERT_EQ(tabs.size(), 1U);
    EXPECT_EQ(tabs.front().name, L"Présentation1");
}

TEST(OwnData, linesWithoutEndSayNothingOfTheSize)
{
    const std::string line = "0 LINE\n100 AcDbLine\n10 1\n20 1\n30 0\n11 2\n21 3\n31 0\n";
    DrawingWithEntities with(rows[5].records + line), alone(rows[5].records);
    EXPECT_EQ(Scene::of(with.database()).extents().maxY, 3.0);
    EXPECT_EQ(Scene::of(alone.database()).extents().maxY, 100000.0) << "its base";
    DrawingWithEntities picture(
        proxy({PictureChunk(13).reals({50, 50, 0, 51, 50, 0}), lineBetween(0, 0, 1, 1), clipTo(0, 0, 10, 10),
               lineBetween(0, 2, 90, 2), PictureChunk(28), PictureChunk(14).integer(1)}));
    Scene& scene = Scene::of(picture.database());
    EXPECT_EQ(scene.extents().maxX, 20.0) << "of what the clip leaves";
    EXPECT_EQ(scene.extents().maxY, 2.0);
    SceneView away = wideView();
    away.center = {100000.0, 0.0};
    EXPECT_EQ(drawn(scene, away).size(), 1U) << "what goes on is seen from afar";
}
