#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "db/fields/DxfFields.h"
#include "dxf/DxfRecord.h"

/// Place of a row: of the subclass in the class, of the row in the subclass.
struct DxfRowPlace {
    static constexpr int none = -1;
    int subclass = none;
    int row = none;
    bool operator==(const DxfRowPlace&) const = default;
};

/// A tag of an object with the row that takes it. Of a marker: the subclass that it opens, where the class has it.
struct DxfPlacedTag {
    DxfTag tag;
    DxfRowPlace place;
};

/// Makes objects of their bytes, by the field tables.
class DxfObjectReader {
public:
    explicit DxfObjectReader(AcDbDatabaseImpl& database);

    /// Class of a record, told by its name and, where several classes share the name, by its markers (`sharedName`).
    /// Without any marker, by its flags, as before R13.
    /// The proxy classes for what the kernel does not know.
    const DxfClass& classOf(const DxfRecord& record, bool& sharedName) const;

    /// Fills a new object of `dxfClass`. False when a tag cannot be read: see `complaint`; the object is then unfit.
    bool read(std::string_view bytes, const DxfClass& dxfClass, AcDbObject& object);
    /// The same, telling of each tag which row took it. What is data of the object (of an xrecord, or embedded) and its
    /// extended data are left out: they follow the last tag that is told.
    bool read(std::string_view bytes, const DxfClass& dxfClass, AcDbObject& object, std::vector<DxfPlacedTag>& placed);

    /// Why the last read failed, in French.
    std::string complaint() const;

private:
    template <class Tell>
    bool readTelling(std::string_view bytes, const DxfClass& dxfClass, AcDbObject& object, Tell tell);
    bool isInEntitySections(const DxfRecord& record) const;
    bool hasMarker(const DxfRecord& record, std::string_view marker) const;
    std::string_view impliedMarker(const DxfRecord& record) const;

    AcDbDatabaseImpl& m_database;
    DxfReadContext m_context;
    DxfTag m_refused{};
};

/// Code of the name of an application: its extended data follow.
inline constexpr int extendedDataCode = 1001;

/// Of a tag of code 102: whether it opens a group, as "{ACAD_REACTORS", or ends one.
inline bool opensGroup(const DxfTag& tag)
{
    return dxfText(tag).find('{') != std::string_view::npos;
}

/// Where in a class's subclasses the walk through an object's tags stands.
///
/// Many programs write what every entity has (layer, colour, linetype) before the first marker or below the marker of
/// the entity's class: such tags belong to the rows of AcDbEntity wherever they stand, unless the class has a row for
/// the code.
class DxfSubclassWalk {
public:
    static constexpr int none = DxfRowPlace::none;

    explicit DxfSubclassWalk(const DxfClass& dxfClass) :
        m_class(&dxfClass),
        m_common(dxfClass.isEntity ? dxfClass.subclasses.front() : nullptr)
    {
        if (dxfClass.subclasses.empty() || !dxfClass.subclasses.front()->marker().empty())
            return;
        m_at = 0;
        m_here = dxfClass.subclasses.front();
    }
    /// Goes on to the subclass that a group 100 names; to none when the class does not know it.
    void enter(std::string_view marker)
    {
        m_marked = m_onlyCommon = true;
        m_here = nullptr;
        const int count = static_cast<int>(m_class->subclasses.size());
        for (int i = m_at + 1; i <= m_at + count && !m_here; ++i) {
            const int at = i < count ? i : i - count;
            const DxfSubclass* const subclass = m_class->subclasses[static_cast<std::size_t>(at)];
            if (subclass->marker() != marker)
                continue;
            m_at = at;
            m_here = subclass;
        }
    }
    /// The row that takes a tag which is no marker and in no group. To be asked once a tag, in their order.
    DxfRowPlace rowFor(int code)
    {
        const int own = m_here ? m_here->rowOf(code) : none;
        if (own < 0 || m_here == m_common)
            return m_common ? commonRowFor(code, m_here == m_common) : DxfRowPlace();
        m_onlyCommon = false;
        return {m_at, own};
    }
    /// Whether a tag opens the data below a subclass that has leading rows only, or an embedded object; both go on to
    /// the end of the object.
    /// To be asked once a tag: a row takes one, what stands under its code again is data.
    bool opensData(int code)
    {
        constexpr int embeddedObject = 101; // in texts and attributes of 2018: its tags are its own
        if (m_here && code == embeddedObject)
            return true;
        if (!m_here || !m_here->leadingOnly())
            return false;
        const int row = code >= 0 ? m_here->rowOf(code) : -1;
        if (row < 0 || (m_leading >> row & 1U) != 0)
            return true;
        m_leading |= 1U << row;
        return false;
    }
    /// Position of the subclass, or a negative number.
    int position() const { return m_here ? m_at : none; }

private:
    DxfRowPlace commonRowFor(int code, bool inPlace);
    bool isCommonHere(int code) const;
    DxfRowPlace rowWithoutMarker(int code) const;

    const DxfClass* m_class;
    const DxfSubclass* m_common;         // what every entity has; null for other objects
    int m_at = none;                     // the subclass entered last: one of the same name is looked for behind it
    const DxfSubclass* m_here = nullptr; // the same while the walk is in it
    unsigned m_leading = 0;              // leading rows that took their tag
    bool m_marked = false;               // a marker was met
    bool m_onlyCommon = false;           // since the last marker, tags of every entity alone
    bool m_inPlace = false;              // the layer stands where it belongs
    unsigned m_commonMet = 0;            // rows of every entity that took their tag
};
