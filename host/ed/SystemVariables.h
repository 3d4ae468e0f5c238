#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "acdocman.h"
#include "gepnt3d.h"

/// A value of a system variable: RTSHORT, RTREAL, RTSTR, RTPOINT, RT3DPOINT.
using VariableValue = std::variant<short, double, std::wstring, AcGePoint2d, AcGePoint3d>;

/// How a drawing keeps a variable: the value as it stands; an angle, in degrees; the name of a record that must be
/// there; a colour by its number. Its unsaved changes no file keeps.
enum class DrawingValue : unsigned char { plain, degrees, layer, textStyle, linetype, color, unsavedChanges };

/// A variable that a drawing keeps; `initial` is its value in a new one, and tells its type.
struct DrawingVariable {
    std::wstring_view name;
    DrawingValue kept;
    const VariableValue& initial;
};

/// Variables that a drawing keeps in its file. The database implements it.
class DrawingVariables {
public:
    virtual ~DrawingVariables() = default;
    /// Nothing when the drawing has no such variable: then it has the value it would have in a new one.
    virtual std::optional<VariableValue> value(const AcDbDatabase& database, const DrawingVariable& variable) = 0;
    /// False when the value is refused, such as a layer that is not there.
    virtual bool setValue(AcDbDatabase& database, const DrawingVariable& variable, const VariableValue& value) = 0;
};

/// The system variables. Some belong to the session, some to a document (its view), some are kept in the drawing
/// itself, some are worked out when asked for. Letter case does not count in names.
class SystemVariables {
public:
    static SystemVariables& instance();

    /// In the current document. Nothing for a name that is not known, or with no document to ask.
    std::optional<VariableValue> value(const std::wstring& name) const;

    enum class Answer { done, unknown, readOnly, wrongType, refused };
    /// As a user sets it. An integer is taken for a real, a plane point for a point in space and the other way round.
    Answer set(const std::wstring& name, const VariableValue& value);
    /// As the host sets what a user may only read, such as the view's size.
    Answer assign(const std::wstring& name, const VariableValue& value);

    /// Not owned; null takes it away, and what drawings keep is then not known.
    void setDrawingVariables(DrawingVariables* variables) { m_drawing = variables; }
    /// All names, in alphabetical order.
    static std::vector<std::wstring> names();

private:
    using Values = std::map<std::wstring_view, VariableValue>; // those that differ from the start
    struct Row;
    static const Row* find(const std::wstring& name);
    static const std::vector<Row>& table();
    std::optional<VariableValue> value(const Row& row) const;
    Answer store(const Row& row, const VariableValue& value);

    Values m_session;
    DrawingVariables* m_drawing = nullptr;
};
