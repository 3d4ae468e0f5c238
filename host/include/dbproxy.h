#pragma once

#include "dbmain.h"

/// An entity of a class that is not modelled: only what every entity has can be read and set; all else is kept.
class AcDbProxyEntity : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbProxyEntity);
    AcDbProxyEntity() = default;
    AcRxObject* clone() const override { return new AcDbProxyEntity(*this); }

protected:
    AcDbProxyEntity(const AcDbProxyEntity&) = default;
};

/// An object of a class that is not modelled, kept as it is.
class AcDbProxyObject : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbProxyObject);
    AcDbProxyObject() = default;
    AcRxObject* clone() const override { return new AcDbProxyObject(*this); }

protected:
    AcDbProxyObject(const AcDbProxyObject&) = default;
};
