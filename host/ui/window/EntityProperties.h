#pragma once

#include <functional>
#include <QString>
#include <QStringList>
#include <vector>

#include "dbmain.h"

class Document;

/// What can be read, and mostly changed, of entities. Lengths in drawing units, angles in degrees counter-clockwise
/// from the east.
struct EntityProperty {
    enum class Kind { text, number, layer, color, linetype };

    QString group, name;
    Kind kind = Kind::text;
    QString value = {};   ///< of all of them; meaningless when they differ
    bool differs = false; ///< between the entities
    bool readOnly = false;
    /// Sets the value of an entity that is open for write. eInvalidInput when the text makes no sense.
    std::function<Acad::ErrorStatus(AcDbEntity& entity, const QString& value)> set = {};
    std::vector<AcDbObjectId> entities = {}; ///< whose property it is
};

/// What the entities have in common; attributes of one block reference alone, the first 200 vertices of one polyline.
std::vector<EntityProperty> propertiesOf(const std::vector<AcDbObjectId>& entities);
/// Changes the property of all of its entities, in one step for U. @return what was refused, in French; empty when
/// nothing was.
QString setProperty(Document& document, const EntityProperty& property, const QString& value);

/// Names that a value may take: layers, linetypes, colours; empty for other kinds.
QStringList choicesOf(EntityProperty::Kind kind, AcDbDatabase& database);
