#include "ed/SystemVariables.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <limits>

#include "ap/DocumentData.h"
#include "ap/DocumentList.h"
#include "ed/CommandRunner.h"
#include "platform/CodePage.h"
#include "platform/LetterCase.h"
#include "platform/Paths.h"
#include "rx/HostSession.h"

namespace {

enum class Place { session, document, drawing, computed };
enum class Access { readOnly, writable };

/// Where a variable is kept.
struct Scope {
    Place place;
    DrawingValue kept = DrawingValue::plain; ///< of those of a drawing
};

DocumentData<std::map<std::wstring_view, VariableValue>>& ofDocuments()
{
    static DocumentData<std::map<std::wstring_view, VariableValue>> values;
    return values;
}

short asShort(bool truth)
{
    return truth ? 1 : 0;
}

VariableValue text(const wchar_t* value)
{
    return std::wstring(value);
}

// What is worked out when asked for. `document` is the current one.

VariableValue drawingName(const Document& document)
{
    return std::wstring(document.docTitle());
}
VariableValue drawingFolder(const Document& document)
{
    return document.folder();
}
VariableValue drawingHasFile(const Document& document)
{
    return asShort(document.isNamedDrawing());
}
VariableValue drawingFile(const Document& document)
{
    return std::wstring(document.isNamedDrawing() ? document.fileName() : L"");
}
VariableValue commandNames(const Document&)
{
    return CommandRunner::instance().runningNames();
}
VariableValue commandActive(const Document&)
{
    return asShort(CommandRunner::instance().isRunning());
}
VariableValue userName(const Document&)
{
    const char* const name = std::getenv("USER");
    return platform::wideFromUtf8(name ? name : "");
}
VariableValue temporaryFolder(const Document&)
{
    return platform::windowsPath(std::filesystem::temp_directory_path()) + L"\\";
}

/// Days of the calendar, and the time of day of the user's clock.
struct LocalTime {
    std::tm now{};
    LocalTime()
    {
        const std::time_t clock = std::time(nullptr);
        localtime_r(&clock, &now);
    }
};

/// 20261121.143000: the twenty-first of November, half past two.
VariableValue calendarDate(const Document&)
{
    const std::tm now = LocalTime().now;
    const int day = (now.tm_year + 1900) * 10000 + (now.tm_mon + 1) * 100 + now.tm_mday;
    return day + (now.tm_hour * 10000 + now.tm_min * 100 + now.tm_sec) * 1e-6;
}

/// Days since the beginning of 4713 before Christ, and the part of the day that is over.
VariableValue julianDate(const Document&)
{
    const std::tm now = LocalTime().now;
    const std::chrono::year_month_day day{std::chrono::year(now.tm_year + 1900),
                                          std::chrono::month(static_cast<unsigned>(now.tm_mon + 1)),
                                          std::chrono::day(static_cast<unsigned>(now.tm_mday))};
    constexpr double ofUnixEpoch = 2440588.0, seconds = 86400.0;
    const auto days = static_cast<double>(std::chrono::sys_days(day).time_since_epoch().count());
    return ofUnixEpoch + days + (now.tm_hour * 3600 + now.tm_min * 60 + now.tm_sec) / seconds;
}

} // namespace

/// One variable.
struct SystemVariables::Row {
    const wchar_t* name;
    Scope scope;
    Access access;
    VariableValue initial; ///< also tells the type
    VariableValue (*compute)(const Document&) = nullptr;
    short least = std::numeric_limits<short>::min(); ///< of integers
    short most = std::numeric_limits<short>::max();
};

