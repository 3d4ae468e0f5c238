#pragma once

#include <array>
#include <string>
#include <unordered_map>
#include <vector>

#include "ed/select/EntityFilter.h"

#include "adsdef.h"
#include "dbid.h"

/// How a value of an entity is compared with that of the filter.
enum class FilterRelation { equal, different, less, atMost, greater, atLeast, anything, someBit, allBits };

/// One item of a filter with its relation.
struct EntityFilter::Test {
    /// False when the item has no value that entities have, or the relation does not fit it. `relations` is the text of
    /// the -4 item before it, "" for none.
    bool read(const resbuf& item, std::wstring_view relations);
    bool takes(DxfRecord& record, const EntityTags& tags) const;
    bool asksClassOnly() const { return m_kind == Kind::subclass; }

private:
    enum class Kind { type, subclass, layout, application, text, number, point, object };

    struct Reading;
    bool readRelations(std::wstring_view relations);
    bool takesText(const EntityTags& tags) const;
    bool takesNumber(const EntityTags& tags) const;
    bool takesPoint(const EntityTags& tags) const;
    bool takesObject(const EntityTags& tags) const;
    bool takesLayout(const DxfRecord& record, const EntityTags& tags) const;
    bool takesSubclass(const DxfRecord& record, const EntityTags& tags) const;
    bool takesBytes(const EntityTags& tags, std::string_view bytes) const;
    bool matchesText(std::wstring_view text) const;
    bool related(double value, double wanted, FilterRelation relation) const;

    int m_code = 0;
    Kind m_kind = Kind::text;
    std::array<FilterRelation, 3> m_relations{};
    std::wstring m_pattern; ///< in lower case
    double m_number = 0.0;
    std::array<double, 3> m_point{};
    AcDbObjectId m_object;
    // Names repeat: each is compared once. By bytes, and by place for layouts.
    mutable std::unordered_map<std::string, bool> m_known;
    mutable std::unordered_map<const void*, bool> m_knownPlaces;
    mutable std::unordered_map<const AcRxClass*, bool> m_knownClasses; // of kinds that the kernel models
};
