// The bytes of the HTML writer: every expected text is written out by hand.

#include <fstream>
#include <functional>
#include <limits>

#include <gtest/gtest.h>

#include "reports/htmlDocument.h"
#include "reports/htmlStyle.h"
#include "reports/htmlTable.h"
#include "reports/htmlText.h"
#include "services/nombreFixe.h"

#include "TestFolder.h"

namespace {

TEST(Html, Sizes)
{
    struct row {
        const char* name;
        double value;
        int unit;
        const char* text;
    };
    const row rows[] = {
        {"whole points", 10, htmlSize::pt, "10pt"},
        {"two decimals, always both", 2.5, htmlSize::mm, "2.50mm"},
        {"percent", 50, htmlSize::percent, "50%"},
        {"centimetres", 1, htmlSize::cm, "1cm"},
        {"picas", 1, htmlSize::pc, "1pc"},
        {"inches", -1.25, htmlSize::in, "-1.25in"},
        {"pixels", 4, htmlSize::px, "4px"},
        {"unlisted unit", 3, 7, "3"},
        {"negative unit", 3, -1, "3"},
        {"negative zero is whole", -0.0, htmlSize::px, "0px"},
        {"too large for an int", 1e10, htmlSize::px, "10000000000px"},
    };
    for (const row& r : rows)
        EXPECT_EQ(htmlSize(r.value, r.unit).text(), r.text) << r.name;
}

TEST(Html, BorderStyles)
{
    using style = htmlBorderStyle;
    const std::pair<int, const char*> rows[] = {{-1, "none"},
                                                {0, "none"},
                                                {style::none, "none"},
                                                {style::dotted, "dotted"},
                                                {style::dashed, "dashed"},
                                                {style::solid, "solid"},
                                                {style::doubled, "double"},
                                                {style::groove, "groove"},
                                                {style::ridge, "ridge"},
                                                {style::inset, "inset"},
                                                {style::outset, "outset"},
                                                {10, "none"}};
    for (const auto& [code, text] : rows)
        EXPECT_STREQ(style(code).text(), text) << code;
}

TEST(Html, ColorsAreBlackUntilTheyAreSet)
{
    EXPECT_FALSE(htmlColor().isSet());
    EXPECT_TRUE(htmlColor(0, 0, 0).isSet());
    EXPECT_EQ(htmlColor().text(), "rgb(0,0,0)");
}

TEST(Html, Styles)
{
    struct row {
        const char* name;
        std::function<void(htmlStyle&)> set;
        const char* css;
    };
    const htmlSize four(4, htmlSize::px);
    const row rows[] = {
        {"nothing set", [](htmlStyle&) {}, ""},
        {"family alone", [](htmlStyle& s) { s.setFontFamily("Arial"); }, " font-family:'Arial';"},
        {"generic alone is not written", [](htmlStyle& s) { s.setGenericFamily("serif"); }, ""},
        {"family, generic and size",
         [](htmlStyle& s) {
             s.setFontSize({10, htmlSize::pt});
             s.setGenericFamily("serif");
             s.setFontFamily("Arial");
         },
         " font-family:'Arial','serif';font-size:10pt;"},
        {"italic and bold, on and off",
         [](htmlStyle& s) {
             s.setItalic(true);
             s.setBold(false);
         },
         "font-style:italic;font-weight:normal;"},
        {"no decoration has one semicolon", [](htmlStyle& s) { s.setTextDecoration(0); }, "text-decoration:none;"},
        {"underline ends with a blank", [](htmlStyle& s) { s.setTextDecoration(htmlStyle::underline); },
         "text-decoration:underline ;"},
        {"all decorations", [](htmlStyle& s) { s.setTextDecoration(15); },
         "text-decoration:underline overline line-through blink;"},
        {"colour before background",
         [](htmlStyle& s) {
             s.setBackgroundColor({239, 239, 239});
             s.setColor({0, 10, 255});
         },
         "color:rgb(0,10,255);background-color:rgb(239,239,239);"},
        {"repeat without attachment is not written",
         [](htmlStyle& s) {
             s.setBackgroundImage("fond.png");
             s.setBackgroundRepeat(htmlStyle::repeatX);
         },
         "background-image:url('fond.png');"},
        {"repeat with attachment",
         [](htmlStyle& s) {
             s.setBackgroundRepeat(htmlStyle::noRepeat);
             s.setBackgroundAttachment(htmlStyle::fixed);
         },
         "background-attachment:fixed;background-repeat:no-repeat;"},
        {"any other attachment scrolls", [](htmlStyle& s) { s.setBackgroundAttachment(7); },
         "background-attachment:scroll;"},
        {"position, both", [](htmlStyle& s) { s.setBackgroundPosition(htmlSize(5, 0), htmlSize(2.5, 2)); },
         "background-position: 5% 2.50mm;"},
        {"position, x unset", [&](htmlStyle& s) { s.setBackgroundPosition({}, four); },
         "background-position: 0px 4px;"},
        {"position, y unset", [&](htmlStyle& s) { s.setBackgroundPosition(four, {}); },
         "background-position: 4px 0px;"},
        {"alignments number 1, 2, 4", [](htmlStyle& s) { s.setTextAlign(4); }, "text-align:center;"},
        {"justified", [](htmlStyle& s) { s.setTextAlign(htmlStyle::justify); }, "text-align:justify;"},
        {"alignment 3 justifies", [](htmlStyle& s) { s.setTextAlign(3); }, "text-align:justify;"},
        {"indent, height, spacing",
         [&](htmlStyle& s) {
             s.setLetterSpacing(four);
             s.setLineHeight(four);
             s.setTextIndent(four);
         },
         "text-indent:4px;line-height:4px;letter-spacing:4px;"},
        {"sides: left, right, top, bottom",
         [&](htmlStyle& s) {
             s.setPaddings(four);
             s.setMargins({1, htmlSize::cm});
         },
         "margin-left:1cm;margin-right:1cm;margin-top:1cm;margin-bottom:1cm;"
         "padding-left:4px;padding-right:4px;padding-top:4px;padding-bottom:4px;"},
        {"borders: widths, styles, colours",
         [](htmlStyle& s) {
             s.setBorderColors({0, 0, 0});
             s.setBorderStyles(htmlBorderStyle(htmlBorderStyle::solid));
             s.setBorderWidths({1, htmlSize::px});
         },
         "border-left-width:1px;border-right-width:1px;border-top-width:1px;border-bottom-width:1px;"
         "border-left-style:solid;border-right-style:solid;border-top-style:solid;border-bottom-style:solid;"
         "border-left-color:rgb(0,0,0);border-right-color:rgb(0,0,0);border-top-color:rgb(0,0,0);"
         "border-bottom-color:rgb(0,0,0);"},
    };
    for (const row& r : rows) {
        htmlStyle style;
        r.set(style);
        EXPECT_EQ(style.text(), r.css) << r.name;
    }
}

TEST(Html, Texts)
{
    EXPECT_EQ(htmlText("a & b").render(), "<P >a & b</P>") << "nothing is escaped";
    EXPECT_EQ(htmlText("Titre", "CLASS=titre").render(), "<P CLASS=titre>Titre</P>");
    EXPECT_EQ(htmlText("point", "class=petit", htmlText::listItem).render(), "<LI class=petit>point</LI>");
    EXPECT_EQ(htmlText("rien", "", 2).render(), "");
    EXPECT_EQ(htmlEscaped("<B> & 'C'"), "&lt;B&gt; &amp; 'C'");
}

TEST(Html, NumbersHaveTheirExactDigits)
{
    EXPECT_EQ(nombreFixe(1e38, 4), "99999999999999997748809823456034029568.0000");
    EXPECT_EQ(nombreFixe(0.5, 0), "0") << "an exact half goes to the even digit";
    EXPECT_EQ(nombreFixe(2.5, -3), "2") << "a negative count means none";
    EXPECT_EQ(nombreFixe(-0.00001, 4), "-0.0000");
    EXPECT_EQ(nombreFixe(std::numeric_limits<double>::infinity(), 4), "inf");
    EXPECT_EQ(nombreFixe(std::numeric_limits<double>::quiet_NaN(), 4), "nan");
    EXPECT_EQ(nombreFixe(-std::numeric_limits<double>::max(), 400).size(), 1u + 309u + 1u + 400u);
}

TEST(Html, TableAttributes)
{
    struct row {
        const char* name;
        std::function<void(htmlTable&)> set;
        const char* text;
    };
    const row rows[] = {
        {"none: a blank before the bracket", [](htmlTable&) {}, "<table >\n</table>"},
        {"as the reports have them",
         [](htmlTable& t) {
             t.setCellSpacing(0);
             t.setCellPadding(2);
             t.setBorder(0);
             t.setAlignment(htmlTable::center);
         },
         "<table text-align=\"center\" border=\"0\" cellpadding=\"2\" cellspacing =\"0\">\n</table>"},
        {"alignment, then width, then border",
         [](htmlTable& t) {
             t.setBorder(1);
             t.setWidth(80, htmlTable::percent);
             t.setAlignment(htmlTable::left);
         },
         "<table text-align=\"left\" width=\"80%\" border=\"1\">\n</table>"},
        {"unlisted alignment", [](htmlTable& t) { t.setAlignment(3); }, "<table >\n</table>"},
        {"width unit 1 is px, not pt", [](htmlTable& t) { t.setWidth(5, 1); }, "<table  width=\"5px\">\n</table>"},
        {"width unit 7 is em", [](htmlTable& t) { t.setWidth(5, 7); }, "<table  width=\"5em\">\n</table>"},
        {"width without unit", [](htmlTable& t) { t.setWidth(5, 8); }, "<table  width=\"5\">\n</table>"},
        {"colours have red in the low byte and print it first",
         [](htmlTable& t) {
             t.setDarkBorderColor(0x0C0B0A);
             t.setLightBorderColor(0xFF);
             t.setBorderColor(0xABCDEF);
             t.setBackgroundColor(0x030201);
         },
         "<table  bgcolor=#010203 bordercolor=#efcdab bordercolorlight=#ff0000 bordercolordark=#0a0b0c>\n</table>"},
    };
    for (const row& r : rows) {
        htmlTable table;
        r.set(table);
        EXPECT_EQ(table.render(), r.text) << r.name;
    }
}

TEST(Html, TableRows)
{
    htmlTable table;
    table.addCell("avant");
    table.beginRow("class=entete");
    table.addCell("A", "align=center");
    table.beginRow();
    table.addCell(3.14159, 2, "class=celnorm align=right");
    EXPECT_EQ(table.render(), "<table >\n<td >avant</td><tr class=entete><td align=center>A</td></tr>"
                              "<tr ><td class=celnorm align=right>3.14</td></tr></table>")
        << "a row still open is closed by the next and by the end";
    table.endRow();
    table.endRow();
    EXPECT_EQ(table.render(), "<table >\n<td >avant</td><tr class=entete><td align=center>A</td></tr>"
                              "<tr ><td class=celnorm align=right>3.14</td></tr></tr></table>")
        << "ending a row always writes its end";
}

constexpr char emptyBody[] = "\n<body bgcolor:rgb(255,255,255) text:rgb(0,0,0) alink:rgb(255,0,0) "
                             "vlink:rgb(128,0,128) link:rgb(0,0,255) >\n\n</body>\n</html>";

TEST(Html, Document)
{
    htmlDocument document;
    EXPECT_EQ(document.text(), std::string("<html>\n<head>\n<style>\n<!--\n-->\n</style>\n</head>\n") + emptyBody);

    document.addHeadLine(htmlHeadWindows1252);
    document.addStyle(".petit", "font-size:10pt;");
    document.addStyle(".grand", "font-size:18pt;");
    document.setBackgroundColor({1, 2, 3});
    document.setTextColor({4, 5, 6});
    document.setActiveLinkColor({7, 8, 9});
    document.setVisitedLinkColor({10, 11, 12});
    document.setLinkColor({13, 14, 15});
    document.append("<P >un</P>");
    document.append("<P >\xE9t\xE9</P>");
    EXPECT_EQ(document.text(),
              "<html>\n<head>\n"
              "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=windows-1252\">\n"
              "<style>\n<!--.petit{font-size:10pt;}.grand{font-size:18pt;}\n-->\n</style>\n</head>\n"
              "\n<body bgcolor:rgb(1,2,3) text:rgb(4,5,6) alink:rgb(7,8,9) vlink:rgb(10,11,12) link:rgb(13,14,15) >\n"
              "<P >un</P><P >\xE9t\xE9</P>\n</body>\n</html>");
}

TEST(Html, DocumentFile)
{
    htmlDocument document;
    EXPECT_TRUE(document.fileName().empty());
    ASSERT_TRUE(document.write());
    const std::filesystem::path first = document.fileName();
    EXPECT_EQ(first.parent_path(), std::filesystem::temp_directory_path());
    EXPECT_EQ(first.filename().string().substr(0, 3), "_TP");
    EXPECT_EQ(first.extension(), ".html");
    EXPECT_EQ(contents(first), document.text());

    std::ofstream(first, std::ios::app) << "reste d'un rapport plus long";
    document.append("suite");
    ASSERT_TRUE(document.write());
    EXPECT_EQ(document.fileName(), first) << "a document written again keeps its file";
    EXPECT_EQ(contents(first), document.text());

    htmlDocument other;
    ASSERT_TRUE(other.write());
    EXPECT_NE(other.fileName(), first) << "two reports never share a file";
    std::filesystem::remove(first);
    std::filesystem::remove(other.fileName());

    other.setFileName("/dossier absent/rapport.html");
    EXPECT_FALSE(other.write());
}

} // namespace
