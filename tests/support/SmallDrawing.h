#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "db/DatabaseImpl.h"
#include "db/ObjectOpening.h"

#include "dbents.h"
#include "dbxrecrd.h"
#include "DxfTags.h"
#include "TestFolder.h"

/// Small drawings written by hand. Tags stand one a line: group code, one blank, value.

/// What a drawing holds beside what every drawing has. Handles below 40 are the drawing's own: tables 1 to 9, layer "0"
/// 10, model space 1F, paper space 1B, root dictionary C.
struct SmallDrawing {
    std::string version = "AC1024";
    std::string codePage = "ANSI_1252";
    std::string eol = "\r\n";
    std::string first;  ///< before the first section
    std::string header; ///< variables
    std::string classes, layers, styles, linetypes, applications, blockRecords, blocks, entities;
    std::string rootEntries; ///< of the root dictionary
    std::string objects;
    std::string sections;   ///< behind OBJECTS
    std::string afterEnd;   ///< bytes behind EOF
    bool modelSpace = true; ///< whether the block of model space is there

    /// As an ASCII file.
    std::string text() const;
    /// As a binary one.
    std::string binary() const;
};

/// The tags of an entity of model space: those that all have, then its own behind the marker of its class.
std::string entityTags(const std::string& type, const std::string& handle, const std::string& marker,
                       const std::string& tags, const std::string& layer = "0", const std::string& owner = "1F");
/// A LINE from (0, 0, 0) to (1, 1, 1).
std::string lineTags(const std::string& handle, const std::string& owner = "1F");
/// A record of a symbol table; its own tags begin with its name, "2 ...".
std::string recordTags(const std::string& type, const std::string& handle, const std::string& tags,
                       const std::string& head = {});
/// BLOCK, content and ENDBLK of a block whose record is `owner`; they take the two handles from `handle` on.
std::string blockTags(const std::string& name, const std::string& owner, int handle, const std::string& content = {},
                      const std::string& base = "0");

/// The tags of a file as lines "code|value"; texts as their bytes.
std::vector<std::string> tagsOf(const std::string& file);
/// What changed from one file to the other: "-code|value" for tags that went, "+code|value" for those that came, in
/// the order of the file. $HANDSEED is left out.
std::vector<std::string> changes(const std::string& before, const std::string& after);
using Changes = std::vector<std::string>;

/// A folder of its own for each test, whose drawings are closed and closed well.
class DrawingTest : public testing::Test {
protected:
    ~DrawingTest() override;

    /// Writes a file and opens it.
    std::unique_ptr<AcDbDatabase> open(const std::string& bytes, const char* name = "plan.dxf");
    std::unique_ptr<AcDbDatabase> open(const SmallDrawing& drawing) { return open(drawing.text()); }
    /// Saves under another name, and gives what was written.
    std::string saved(AcDbDatabase& database, const char* name = "sortie.dxf");
    std::wstring path(const char* name) const { return (root / name).wstring(); }
    void write(const char* name, const std::string& bytes) const { folder.write(name, bytes); }
    std::string read(const char* name) const { return folder.read(name); }

    TestFolder folder;
    const std::filesystem::path& root = folder.path();
};

AcDbObjectId idOf(AcDbDatabase& database, std::uint64_t handle);

/// An object of a drawing by its handle, open for the length of a scope; a failed opening fails the test.
template <class T>
class Opened : public AcDbObjectPointer<T> {
public:
    Opened(AcDbDatabase& database, std::uint64_t handle, AcDb::OpenMode mode = AcDb::kForRead) :
        AcDbObjectPointer<T>(idOf(database, handle), mode)
    {
        EXPECT_EQ(this->openStatus(), Acad::eOk) << std::hex << handle;
    }
};
