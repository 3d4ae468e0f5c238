#pragma once

#include <optional>
#include <QString>

/// What the subject of a check is, for subjects outside dialogs; nothing for others:
///   entités, entités INSERT, entités calque X, entités INSERT calque X   how many stand in model space
///   (expression)                                                        its AutoLISP value
///   dernier                                                             the last line printed
///   fichier NOM                                                         the text of a file
///   existe NOM                                                          oui, non
/// @throws ScriptError when it cannot be found out.
std::optional<QString> drawingValue(const QString& subject, const QString& scriptFolder);
