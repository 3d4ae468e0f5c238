#include "platform/LetterCase.h"
#include "rx/ModuleTable.h"

#include "rxregsvc.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcRxDictionary, AcRxObject)

namespace {

std::wstring keyOf(const ACHAR* name)
{
    return platform::lowerCase(name ? name : L"");
}

} // namespace

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
    static AcRxDictionary registry;
    static const bool linked = [] {
        registry.atPut(ACRX_DYNAMIC_LINKER, std::make_unique<ModuleTable>().release());
        return true;
    }();
    static_cast<void>(linked);
    return &registry;
}
