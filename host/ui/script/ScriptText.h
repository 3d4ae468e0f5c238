#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

/// A line of a script. Lines whose first character is ";" are comments and not kept.
struct ScriptLine {
    int number;   ///< 1-based; of the first one of an expression on several lines
    QString text; ///< without the blanks before it; those behind it count at the command line. Empty: Enter
};

/// The lines of a script.
/// An AutoLISP expression that is not closed goes on over the next lines, and makes one line with them.
/// @param content UTF-8, with or without a byte order mark, any line ends. What is no UTF-8 is read as Windows-1252.
std::vector<ScriptLine> scriptLines(const QByteArray& content);
/// The text of such a file.
QString scriptText(const QByteArray& content);
/// What a file holds. @throws ScriptError when it cannot be read.
QByteArray contentOfFile(const QString& path);

/// Where the expression that begins a text ends: behind its last parenthesis; -1 when it is not closed.
qsizetype expressionEnd(const QString& text);
