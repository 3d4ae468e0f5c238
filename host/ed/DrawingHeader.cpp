#include "ed/DrawingHeader.h"

#include "db/Colors.h"
#include "db/DatabaseImpl.h"
#include "dxf/DxfAngle.h"
#include "ed/DrawingChanges.h"

namespace {

// Group codes of the values.
constexpr int kLinetypeCode = 6;
constexpr int kTextStyleCode = 7;
constexpr int kRealCode = 40;
constexpr int kAngleCode = 50;
constexpr int kColorCode = 62;
constexpr int kIntegerCode = 70;

/// In the file the name stands after a dollar sign.
std::string nameInFile(std::wstring_view name)
{
    std::string text = "$";
    for (const wchar_t c : name) // plain capitals
        text += static_cast<char>(c);
    return text;
}

/// 1 is the bit of what the database holds.
short isUnsaved(const AcDbDatabase& database)
{
    AcApDocument* document = acDocManager->document(&database);
    return document && DrawingChanges::instance().areUnsaved(static_cast<Document&>(*document)) ? 1 : 0;
}

// Values that stand in the file as they are, by their type.

VariableValue read(const HeaderVariables& header, const std::string& name, short)
{
    return static_cast<short>(header.integer(name, 0));
}
VariableValue read(const HeaderVariables& header, const std::string& name, double)
{
    return header.real(name, 0.0);
}
VariableValue read(const HeaderVariables& header, const std::string& name, const std::wstring&)
{
    return header.text(name);
}
VariableValue read(const HeaderVariables& header, const std::string& name, const AcGePoint3d&)
{
    return header.point(name, AcGePoint3d());
}
VariableValue read(const HeaderVariables& header, const std::string& name, const AcGePoint2d&)
{
    const AcGePoint3d point = header.point(name, AcGePoint3d());
    return AcGePoint2d(point.x, point.y);
}

bool write(HeaderVariables& header, const std::string& name, short value)
{
    header.setInteger(name, kIntegerCode, value);
    return true;
}
bool write(HeaderVariables& header, const std::string& name, double value)
{
    header.setReal(name, kRealCode, value);
    return true;
}
bool write(HeaderVariables& header, const std::string& name, const AcGePoint3d& value)
{
    header.setPoint(name, value);
    return true;
}
// Limits are read only, and no text stands as it is.
bool write(HeaderVariables&, const std::string&, const AcGePoint2d&)
{
    return false;
}
bool write(HeaderVariables&, const std::string&, const std::wstring&)
{
    return false;
}

/// Writes the name of a record as the drawing spells it. False when there is none.
bool writeName(AcDbDatabaseImpl& database, const std::string& variable, int code, NameKind kind,
               const std::wstring& name)
{
    AcDbStub* const symbol = database.named(kind, name);
    if (symbol)
        database.header().setText(variable, code, database.recordName(symbol));
    return symbol;
}

} // namespace

std::optional<VariableValue> DrawingHeader::value(const AcDbDatabase& database, const DrawingVariable& variable)
{
    if (variable.kept == DrawingValue::unsavedChanges)
        return isUnsaved(database);
    const HeaderVariables& header = database.impl().header();
    const std::string name = nameInFile(variable.name);
    if (!header.has(name))
        return std::nullopt;
    if (variable.kept == DrawingValue::degrees)
        return dxfRadians(header.real(name, 0.0));
    if (variable.kept == DrawingValue::color)
        return storedColor(static_cast<int>(header.integer(name, colorByLayer)));
    return std::visit([&](const auto& type) { return read(header, name, type); }, variable.initial);
}

bool DrawingHeader::setValue(AcDbDatabase& database, const DrawingVariable& variable, const VariableValue& value)
{
    AcDbDatabaseImpl& impl = database.impl();
    HeaderVariables& header = impl.header();
    const std::string name = nameInFile(variable.name);
    switch (variable.kept) {
    case DrawingValue::plain:
        return std::visit([&](const auto& plain) { return write(header, name, plain); }, value);
    case DrawingValue::degrees:
        header.setReal(name, kAngleCode, dxfDegrees(std::get<double>(value)));
        return true;
    case DrawingValue::layer:
        return database.setClayer(AcDbObjectId(impl.named(NameKind::layer, std::get<std::wstring>(value)))) ==
               Acad::eOk;
    case DrawingValue::textStyle:
        return writeName(impl, name, kTextStyleCode, NameKind::textStyle, std::get<std::wstring>(value));
    case DrawingValue::linetype:
        return writeName(impl, name, kLinetypeCode, NameKind::linetype, std::get<std::wstring>(value));
    case DrawingValue::color: {
        const auto index = colorNamed(std::get<std::wstring>(value));
        if (index)
            header.setInteger(name, kColorCode, *index);
        return index.has_value();
    }
    case DrawingValue::unsavedChanges:
        break;
    }
    return false;
}
