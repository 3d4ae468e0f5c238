#include <array>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "points/FileSerializer.h"

#include "dbid.h"
#include "TestFolder.h"

using namespace std::string_literals;

namespace {

class FileSerializerTest : public testing::Test {
protected:
    std::string contenu() const { return contents(chemin); }
    void ecrire(const std::string& octets) const { std::ofstream(chemin, std::ios::binary) << octets; }
    CString large() const { return CString(chemin.c_str()); }

    const TestFolder dossier;
    const std::string chemin = (dossier / "essai.bin").string();
};

TEST_F(FileSerializerTest, writesEachItemByteForByte)
{
    struct Row {
        const char* name;
        std::function<int(FileSerializer&)> write;
        std::string bytes;
    };
    const Row rows[] = {
        {"integer", [](auto& s) { return s.writeInt(0x01020304); }, "i\x04\x03\x02\x01"s},
        {"negative integer", [](auto& s) { return s.writeInt(-1); }, "i\xff\xff\xff\xff"s},
        {"double 1.0", [](auto& s) { return s.writeDouble(1.0); }, "d\0\0\0\0\0\0\xf0\x3f"s},
        {"short", [](auto& s) { return s.writeShort(-2); }, "s\xfe\xff"s},
        {"byte without tag", [](auto& s) { return s.writeByte(200); }, "\xc8"s},
        {"signed byte without tag", [](auto& s) { return s.writeChar(-1); }, "\xff"s},
        {"marker without tag", [](auto& s) { return s.writeMarker(0x69); }, "\x69\0\0\0"s},
        {"block without its length", [](auto& s) { return s.writeBytes("a\0b", 3); }, "ba\0b"s},
        {"empty block", [](auto& s) { return s.writeBytes("", 0); }, "b"s},
        {"enumerated value", [](auto& s) { return s.writeEnum(2); }, "ei\x02\0\0\0"s},
        {"empty text", [](auto& s) { return s.writeString(L""); }, "ci\0\0\0\0b\0"s},
        {"text", [](auto& s) { return s.writeString(L"\u00c9t\u00e9"); }, "ci\x03\0\0\0b\xc9t\xe9\0"s},
        {"text outside the page", [](auto& s) { return s.writeString(L"\u4e2d"); }, "ci\x01\0\0\0b?\0"s},
        {"reference", [](auto& s) { return s.writeId(AcDbObjectId().setFromOldId(0x11223344)); },
         "b\x44\x33\x22\x11\0\0\0\0"s},
        {"null reference", [](auto& s) { return s.writeId(AcDbObjectId()); }, "b\0\0\0\0\0\0\0\0"s},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        FileSerializer s(large(), true);
        EXPECT_EQ(r.write(s), 1);
        EXPECT_EQ(s.fermer(), 1);
        EXPECT_EQ(contenu(), r.bytes);
    }
}

TEST_F(FileSerializerTest, readsBackWhatItWrote)
{
    FileSerializer s(large(), true);
    ASSERT_TRUE(s.writeMarker(7) && s.writeInt(-5) && s.writeDouble(1e38) && s.writeShort(300) && s.writeByte(255) &&
                s.writeChar(-128) && s.writeBytes("0123456789", 10) && s.writeString(L"LEV\u00c9") && s.writeEnum(9) &&
                s.writeId(AcDbObjectId().setFromOldId(12)));
    s.rewind();
    EXPECT_EQ(s.peekInt(), 7);
    EXPECT_EQ(s.expectMarker(8), 0);
    EXPECT_EQ(s.expectMarker(7), 1) << "a file consumes a marker that matches";
    int i = 0;
    double d = 0;
    Adesk::Int16 h = 0;
    Adesk::UInt8 b = 0;
    Adesk::Int8 c = 0;
    std::array<char, 10> bloc{};
    CString texte;
    AcDbObjectId id;
    EXPECT_TRUE(s.readInt(i) && s.readDouble(d) && s.readShort(h) && s.readByte(b) && s.readChar(c));
    EXPECT_TRUE(s.readBytes(bloc.data(), 10) && s.readString(texte));
    EXPECT_EQ(i, -5);
    EXPECT_EQ(d, 1e38);
    EXPECT_EQ(h, 300);
    EXPECT_EQ(b, 255);
    EXPECT_EQ(c, -128);
    EXPECT_EQ(std::string(bloc.data(), 10), "0123456789");
    EXPECT_TRUE(texte == L"LEV\u00c9");

    ASSERT_TRUE(s.writeInt(1)) << "writing appends, wherever reading stands";
    EXPECT_TRUE(s.readEnum(i) && i == 9);
    EXPECT_TRUE(s.readId(id) && id.asOldId() == 12);
    EXPECT_TRUE(s.readInt(i) && i == 1);
    EXPECT_EQ(s.peekInt(), -1);
    EXPECT_EQ(s.readInt(i), 0);
    s.rewind();
    EXPECT_EQ(s.expectMarker(7), 1);
}

TEST_F(FileSerializerTest, staysOnAnotherTag)
{
    ecrire("d\0\0\0\0\0\0\xf0\x3f"s);
    FileSerializer s(large(), false);
    int i = 5;
    EXPECT_EQ(s.readInt(i), 0);
    EXPECT_EQ(i, 5);
    EXPECT_EQ(s.writeInt(1), 0) << "opened for reading only";
    double d = 0;
    EXPECT_EQ(s.readDouble(d), 1);
    EXPECT_EQ(d, 1.0);
}

TEST_F(FileSerializerTest, refusesDamagedItems)
{
    struct Row {
        const char* name;
        std::string bytes;
    };
    const Row rows[] = {
        {"empty file", ""},
        {"cut in the length", "ci\x01\0"s},
        {"cut in the text", "ci\x05\0\0\0bab"s},
        {"negative length", "ci\xff\xff\xff\xff"
                            "b\0"s},
        {"length beyond the reader's buffer", "ci\0\x01\0\0b"s + std::string(257, '\0')},
        {"longest length", "ci\xff\xff\xff\x7f"
                           "b"s},
        {"zero inside the text", "ci\x03\0\0\0ba\0b\0"s},
        {"no terminating zero", "ci\x02\0\0\0babc"s},
        {"block tag missing", "ci\x01\0\0\0ca\0"s},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        ecrire(r.bytes);
        FileSerializer s(large(), false);
        CString texte(L"avant");
        EXPECT_EQ(s.readString(texte), 0);
        EXPECT_TRUE(texte == L"avant");
    }
}

TEST_F(FileSerializerTest, holdsTextsTo1023AndReadsThemTo255)
{
    for (const int longueur : {255, 256, 1023}) {
        FileSerializer s(large(), true);
        ASSERT_EQ(s.writeString(CString(L'x', longueur)), 1);
        s.rewind();
        CString lu;
        EXPECT_EQ(s.readString(lu), longueur <= 255) << longueur;
    }
    FileSerializer s(large(), true);
    EXPECT_THROW(s.writeString(CString(L'x', 1024)), CInvalidArgException*);
    EXPECT_EQ(s.fermer(), 1);
    EXPECT_EQ(contenu(), "");
}

TEST_F(FileSerializerTest, failsWholeWhenTheFileCannotBeUsed)
{
    FileSerializer absent(large(), false);
    int i = 0;
    CString texte;
    AcDbObjectId id;
    char octet = 0;
    EXPECT_EQ(absent.rewind(), 0);
    EXPECT_EQ(absent.peekInt(), -1);
    EXPECT_EQ(absent.expectMarker(0), 0);
    EXPECT_EQ(absent.writeInt(1), 0);
    EXPECT_EQ(absent.writeString(L"a"), 0);
    EXPECT_EQ(absent.readInt(i) + absent.readString(texte) + absent.readId(id) + absent.readBytes(&octet, 1), 0);
    EXPECT_EQ(absent.fermer(), 0);
    EXPECT_FALSE(std::filesystem::exists(chemin)) << "reading creates nothing";

    FileSerializer plein(L"/dev/full", true);
    for (int n = 0; n < 10000; ++n)
        plein.writeInt(n);
    EXPECT_EQ(plein.fermer(), 0) << "a full disk is told";
}

} // namespace
