#pragma once

#include <QString>
#include <QStringList>

class QWidget;

// One field of a dialog: what it shows, as a script writes it, and giving it a value as a person would, with the
// signals that follow. Numbers have a point; what is on or off is "oui" or "non".

/// Whether a widget is a field that a person fills or switches. Parts of other fields are not.
bool isField(const QWidget& widget);

QString fieldValue(const QWidget& field);

/// @throws ScriptError when the field is disabled, cannot be written, or does not take the value.
void setFieldValue(QWidget& field, const QString& value);

/// What a combo box offers; empty for other fields.
QStringList fieldChoices(const QWidget& field);
