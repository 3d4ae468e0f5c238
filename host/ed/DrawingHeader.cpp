#include "ed/DrawingHeader.h"

#include <algorithm>
#include <array>

#include "db/DatabaseImpl.h"
#include "dxf/DxfAngle.h"
#include "ed/DrawingChanges.h"
#include "platform/LetterCase.h"

namespace {

enum class Kind { integer, real, degrees, point, planePoint, layer, textStyle, linetype, color };

/// In the file the name stands after a dollar sign.
struct HeaderRow {
    std::wstring_view name;
    Kind kind;
};

constexpr std::array kRows{
    HeaderRow{L"ANGBASE", Kind::degrees},   HeaderRow{L"ANGDIR", Kind::integer},
    HeaderRow{L"AUNITS", Kind::integer},    HeaderRow{L"AUPREC", Kind::integer},
    HeaderRow{L"CECOLOR", Kind::color},     HeaderRow{L"CELTYPE", Kind::linetype},
    HeaderRow{L"CELTSCALE", Kind::real},    HeaderRow{L"CLAYER", Kind::layer},
    HeaderRow{L"DIMSCALE", Kind::real},     HeaderRow{L"DIMTXT", Kind::real},
    HeaderRow{L"DIMZIN", Kind::integer},    HeaderRow{L"MEASUREMENT", Kind::integer},
    HeaderRow{L"ELEVATION", Kind::real},    HeaderRow{L"EXTMAX", Kind::point},
    HeaderRow{L"EXTMIN", Kind::point},      HeaderRow{L"INSBASE", Kind::point},
    HeaderRow{L"INSUNITS", Kind::integer},  HeaderRow{L"LIMMAX", Kind::planePoint},
    HeaderRow{L"LIMMIN", Kind::planePoint}, HeaderRow{L"LTSCALE", Kind::real},
    HeaderRow{L"LUNITS", Kind::integer},    HeaderRow{L"LUPREC", Kind::integer},
    HeaderRow{L"ORTHOMODE", Kind::integer}, HeaderRow{L"PDMODE", Kind::integer},
    HeaderRow{L"PDSIZE", Kind::real},       HeaderRow{L"REGENMODE", Kind::integer},
    HeaderRow{L"TDCREATE", Kind::real},     HeaderRow{L"TDUPDATE", Kind::real},
    HeaderRow{L"TEXTSIZE", Kind::real},     HeaderRow{L"TEXTSTYLE", Kind::textStyle},
    HeaderRow{L"USERI1", Kind::integer},
    HeaderRow{L"USERI2", Kind::integer},    HeaderRow{L"USERI3", Kind::integer},
    HeaderRow{L"USERI4", Kind::integer},    HeaderRow{L"USERI5", Kind::integer},
    HeaderRow{L"USERR1", Kind::real},       HeaderRow{L"USERR2", Kind::real},
    HeaderRow{L"USERR3", Kind::real},       HeaderRow{L"USERR4", Kind::real},
    HeaderRow{L"USERR5", Kind::real},
};

// Group codes of the values.
constexpr int kLinetypeCode = 6;
constexpr int kTextStyleCode = 7;
constexpr int kRealCode = 40;
constexpr int kAngleCode = 50;
constexpr int kColorCode = 62;
constexpr int kIntegerCode = 70;

const HeaderRow* find(std::wstring_view name)
{
    const auto row = std::find_if(kRows.begin(), kRows.end(), [name](const HeaderRow& r) { return r.name == name; });
    return row == kRows.end() ? nullptr : &*row;
}

std::string nameInFile(std::wstring_view name)
{
    std::string text = "$";
    for (const wchar_t c : name) // plain capitals
        text += static_cast<char>(c);
    return text;
}

constexpr short kByBlock = 0, kByLayer = 256;

std::wstring colorName(std::int64_t index)
{
    return index == kByLayer ? L"BYLAYER" : index == kByBlock ? L"BYBLOCK" : std::to_wstring(index);
}

/// A number from 1 to 255, or where the colour comes from.
std::optional<short> colorIndex(const std::wstring& name)
{
    for (const short special : {kByBlock, kByLayer})
        if (platform::equalNoCase(name, colorName(special)))
            return special;
    if (name.empty() || name.size() > 3 || name.find_first_not_of(L"0123456789") != std::wstring::npos)
        return std::nullopt;
    const int index = std::stoi(name);
    return index >= 1 && index <= 255 ? std::optional(static_cast<short>(index)) : std::nullopt;
}

/// The name of a symbol as the drawing spells it; empty when it is not there.
std::wstring spelled(AcDbDatabaseImpl& database, NameKind kind, const std::wstring& name)
{
    AcDbStub* symbol = database.named(kind, name);
    return symbol ? database.recordName(symbol) : L"";
}

/// 1 is the bit of what the database holds.
short isUnsaved(const AcDbDatabase& database)
{
    AcApDocument* document = acDocManager->document(&database);
    return document && DrawingChanges::instance().areUnsaved(static_cast<Document&>(*document)) ? 1 : 0;
}

} // namespace