const std::vector<SystemVariables::Row>& SystemVariables::table()
{
    using enum Access;
    constexpr Scope session{Place::session}, document{Place::document}, computed{Place::computed},
        drawing{Place::drawing};
    constexpr Scope degreesOfDrawing{Place::drawing, DrawingValue::degrees};
    constexpr Scope layerOfDrawing{Place::drawing, DrawingValue::layer};
    constexpr Scope textStyleOfDrawing{Place::drawing, DrawingValue::textStyle};
    constexpr Scope linetypeOfDrawing{Place::drawing, DrawingValue::linetype};
    constexpr Scope colorOfDrawing{Place::drawing, DrawingValue::color};
    constexpr Scope changesOfDrawing{Place::drawing, DrawingValue::unsavedChanges};
    constexpr short zero = 0, one = 1;
    // In alphabetical order. The initial values are those of a new metric drawing.
    static const std::vector<Row> rows = {
        {L"ACADVER", session, readOnly, text(L"20.1s (Vela)")},
        {L"ANGBASE", degreesOfDrawing, writable, 0.0},
        {L"ANGDIR", drawing, writable, zero, nullptr, 0, 1},
        {L"APERTURE", session, writable, short{10}, nullptr, 1, 50},
        {L"AREA", session, readOnly, 0.0},
        {L"ATTDIA", session, writable, zero, nullptr, 0, 1},
        {L"ATTREQ", session, writable, one, nullptr, 0, 1},
        {L"AUNITS", drawing, writable, zero, nullptr, 0, 4},
        {L"AUPREC", drawing, writable, zero, nullptr, 0, 8},
        {L"AUTOSNAP", session, writable, short{63}, nullptr, 0, 63},
        {L"BLIPMODE", session, writable, zero, nullptr, 0, 1},
        {L"CDATE", computed, readOnly, 0.0, calendarDate},
        {L"CECOLOR", colorOfDrawing, writable, text(L"BYLAYER")},
        {L"CELTSCALE", drawing, writable, 1.0},
        {L"CELTYPE", linetypeOfDrawing, writable, text(L"ByLayer")},
        {L"CIRCLERAD", session, writable, 0.0},
        {L"CLAYER", layerOfDrawing, writable, text(L"0")},
        {L"CMDACTIVE", computed, readOnly, zero, commandActive},
        {L"CMDDIA", session, writable, one, nullptr, 0, 1},
        {L"CMDECHO", session, writable, one, nullptr, 0, 1},
        {L"CMDNAMES", computed, readOnly, text(L""), commandNames},
        {L"COORDS", session, writable, one, nullptr, 0, 2},
        {L"CTAB", session, readOnly, text(L"Model")},
        {L"CVPORT", session, readOnly, short{2}},
        {L"DATE", computed, readOnly, 0.0, julianDate},
        {L"DBMOD", changesOfDrawing, readOnly, zero},
        {L"DIMSCALE", drawing, writable, 1.0},
        {L"DIMTXT", drawing, writable, 2.5},
        {L"DIMZIN", drawing, writable, zero, nullptr, 0, 15},
        {L"DISTANCE", session, readOnly, 0.0},
        {L"DRAGMODE", session, writable, short{2}, nullptr, 0, 2},
        {L"DWGCODEPAGE", session, readOnly, text(L"ANSI_1252")},
        {L"DWGNAME", computed, readOnly, text(L""), drawingName},
        {L"DWGPREFIX", computed, readOnly, text(L""), drawingFolder},
        {L"DWGTITLED", computed, readOnly, zero, drawingHasFile},
        {L"ELEVATION", drawing, writable, 0.0},
        {L"ERRNO", session, writable, zero, nullptr, 0, 99},
        {L"EXPERT", session, writable, zero, nullptr, 0, 5},
        {L"EXTMAX", drawing, readOnly, AcGePoint3d(-1e20, -1e20, -1e20)},
        {L"EXTMIN", drawing, readOnly, AcGePoint3d(1e20, 1e20, 1e20)},
        {L"FILEDIA", session, writable, one, nullptr, 0, 1},
        {L"GRIDMODE", session, writable, zero, nullptr, 0, 0}, // no grid to show
        {L"HIGHLIGHT", session, writable, one, nullptr, 0, 1},
        {L"INSBASE", drawing, writable, AcGePoint3d(0.0, 0.0, 0.0)},
        {L"INSNAME", session, writable, text(L"")},
        {L"INSUNITS", drawing, writable, short{6}, nullptr, 0, 20},
        {L"LASTPOINT", document, writable, AcGePoint3d(0.0, 0.0, 0.0)},
        {L"LIMMAX", drawing, readOnly, AcGePoint2d(420.0, 297.0)},
        {L"LIMMIN", drawing, readOnly, AcGePoint2d(0.0, 0.0)},
        {L"LOCALE", session, readOnly, text(L"FRA")},
        {L"LOGINNAME", computed, readOnly, text(L""), userName},
        {L"LTSCALE", drawing, writable, 1.0},
        {L"LUNITS", drawing, writable, short{2}, nullptr, 1, 5},
        {L"LUPREC", drawing, writable, short{4}, nullptr, 0, 8},
        {L"MEASUREMENT", drawing, writable, one, nullptr, 0, 1},
        {L"MENUECHO", session, writable, zero, nullptr, 0, 15},
        {L"MODEMACRO", session, writable, text(L"")},
        {L"NOMUTT", session, writable, zero, nullptr, 0, 1},
        {L"OFFSETDIST", session, writable, 1.0},
        {L"ORTHOMODE", drawing, writable, zero, nullptr, 0, 1},
        {L"OSMODE", session, writable, short{4133}, nullptr, 0, 32767},
        {L"PDMODE", drawing, writable, zero, nullptr, 0, 100},
        {L"PDSIZE", drawing, writable, 0.0},
        {L"PERIMETER", session, readOnly, 0.0},
        {L"PICKADD", session, writable, short{2}, nullptr, 0, 2},
        {L"PICKAUTO", session, writable, one, nullptr, 0, 6},
        {L"PICKBOX", session, writable, short{3}, nullptr, 0, 50},
        {L"PICKFIRST", session, writable, one, nullptr, 0, 1},
        {L"PICKSTYLE", session, writable, one, nullptr, 0, 3},
        {L"PLINETYPE", session, writable, short{2}, nullptr, 0, 2},
        {L"PRODUCT", session, readOnly, text(L"Vela")},
        {L"REGENMODE", drawing, writable, one, nullptr, 0, 1},
        {L"SAVEFILE", session, readOnly, text(L"")},
        {L"SAVENAME", computed, readOnly, text(L""), drawingFile},
        {L"SCREENSIZE", document, readOnly, AcGePoint2d(1280.0, 720.0)},
        {L"SDI", session, readOnly, zero},
        {L"SNAPMODE", session, writable, zero, nullptr, 0, 0}, // no grid to snap to
        {L"SORTENTS", session, writable, short{127}, nullptr, 0, 127},
        {L"SYSCODEPAGE", session, readOnly, text(L"ANSI_1252")},
        {L"TDCREATE", drawing, readOnly, 0.0},
        {L"TDUPDATE", drawing, readOnly, 0.0},
        {L"TEMPPREFIX", computed, readOnly, text(L""), temporaryFolder},
        {L"TEXTEVAL", session, writable, zero, nullptr, 0, 1},
        {L"TEXTSIZE", drawing, writable, 2.5},
        {L"TEXTSTYLE", textStyleOfDrawing, writable, text(L"Standard")},
        {L"TILEMODE", session, writable, one, nullptr, 1, 1},
        {L"UCSFOLLOW", session, writable, zero, nullptr, 0, 1},
        {L"UCSICON", session, writable, short{3}, nullptr, 0, 3},
        {L"UCSNAME", session, readOnly, text(L"")},
        {L"UCSORG", session, readOnly, AcGePoint3d(0.0, 0.0, 0.0)},
        {L"UCSXDIR", session, readOnly, AcGePoint3d(1.0, 0.0, 0.0)},
        {L"UCSYDIR", session, readOnly, AcGePoint3d(0.0, 1.0, 0.0)},
        {L"USERI1", drawing, writable, zero},
        {L"USERI2", drawing, writable, zero},
        {L"USERI3", drawing, writable, zero},
        {L"USERI4", drawing, writable, zero},
        {L"USERI5", drawing, writable, zero},
        {L"USERR1", drawing, writable, 0.0},
        {L"USERR2", drawing, writable, 0.0},
        {L"USERR3", drawing, writable, 0.0},
        {L"USERR4", drawing, writable, 0.0},
        {L"USERR5", drawing, writable, 0.0},
        {L"USERS1", document, writable, text(L"")},
        {L"USERS2", document, writable, text(L"")},
        {L"USERS3", document, writable, text(L"")},
        {L"USERS4", document, writable, text(L"")},
        {L"USERS5", document, writable, text(L"")},
        // The view of a document: a whole A4 sheet, until a window shows it.
        {L"VIEWCTR", document, readOnly, AcGePoint3d(210.0, 148.5, 0.0)},
        {L"VIEWDIR", session, readOnly, AcGePoint3d(0.0, 0.0, 1.0)},
        {L"VIEWSIZE", document, readOnly, 297.0},
        {L"VIEWTWIST", session, readOnly, 0.0},
        {L"WORLDUCS", session, readOnly, one},
    };
    return rows;
}

