#include "db/fields/EntityFields.h"

#include "dbents.h"

void DxfFieldsOfReferences::add(DxfClasses& classes)
{
    using Reference = AcDbBlockReference;
    const std::vector<DxfField> rows = {integerField<&Reference::m_attributesFollow>(66),
                                        nameField<&Reference::m_block, NameKind::block>(2, DxfWhen::always),
                                        pointField<&Reference::m_position>(10, DxfWhen::always),
                                        realField<&Reference::m_scaleX>(41),
                                        realField<&Reference::m_scaleY>(42),
                                        realField<&Reference::m_scaleZ>(43),
                                        degreesField<&Reference::m_rotation>(50),
                                        integerField<&Reference::m_columns>(70),
                                        integerField<&Reference::m_rows>(71),
                                        realField<&Reference::m_columnSpacing>(44),
                                        realField<&Reference::m_rowSpacing>(45),
                                        pointField<&Reference::m_normal>(210)};
    static const DxfSubclass several("AcDbMInsertBlock", rows);
    static const DxfSubclass one("AcDbBlockReference", rows);
    addEntityClass<AcDbMInsertBlock>(classes, "INSERT", {&several}, "AcDbMInsertBlock");
    addEntityClass<AcDbBlockReference>(classes, "INSERT", {&one});

    static const DxfSubclass begin("AcDbBlockBegin", {textField<&AcDbBlockBegin::m_name>(2, DxfWhen::always),
                                                      integerField<&AcDbBlockBegin::m_flags>(70, DxfWhen::always),
                                                      pointField<&AcDbBlockBegin::m_basePoint>(10, DxfWhen::always),
                                                      textField<&AcDbBlockBegin::m_secondName>(3, DxfWhen::always),
                                                      textField<&AcDbBlockBegin::m_path>(1, DxfWhen::always),
                                                      textField<&AcDbBlockBegin::m_description>(4)});
    static const DxfSubclass end("AcDbBlockEnd", {});
    addEntityClass<AcDbBlockBegin>(classes, "BLOCK", {&begin});
    addEntityClass<AcDbBlockEnd>(classes, "ENDBLK", {&end});
}
