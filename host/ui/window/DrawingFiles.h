#pragma once

#include <optional>
#include <QObject>

#include "commands/CommandHooks.h"

class Document;
class QWidget;

/// Drawings and their files, as the window asks for them: dialogs, questions before closing, and what went wrong.
/// Nothing but `choose` may be called while a command runs.
class DrawingFiles : public QObject {
    Q_OBJECT

public:
    explicit DrawingFiles(QWidget& window);

    /// Asks for a file. Nothing when the user gives up.
    std::optional<std::wstring> choose(const CommandHooks::FileQuestion& question);
    /// False, and said why, when it cannot be opened.
    bool open(const QString& path);
    /// Asks what to do with changes. False when the drawing stays open.
    bool close(Document& document);
    bool closeAll();
    /// In a box that waits for its button: the history of commands may be hidden.
    void tellFailure(const std::wstring& failure);

    /// The name that saving proposes for a drawing that has no file.
    static void propose(Document& document, const QString& path);
    /// Its file goes to the list of recent ones, once under each name.
    static void note(Document& document);

private:
    /// Asks for a name when there is none yet. False when it was not saved.
    bool save(Document& document);
    bool mayClose(Document& document);

    QWidget& m_window;
};
