#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <type_traits>
#include <unordered_map>
#include <vector>

#include "db/fields/NameKind.h"
#include "dxf/DxfAngle.h"
#include "dxf/DxfTagWriter.h"
#include "dxf/DxfValue.h"

#include "dbmain.h"
#include "gepnt2d.h"
#include "gepnt3d.h"
#include "gevec3d.h"

/// Tables that tie the fields of the database classes to the tags of a drawing file.
/// One row a field; the same rows read an object, write a new one, and merge a changed one into its old tags.
///
/// A class that has private fields befriends the struct that holds its rows (DxfFieldsOfEntity, ...).

class AcDbDatabaseImpl;

/// Where tags are read from: their form, and the drawing whose names and handles they use.
struct DxfReadContext {
    const DxfForm& form;
    AcDbDatabaseImpl& database;

    std::wstring text(const DxfTag& tag) const;
    /// Record of a symbol table by its name; null when the table lacks it.
    AcDbStub* named(NameKind kind, const DxfTag& tag) const;
    /// Object by its handle; null when there is none. False when the tag holds no handle.
    bool object(const DxfTag& tag, AcDbStub*& stub) const;
};

/// Where tags are written to.
struct DxfWriteContext {
    DxfTagWriter& out;
    AcDbDatabaseImpl& database;
    bool complete = false; ///< what has its default value is told too

    void name(int code, AcDbStub* record);
    void object(int code, AcDbStub* stub);
};

/// One row.
/// A scalar field takes `parts` tags, of group codes code, code + 10, ... A list field takes a repeated group of tags,
/// of any of its group codes; it is rewritten as a whole, where its first tag stood.
struct DxfField {
    /// Takes the tag in; false when its value cannot be read.
    using Read = bool (*)(const DxfReadContext&, AcDbObject&, const DxfTag&, int part);
    /// Writes one part of a scalar field, or the whole of a list.
    using Write = void (*)(DxfWriteContext&, const AcDbObject&, int code, int part);
    using Same = bool (*)(const AcDbObject&, const AcDbObject&, int part);
    using Clear = void (*)(AcDbObject&);

    std::int16_t code;
    std::uint8_t parts;
    bool always; ///< written even with the value of a new object
    Read read;
    Write write;
    Same same;
    std::vector<std::int16_t> listCodes; ///< empty for a scalar field
    Clear clear = nullptr;               ///< empties a list, before another is read; null where none may be

    bool isList() const { return !listCodes.empty(); }
};

/// Which part of a field a tag of one of its group codes is.
inline int partOf(const DxfField& field, int code)
{
    return code == field.code || field.isList() ? 0 : (code - field.code) / 10;
}

/// The rows of one subclass marker ("AcDbLine"). A marker may stand twice in a class, with different rows.
class DxfSubclass {
public:
    /// Marker "" : tags that stand before the first marker. `leadingOnly`: the first tag without a row ends the
    /// reading.
    DxfSubclass(const char* marker, std::vector<DxfField> fields, bool leadingOnly = false);

    const std::string& marker() const { return m_marker; }
    const std::vector<DxfField>& fields() const { return m_fields; }
    bool leadingOnly() const { return m_leadingOnly; }
    /// Position of the row that takes a group code, or -1.
    int rowOf(int code) const { return m_rows[static_cast<std::size_t>(code)] - 1; }

private:
    std::string m_marker;
    std::vector<DxfField> m_fields;
    bool m_leadingOnly;
    std::array<std::uint8_t, dxfLastCode + 1> m_rows{};
};

/// How the objects of one class stand in a drawing file.
struct DxfClass {
    const char* dxfName; ///< after the group 0
    AcRxClass* rxClass;
    AcDbObject* (*create)();
    std::vector<const DxfSubclass*> subclasses; ///< in the order of the file
    /// Where several classes share a dxfName: the marker that tells this one; null for the one that is left.
    const char* distinctive = nullptr;
    bool isEntity = false;
    /// Of each subclass, the place of its first row among the rows of all; then the count of rows. DxfClasses::add
    /// fills it.
    std::vector<std::size_t> firstRows = {};
};

