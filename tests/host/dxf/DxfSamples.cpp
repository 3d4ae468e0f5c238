#include "DxfSamples.h"

#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <functional>

#include "dxf/DxfTag.h"

namespace {

void eachTag(std::string_view tags, const std::function<void(int, std::string_view)>& use)
{
    while (!tags.empty()) {
        const auto end = tags.find('\n');
        const std::string_view line = tags.substr(0, end);
        tags.remove_prefix(end == tags.npos ? tags.size() : end + 1);
        if (line.empty())
            continue;
        int code = 0;
        const char* stop = std::from_chars(line.data(), line.data() + line.size(), code).ptr;
        const auto used = static_cast<std::size_t>(stop - line.data());
        use(code, used < line.size() ? line.substr(used + 1) : std::string_view());
    }
}

void putLittleEndian(std::string& out, std::uint64_t value, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        out.push_back(static_cast<char>(value >> (8 * i) & 0xFF));
}

} // namespace

namespace dxf_samples {

std::string ascii(std::string_view tags, std::string_view eol)
{
    std::string out;
    eachTag(tags, [&](int code, std::string_view value) {
        const std::string digits = std::to_string(code);
        out.append(digits.size() < 3 ? 3 - digits.size() : 0, ' ').append(digits).append(eol);
        out.append(value).append(eol);
    });
    return out;
}

std::string binary(std::string_view tags, bool oneByteCodes)
{
    std::string out("AutoCAD Binary DXF\r\n\x1A\0", 22);
    eachTag(tags, [&](int code, std::string_view value) {
        if (oneByteCodes && code > 254)
            out.push_back('\xFF');
        putLittleEndian(out, static_cast<std::uint64_t>(code), oneByteCodes && code <= 254 ? 1 : 2);
        const std::string text(value);
        const auto integer = static_cast<std::uint64_t>(std::atoll(text.c_str()));
        switch (dxfKind(code)) {
        case DxfKind::real: {
            const double real = std::strtod(text.c_str(), nullptr);
            std::uint64_t bits = 0;
            std::memcpy(&bits, &real, 8);
            putLittleEndian(out, bits, 8);
            break;
        }
        case DxfKind::boolean:
            putLittleEndian(out, integer, 1);
            break;
        case DxfKind::int16:
            putLittleEndian(out, integer, 2);
            break;
        case DxfKind::int32:
            putLittleEndian(out, integer, 4);
            break;
        case DxfKind::int64:
            putLittleEndian(out, integer, 8);
            break;
        case DxfKind::bytes:
            out.push_back(static_cast<char>(text.size() / 2));
            for (std::size_t i = 0; i + 1 < text.size(); i += 2)
                out.push_back(static_cast<char>(std::stoi(text.substr(i, 2), nullptr, 16)));
            break;
        default:
            out.append(text).push_back('\0');
        }
    });
    return out;
}

const std::string_view r2000 = R"(999 levé du 12
0 SECTION
2 HEADER
9 $ACADVER
1 AC1015
9 $DWGCODEPAGE
3 ANSI_1252
9 $HANDSEED
5 5000
0 ENDSEC
0 SECTION
2 CLASSES
0 CLASS
1 ACDBPLACEHOLDER
2 AcDbPlaceHolder
3 ObjectDBX Classes
90 0
280 0
281 0
0 ENDSEC
0 SECTION
2 TABLES
0 TABLE
2 LAYER
5 2
330 0
100 AcDbSymbolTable
70 1
0 LAYER
5 10
330 2
100 AcDbSymbolTableRecord
100 AcDbLayerTableRecord
2 0
70 0
290 1
62 7
6 Continuous
0 ENDTAB
0 TABLE
2 DIMSTYLE
5 A
330 0
100 AcDbSymbolTable
70 1
0 DIMSTYLE
105 27
330 A
100 AcDbSymbolTableRecord
100 AcDbDimStyleTableRecord
2 Standard
0 ENDTAB
0 ENDSEC
0 SECTION
2 BLOCKS
0 BLOCK
5 20
330 1F
100 AcDbEntity
8 0
100 AcDbBlockBegin
2 *Model_Space
0 ENDBLK
5 21
330 1F
100 AcDbEntity
8 0
100 AcDbBlockEnd
0 ENDSEC
0 SECTION
2 ENTITIES
0 LINE
5 30
330 1F
100 AcDbEntity
8 0
100 AcDbLine
10 652000.125
20 6862000.5
30 1e38
11 -0.1
21 1.0
31 0.0
1001 VELA
1070 1
1004 00FF7F
0 TEXT
5 31
330 1F
100 AcDbEntity
8 0
100 AcDbText
1 Point \U+00E9toile ^ 5^J
5 FF
0 ENDSEC
0 SECTION
2 OBJECTS
0 DICTIONARY
5 C
330 0
100 AcDbDictionary
281 1
3 DATA
350 40
0 XRECORD
5 40
330 C
100 AcDbXrecord
280 1
330 30
90 2147483647
160 9007199254740993
310 0102
102 {OTHER
0 ENDSEC
0 SECTION
2 THUMBNAILIMAGE
90 2
310 BEEF
0 ENDSEC
0 EOF
)";

const std::string_view r12 = R"(0 SECTION
2 HEADER
9 $ACADVER
1 AC1009
9 $INSBASE
10 0.0
20 0.0
30 0.0
0 ENDSEC
0 SECTION
2 TABLES
0 TABLE
2 LTYPE
70 1
0 LTYPE
2 DASHED
70 0
3 - -
72 65
73 2
40 0.75
49 0.5
49 -0.25
0 ENDTAB
0 TABLE
2 DIMSTYLE
70 1
0 DIMSTYLE
2 COTES
70 0
5 FLECHE
0 ENDTAB
0 ENDSEC
0 SECTION
2 BLOCKS
0 BLOCK
8 0
2 FLECHE
70 0
10 0.0
20 0.0
30 0.0
3 FLECHE
0 POINT
8 0
10 1.0
20 2.0
0 ENDBLK
0 ENDSEC
0 SECTION
2 ENTITIES
0 ARC
62 3
10 1.0
20 2.0
40 5.0
8 ROUTES
50 0.0
51 90.0
1001 ACAD
1000 suivi
0 INSERT
8 0
66 1
2 FLECHE
10 1.0
20 2.0
0 ATTRIB
8 0
10 1.0
20 2.0
40 2.5
1 12
2 NUMPT
70 0
0 SEQEND
8 0
0 POLYLINE
8 0
66 1
70 64
71 1
72 1
0 VERTEX
8 0
10 1.0
20 2.0
30 3.0
70 192
0 VERTEX
8 0
70 128
71 1
72 -2
0 SEQEND
8 0
0 POLYLINE
67 1
8 0
66 1
70 8
0 VERTEX
8 0
10 1.0
20 2.0
30 3.0
70 32
0 SEQEND
8 0
0 DIMENSION
8 0
2 *D1
10 5.0
20 5.0
70 0
13 1.0
23 1.0
14 2.0
24 2.0
50 45.0
0 ENDSEC
0 EOF
)";

std::string withEntities(std::string_view entities)
{
    return "0 SECTION\n2 HEADER\n9 $ACADVER\n1 AC1015\n0 ENDSEC\n0 SECTION\n2 ENTITIES\n" + std::string(entities) +
           "0 ENDSEC\n0 EOF\n";
}

} // namespace dxf_samples
