#pragma once

#include <optional>
#include <QString>
#include <vector>

#include "ui/script/ScriptText.h"

/// Hands out what stands in a script, line by line or input by input. A script called from another goes first; then the
/// other goes on.
class ScriptReader {
public:
    /// "-" is the standard input. @throws ScriptError when the file cannot be read, or scripts call each other without
    /// end.
    void open(const QString& path);

    bool atEnd() const;
    /// Whether nothing of the line that comes has been taken yet.
    bool atLineStart() const { return !m_files[top()].rest; }
    /// What is left of the line, or the next line. Not at the end.
    const QString& peek() const;
    /// The same, taken.
    QString takeLine();
    /// Up to the next blank, which is taken as well, or to the end of the line. A text in quotes and an AutoLISP
    /// expression are one input. Empty: Enter.
    QString takeInput();
    /// Puts a text in front of what comes, as the rest of the line taken last.
    void putBack(const QString& text) { m_files[m_taken].rest = text; }

    /// "fichier.scr, ligne 12" of what was taken last.
    QString place() const;
    /// Folder of the script that speaks.
    QString folder() const;

private:
    struct File {
        QString path;
        std::vector<ScriptLine> lines;
        std::size_t next = 0;
        std::optional<QString> rest; ///< of the line before `next`
        bool isOver() const { return !rest && next == lines.size(); }
    };
    std::size_t top() const;

    std::vector<File> m_files; ///< the last one that is not over speaks
    std::size_t m_taken = 0;   ///< where what was taken last comes from
};
