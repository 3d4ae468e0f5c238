#pragma once

#include <QString>

class QWidget;
class QAbstractButton;

/// The button of a dialog with that caption (or object name), among those that can be seen; check boxes and radio
/// buttons are fields. @throws ScriptError that names the buttons that there are, or when it is disabled.
QAbstractButton& requireButton(const QWidget& dialog, const QString& caption);
/// The same, disabled or not.
QAbstractButton& requireShownButton(const QWidget& dialog, const QString& caption);

/// The captions, as a message lists them.
QString buttonList(const QWidget& dialog);
