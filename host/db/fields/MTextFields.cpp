#include <cmath>

#include "db/entities/OcsTransform.h"
#include "db/fields/EntityFields.h"
#include "dxf/DxfEncoding.h"

#include "dbmtext.h"

namespace {

constexpr int lastChunkCode = 1, chunkCode = 3;
constexpr std::size_t chunkLength = 250; // characters

/// How much of the end of a text may belong to a character that the next chunk goes on with: bytes that stand for
/// nothing by themselves, or the beginning of "\U+XXXX".
std::size_t unfinished(const std::wstring& text)
{
    std::size_t count = 0;
    while (count < text.size() && count < 3 && text[text.size() - 1 - count] >= 0xDC80 &&
           text[text.size() - 1 - count] <= 0xDCFF)
        ++count;
    constexpr std::size_t escapeLength = 7;
    for (std::size_t back = 1; count == 0 && back < escapeLength && back <= text.size(); ++back)
        if (text[text.size() - back] == L'\\')
            count = back;
    return count;
}

/// Chunks may be cut anywhere, inside a letter too: what the last one left open is read again with the next.
void appendChunk(const DxfReadContext& context, const DxfTag& tag, std::wstring& contents)
{
    const std::size_t open = unfinished(contents);
    std::string bytes = context.form.encoding->encode(std::wstring_view(contents).substr(contents.size() - open));
    bytes += dxfText(tag);
    contents.resize(contents.size() - open);
    context.form.encoding->decode(bytes, contents);
}

DxfField contentsRow(const DxfField::Read read, const DxfField::Write write, const DxfField::Same same,
                     const DxfField::Clear clear)
{
    return listField({lastChunkCode, chunkCode}, read, write, same, clear, DxfWhen::always);
}

/// The cosine of what is taken for the same direction.
constexpr double sameWay = 1.0 - 1e-12;

/// An angle and a direction say the same: of two that differ the angle counts, which comes last in a record.
DxfField rotationRow(DxfField row, const DxfField::Read read, const DxfField::Write write)
{
    row.read = read;
    row.write = write;
    return row;
}

void writeChunks(DxfTagWriter& out, std::wstring_view contents)
{
    for (; contents.size() > chunkLength; contents.remove_prefix(chunkLength))
        out.text(chunkCode, contents.substr(0, chunkLength));
    out.text(lastChunkCode, contents);
}

} // namespace

void DxfFieldsOfMText::add(DxfClasses& classes)
{
    const DxfField contents = contentsRow(
        [](const DxfReadContext& context, AcDbObject& object, const DxfTag& tag, int) {
            appendChunk(context, tag, static_cast<AcDbMText&>(object).m_contents);
            return true;
        },
        [](DxfWriteContext& context, const AcDbObject& object, int, int) {
            writeChunks(context.out, static_cast<const AcDbMText&>(object).m_contents);
        },
        [](const AcDbObject& a, const AcDbObject& b, int) {
            return static_cast<const AcDbMText&>(a).m_contents == static_cast<const AcDbMText&>(b).m_contents;
        },
        [](AcDbObject& object) { static_cast<AcDbMText&>(object).m_contents.clear(); });
    const DxfField rotation = rotationRow(
        degreesField<&AcDbMText::m_rotation>(50),
        [](const DxfReadContext& context, AcDbObject& object, const DxfTag& tag, int) {
            auto& text = static_cast<AcDbMText&>(object);
            double degrees = 0.0;
            if (!dxfReal(context.form, tag, degrees))
                return false;
            text.m_rotation = dxfRadians(degrees);
            const AcGePoint3d ahead(std::cos(text.m_rotation), std::sin(text.m_rotation), 0.0);
            if (ocsToWorld(ahead, text.m_normal).asVector().dotProduct(text.m_direction) <
                text.m_direction.length() * sameWay)
                text.m_direction = AcGeVector3d::kXAxis;
            return true;
        },
        [](DxfWriteContext& context, const AcDbObject& object, int code, int) {
            const auto& text = static_cast<const AcDbMText&>(object);
            context.out.real(code, dxfDegrees(context.complete ? text.rotation() : text.m_rotation));
        });
    static const DxfSubclass text(
        "AcDbMText",
        {pointField<&AcDbMText::m_location>(10, DxfWhen::always), realField<&AcDbMText::m_height>(40, DxfWhen::always),
         realField<&AcDbMText::m_width>(41, DxfWhen::always),
         integerField<&AcDbMText::m_attachment>(71, DxfWhen::always),
         integerField<&AcDbMText::m_flow>(72, DxfWhen::always), contents, textStyleField<&AcDbMText::m_style>(),
         pointField<&AcDbMText::m_normal>(210), pointField<&AcDbMText::m_direction>(11),
         realField<&AcDbMText::m_actualWidth>(42), realField<&AcDbMText::m_actualHeight>(43), rotation,
         realField<&AcDbMText::m_lineSpacing>(44), integerField<&AcDbMText::m_fill>(90),
         integerField<&AcDbMText::m_fillColor>(63), integerField<&AcDbMText::m_fillTrueColor>(421),
         realField<&AcDbMText::m_fillScale>(45)});
    addEntityClass<AcDbMText>(classes, "MTEXT", {&text});
}
