#include <filesystem>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "dxf/DxfError.h"
#include "dxf/DxfFile.h"

#include "DxfSamples.h"
#include "exerciseDxf.h"

using namespace dxf_samples;

TEST(DxfHostileTest, RefusalsNameFileLineAndReason)
{
    struct Row {
        const char* name;
        std::string bytes;
        const char* message;
    };
    const std::string whole = asciiDxf(r2000);
    const Row rows[] = {
        {"nothing", "", "plan.dxf : fichier vide"},
        {"a picture", "\x89PNG\r\n\x1A\nxxxx\n",
         "plan.dxf, ligne 1 : code de groupe illisible « ?PNG » ; aucune section, ce n'est pas un dessin DXF"},
        {"a DWG under the other name", "AC1032", "plan.dxf : c'est un dessin DWG : donnez-lui l'extension « .dwg »"},
        {"codes only", "  0\r\nEOF\r\n", "plan.dxf, ligne 1 : aucune section, ce n'est pas un dessin DXF"},
        {"cut before the first section has a name", "  0\r\nSECTION\r\n  2\r\nHEA",
         "plan.dxf, ligne 1 : aucune section, ce n'est pas un dessin DXF"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        try {
            DxfFile file(row.bytes, "/home/levé/plan.dxf");
            ADD_FAILURE() << "accepted";
        } catch (const DxfError& error) {
            EXPECT_STREQ(error.what(), row.message);
        }
    }
    EXPECT_THROW(DxfFile("/nulle/part.dxf"), DxfError);
    EXPECT_THROW(DxfFile(std::filesystem::temp_directory_path().string()), DxfError);
}

TEST(DxfHostileTest, RepairsSpoilOneRecordOnly)
{
    struct Row {
        const char* name;
        std::string spoiled; // inside the first entity
        int line;
        const char* what;
    };
    const Row rows[] = {
        {"unreadable code", " xx\nvalue\n", 17, "code de groupe illisible « xx »"},
        {"text cut over two lines", "  1\nfirst\nsecond, spilt\n", 19, "code de groupe illisible « second, spilt »"},
        {"value line missing", " 10\n", 19, "code de groupe illisible « 1.5 »"},
        {"code beyond all", "99999\n1\n", 17, "code de groupe illisible « 99999 »"},
        {"group 0 with a number", "  0\n12.5\n", 17, "nom d'objet illisible « 12.5 »"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const std::string before = asciiDxf("0 SECTION\n2 HEADER\n9 $ACADVER\n1 AC1015\n0 ENDSEC\n"
                                            "0 SECTION\n2 ENTITIES\n0 LINE\n",
                                            "\n");
        const std::string after =
            asciiDxf("10 1.5\n20 2.5\n0 POINT\n5 B\n8 0\n10 1.0\n20 1.0\n0 ENDSEC\n0 EOF\n", "\n");
        std::string bytes = before;
        bytes.append(row.spoiled).append(after);
        DxfFile file(bytes, "plan.dxf");
        EXPECT_EQ(file.bytes(), bytes);
        ASSERT_GE(file.problems().size(), 1u);
        EXPECT_EQ(file.problems()[0].line, row.line);
        EXPECT_EQ(file.problems()[0].what, row.what);
        const DxfRange* entities = file.section("ENTITIES");
        ASSERT_EQ(entities->last - entities->first, 3u);
        const DxfRecord& spoiled = file.records()[entities->first + 1];
        EXPECT_TRUE(spoiled.flags & DxfRecord::spoiled);
        EXPECT_EQ(file.repairedBytes(spoiled), file.bytes(spoiled));
        EXPECT_EQ(file.records()[entities->first + 2].handle, 0xBu);
        EXPECT_FALSE(file.records()[entities->first + 2].flags & DxfRecord::spoiled);
    }
}

/// What the file has up to the cut is read, as if it had been closed there.
TEST(DxfHostileTest, CutFilesGoAsFarAsTheyGo)
{
    struct Row {
        const char* name;
        std::string bytes;
        std::vector<std::string> told;
        const char* section;   ///< the last one
        std::uint32_t records; ///< in it, with its head and end
    };
    const std::string whole = asciiDxf(r2000), line = whole.substr(0, whole.find("AcDbLine") + 10);
    const std::string inHeader = "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1015\n  9\n$EXTM";
    const Row rows[] = {
        {"in an object",
         line,
         {"le dernier objet (LINE) est coupé ou peut l'être, il n'est pas repris",
          "fichier tronqué, la section « ENTITIES » n'est pas terminée"},
         "ENTITIES",
         2},
        {"in the header", inHeader, {"fichier tronqué, la section « HEADER » n'est pas terminée"}, "HEADER", 2},
        {"in the binary form",
         binaryDxf(r2000).substr(0, 300),
         {"fichier tronqué, la section « TABLES » n'est pas terminée (octet 300)"},
         "TABLES",
         4},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const DxfFile file(row.bytes, "plan.dxf");
        std::vector<std::string> told;
        for (const DxfProblem& problem : file.problems())
            told.push_back(problem.what);
        EXPECT_EQ(told, row.told);
        EXPECT_TRUE(file.wasRepaired());
        EXPECT_EQ(file.sections().back().name, row.section);
        EXPECT_EQ(file.sections().back().last - file.sections().back().first + 1, row.records);
        const DxfFile again(std::string(file.bytes()), "relu.dxf");
        EXPECT_TRUE(again.problems().empty()) << again.problems().front().what;
    }
}

TEST(DxfHostileTest, AnEndsecWithinASectionHidesNothing)
{
    const std::string point = "0 POINT\n5 B\n8 0\n10 1.0\n20 1.0\n";
    const std::string head =
        "0 SECTION\n2 HEADER\n9 $ACADVER\n1 AC1015\n0 ENDSEC\n0 SECTION\n2 ENTITIES\n0 LINE\n5 A\n8 0\n";
    const DxfFile file(asciiDxf(head + "0 ENDSEC\n" + point + "0 ENDSEC\n0 EOF\n"), "plan.dxf");
    ASSERT_EQ(file.problems().size(), 1u);
    EXPECT_EQ(file.problems()[0].what, "« ENDSEC » au milieu d'une section, retiré");
    EXPECT_EQ(file.bytes(), asciiDxf(head + point + "0 ENDSEC\n0 EOF\n"));
    // Objects of a section that lost its head are no entities.
    const DxfFile headless(asciiDxf(head + "0 ENDSEC\n0 DICTIONARY\n5 C\n0 ENDSEC\n0 EOF\n"), "plan.dxf");
    EXPECT_FALSE(headless.wasRepaired());
}

TEST(DxfHostileTest, AHeadThatCannotBeReadIsMadeAgain)
{
    const std::string whole = asciiDxf(r2000, "\n"), zeros(90, '\0');
    const std::size_t variables = whole.find("HEADER") + 7, end = whole.find("  0\nENDSEC"),
                      tables = whole.find("TABLES");
    struct Row {
        const char* name;
        std::string bytes;
        int version;
        std::string seed;
    };
    const Row rows[] = {
        {"noise between two variables", whole.substr(0, variables) + "\x1?\n" + whole.substr(variables), 1015, "5000"},
        {"all of the header", whole.substr(0, variables) + zeros + whole.substr(end), 1024, "140"},
        {"zeros up to the end of the header", zeros + whole.substr(end + 4), 1024, "140"},
        {"the first sector", zeros + whole.substr(tables + 40), 1024, "140"},
        {"binary",
         [] {
             std::string bytes = binaryDxf(r2000);
             bytes.replace(bytes.find("$ACADVER") - 2, 14, 14, '\xFF');
             return bytes;
         }(),
         1024, "140"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const DxfFile file(row.bytes, "plan.dxf");
        EXPECT_TRUE(file.wasRepaired());
        EXPECT_FALSE(file.problems().empty());
        EXPECT_EQ(file.form().version, row.version);
        EXPECT_EQ(file.sections().front().name, "HEADER");
        EXPECT_EQ(file.headerValue("$HANDSEED", 5), row.seed);
        EXPECT_EQ(file.tables().front().name, "LAYER");
        EXPECT_TRUE(file.section("TABLES") && file.section("ENTITIES") && file.section("OBJECTS"));
        EXPECT_NE(file.handles().find(0x30), HandleTable::none);
        const DxfFile again(std::string(file.bytes()), "relu.dxf");
        EXPECT_FALSE(again.wasRepaired());
        EXPECT_TRUE(again.problems().empty()) << again.problems().front().what;
    }
}

TEST(DxfHostileTest, OddEndings)
{
    std::string text(r2000);
    text.resize(text.find("0 EOF"));
    const DxfFile without(asciiDxf(text), "plan.dxf");
    ASSERT_EQ(without.problems().size(), 1u);
    EXPECT_EQ(without.problems()[0].what, "la marque de fin « EOF » manque");
    // What is written behind it must not be taken for more of its last line.
    std::string lineOpen = asciiDxf(text);
    lineOpen.erase(lineOpen.find_last_not_of("\r\n") + 1);
    const DxfFile closed(lineOpen, "plan.dxf");
    EXPECT_TRUE(closed.bytes().starts_with(lineOpen + "\r\n"));
    EXPECT_TRUE(closed.bytes().ends_with("0\r\nEOF\r\n"));

    const DxfFile unclosed(
        asciiDxf("0 SECTION\n2 HEADER\n9 $ACADVER\n1 AC1015\n0 SECTION\n2 ENTITIES\n0 ENDSEC\n0 EOF\n"), "plan.dxf");
    ASSERT_EQ(unclosed.problems().size(), 1u);
    EXPECT_EQ(unclosed.problems()[0].what, "la section « HEADER » n'est pas terminée");
    EXPECT_EQ(unclosed.problems()[0].line, 9);
}

TEST(DxfHostileTest, EveryPrefixIsReadOrRefused)
{
    for (const std::string_view drawing : {r2000, r12}) {
        for (const std::string& whole :
             {asciiDxf(drawing), asciiDxf(drawing, "\n"), binaryDxf(drawing), binaryDxf(drawing, drawing == r12)}) {
            ASSERT_TRUE(exerciseDxf(whole, DxfUpgrade::toR2000));
            for (std::size_t size = 0; size < whole.size(); ++size) {
                exerciseDxf(std::string_view(whole).substr(0, size), DxfUpgrade::toR2000);
            }
        }
    }
}

// Each line in turn left out, doubled, or emptied: parity is lost at every place there is.
TEST(DxfHostileTest, EveryLineSpoiled)
{
    for (const std::string_view drawing : {r2000, r12}) {
        std::vector<std::string> lines;
        std::istringstream stream(asciiDxf(drawing, "\n"));
        for (std::string line; std::getline(stream, line);)
            lines.push_back(line + "\n");
        for (std::size_t spoiled = 0; spoiled < lines.size(); ++spoiled) {
            for (const std::string& instead : {std::string(), lines[spoiled] + lines[spoiled], std::string("\n"),
                                               std::string("nan\n"), std::string("\0\xFF\n", 3)}) {
                std::string bytes;
                for (std::size_t i = 0; i < lines.size(); ++i)
                    bytes += i == spoiled ? instead : lines[i];
                exerciseDxf(bytes, DxfUpgrade::toR2000);
            }
        }
    }
}

TEST(DxfHostileTest, HugeButLinear)
{
    const std::string megabyte(1 << 20, 'x');
    EXPECT_TRUE(exerciseDxf(asciiDxf(withEntities("0 TEXT\n5 A\n1 " + megabyte + "\n")), DxfUpgrade::toR2000));
    EXPECT_FALSE(exerciseDxf(megabyte + "\n" + megabyte + "\n", DxfUpgrade::toR2000));
    std::string tiny;
    for (int i = 0; i < 200000; ++i)
        tiny += "0 P\n";
    EXPECT_TRUE(exerciseDxf(asciiDxf(withEntities(tiny)), DxfUpgrade::toR2000));
    std::string bad;
    for (int i = 0; i < 200000; ++i)
        bad += "x\ny\n";
    EXPECT_FALSE(exerciseDxf(asciiDxf("0 SECTION\n2 ENTITIES\n", "\n") + bad, DxfUpgrade::toR2000));
}

TEST(DxfHostileTest, Corpus)
{
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(VELA_SOURCE_DIR "/tests/host/dxf/corpus")) {
        const std::string bytes = contents(entry.path());
        exerciseDxf(bytes, DxfUpgrade::none);
        exerciseDxf(bytes, DxfUpgrade::toR2000);
        ++files;
    }
    EXPECT_GT(files, 0);
}
