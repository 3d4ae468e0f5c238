#include "DrawingWithEntities.h"

#include <sstream>

#include "db/DatabaseImpl.h"
#include "db/DefaultDrawing.h"
#include "db/fields/DxfObjectWriter.h"
#include "dxf/DxfCursor.h"
#include "dxf/DxfError.h"

namespace {

constexpr std::uint64_t firstHandle = 0x1000;

std::string hexadecimal(std::uint64_t value)
{
    std::ostringstream text;
    text << std::hex << std::uppercase << value;
    return text.str();
}

} // namespace

DrawingWithEntities::DrawingWithEntities(const std::string& records)
{
    std::string drawing = defaultDrawing();
    const std::string eol = drawing.find("\r\n") != std::string::npos ? "\r\n" : "\n";
    std::string added, line;
    std::uint64_t handle = firstHandle, parent = 0;
    std::istringstream lines(records);
    while (std::getline(lines, line)) {
        const std::size_t blank = line.find(' ');
        const std::string code = line.substr(0, blank), value = line.substr(blank + 1);
        added += code + eol + value + eol;
        if (code != "0")
            continue;
        const bool owned = value == "VERTEX" || value == "ATTRIB" || value == "SEQEND";
        if (!owned)
            parent = handle;
        added += "5" + eol + hexadecimal(handle++) + eol + "330" + eol + (owned ? hexadecimal(parent) : "1F") + eol +
                 "100" + eol + "AcDbEntity" + eol + "8" + eol + "0" + eol;
    }
    const std::string section = "ENTITIES" + eol;
    drawing.insert(drawing.find(section) + section.size(), added);
    m_database = std::make_unique<AcDbDatabase>(false);
    m_database->impl().load(std::make_unique<DxfFile>(drawing, "essai.dxf"));
}

AcDbObjectId DrawingWithEntities::id(int n) const
{
    return AcDbObjectId(m_database->impl().byHandle(firstHandle + static_cast<std::uint64_t>(n)));
}

std::string DrawingWithEntities::written(int n) const
{
    std::string bytes, text;
    DxfObjectWriter(m_database->impl(), bytes).write(m_database->impl().object(*recordOf(id(n))));
    DxfCursor cursor(m_database->impl().form(), bytes);
    DxfTag tag;
    for (int markers = 0; cursor.next(tag);) {
        markers += tag.code == 100;
        if (markers >= 2)
            text += std::to_string(tag.code) + ' ' + std::string(dxfText(tag)) + '\n';
    }
    return text;
}