std::optional<VariableValue> DrawingHeader::value(const AcDbDatabase& database, std::wstring_view name)
{
    if (name == L"DBMOD")
        return isUnsaved(database);
    const HeaderRow* row = find(name);
    HeaderVariables& header = database.impl().header();
    const std::string inFile = nameInFile(name);
    if (!row || !header.has(inFile))
        return std::nullopt;
    const AcGePoint3d point = header.point(inFile, AcGePoint3d());
    switch (row->kind) {
    case Kind::integer:
        return static_cast<short>(header.integer(inFile, 0));
    case Kind::real:
        return header.real(inFile, 0.0);
    case Kind::degrees:
        return dxfRadians(header.real(inFile, 0.0));
    case Kind::point:
        return point;
    case Kind::planePoint:
        return AcGePoint2d(point.x, point.y);
    case Kind::layer:
    case Kind::textStyle:
    case Kind::linetype:
        return header.text(inFile);
    case Kind::color:
        return colorName(header.integer(inFile, kByLayer));
    }
    return std::nullopt;
}

bool DrawingHeader::setValue(AcDbDatabase& database, std::wstring_view name, const VariableValue& value)
{
    const HeaderRow* row = find(name);
    if (!row)
        return false;
    AcDbDatabaseImpl& impl = database.impl();
    HeaderVariables& header = impl.header();
    const std::string inFile = nameInFile(name);
    switch (row->kind) {
    case Kind::integer:
        header.setInteger(inFile, kIntegerCode, std::get<short>(value));
        return true;
    case Kind::real:
        header.setReal(inFile, kRealCode, std::get<double>(value));
        return true;
    case Kind::degrees:
        header.setReal(inFile, kAngleCode, dxfDegrees(std::get<double>(value)));
        return true;
    case Kind::point:
        header.setPoint(inFile, std::get<AcGePoint3d>(value));
        return true;
    case Kind::planePoint:
        return false; // read only
    case Kind::layer:
        return database.setClayer(AcDbObjectId(impl.named(NameKind::layer, std::get<std::wstring>(value)))) ==
               Acad::eOk;
    case Kind::color: {
        const auto index = colorIndex(std::get<std::wstring>(value));
        if (index)
            header.setInteger(inFile, kColorCode, *index);
        return index.has_value();
    }
    case Kind::linetype: {
        const std::wstring linetype = spelled(impl, NameKind::linetype, std::get<std::wstring>(value));
        if (!linetype.empty())
            header.setText(inFile, kLinetypeCode, linetype);
        return !linetype.empty();
    }
    case Kind::textStyle: {
        const std::wstring style = spelled(impl, NameKind::textStyle, std::get<std::wstring>(value));
        if (!style.empty())
            header.setText(inFile, kTextStyleCode, style);
        return !style.empty();
    }
    }
    return false;
}