/// Every class that the kernel models. Classes of the file that are not here stay bytes (proxies).
class DxfClasses {
public:
    static const DxfClasses& all();
    /// Candidates under a name in drawing files; empty when there is none.
    const std::vector<const DxfClass*>& named(std::string_view dxfName) const;
    const DxfClass* of(const AcRxClass* rxClass) const;
    const DxfClass& proxyEntity() const { return *m_proxyEntity; }
    const DxfClass& proxyObject() const { return *m_proxyObject; }
    /// A new object of the class, as a reader takes it when every tag is missing.
    const AcDbObject& fresh(const DxfClass& dxfClass) const;

    void add(DxfClass dxfClass);

private:
    DxfClasses();
    std::vector<std::unique_ptr<DxfClass>> m_classes;
    std::map<std::string, std::vector<const DxfClass*>, std::less<>> m_byName;
    std::unordered_map<const AcRxClass*, const DxfClass*> m_byRxClass;
    std::unordered_map<const DxfClass*, std::unique_ptr<const AcDbObject>> m_fresh;
    const DxfClass* m_proxyEntity = nullptr;
    const DxfClass* m_proxyObject = nullptr;
};

// ---- rows -----------------------------------------------------------------------------------------------------------

enum class DxfWhen { unlessDefault, always };

namespace dxf_rows {

template <class T>
struct MemberOf;
template <class C, class V>
struct MemberOf<V C::*> {
    using Class = C;
    using Value = V;
};

template <auto Member>
using ClassOf = typename MemberOf<decltype(Member)>::Class;
template <auto Member>
using ValueOf = typename MemberOf<decltype(Member)>::Value;

template <auto Member>
auto& in(AcDbObject& object)
{
    return static_cast<ClassOf<Member>&>(object).*Member;
}
template <auto Member>
const auto& in(const AcDbObject& object)
{
    return static_cast<const ClassOf<Member>&>(object).*Member;
}

template <auto Member>
bool equal(const AcDbObject& a, const AcDbObject& b, int)
{
    return in<Member>(a) == in<Member>(b);
}

inline double coordinate(const AcGePoint3d& p, int part)
{
    return part == 0 ? p.x : part == 1 ? p.y : p.z;
}
inline double coordinate(const AcGeVector3d& p, int part)
{
    return part == 0 ? p.x : part == 1 ? p.y : p.z;
}
inline double coordinate(const AcGePoint2d& p, int part)
{
    return part == 0 ? p.x : p.y;
}
inline double& coordinate(AcGePoint3d& p, int part)
{
    return part == 0 ? p.x : part == 1 ? p.y : p.z;
}
inline double& coordinate(AcGeVector3d& p, int part)
{
    return part == 0 ? p.x : part == 1 ? p.y : p.z;
}
inline double& coordinate(AcGePoint2d& p, int part)
{
    return part == 0 ? p.x : p.y;
}

} // namespace dxf_rows

/// A real as it stands.
template <auto Member>
DxfField realField(int code, DxfWhen when = DxfWhen::unlessDefault)
{
    return {
        static_cast<std::int16_t>(code),
        1,
        when == DxfWhen::always,
        [](const DxfReadContext& c, AcDbObject& o, const DxfTag& t, int) {
            return dxfReal(c.form, t, dxf_rows::in<Member>(o));
        },
        [](DxfWriteContext& c, const AcDbObject& o, int written, int) { c.out.real(written, dxf_rows::in<Member>(o)); },
        dxf_rows::equal<Member>,
        {}};
}

/// Degrees in the file, radians in memory.
template <auto Member>
DxfField degreesField(int code, DxfWhen when = DxfWhen::unlessDefault)
{
    return {static_cast<std::int16_t>(code),
            1,
            when == DxfWhen::always,
            [](const DxfReadContext& c, AcDbObject& o, const DxfTag& t, int) {
                double degrees = 0.0;
                if (!dxfReal(c.form, t, degrees))
                    return false;
                dxf_rows::in<Member>(o) = dxfRadians(degrees);
                return true;
            },
            [](DxfWriteContext& c, const AcDbObject& o, int written, int) {
                c.out.real(written, dxfDegrees(dxf_rows::in<Member>(o)));
            },
            dxf_rows::equal<Member>,
            {}};
}

