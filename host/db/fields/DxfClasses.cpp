#include "db/fields/DxfFields.h"
#include "db/fields/EntityFields.h"
#include "db/fields/TableFields.h"

#include "dbproxy.h"

DxfClasses::DxfClasses()
{
    DxfFieldsOfSymbolTables::add(*this);
    DxfFieldsOfDictionary::add(*this);
    DxfFieldsOfXrecord::add(*this);
    DxfFieldsOfEntity::add(*this);
    DxfFieldsOfCurves::add(*this);
    DxfFieldsOfPolylines::add(*this);
    DxfFieldsOfReferences::add(*this);
    DxfFieldsOfTexts::add(*this);
    DxfFieldsOfVertices::add(*this);
    DxfFieldsOfFaces::add(*this);
    DxfFieldsOfSplines::add(*this);
    DxfFieldsOfMText::add(*this);
    DxfFieldsOfHatch::add(*this);
    DxfFieldsOfDimensions::add(*this);
    m_proxyEntity = of(AcDbProxyEntity::desc());
    m_proxyObject = of(AcDbProxyObject::desc());
}

const DxfClasses& DxfClasses::all()
{
    static const DxfClasses classes;
    return classes;
}

void DxfClasses::add(DxfClass dxfClass)
{
    dxfClass.firstRows.assign(1, 0);
    for (const DxfSubclass* subclass : dxfClass.subclasses)
        dxfClass.firstRows.push_back(dxfClass.firstRows.back() + subclass->fields().size());
    m_classes.push_back(std::make_unique<DxfClass>(std::move(dxfClass)));
    const DxfClass* added = m_classes.back().get();
    m_byName[added->dxfName].push_back(added);
    m_byRxClass.emplace(added->rxClass, added); // the first of a class is what its new objects are written as
    m_fresh.emplace(added, added->create());
}

const std::vector<const DxfClass*>& DxfClasses::named(std::string_view dxfName) const
{
    static const std::vector<const DxfClass*> none;
    const auto found = m_byName.find(dxfName);
    return found == m_byName.end() ? none : found->second;
}

const DxfClass* DxfClasses::of(const AcRxClass* rxClass) const
{
    const auto found = m_byRxClass.find(rxClass);
    return found == m_byRxClass.end() ? nullptr : found->second;
}

const AcDbObject& DxfClasses::fresh(const DxfClass& dxfClass) const
{
    return *m_fresh.at(&dxfClass);
}
