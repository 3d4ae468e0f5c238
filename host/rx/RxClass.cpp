#include "rxclass.h"

#include <map>
#include <string_view>

namespace {

using Classes = std::map<std::wstring_view, AcRxClass*>;

/// Made before the first descriptor is, so it outlives them all.
Classes& classes()
{
    static Classes byName;
    return byName;
}

} // namespace

AcRxClass* AcRxObject::desc()
{
    static AcRxClass theClass(L"AcRxObject", nullptr);
    return &theClass;
}

AcRxClass* AcRxObject::isA() const
{
    return desc();
}

bool AcRxObject::isKindOf(const AcRxClass* aClass) const
{
    return isA()->isDerivedFrom(aClass);
}

AcRxClass::AcRxClass(const ACHAR* name, AcRxClass* parent, Constructor constructor, const ACHAR* dxfName) :
    m_name(name),
    m_dxfName(dxfName),
    m_parent(parent),
    m_create(constructor)
{
    classes().emplace(name, this);
}

AcRxClass::~AcRxClass()
{
    const auto found = classes().find(m_name);
    if (found != classes().end() && found->second == this)
        classes().erase(found);
}

AcRxClass* AcRxClass::desc()
{
    static AcRxClass theClass(L"AcRxClass", AcRxObject::desc());
    return &theClass;
}

AcRxClass* AcRxClass::isA() const
{
    return desc();
}

bool AcRxClass::isDerivedFrom(const AcRxClass* other) const
{
    for (const AcRxClass* c = this; c; c = c->m_parent)
        if (c == other)
            return true;
    return false;
}

AcRxClass* acrxClassOf(const ACHAR* name)
{
    const auto found = name ? classes().find(name) : classes().end();
    return found == classes().end() ? nullptr : found->second;
}
