#include <array>
#include <functional>
#include <numeric>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "points/projetsTopo.h"
#include "points/ResbufSerializer.h"

#include "acutads.h"
#include "dbid.h"

namespace {

/// The chain as "group=value" items.
std::string decrire(const resbuf* item)
{
    std::ostringstream texte;
    for (; item; item = item->rbnext) {
        texte << item->restype << '=';
        switch (item->restype) {
        case 40:
            texte << item->resval.rreal;
            break;
        case 70:
        case 280:
            texte << item->resval.rint;
            break;
        case 300:
            texte << CStringA(item->resval.rstring).GetString();
            break;
        case 310:
            texte << '[' << item->resval.rbinary.clen << ']';
            break;
        default:
            texte << item->resval.rlong;
        }
        texte << ' ';
    }
    return texte.str();
}

TEST(ResbufSerializer, writesOneItemAValue)
{
    const std::string bloc(300, 'x');
    struct Row {
        const char* name;
        std::function<int(ResbufSerializer&)> write;
        const char* chain;
    };
    const Row rows[] = {
        {"integer", [](auto& s) { return s.writeInt(-70000); }, "90=-70000 "},
        {"marker", [](auto& s) { return s.writeMarker(3); }, "90=3 "},
        {"short", [](auto& s) { return s.writeShort(-2); }, "70=-2 "},
        {"byte", [](auto& s) { return s.writeByte(200); }, "280=200 "},
        {"signed byte", [](auto& s) { return s.writeChar(-1); }, "280=-1 "},
        {"double", [](auto& s) { return s.writeDouble(2.5); }, "40=2.5 "},
        {"enumerated value", [](auto& s) { return s.writeEnum(4); }, "91=4 "},
        {"empty text", [](auto& s) { return s.writeString(L""); }, "300= "},
        {"text", [](auto& s) { return s.writeString(L"LEVE"); }, "300=LEVE "},
        {"null reference", [](auto& s) { return s.writeId(AcDbObjectId()); }, "90=-9999999 "},
        {"block in chunks", [&](auto& s) { return s.writeBytes(bloc.data(), 300); },
         "92=300 310=[127] 310=[127] 310=[46] "},
        {"block of one full chunk", [&](auto& s) { return s.writeBytes(bloc.data(), 127); }, "92=127 310=[127] "},
        {"empty block", [](auto& s) { return s.writeBytes("", 0); }, "92=0 "},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        ResbufSerializer s;
        EXPECT_EQ(r.write(s), 1);
        EXPECT_EQ(decrire(s.chaine()), r.chain);
        EXPECT_EQ(reinterpret_cast<const resbuf*>(s.rewind()), s.chaine());
    }
    EXPECT_EQ(ResbufSerializer().rewind(), 0);
}

TEST(ResbufSerializer, readsBackWhatItWrote)
{
    std::string bloc(300, '\0');
    std::iota(bloc.begin(), bloc.end(), '\0');
    ResbufSerializer s(acutBuildList(90, 1L, 0));
    ASSERT_TRUE(s.writeDouble(1e38) && s.writeShort(300) && s.writeByte(255) && s.writeChar(-128) &&
                s.writeBytes(bloc.data(), 300) && s.writeString(L"\u4e2d") && s.writeEnum(9) &&
                s.writeId(AcDbObjectId()));
    EXPECT_EQ(s.peekInt(), 1) << "written after the chain that was given";
    EXPECT_EQ(s.expectMarker(2), 0);
    EXPECT_EQ(s.expectMarker(1), 1);
    EXPECT_EQ(s.expectMarker(1), 1) << "a chain does not consume a marker";
    int i = 0;
    double d = 0;
    Adesk::Int16 h = 0;
    Adesk::UInt8 b = 0;
    Adesk::Int8 c = 0;
    std::string lu(300, 'x');
    CString texte;
    AcDbObjectId id = AcDbObjectId().setFromOldId(1);
    EXPECT_EQ(s.readDouble(d), 0);
    EXPECT_TRUE(s.readInt(i) && i == 1) << "the failed read stayed on the 90";
    EXPECT_TRUE(s.readDouble(d) && s.readShort(h) && s.readByte(b) && s.readChar(c));
    EXPECT_TRUE(s.readBytes(lu.data(), 300) && s.readString(texte) && s.readEnum(i) && s.readId(id));
    EXPECT_EQ(d, 1e38);
    EXPECT_EQ(h, 300);
    EXPECT_EQ(b, 255);
    EXPECT_EQ(c, -128);
    EXPECT_EQ(lu, bloc);
    EXPECT_TRUE(texte == L"\u4e2d");
    EXPECT_EQ(i, 9);
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(s.peekInt(), -1);
    EXPECT_EQ(s.readInt(i) + s.readString(texte) + s.readId(id), 0);

    ASSERT_EQ(s.writeInt(5), 1);
    EXPECT_TRUE(s.readInt(i) && i == 5) << "what is added at the end is read on";
}

TEST(ResbufSerializer, readsBlocksStrictly)
{
    const auto morceau = [](const char* texte) {
        const ads_binary b{static_cast<short>(std::char_traits<char>::length(texte)), const_cast<char*>(texte)};
        return acutBuildList(310, &b, 0);
    };
    struct Row {
        const char* name;
        long length;
        std::vector<const char*> chunks;
        const char* block;
        int after; // group code on which the position stands
    };
    const Row rows[] = {
        {"one chunk", 4, {"abcd"}, "abcd", 90},
        {"uneven chunks", 4, {"a", "bcd"}, "abcd", 90},
        {"a chunk longer than what is wanted", 4, {"abcdefgh"}, "abcd", 90},
        {"another length", 5, {"abcde"}, nullptr, 92},
        {"too few chunks: on the item that is no chunk", 4, {"ab"}, nullptr, 90},
        {"an empty chunk ends the read", 4, {"ab", "", "cd"}, nullptr, 310},
        {"no chunk", 4, {}, nullptr, 90},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        resbuf* const chaine = acutBuildList(92, r.length, 0);
        resbuf* queue = chaine;
        for (const char* texte : r.chunks)
            queue = queue->rbnext = morceau(texte);
        queue->rbnext = acutBuildList(90, 7L, 0);
        ResbufSerializer s(chaine);
        std::array<char, 5> lu{};
        EXPECT_EQ(s.readBytes(lu.data(), 4), r.block != nullptr);
        if (r.block) {
            EXPECT_STREQ(lu.data(), r.block);
        }
        int i = 0;
        EXPECT_EQ(s.readInt(i), r.after == 90);
    }
}

TEST(ResbufSerializer, replacesItsChain)
{
    ResbufSerializer s;
    s.writeInt(1);
    s.prendre(acutBuildList(40, 1.5, 0));
    double d = 0;
    EXPECT_TRUE(s.readDouble(d) && d == 1.5);
    s.prendre(nullptr);
    EXPECT_EQ(s.chaine(), nullptr);
}

TEST(ResbufSerializer, holdsAProjectInTheStoredForm)
{
    projetsTopo projet;
    projet.currTable()->setNomTable(L"T");
    pointDuDessin point;
    point.setParams(L"P1", AcGePoint3d(1.5, 2.5, 3.5), 7);
    projet.currTable()->Ajouter(point);
    projet.creerTablePoints(L"U");
    projet.setCourante(1);
    ResbufSerializer s;
    ASSERT_EQ(projet.SaveToXRecord(&s), 1);
    EXPECT_EQ(decrire(s.chaine()), "90=1 90=2 300=T 90=1 92=10 310=[10] 90=7 40=1.5 40=2.5 40=3.5 90=-9999999 "
                                   "300=U 90=0 ");
    projetsTopo lu;
    EXPECT_EQ(lu.GetFromXRecord(&s), 1);
    EXPECT_EQ(lu.getCourante(), 1);
    EXPECT_TRUE(*lu.getTable(0)->getData(0) == point);
    EXPECT_EQ(lu.GetFromXRecord(&s), 1) << "reading begins at the head";

    ResbufSerializer vide;
    EXPECT_EQ(lu.GetFromXRecord(&vide), 0) << "nothing stored";
    EXPECT_TRUE(lu.getTable(0)->getNomTable() == L"LEVE");
}

/// Other modules call the operations by their place in the table of virtual operations.
TEST(QuarvelSerializer, keepsItsSlots)
{
    struct slots final : QuarvelSerializer {
        Adesk::IntPtr rewind() override { return 0; }
        int peekInt() override { return 1; }
        int expectMarker(int) override { return 2; }
        int writeMarker(int) override { return 3; }
        int writeId(const AcDbObjectId&) override { return 4; }
        int writeShort(Adesk::Int16) override { return 5; }
        int writeByte(Adesk::UInt8) override { return 6; }
        int writeChar(Adesk::Int8) override { return 7; }
        int writeDouble(double) override { return 8; }
        int writeBytes(const void*, int) override { return 9; }
        int writeInt(int) override { return 10; }
        int writeString(const CString&) override { return 11; }
        int writeEnum(int) override { return 12; }
        int readId(AcDbObjectId&) override { return 13; }
        int readByte(Adesk::UInt8&) override { return 14; }
        int readChar(Adesk::Int8&) override { return 15; }
        int readDouble(double&) override { return 16; }
        int readBytes(void*, int) override { return 17; }
        int readInt(int&) override { return 18; }
        int readString(CString&) override { return 19; }
        int readShort(Adesk::Int16&) override { return 20; }
        int readEnum(int&) override { return 21; }
    } s;
    void** const table = *reinterpret_cast<void***>(&s);
    for (int i = 0; i < 22; ++i)
        EXPECT_EQ(reinterpret_cast<int (*)(void*)>(table[i])(&s), i);
}

} // namespace
