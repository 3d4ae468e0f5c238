#include "db/entities/EntityText.h"

#include "dbents.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbAttributeDefinition, AcDbText, ATTDEF)
ACRX_DXF_DEFINE_MEMBERS(AcDbAttribute, AcDbText, ATTRIB)

namespace {

enum AttributeFlags : Adesk::Int16 { invisibleFlag = 1, constantFlag = 2 };

Adesk::Int16 withFlag(Adesk::Int16 flags, Adesk::Int16 flag, bool on)
{
    return static_cast<Adesk::Int16>(on ? flags | flag : flags & ~flag);
}

} // namespace

AcDbAttributeDefinition::AcDbAttributeDefinition(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag,
                                                 const ACHAR* prompt, AcDbObjectId style) :
    AcDbText(position, text, style),
    m_prompt(givenText(prompt))
{
    m_tag = givenText(tag);
}

ACHAR* AcDbAttributeDefinition::tag() const
{
    assertReadEnabled();
    return newText(m_tag);
}

ACHAR* AcDbAttributeDefinition::prompt() const
{
    assertReadEnabled();
    return newText(m_prompt);
}

Acad::ErrorStatus AcDbAttributeDefinition::setTag(const ACHAR* tag)
{
    assertWriteEnabled();
    m_tag = givenText(tag);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAttributeDefinition::setPrompt(const ACHAR* prompt)
{
    assertWriteEnabled();
    m_prompt = givenText(prompt);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAttributeDefinition::setInvisible(Adesk::Boolean invisible)
{
    assertWriteEnabled();
    m_attributeFlags = withFlag(m_attributeFlags, invisibleFlag, invisible != Adesk::kFalse);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAttributeDefinition::setConstant(Adesk::Boolean constant)
{
    assertWriteEnabled();
    m_attributeFlags = withFlag(m_attributeFlags, constantFlag, constant != Adesk::kFalse);
    return Acad::eOk;
}

// ---- attributes

AcDbAttribute::AcDbAttribute(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag, AcDbObjectId style) :
    AcDbText(position, text, style)
{
    m_tag = givenText(tag);
}

ACHAR* AcDbAttribute::tag() const
{
    assertReadEnabled();
    return newText(m_tag);
}

Acad::ErrorStatus AcDbAttribute::setTag(const ACHAR* tag)
{
    assertWriteEnabled();
    m_tag = givenText(tag);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAttribute::setInvisible(Adesk::Boolean invisible)
{
    assertWriteEnabled();
    m_attributeFlags = withFlag(m_attributeFlags, invisibleFlag, invisible != Adesk::kFalse);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAttribute::setAttributeFromBlock(const AcDbAttributeDefinition* definition,
                                                       const AcGeMatrix3d& blockTransform)
{
    if (!definition)
        return Acad::eNullObjectPointer;
    assertWriteEnabled();
    definition->assertReadEnabled();
    setPropertiesFrom(definition);
    takeTextFrom(*definition);
    return transformBy(blockTransform);
}
