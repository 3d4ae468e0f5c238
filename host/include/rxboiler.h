#pragma once

#include "rxclass.h"

/// Defines the members that ACRX_DECLARE_MEMBERS declares, for a class without a constructor known to the host.
#define ACRX_NO_CONS_DEFINE_MEMBERS(CLASS, PARENT)                                                                     \
    AcRxClass* CLASS::desc()                                                                                           \
    {                                                                                                                  \
        static AcRxClass theClass(L## #CLASS, PARENT::desc());                                                         \
        return &theClass;                                                                                              \
    }                                                                                                                  \
    AcRxClass* CLASS::isA() const                                                                                      \
    {                                                                                                                  \
        return desc();                                                                                                 \
    }                                                                                                                  \
    void CLASS::rxInit()                                                                                               \
    {                                                                                                                  \
        desc();                                                                                                        \
    }

/// The same for a class whose objects stand in drawing files under DXFNAME.
#define ACRX_DXF_DEFINE_MEMBERS(CLASS, PARENT, DXFNAME)                                                                \
    AcRxClass* CLASS::desc()                                                                                           \
    {                                                                                                                  \
        static AcRxClass theClass(                                                                                     \
            L## #CLASS, PARENT::desc(), []() -> AcRxObject* { return new CLASS; }, L## #DXFNAME);                      \
        return &theClass;                                                                                              \
    }                                                                                                                  \
    AcRxClass* CLASS::isA() const                                                                                      \
    {                                                                                                                  \
        return desc();                                                                                                 \
    }                                                                                                                  \
    void CLASS::rxInit()                                                                                               \
    {                                                                                                                  \
        desc();                                                                                                        \
    }
