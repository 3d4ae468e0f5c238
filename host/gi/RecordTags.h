#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "dxf/DxfForm.h"
#include "dxf/DxfTag.h"

#include "dbid.h"
#include "gepnt3d.h"
#include "gevec3d.h"

/// The tags of an object as its file has them: for what shows and is of a class that is not modelled.
class RecordTags {
public:
    /// None for an object that is made new, or none at all.
    explicit RecordTags(AcDbObjectId object);

    std::vector<DxfTag>::const_iterator begin() const { return m_tags.begin(); }
    std::vector<DxfTag>::const_iterator end() const { return m_tags.end(); }

    /// Values of a tag; 0 and "" for one that cannot be read.
    double real(const DxfTag& tag) const;
    int integer(const DxfTag& tag) const;
    std::wstring text(const DxfTag& tag) const;
    AcDbObjectId object(const DxfTag& tag) const;
    /// Appends the chunk that it holds.
    void bytes(const DxfTag& tag, std::string& to) const;
    /// Characters of bytes in the encoding of the file.
    std::wstring decoded(std::string_view text) const;

    /// Those of the first tag of a code.
    double real(int code, double otherwise) const;
    int integer(int code, int otherwise) const;
    std::wstring text(int code) const;
    AcDbObjectId object(int code) const;
    AcGePoint3d point(int code, const AcGePoint3d& otherwise) const;

private:
    const DxfTag* find(int code) const;

    class AcDbDatabaseImpl* m_database = nullptr;
    std::vector<DxfTag> m_tags;
};
