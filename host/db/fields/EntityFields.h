#pragma once

#include "db/fields/DxfFields.h"

/// Rows of the entity classes, a struct for each file of them.

struct DxfFieldsOfEntity {
    /// What every entity has.
    static const DxfSubclass& subclass();
    static void add(DxfClasses& classes);
};

struct DxfFieldsOfCurves {
    static void add(DxfClasses& classes);
};

struct DxfFieldsOfPolylines {
    static void add(DxfClasses& classes);
};

struct DxfFieldsOfSplines {
    static void add(DxfClasses& classes);
};

struct DxfFieldsOfMText {
    static void add(DxfClasses& classes);
};

struct DxfFieldsOfHatch {
    static void add(DxfClasses& classes);
};

struct DxfFieldsOfDimensions {
    static void add(DxfClasses& classes);
};

struct DxfFieldsOfReferences {
    static void add(DxfClasses& classes);
};

struct DxfFieldsOfTexts {
    static void add(DxfClasses& classes);

private:
    static DxfField alignmentRow();
};

struct DxfFieldsOfVertices {
    static void add(DxfClasses& classes);
};

struct DxfFieldsOfFaces {
    static void add(DxfClasses& classes);
};

/// A text style; whoever asks for everything is told the standard one, which texts without a style of their own have.
template <auto Member>
DxfField textStyleField()
{
    DxfField row = nameField<Member, NameKind::textStyle>(7);
    row.write = [](DxfWriteContext& context, const AcDbObject& object, int code, int) {
        const auto& text = static_cast<const dxf_rows::ClassOf<Member>&>(object);
        context.name(code, context.complete ? text.textStyle().stub() : dxf_rows::in<Member>(object));
    };
    return row;
}

/// Enters an entity class: the common rows come first.
template <class Entity>
void addEntityClass(DxfClasses& classes, const char* dxfName, std::vector<const DxfSubclass*> subclasses,
                    const char* distinctive = nullptr)
{
    subclasses.insert(subclasses.begin(), &DxfFieldsOfEntity::subclass());
    classes.add({dxfName, Entity::desc(), []() -> AcDbObject* { return new Entity; }, std::move(subclasses),
                 distinctive, true});
}
