#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "db/fields/NameKind.h"

#include "gepnt3d.h"

class AcDbDatabaseImpl;
class AcDbExtents;

/// Variables of the drawing's HEADER section, read from its bytes and patched into them on saving.
class HeaderVariables {
public:
    explicit HeaderVariables(AcDbDatabaseImpl& database) : m_database(database) {}

    bool has(const std::string& name) const;
    double real(const std::string& name, double otherwise) const;
    std::int64_t integer(const std::string& name, std::int64_t otherwise) const;
    std::wstring text(const std::string& name) const;
    /// Handle value of a name's first tag, as for $HANDSEED.
    std::uint64_t handle(const std::string& name) const;
    AcGePoint3d point(const std::string& name, const AcGePoint3d& otherwise) const;

    void setReal(const std::string& name, int code, double value);
    void setInteger(const std::string& name, int code, std::int64_t value);
    void setText(const std::string& name, int code, const std::wstring& value);
    void setPoint(const std::string& name, const AcGePoint3d& value);

    /// Variables that name a record of a symbol table take its new name.
    void rename(NameKind kind, const std::wstring& former, const std::wstring& name);

    bool changed() const { return !m_changes.empty(); }
    /// The whole HEADER section record with the changes, $HANDSEED at least `handleSeed` when that is not 0, and
    /// $EXTMIN and $EXTMAX of `extents` when there are any.
    std::string patched(std::uint64_t handleSeed, const AcDbExtents* extents) const;

    /// The tags after "9 NAME", changed or not; nothing when the variable is missing.
    std::string_view tags(const std::string& name) const;
    /// Puts back what `tags` gave (for undo).
    void restore(const std::string& name, std::string_view tags);

private:
    struct Span {
        std::string name;
        std::string_view tags;
    };
    const std::vector<Span>& spans() const;
    std::string_view sectionBytes() const;
    void change(const std::string& name, std::string tags);
    void tellChanged(const std::string& name) const;

    AcDbDatabaseImpl& m_database;
    mutable bool m_read = false;
    mutable std::vector<Span> m_spans; // in file order
    std::map<std::string, std::string> m_changes;
};
