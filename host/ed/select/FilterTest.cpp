#include "ed/select/FilterTest.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "db/Layouts.h"
#include "db/Ownership.h"
#include "dxf/DxfValue.h"
#include "platform/CodePage.h"
#include "platform/LetterCase.h"
#include "rx/ResbufValue.h"
#include "rx/WildcardMatch.h"

#include "dbproxy.h"
#include "rxclass.h"

namespace {

constexpr int kFirstExtendedData = 1000;
constexpr int kApplication = 1001;
constexpr double kTolerance = 1e-8;
constexpr std::size_t kMostKnown = 4096;

/// What an entity means that leaves a code out.
struct Unsaid {
    int code;
    double number;
};
constexpr Unsaid kUnsaidNumbers[] = {{39, 0.0}, {48, 1.0}, {60, 0.0}, {62, 256.0}, {67, 0.0}, {370, -1.0}};
constexpr int kLinetype = 6;
constexpr std::string_view kUnsaidLinetype = "BYLAYER";
constexpr int kNormal = 210;

bool isAngle(int code)
{
    return code >= 50 && code <= 58;
}

std::string_view valueOf(const DxfTag& tag)
{
    return {tag.begin, static_cast<std::size_t>(tag.end - tag.begin)};
}

struct RelationName {
    std::wstring_view name;
    FilterRelation relation;
};
constexpr RelationName kRelations[] = {
    {L"=", FilterRelation::equal},      {L"!=", FilterRelation::different}, {L"/=", FilterRelation::different},
    {L"<>", FilterRelation::different}, {L"<", FilterRelation::less},       {L"<=", FilterRelation::atMost},
    {L">", FilterRelation::greater},    {L">=", FilterRelation::atLeast},   {L"*", FilterRelation::anything},
    {L"&", FilterRelation::someBit},    {L"&=", FilterRelation::allBits},
};

std::optional<FilterRelation> relationOf(std::wstring_view text)
{
    while (text.starts_with(L' '))
        text.remove_prefix(1);
    while (text.ends_with(L' '))
        text.remove_suffix(1);
    const auto found = std::ranges::find(kRelations, text, &RelationName::name);
    return found == std::end(kRelations) ? std::nullopt : std::optional(found->relation);
}

} // namespace

// ---- reading

struct EntityFilter::Test::Reading {
    Test& test;

    bool operator()(std::wstring_view text) const
    {
        test.m_kind = test.m_code == 0              ? Kind::type
                      : test.m_code == 100          ? Kind::subclass
                      : test.m_code == 410          ? Kind::layout
                      : test.m_code == kApplication ? Kind::application
                                                    : Kind::text;
        test.m_pattern = platform::lowerCase(text);
        return true;
    }
    bool operator()(double number) const
    {
        test.m_kind = Kind::number;
        test.m_number = number;
        return true;
    }
    bool operator()(std::int64_t number) const { return (*this)(static_cast<double>(number)); }
    bool operator()(std::span<const ads_real> point) const
    {
        test.m_kind = Kind::point;
        std::ranges::copy(point, test.m_point.begin());
        return true;
    }
    bool operator()(ResbufName name) const
    {
        test.m_kind = Kind::object;
        test.m_object.setFromOldId(name.words[0]);
        return true;
    }
    bool operator()(const ads_binary&) const { return false; }
    bool operator()(std::monostate) const { return false; }
};

bool EntityFilter::Test::read(const resbuf& item, std::wstring_view relations)
{
    m_code = item.restype;
    return visitValue(item, Reading{*this}) && m_code < dxfLastCode && readRelations(relations);
}

/// One relation, or for a point one for each coordinate, between commas; the last one given counts for the others.
bool EntityFilter::Test::readRelations(std::wstring_view relations)
{
    if (relations.empty())
        return true;
    std::size_t place = 0;
    for (std::size_t start = 0, end = 0; end != std::wstring_view::npos; start = end + 1, ++place) {
        end = relations.find(L',', start);
        const auto relation = relationOf(relations.substr(start, end == std::wstring_view::npos ? end : end - start));
        if (!relation || place >= m_relations.size())
            return false;
        std::fill(m_relations.begin() + static_cast<std::ptrdiff_t>(place), m_relations.end(), *relation);
    }
    const bool isBitwise = m_relations[0] == FilterRelation::someBit || m_relations[0] == FilterRelation::allBits;
    if (m_kind == Kind::point)
        return !isBitwise;
    if (m_kind == Kind::number)
        return place == 1 && (!isBitwise || m_number == std::trunc(m_number));
    return place == 1 && (m_relations[0] == FilterRelation::equal || m_relations[0] == FilterRelation::different ||
                          m_relations[0] == FilterRelation::anything);
}

// ---- asking

bool EntityFilter::Test::takes(DxfRecord& record, const EntityTags& tags) const
{
    switch (m_kind) {
    case Kind::type:
        return takesBytes(tags, tags.database().typeName(record));
    case Kind::subclass:
        return takesSubclass(record, tags);
    case Kind::layout:
        return takesLayout(record, tags);
    case Kind::text:
    case Kind::application:
        return takesText(tags);
    case Kind::number:
        return takesNumber(tags);
    case Kind::point:
        return takesPoint(tags);
    case Kind::object:
        break;
    }
    return m_code == -1 ? (stubOf(&record) == m_object.stub()) != (m_relations[0] == FilterRelation::different)
                        : takesObject(tags);
}

