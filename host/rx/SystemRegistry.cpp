#include "rx/SystemRegistry.h"

#include <utility>
#include <vector>

#include "platform/LetterCase.h"
#include "rx/HostSession.h"
#include "rx/ModuleTable.h"

#include "rxregsvc.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcRxDictionary, AcRxObject)

namespace {

std::wstring keyOf(const ACHAR* name)
{
    return platform::lowerCase(name ? name : L"");
}

struct Registry {
    AcRxDictionary entries;
    bool isFilled = false;
};

std::vector<std::pair<const ACHAR*, AcRxObject* (*)()>>& firstEntries()
{
    static std::vector<std::pair<const ACHAR*, AcRxObject* (*)()>> entries;
    return entries;
}

} // namespace

bool registerAtStart(const ACHAR* key, AcRxObject* (*make)())
{
    firstEntries().emplace_back(key, make);
    return true;
}

AcRxObject* AcRxDictionary::at(const ACHAR* key) const
{
    const auto found = m_objects.find(keyOf(key));
    return found == m_objects.end() ? nullptr : found->second.get();
}

AcRxObject* AcRxDictionary::atPut(const ACHAR* key, AcRxObject* object)
{
    auto& place = m_objects[keyOf(key)];
    AcRxObject* old = place.release();
    place.reset(object);
    return old;
}

AcRxObject* AcRxDictionary::remove(const ACHAR* key)
{
    const auto found = m_objects.find(keyOf(key));
    if (found == m_objects.end())
        return nullptr;
    AcRxObject* object = found->second.release();
    m_objects.erase(found);
    return object;
}

AcRxDictionary* acrxSysRegistry()
{
    Registry& registry = HostSession::part<Registry>();
    if (!std::exchange(registry.isFilled, true)) {
        registry.entries.atPut(ACRX_DYNAMIC_LINKER, std::make_unique<ModuleTable>().release());
        for (const auto& [key, make] : firstEntries())
            registry.entries.atPut(key, make());
    }
    return &registry.entries;
}
