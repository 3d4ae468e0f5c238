#include "ed/select/SelectionSets.h"

#include "rx/HostSession.h"

void SelectionSet::reserve(std::size_t more)
{
    if (more < m_objects.size())
        return; // growing by halves does: entities may join in many small lots
    m_objects.reserve(m_objects.size() + more);
    m_places.reserve(m_places.size() + more);
}

bool SelectionSet::add(AcDbObjectId entity)
{
    if (entity.isNull() || !m_places.insert(entity.stub(), m_objects.size()))
        return false;
    m_objects.push_back(entity.stub());
    return true;
}

bool SelectionSet::remove(AcDbObjectId entity)
{
    const std::size_t* const place = m_places.find(entity.stub());
    if (!place)
        return false;
    m_objects[*place] = nullptr;
    ++m_holes;
    m_places.erase(entity.stub());
    for (; m_begin < m_objects.size() && !m_objects[m_begin]; ++m_begin)
        --m_holes;
    for (; m_objects.size() > m_begin && !m_objects.back(); m_objects.pop_back())
        --m_holes;
    return true;
}

void SelectionSet::closeUp() const
{
    if (m_holes == 0)
        return;
    std::erase(m_objects, nullptr);
    for (std::size_t place = 0; place < m_objects.size(); ++place)
        *m_places.find(m_objects[place]) = place;
    m_begin = m_holes = 0;
}

AcDbObjectId SelectionSet::at(std::size_t place) const
{
    closeUp();
    return place < size() ? AcDbObjectId(m_objects[m_begin + place]) : AcDbObjectId();
}

std::vector<AcDbObjectId> SelectionSet::objects() const
{
    closeUp();
    std::vector<AcDbObjectId> ids;
    ids.reserve(size());
    for (std::size_t place = m_begin; place < m_objects.size(); ++place)
        ids.emplace_back(m_objects[place]);
    return ids;
}

SelectionSets& SelectionSets::instance()
{
    return HostSession::part<SelectionSets>();
}

SelectionSet* SelectionSets::make(ads_name name)
{
    if (m_sets.size() >= kMost)
        return nullptr;
    name[0] = ++m_lastName;
    name[1] = 0;
    return (m_sets[m_lastName] = std::make_unique<SelectionSet>()).get();
}

SelectionSet* SelectionSets::find(const std::int64_t* name)
{
    const auto found = name ? m_sets.find(name[0]) : m_sets.end();
    return found == m_sets.end() ? nullptr : found->second.get();
}

bool SelectionSets::free(const std::int64_t* name)
{
    return name && m_sets.erase(name[0]) > 0;
}
