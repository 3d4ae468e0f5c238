#include "gi/DimensionStyle.h"

#include <algorithm>
#include <cmath>
#include <cwchar>

#include "db/DatabaseImpl.h"
#include "gi/RecordTags.h"

namespace {

struct Row {
    int code;             ///< in the record of the style
    const char* variable; ///< of the drawing
    double otherwise;     ///< where a style does not say
};

/// Values by the codes of the style, so that a dimension's own take their place.
struct Values {
    static constexpr Row rows[] = {{40, "$DIMSCALE", 1.0}, {41, "$DIMASZ", 0.18},  {42, "$DIMEXO", 0.0625},
                                   {44, "$DIMEXE", 0.18},  {140, "$DIMTXT", 0.18}, {142, "$DIMTSZ", 0.0},
                                   {144, "$DIMLFAC", 1.0}, {147, "$DIMGAP", 0.09}, {45, "$DIMRND", 0.0},
                                   {271, "$DIMDEC", 4.0},  {179, "$DIMADEC", 0.0}, {78, "$DIMZIN", 0.0},
                                   {278, "$DIMDSEP", 46.0}};
    double values[std::size(rows)];
    std::wstring around;

    double& of(int code)
    {
        for (std::size_t i = 0; i < std::size(rows); ++i)
            if (rows[i].code == code)
                return values[i];
        return ignored;
    }
    double ignored = 0.0;

    void take(const RecordTags& tags, const DxfTag& tag, int code)
    {
        if (code == 3)
            around = tags.text(tag);
        else if (code == 271 || code == 179 || code == 78 || code == 278)
            of(code) = tags.integer(tag);
        else
            of(code) = tags.real(tag);
    }
};

void takeStyle(AcDbObjectId style, Values& values)
{
    for (std::size_t i = 0; i < std::size(Values::rows); ++i)
        values.values[i] = Values::rows[i].otherwise;
    const RecordTags tags(style);
    for (const DxfTag& tag : tags)
        values.take(tags, tag, tag.code);
}

void takeVariables(AcDbDatabaseImpl& database, Values& values)
{
    for (std::size_t i = 0; i < std::size(Values::rows); ++i)
        values.values[i] = database.header().real(Values::rows[i].variable, Values::rows[i].otherwise);
    values.around = database.header().text("$DIMPOST");
}

/// What the dimension sets for itself: pairs of a code and a value, in its extended data.
void takeOwn(AcDbObjectId entity, Values& values)
{
    constexpr int name = 1000, brace = 1002, integer = 1070;
    const RecordTags tags(entity);
    bool within = false;
    int code = 0;
    for (const DxfTag& tag : tags) {
        if (tag.code == name && tags.text(tag) == L"DSTYLE")
            within = true;
        else if (within && tag.code == brace && tags.text(tag) == L"}")
            return;
        else if (within && tag.code == integer && code == 0)
            code = tags.integer(tag);
        else if (within && code != 0) {
            values.take(tags, tag, code);
            code = 0;
        }
    }
}

DimensionStyle styleOf(Values& values)
{
    constexpr int dropTrailing = 8;
    DimensionStyle style;
    const double scale = values.of(40) > 0.0 ? values.of(40) : 1.0;
    style.textHeight = values.of(140) * scale;
    style.arrow = (values.of(142) > 0.0 ? values.of(142) : values.of(41)) * scale;
    style.offset = values.of(42) * scale;
    style.beyond = values.of(44) * scale;
    style.gap = std::fabs(values.of(147)) * scale;
    style.factor = std::fabs(values.of(144));
    style.rounding = values.of(45);
    style.decimals = static_cast<int>(values.of(271));
    style.angleDecimals = values.of(179) < 0.0 ? style.decimals : static_cast<int>(values.of(179)); // -1: as lengths
    style.ticks = values.of(142) > 0.0;
    style.dropsZeros = (static_cast<int>(values.of(78)) & dropTrailing) != 0;
    style.decimalSign = values.of(278) == L',' ? L',' : L'.';
    style.around = values.around;
    return style;
}

std::wstring decimalText(double value, int decimals, const DimensionStyle& style)
{
    constexpr int most = 8;
    constexpr double furthest = 1e30; // no length of a drawing
    if (!(std::fabs(value) < furthest))
        return L"?";
    wchar_t digits[64] = L"";
    std::swprintf(digits, std::size(digits), L"%.*f", std::min(std::max(decimals, 0), most), value);
    std::wstring text = digits;
    const std::size_t point = text.find_first_not_of(L"-0123456789");
    if (point == text.npos)
        return text;
    if (style.dropsZeros)
        text.erase(text.find_last_not_of(L'0') + 1);
    if (point + 1 >= text.size())
        return text.substr(0, point);
    text[point] = style.decimalSign;
    return text;
}

} // namespace

std::wstring DimensionStyle::length(double value) const
{
    double told = value * factor;
    if (rounding > 0.0)
        told = std::round(told / rounding) * rounding;
    const std::wstring number = decimalText(told, decimals, *this);
    const std::size_t at = around.find(L"<>");
    return at == around.npos ? number + around : around.substr(0, at) + number + around.substr(at + 2);
}

std::wstring DimensionStyle::angle(double value) const
{
    constexpr double degrees = 57.29577951308232;
    return decimalText(value * degrees, angleDecimals, *this) + L"\u00B0";
}

DimensionStyle dimensionStyleOf(AcDbObjectId entity, AcDbObjectId style)
{
    Values values;
    if (!style.isNull())
        takeStyle(style, values);
    else if (!entity.isNull())
        takeVariables(AcDbDatabaseImpl::of(entity.stub()), values);
    else
        return {};
    takeOwn(entity, values);
    return styleOf(values);
}

DimensionStyle dimensionStyleNamed(AcDbObjectId entity, const std::wstring& name)
{
    AcDbStub* const style = AcDbDatabaseImpl::of(entity.stub()).named(NameKind::dimStyle, name);
    return dimensionStyleOf(entity, AcDbObjectId(style));
}
