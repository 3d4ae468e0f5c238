#include "db/fields/EntityFields.h"

#include "dbenttxt.h"

/// The alignment point counts, and is written, where the text is not aligned by its position; at the origin too.
DxfField DxfFieldsOfTexts::alignmentRow()
{
    DxfField row = pointField<&AcDbText::m_alignment>(11);
    row.same = [](const AcDbObject& a, const AcDbObject& b, int part) {
        const auto &first = static_cast<const AcDbText&>(a), &second = static_cast<const AcDbText&>(b);
        return dxf_rows::coordinate(first.m_alignment, part) == dxf_rows::coordinate(second.m_alignment, part) &&
               first.isDefaultAlignment() == second.isDefaultAlignment();
    };
    return row;
}

void DxfFieldsOfTexts::add(DxfClasses& classes)
{
    const auto first = [] {
        return std::vector<DxfField>{realField<&AcDbText::m_thickness>(39),
                                     pointField<&AcDbText::m_position>(10, DxfWhen::always),
                                     realField<&AcDbText::m_height>(40, DxfWhen::always),
                                     textField<&AcDbText::m_text>(1, DxfWhen::always),
                                     degreesField<&AcDbText::m_rotation>(50),
                                     realField<&AcDbText::m_widthFactor>(41),
                                     degreesField<&AcDbText::m_oblique>(51),
                                     textStyleField<&AcDbText::m_style>(),
                                     integerField<&AcDbText::m_generation>(71),
                                     integerField<&AcDbText::m_horizontal>(72),
                                     alignmentRow(),
                                     pointField<&AcDbText::m_normal>(210)};
    };
    // A text ends with its marker once more, before the vertical alignment.
    static const DxfSubclass text("AcDbText", first());
    static const DxfSubclass textEnd("AcDbText", {integerField<&AcDbText::m_vertical>(73)});
    addEntityClass<AcDbText>(classes, "TEXT", {&text, &textEnd});

    static const DxfSubclass attribute("AcDbAttribute", {textField<&AcDbText::m_tag>(2, DxfWhen::always),
                                                         integerField<&AcDbText::m_attributeFlags>(70, DxfWhen::always),
                                                         integerField<&AcDbText::m_fieldLength>(73),
                                                         integerField<&AcDbText::m_vertical>(74)});
    addEntityClass<AcDbAttribute>(classes, "ATTRIB", {&text, &attribute});

    static const DxfSubclass definition("AcDbAttributeDefinition",
                                        {textField<&AcDbAttributeDefinition::m_prompt>(3, DxfWhen::always),
                                         textField<&AcDbText::m_tag>(2, DxfWhen::always),
                                         integerField<&AcDbText::m_attributeFlags>(70, DxfWhen::always),
                                         integerField<&AcDbText::m_fieldLength>(73),
                                         integerField<&AcDbText::m_vertical>(74)});
    addEntityClass<AcDbAttributeDefinition>(classes, "ATTDEF", {&text, &definition});
}
