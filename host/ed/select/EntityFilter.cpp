#include "ed/select/EntityFilter.h"

#include <algorithm>

#include "ed/select/FilterTest.h"
#include "platform/LetterCase.h"

#include "adscodes.h"
#include "dbproxy.h"
#include "rxclass.h"

namespace {

constexpr int kOperator = -4;
constexpr int kExtendedData = -3;

} // namespace

/// An operator with what stands between its two ends, or one test.
struct EntityFilter::Node {
    enum class Kind { all, any, one, none, test } kind = Kind::all;
    std::vector<Node> inside;
    Test test;

    bool asksClassOnly() const
    {
        return kind == Kind::test ? test.asksClassOnly() : std::ranges::all_of(inside, &Node::asksClassOnly);
    }

    bool takes(DxfRecord& record, const EntityTags& tags) const
    {
        const auto taken = [&](const Node& node) { return node.takes(record, tags); };
        switch (kind) {
        case Kind::all:
            return std::ranges::all_of(inside, taken);
        case Kind::any:
            return std::ranges::any_of(inside, taken);
        case Kind::one:
            return std::ranges::count_if(inside, taken) == 1;
        case Kind::none:
            return std::ranges::none_of(inside, taken);
        case Kind::test:
            break;
        }
        return test.takes(record, tags);
    }
};

namespace {

struct OperatorName {
    std::wstring_view opens, closes;
    EntityFilter::Node::Kind kind;
    std::size_t least, most; ///< items inside
};
constexpr OperatorName kOperators[] = {
    {L"<AND", L"AND>", EntityFilter::Node::Kind::all, 1, 1U << 30},
    {L"<OR", L"OR>", EntityFilter::Node::Kind::any, 1, 1U << 30},
    {L"<XOR", L"XOR>", EntityFilter::Node::Kind::one, 2, 2},
    {L"<NOT", L"NOT>", EntityFilter::Node::Kind::none, 1, 1},
};

/// Turns the chain into nodes, with the operators that are open on a stack.
class FilterReader {
public:
    bool read(const resbuf* chain, EntityFilter::Node& root)
    {
        m_open.push_back({&root, nullptr});
        for (; chain; chain = chain->rbnext)
            if (!(chain->restype == kOperator ? readOperator(*chain) : readTest(*chain)))
                return false;
        return m_open.size() == 1 && m_relation.empty();
    }

private:
    struct Open {
        EntityFilter::Node* node;
        const OperatorName* name; ///< null for the whole
    };

    bool readOperator(const resbuf& item)
    {
        const std::wstring_view text = item.resval.rstring ? item.resval.rstring : L"";
        if (!m_relation.empty())
            return false; // a relation is followed by its item
        for (const OperatorName& name : kOperators) {
            if (platform::equalNoCase(text, name.opens)) {
                // The vectors of the open ones do not grow meanwhile: only the innermost takes items.
                EntityFilter::Node& node = m_open.back().node->inside.emplace_back();
                node.kind = name.kind;
                m_open.push_back({&node, &name});
                return true;
            }
            if (platform::equalNoCase(text, name.closes))
                return close(name);
        }
        m_relation = text;
        return !m_relation.empty();
    }

    bool close(const OperatorName& name)
    {
        if (m_open.back().name != &name)
            return false;
        const std::size_t count = m_open.back().node->inside.size();
        m_open.pop_back();
        return count >= name.least && count <= name.most;
    }

    bool readTest(const resbuf& item)
    {
        if (item.restype == kExtendedData || item.restype == RTLB || item.restype == RTLE)
            return true; // the names of applications that follow count
        EntityFilter::Node& node = m_open.back().node->inside.emplace_back();
        node.kind = EntityFilter::Node::Kind::test;
        const bool isRead = node.test.read(item, m_relation);
        m_relation.clear();
        return isRead;
    }

    std::vector<Open> m_open;
    std::wstring m_relation;
};

} // namespace

EntityFilter::EntityFilter() : m_root(std::make_unique<Node>()) {}
EntityFilter::EntityFilter(EntityFilter&&) noexcept = default;
EntityFilter& EntityFilter::operator=(EntityFilter&&) noexcept = default;
EntityFilter::~EntityFilter() = default;

std::optional<EntityFilter> EntityFilter::of(const resbuf* chain)
{
    EntityFilter filter;
    if (!FilterReader().read(chain, *filter.m_root))
        return std::nullopt;
    filter.m_asksClassOnly = filter.m_root->asksClassOnly();
    return filter;
}

/// Entities of one modelled class have the same markers: the first one answers for all.
bool EntityFilter::takes(DxfRecord& record, const EntityTags& tags) const
{
    const AcRxClass* const itsClass =
        m_asksClassOnly && !m_root->inside.empty() ? AcDbObjectId(stubOf(&record)).objectClass() : nullptr;
    if (!itsClass || itsClass->isDerivedFrom(AcDbProxyEntity::desc()))
        return m_root->takes(record, tags);
    const auto [known, isFirst] = m_knownClasses.try_emplace(itsClass);
    if (isFirst)
        known->second = m_root->takes(record, tags);
    return known->second;
}
