#include <algorithm>
#include <cmath>

#include "db/fields/EntityFields.h"

#include "dbhatch.h"

namespace {

/// Every group that a hatch may hold; one code means several things, so that only their order tells them apart.
constexpr std::initializer_list<std::int16_t> hatchCodes = {
    10, 20, 30, 210, 220, 230, 2,  70, 71,  91,  92,  93,  72,  73,  74,  11,  21, 12,  22,
    13, 23, 40, 42,  50,  51,  94, 95, 96,  97,  330, 75,  76,  52,  41,  77,  78, 53,  43,
    44, 45, 46, 79,  49,  47,  98, 99, 450, 451, 460, 461, 452, 462, 453, 463, 63, 421, 470};

bool readTag(const DxfReadContext& context, std::vector<AcDbHatchTag>& tags, const DxfTag& tag)
{
    AcDbHatchTag& added = tags.emplace_back();
    added.code = static_cast<Adesk::Int16>(tag.code);
    switch (dxfKind(tag.code)) {
    case DxfKind::real:
        return dxfReal(context.form, tag, added.number);
    case DxfKind::handle:
        return context.object(tag, added.object);
    case DxfKind::text:
        added.text = context.text(tag);
        return true;
    default:
        std::int64_t integer = 0;
        const bool read = dxfInteger(context.form, tag, integer);
        added.number = static_cast<double>(integer);
        return read;
    }
}

void writeTag(DxfWriteContext& context, const AcDbHatchTag& tag)
{
    switch (dxfKind(tag.code)) {
    case DxfKind::real:
        return context.out.real(tag.code, tag.number);
    case DxfKind::handle:
        return context.object(tag.code, tag.object);
    case DxfKind::text:
        return context.out.text(tag.code, tag.text);
    default:
        return context.out.integer(tag.code, std::llround(tag.number));
    }
}

bool sameTag(const AcDbHatchTag& a, const AcDbHatchTag& b)
{
    return a.code == b.code && a.number == b.number && a.object == b.object && a.text == b.text;
}

} // namespace

void DxfFieldsOfHatch::add(DxfClasses& classes)
{
    static const DxfSubclass hatch("AcDbHatch",
                                   {listField(
                                       hatchCodes,
                                       [](const DxfReadContext& context, AcDbObject& object, const DxfTag& tag, int) {
                                           return readTag(context, static_cast<AcDbHatch&>(object).m_tags, tag);
                                       },
                                       [](DxfWriteContext& context, const AcDbObject& object, int, int) {
                                           for (const AcDbHatchTag& tag : static_cast<const AcDbHatch&>(object).m_tags)
                                               writeTag(context, tag);
                                       },
                                       [](const AcDbObject& a, const AcDbObject& b, int) {
                                           return std::ranges::equal(static_cast<const AcDbHatch&>(a).m_tags,
                                                                     static_cast<const AcDbHatch&>(b).m_tags, sameTag);
                                       },
                                       [](AcDbObject& object) { static_cast<AcDbHatch&>(object).m_tags.clear(); })});
    addEntityClass<AcDbHatch>(classes, "HATCH", {&hatch});
}
