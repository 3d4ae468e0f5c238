#pragma once

#include <QString>

class QFileDialog;

/// Types a path into a file dialog and presses its button, as a person would: the question before replacing a file, and
/// the refusal of one that is not there, come from the dialog.
/// @param path relative to the current folder; a file to read may stand in `besideScript` instead
/// @throws ScriptError when the dialog does not take it.
void answerFileDialog(QFileDialog& dialog, const QString& path, const QString& besideScript);

/// The full path of a file that a script names, by the same rule.
QString scriptPath(const QString& path, const QString& besideScript, bool mustExist);