/// An integer or a truth value of any width; a value that the member cannot hold cannot be read.
template <auto Member>
DxfField integerField(int code, DxfWhen when = DxfWhen::unlessDefault)
{
    return {static_cast<std::int16_t>(code),
            1,
            when == DxfWhen::always,
            [](const DxfReadContext& c, AcDbObject& o, const DxfTag& t, int) {
                using Value = dxf_rows::ValueOf<Member>;
                std::int64_t read = 0;
                if (!dxfInteger(c.form, t, read))
                    return false;
                if constexpr (std::is_same_v<Value, bool>)
                    dxf_rows::in<Member>(o) = read != 0;
                else {
                    if (static_cast<std::int64_t>(static_cast<Value>(read)) != read)
                        return false;
                    dxf_rows::in<Member>(o) = static_cast<Value>(read);
                }
                return true;
            },
            [](DxfWriteContext& c, const AcDbObject& o, int written, int) {
                c.out.integer(written, static_cast<std::int64_t>(dxf_rows::in<Member>(o)));
            },
            dxf_rows::equal<Member>,
            {}};
}

/// A true colour; where there is none (-1) no tag says so, and one that was there goes.
template <auto Member>
DxfField trueColorField()
{
    DxfField row = integerField<Member>(420);
    row.write = [](DxfWriteContext& c, const AcDbObject& o, int code, int) {
        if (dxf_rows::in<Member>(o) >= 0)
            c.out.integer(code, dxf_rows::in<Member>(o));
    };
    return row;
}

template <auto Member>
DxfField textField(int code, DxfWhen when = DxfWhen::unlessDefault)
{
    return {
        static_cast<std::int16_t>(code),
        1,
        when == DxfWhen::always,
        [](const DxfReadContext& c, AcDbObject& o, const DxfTag& t, int) {
            dxf_rows::in<Member>(o) = c.text(t);
            return true;
        },
        [](DxfWriteContext& c, const AcDbObject& o, int written, int) { c.out.text(written, dxf_rows::in<Member>(o)); },
        dxf_rows::equal<Member>,
        {}};
}

/// A record of a symbol table, by name in the file, by stub in memory.
template <auto Member, NameKind Kind>
DxfField nameField(int code, DxfWhen when = DxfWhen::unlessDefault)
{
    return {static_cast<std::int16_t>(code),
            1,
            when == DxfWhen::always,
            [](const DxfReadContext& c, AcDbObject& o, const DxfTag& t, int) {
                dxf_rows::in<Member>(o) = c.named(Kind, t);
                return true;
            },
            [](DxfWriteContext& c, const AcDbObject& o, int written, int) { c.name(written, dxf_rows::in<Member>(o)); },
            dxf_rows::equal<Member>,
            {}};
}

/// A point or vector: AcGePoint3d, AcGeVector3d (three tags) or AcGePoint2d (two).
template <auto Member>
DxfField pointField(int code, DxfWhen when = DxfWhen::unlessDefault)
{
    constexpr bool flat = std::is_same_v<dxf_rows::ValueOf<Member>, AcGePoint2d>;
    return {static_cast<std::int16_t>(code),
            flat ? std::uint8_t{2} : std::uint8_t{3},
            when == DxfWhen::always,
            [](const DxfReadContext& c, AcDbObject& o, const DxfTag& t, int part) {
                return dxfReal(c.form, t, dxf_rows::coordinate(dxf_rows::in<Member>(o), part));
            },
            [](DxfWriteContext& c, const AcDbObject& o, int written, int part) {
                c.out.real(written, dxf_rows::coordinate(dxf_rows::in<Member>(o), part));
            },
            [](const AcDbObject& a, const AcDbObject& b, int part) {
                return dxf_rows::coordinate(dxf_rows::in<Member>(a), part) ==
                       dxf_rows::coordinate(dxf_rows::in<Member>(b), part);
            },
            {}};
}

/// A repeated group; the functions are the class's own. The first code is one that every list holds; `same` compares
/// the whole list.
inline DxfField listField(std::initializer_list<std::int16_t> codes, DxfField::Read read, DxfField::Write write,
                          DxfField::Same same, DxfField::Clear clear, DxfWhen when = DxfWhen::unlessDefault)
{
    return {*codes.begin(), 1, when == DxfWhen::always, read, write, same, codes, clear};
}