bool EntityFilter::Test::matchesText(std::wstring_view text) const
{
    if (m_relations[0] == FilterRelation::anything)
        return true;
    const bool matches = wildcardMatch(platform::lowerCase(std::wstring(text)), m_pattern);
    return matches != (m_relations[0] == FilterRelation::different);
}

bool EntityFilter::Test::takesBytes(const EntityTags& tags, std::string_view bytes) const
{
    if (m_known.size() >= kMostKnown)
        m_known.clear(); // texts that never repeat
    const auto [known, isFirst] = m_known.try_emplace(std::string(bytes));
    if (isFirst)
        known->second = matchesText(tags.decoded(bytes));
    return known->second;
}

bool EntityFilter::Test::takesText(const EntityTags& tags) const
{
    bool isSaid = false;
    for (const DxfTag& tag : tags.tags()) {
        if (tag.code >= kFirstExtendedData && m_code < kFirstExtendedData)
            break;
        if (tag.code != m_code)
            continue;
        isSaid = true;
        if (takesBytes(tags, valueOf(tag)))
            return true;
    }
    return !isSaid && m_code == kLinetype && takesBytes(tags, kUnsaidLinetype);
}

bool EntityFilter::Test::related(double value, double wanted, FilterRelation relation) const
{
    const bool isSame = std::fabs(value - wanted) <= kTolerance;
    switch (relation) {
    case FilterRelation::equal:
        return isSame;
    case FilterRelation::different:
        return !isSame;
    case FilterRelation::less:
        return !isSame && value < wanted;
    case FilterRelation::atMost:
        return isSame || value < wanted;
    case FilterRelation::greater:
        return !isSame && value > wanted;
    case FilterRelation::atLeast:
        return isSame || value > wanted;
    case FilterRelation::anything:
        return true;
    case FilterRelation::someBit:
    case FilterRelation::allBits:
        break;
    }
    constexpr double most = 9e15; // integers beyond are no bits
    if (std::fabs(value) > most || std::fabs(wanted) > most)
        return false;
    const auto bits = static_cast<std::int64_t>(value), mask = static_cast<std::int64_t>(wanted);
    return relation == FilterRelation::someBit ? (bits & mask) != 0 : (bits & mask) == mask;
}

bool EntityFilter::Test::takesNumber(const EntityTags& tags) const
{
    bool isSaid = false;
    for (const DxfTag& tag : tags.tags()) {
        if (tag.code >= kFirstExtendedData && m_code < kFirstExtendedData)
            break;
        double value = 0.0;
        std::int64_t integer = 0;
        if (tag.code != m_code)
            continue;
        if (dxfIsInteger(dxfKind(tag.code)) && dxfInteger(tags.form(), tag, integer))
            value = static_cast<double>(integer);
        else if (!dxfReal(tags.form(), tag, value))
            continue;
        isSaid = true;
        if (related(isAngle(m_code) ? value * std::numbers::pi / 180.0 : value, m_number, m_relations[0]))
            return true;
    }
    const auto unsaid = std::ranges::find(kUnsaidNumbers, m_code, &Unsaid::code);
    return !isSaid && unsaid != std::end(kUnsaidNumbers) && related(unsaid->number, m_number, m_relations[0]);
}

bool EntityFilter::Test::takesPoint(const EntityTags& tags) const
{
    const auto matches = [this](const std::array<double, 3>& point) {
        for (std::size_t i = 0; i < point.size(); ++i)
            if (!related(point[i], m_point[i], m_relations[i]))
                return false;
        return true;
    };
    const std::vector<DxfTag>& all = tags.tags();
    bool isSaid = false;
    for (std::size_t at = 0; at < all.size(); ++at) {
        if (all[at].code != m_code)
            continue;
        std::array<double, 3> point{};
        for (std::size_t i = 0; i < point.size() && at + i < all.size(); ++i)
            if (all[at + i].code == m_code + 10 * static_cast<int>(i))
                dxfReal(tags.form(), all[at + i], point[i]);
        isSaid = true;
        if (matches(point))
            return true;
    }
    return !isSaid && m_code == kNormal && matches({0.0, 0.0, 1.0});
}

bool EntityFilter::Test::takesObject(const EntityTags& tags) const
{
    for (const DxfTag& tag : tags.tags()) {
        std::uint64_t handle = 0;
        if (tag.code == m_code && dxfHandle(tag, handle) &&
            (tags.database().byHandle(handle) == m_object.stub()) != (m_relations[0] == FilterRelation::different))
            return true;
    }
    return false;
}

/// The markers of a modelled class are the same for all its entities, so that the first one answers for all.
bool EntityFilter::Test::takesSubclass(const DxfRecord& record, const EntityTags& tags) const
{
    const AcRxClass* const itsClass = AcDbObjectId(stubOf(&record)).objectClass();
    const auto asked = [&] {
        for (const AcRxClass* one = itsClass; one; one = one->myParent())
            if (takesBytes(tags, platform::utf8FromWide(one->name())))
                return true;
        return takesText(tags); // a class that is not modelled tells its names in its markers
    };
    if (!itsClass || itsClass->isDerivedFrom(AcDbProxyEntity::desc()))
        return asked();
    if (const auto known = m_knownClasses.find(itsClass); known != m_knownClasses.end())
        return known->second;
    return m_knownClasses[itsClass] = asked();
}

bool EntityFilter::Test::takesLayout(const DxfRecord& record, const EntityTags& tags) const
{
    AcDbStub* const block = tags.database().ownership().ownerOf(record);
    const auto [known, isFirst] = m_knownPlaces.try_emplace(block);
    if (isFirst)
        known->second = matchesText(layoutName(AcDbObjectId(block)));
    return known->second;
}
