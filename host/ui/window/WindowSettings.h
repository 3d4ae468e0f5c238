#pragma once

#include <QByteArray>
#include <QStringList>

/// What the window remembers from one session to the next: values of the user's registry. A registry that cannot be
/// written is told once, on the command line; the session goes on.
namespace windowSettings {

QString text(const wchar_t* name, const QString& otherwise = {});
void setText(const wchar_t* name, const QString& value);
int number(const wchar_t* name, int otherwise);
/// Places of windows and panels, as Qt writes them.
QByteArray bytes(const wchar_t* name);
void setBytes(const wchar_t* name, const QByteArray& value);

/// Files opened or saved lately, the last one first.
QStringList recentFiles();
void addRecentFile(const QString& path);
void forgetRecentFile(const QString& path);

} // namespace windowSettings
