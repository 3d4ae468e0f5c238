#include "ed/SystemVariables.h"

#include <algorithm>
#include <limits>

#include "ap/DocumentData.h"
#include "ap/DocumentList.h"
#include "ed/CommandRunner.h"
#include "platform/LetterCase.h"

namespace {

enum class Scope { session, document, drawing, computed };
enum class Access { readOnly, writable };

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
    using enum Scope;
    using enum Access;
    constexpr short zero = 0, one = 1;
    // In alphabetical order. The initial values are those of a new metric drawing.
    static const std::vector<Row> rows = {
        {L"ACADVER", session, readOnly, text(L"20.1s (Vela)")},
        {L"ANGBASE", drawing, writable, 0.0},
        {L"ANGDIR", drawing, writable, zero, nullptr, 0, 1},
        {L"AREA", session, readOnly, 0.0},
        {L"ATTDIA", session, writable, zero, nullptr, 0, 1},
        {L"ATTREQ", session, writable, one, nullptr, 0, 1},
        {L"AUNITS", drawing, writable, zero, nullptr, 0, 4},
        {L"AUPREC", drawing, writable, zero, nullptr, 0, 8},
        {L"CECOLOR", drawing, writable, text(L"BYLAYER")},
        {L"CELTSCALE", drawing, writable, 1.0},
        {L"CELTYPE", drawing, writable, text(L"ByLayer")},
        {L"CIRCLERAD", session, writable, 0.0},
        {L"CLAYER", drawing, writable, text(L"0")},
        {L"CMDACTIVE", computed, readOnly, zero, commandActive},
        {L"CMDDIA", session, writable, one, nullptr, 0, 1},
        {L"CMDECHO", session, writable, one, nullptr, 0, 1},
        {L"CMDNAMES", computed, readOnly, text(L""), commandNames},
        {L"DBMOD", drawing, readOnly, zero},
        {L"DISTANCE", session, readOnly, 0.0},
        {L"DWGNAME", computed, readOnly, text(L""), drawingName},
        {L"DWGPREFIX", computed, readOnly, text(L""), drawingFolder},
        {L"DWGTITLED", computed, readOnly, zero, drawingHasFile},
        {L"ELEVATION", drawing, writable, 0.0},
        {L"ERRNO", session, writable, zero, nullptr, 0, 99},
        {L"EXPERT", session, writable, zero, nullptr, 0, 5},
        {L"EXTMAX", drawing, readOnly, AcGePoint3d(-1e20, -1e20, -1e20)},
        {L"EXTMIN", drawing, readOnly, AcGePoint3d(1e20, 1e20, 1e20)},
        {L"FILEDIA", session, writable, one, nullptr, 0, 1},
        {L"HIGHLIGHT", session, writable, one, nullptr, 0, 1},
        {L"INSBASE", drawing, writable, AcGePoint3d(0.0, 0.0, 0.0)},
        {L"INSNAME", session, writable, text(L"")},
        {L"INSUNITS", drawing, writable, short{6}, nullptr, 0, 20},
        {L"LASTPOINT", document, writable, AcGePoint3d(0.0, 0.0, 0.0)},
        {L"LIMMAX", drawing, readOnly, AcGePoint2d(420.0, 297.0)},
        {L"LIMMIN", drawing, readOnly, AcGePoint2d(0.0, 0.0)},
        {L"LOCALE", session, readOnly, text(L"FRA")},
        {L"LTSCALE", drawing, writable, 1.0},
        {L"LUNITS", drawing, writable, short{2}, nullptr, 1, 5},
        {L"LUPREC", drawing, writable, short{4}, nullptr, 0, 8},
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
        {L"PRODUCT", session, readOnly, text(L"Vela")},
        {L"REGENMODE", drawing, writable, one, nullptr, 0, 1},
        {L"SAVENAME", computed, readOnly, text(L""), drawingFile},
        {L"SCREENSIZE", document, readOnly, AcGePoint2d(1280.0, 720.0)},
        {L"SDI", session, readOnly, zero},
        {L"TDCREATE", drawing, readOnly, 0.0},
        {L"TDUPDATE", drawing, readOnly, 0.0},
        {L"TEXTSIZE", drawing, writable, 2.5},
        {L"TEXTSTYLE", drawing, writable, text(L"Standard")},
        {L"TILEMODE", drawing, writable, one, nullptr, 0, 1},
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
        {L"VIEWSIZE", document, readOnly, 297.0},
        {L"WORLDUCS", session, readOnly, one},
    };
    return rows;
}

SystemVariables& SystemVariables::instance()
{
    static SystemVariables variables;
    return variables;
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
    if (row.scope == Scope::session)
        return stored(m_session);
    Document* current = DocumentList::instance().current();
    if (!current)
        return std::nullopt;
    if (row.scope == Scope::document)
        return stored(ofDocuments().of(*current));
    if (row.scope == Scope::computed)
        return row.compute(*current);
    if (!m_drawing)
        return std::nullopt;
    return m_drawing->value(*current->database(), row.name).value_or(row.initial);
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
    if (row->scope == Scope::computed)
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
    if (row.scope == Scope::session) {
        m_session[row.name] = value;
        return Answer::done;
    }
    Document* current = DocumentList::instance().current();
    if (!current)
        return Answer::refused;
    if (row.scope == Scope::document) {
        ofDocuments().of(*current)[row.name] = value;
        return Answer::done;
    }
    const bool taken = m_drawing && m_drawing->setValue(*current->database(), row.name, value);
    return taken ? Answer::done : Answer::refused;
}