SystemVariables& SystemVariables::instance()
{
    return HostSession::part<SystemVariables>();
}

const SystemVariables::Row* SystemVariables::find(const std::wstring& name)
{
    const auto found = std::find_if(table().begin(), table().end(),
                                    [&name](const Row& row) { return platform::equalNoCase(row.name, name); });
    return found == table().end() ? nullptr : &*found;
}

std::vector<std::wstring> SystemVariables::names()
{
    std::vector<std::wstring> names;
    for (const Row& row : table())
        names.emplace_back(row.name);
    return names;
}

// ---- reading

std::optional<VariableValue> SystemVariables::value(const std::wstring& name) const
{
    const Row* row = find(name);
    return row ? value(*row) : std::nullopt;
}

std::optional<VariableValue> SystemVariables::value(const Row& row) const
{
    const auto stored = [&row](const Values& values) {
        const auto found = values.find(row.name);
        return found == values.end() ? row.initial : found->second;
    };
    if (row.scope.place == Place::session)
        return stored(m_session);
    Document* current = DocumentList::instance().current();
    if (!current)
        return std::nullopt;
    if (row.scope.place == Place::document)
        return stored(ofDocuments().of(*current));
    if (row.scope.place == Place::computed)
        return row.compute(*current);
    if (!m_drawing)
        return std::nullopt;
    return m_drawing->value(*current->database(), {row.name, row.scope.kept, row.initial}).value_or(row.initial);
}

