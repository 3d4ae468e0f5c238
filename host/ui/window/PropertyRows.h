#pragma once

#include <span>

#include "ui/window/EntityProperties.h"

/// One row: a property of some kinds of entities. What follows `has` is asked of those that have it only.
struct PropertyRow {
    const char* group;
    const char* name;
    EntityProperty::Kind kind;
    bool (*has)(const AcDbEntity& entity);
    QString (*read)(const AcDbEntity& entity);
    Acad::ErrorStatus (*write)(AcDbEntity& entity, const QString& value); ///< null for what can only be read
};

/// In the order in which they are shown.
std::span<const PropertyRow> propertyRows();

/// The name of a linetype as it is shown: "DuCalque" for that of the layer.
QString linetypeText(const QString& name);
/// A number as it is shown: six decimals at most.
QString numberText(double value);
/// As one types it, with a point or a comma. eInvalidInput, and `value` as it was, when it is none.
Acad::ErrorStatus readNumber(const QString& text, double& value);
