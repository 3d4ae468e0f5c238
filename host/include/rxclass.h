#pragma once

#include "rxobject.h"

/// Run-time type descriptor. Descriptors are compared by address; they live until the process ends, or until the module
/// that defines the class is unloaded.
class AcRxClass : public AcRxObject {
public:
    using Constructor = AcRxObject* (*)();

    AcRxClass(const ACHAR* name, AcRxClass* parent, Constructor create = nullptr, const ACHAR* dxfName = nullptr);
    ~AcRxClass() override;
    AcRxClass(const AcRxClass&) = delete;
    AcRxClass& operator=(const AcRxClass&) = delete;

    static AcRxClass* desc();
    AcRxClass* isA() const override;

    const ACHAR* name() const { return m_name; }
    /// Name of its records in drawing files, null when it has none.
    const ACHAR* dxfName() const { return m_dxfName; }
    AcRxClass* myParent() const { return m_parent; }
    bool isDerivedFrom(const AcRxClass* other) const;
    /// A new object of the class; null for abstract classes.
    AcRxObject* create() const { return m_create ? m_create() : nullptr; }

private:
    const ACHAR* m_name;
    const ACHAR* m_dxfName;
    AcRxClass* m_parent;
    Constructor m_create;
};

/// Descriptor of the class called `name`, null when there is none.
AcRxClass* acrxClassOf(const ACHAR* name);
