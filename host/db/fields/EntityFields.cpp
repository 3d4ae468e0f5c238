#include "db/fields/EntityFields.h"

#include "dbproxy.h"

const DxfSubclass& DxfFieldsOfEntity::subclass()
{
    static const DxfSubclass entity(
        "AcDbEntity",
        {integerField<&AcDbEntity::m_paperSpace>(67),
         nameField<&AcDbEntity::m_layer, NameKind::layer>(8, DxfWhen::always),
         nameField<&AcDbEntity::m_linetype, NameKind::linetype>(6), integerField<&AcDbEntity::m_color>(62),
         integerField<&AcDbEntity::m_lineWeight>(370), realField<&AcDbEntity::m_linetypeScale>(48),
         integerField<&AcDbEntity::m_invisible>(60), trueColorField<&AcDbEntity::m_trueColor>()});
    return entity;
}

void DxfFieldsOfEntity::add(DxfClasses& classes)
{
    addEntityClass<AcDbProxyEntity>(classes, "ACAD_PROXY_ENTITY", {});
    classes.add(
        {"ACAD_PROXY_OBJECT", AcDbProxyObject::desc(), []() -> AcDbObject* { return new AcDbProxyObject; }, {}});
}
