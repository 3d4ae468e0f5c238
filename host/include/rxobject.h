#pragma once

#include "acadstrc.h"
#include "adesk.h"

class AcRxClass;

/// Root of the host's objects: each class has one run-time descriptor, reached by desc() and isA().
class AcRxObject {
public:
    virtual ~AcRxObject() = default;

    static AcRxClass* desc();
    virtual AcRxClass* isA() const;
    bool isKindOf(const AcRxClass* aClass) const;
    static AcRxObject* cast(const AcRxObject* p) { return const_cast<AcRxObject*>(p); }

    /// A copy that belongs to the caller; null for classes that cannot be copied.
    virtual AcRxObject* clone() const { return nullptr; }

protected:
    AcRxObject() = default;
    AcRxObject(const AcRxObject&) = default;
    AcRxObject& operator=(const AcRxObject&) = default;
};

/// In a class that has its own descriptor.
#define ACRX_DECLARE_MEMBERS(CLASS)                                                                                    \
    AcRxClass* isA() const override;                                                                                   \
    static AcRxClass* desc();                                                                                          \
    static CLASS* cast(const AcRxObject* p)                                                                            \
    {                                                                                                                  \
        return p && p->isKindOf(CLASS::desc()) ? static_cast<CLASS*>(const_cast<AcRxObject*>(p)) : nullptr;            \
    }                                                                                                                  \
    static void rxInit()
