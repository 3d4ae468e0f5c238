#include <gtest/gtest.h>

#include "dxf/DxfEncoding.h"
#include "dxf/DxfError.h"
#include "dxf/DxfFile.h"
#include "dxf/DxfTranscode.h"

#include "DxfSamples.h"

using namespace dxf_samples;

namespace {

/// The drawing as a binary file has it: readers tell its form by the 0 it opens with, so a comment in front of the
/// first record goes into its section.
std::string commentInHeader(std::string_view tags)
{
    std::string moved(tags);
    const std::string comment = moved.substr(0, moved.find('\n') + 1);
    moved.insert(moved.find("9 $ACADVER"), comment);
    return moved.substr(comment.size());
}

} // namespace

TEST(DxfTranscodeTest, AsciiToBinaryAndBack)
{
    const std::string expectedTags = commentInHeader(r2000);
    const DxfFile text(asciiDxf(r2000), "plan.dxf");
    DxfForm binaryForm = text.form();
    binaryForm.binary = true;
    const std::string made = transcodeFile(text, binaryForm);
    EXPECT_EQ(made, binaryDxf(expectedTags));

    const DxfFile packed(made, "plan.dxf");
    std::string back = transcodeFile(packed, text.form());
    std::string expected = asciiDxf(expectedTags);
    expected.replace(expected.find("1e38"), 4, "1.0E+38"); // the one number written unlike our own way
    EXPECT_EQ(back, expected);
}

TEST(DxfTranscodeTest, LineEndsAloneKeepEveryValueAsWritten)
{
    const DxfFile file(asciiDxf(r2000), "plan.dxf");
    DxfForm to = file.form();
    to.eol = "\n";
    EXPECT_EQ(transcodeFile(file, to), asciiDxf(r2000, "\n"));
}

TEST(DxfTranscodeTest, Encodings)
{
    DxfForm from;
    DxfForm to;
    from.encoding = &DxfEncoding::forCodePage("ANSI_1251");
    to.encoding = &DxfEncoding::forCodePage("ANSI_1252");
    std::string out;
    EXPECT_TRUE(DxfTranscoder(from, to).append("  1\r\n\xC6 \x80\r\n  1\r\nplain \\P\r\n", out));
    EXPECT_EQ(out, "  1\r\n\\U+0416 \\U+0402\r\n  1\r\nplain \\P\r\n");
    to.encoding = &DxfEncoding::utf8();
    out.clear();
    EXPECT_TRUE(DxfTranscoder(from, to).append("  1\r\n\xC6\r\n", out));
    EXPECT_EQ(out, "  1\r\n\xD0\x96\r\n");
}

TEST(DxfTranscodeTest, HandlesAreMappedByTheirCode)
{
    DxfForm form;
    form.encoding = &DxfEncoding::utf8();
    std::string seen;
    const DxfTranscoder::HandleMap map = [&](int code, std::uint64_t handle) {
        seen += std::to_string(code) + ' ';
        return handle + 0x100;
    };
    std::string out;
    EXPECT_TRUE(DxfTranscoder(form, form, map)
                    .append("  0\r\nLINE\r\n  5\r\nA\r\n330\r\n1F\r\n  1\r\nA\r\n1005\r\nb\r\n", out));
    EXPECT_EQ(out, "  0\r\nLINE\r\n  5\r\n10A\r\n330\r\n11F\r\n  1\r\nA\r\n1005\r\n10B\r\n");
    EXPECT_EQ(seen, "5 330 1005 ");
}

TEST(DxfTranscodeTest, ARefusalNamesTheTag)
{
    const DxfFile file(asciiDxf(withEntities("0 LINE\n5 A0\n62 70000\n"), "\n"), "plan.dxf");
    DxfForm to = file.form();
    to.binary = true;
    try {
        transcodeFile(file, to);
        ADD_FAILURE() << "accepted";
    } catch (const DxfError& error) {
        EXPECT_STREQ(error.what(), "plan.dxf, ligne 19 : valeur « 70000 » (code de groupe 62) impossible à convertir");
    }
}

TEST(DxfTranscodeTest, WhatTheFormCannotHoldLeavesTheOutputAlone)
{
    DxfForm from;
    from.encoding = &DxfEncoding::utf8();
    DxfForm to = from;
    to.binary = true;
    for (const char* bytes :
         {" 10\r\nabc\r\n", " 70\r\n70000\r\n", "310\r\nABC\r\n", "xx\r\n1\r\n", "  1\r\na\r\n 10\r\n"}) {
        std::string out = "before";
        EXPECT_FALSE(DxfTranscoder(from, to).append(bytes, out)) << bytes;
        EXPECT_EQ(out, "before");
    }
}