// ---- changing

namespace {

/// The value in the type of the variable; nothing when it is of another kind.
std::optional<VariableValue> converted(const VariableValue& value, const VariableValue& model)
{
    if (value.index() == model.index())
        return value;
    if (const short* integer = std::get_if<short>(&value); integer && std::holds_alternative<double>(model))
        return static_cast<double>(*integer);
    if (const AcGePoint2d* plane = std::get_if<AcGePoint2d>(&value);
        plane && std::holds_alternative<AcGePoint3d>(model))
        return AcGePoint3d(plane->x, plane->y, 0.0);
    if (const AcGePoint3d* space = std::get_if<AcGePoint3d>(&value);
        space && std::holds_alternative<AcGePoint2d>(model))
        return AcGePoint2d(space->x, space->y);
    return std::nullopt;
}

} // namespace

SystemVariables::Answer SystemVariables::set(const std::wstring& name, const VariableValue& value)
{
    const Row* row = find(name);
    if (row && row->access == Access::readOnly)
        return Answer::readOnly;
    return assign(name, value);
}

SystemVariables::Answer SystemVariables::assign(const std::wstring& name, const VariableValue& value)
{
    const Row* row = find(name);
    if (!row)
        return Answer::unknown;
    if (row->scope.place == Place::computed)
        return Answer::readOnly;
    const auto stored = converted(value, row->initial);
    if (!stored)
        return Answer::wrongType;
    const short* integer = std::get_if<short>(&*stored);
    if (integer && (*integer < row->least || *integer > row->most))
        return Answer::refused;
    return store(*row, *stored);
}

SystemVariables::Answer SystemVariables::store(const Row& row, const VariableValue& value)
{
    if (row.scope.place == Place::session) {
        m_session[row.name] = value;
        return Answer::done;
    }
    Document* current = DocumentList::instance().current();
    if (!current)
        return Answer::refused;
    if (row.scope.place == Place::document) {
        ofDocuments().of(*current)[row.name] = value;
        return Answer::done;
    }
    const DrawingVariable variable{row.name, row.scope.kept, row.initial};
    const bool taken = m_drawing && m_drawing->setValue(*current->database(), variable, value);
    return taken ? Answer::done : Answer::refused;
}
