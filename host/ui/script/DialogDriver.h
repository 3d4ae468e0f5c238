#pragma once

#include <functional>
#include <optional>
#include <QString>

class QWidget;
struct ScriptCheck;

/// Speaks to one modal dialog, or an open menu, as the lines of a script do.
class DialogDriver {
public:
    /// @param scriptFolder where files to read may also stand
    DialogDriver(QWidget& dialog, QString scriptFolder) : m_dialog(dialog), m_folder(std::move(scriptFolder)) {}

    /// What a line asks for is done through the widgets, with the signals that follow; dialogs that it opens run
    /// before this returns. The object must outlive the call, the dialog need not.
    /// @param passedOn receives what stands behind a button, before the button is pressed: it answers what comes next
    /// @throws ScriptError
    void speak(const QString& line, const std::function<void(const QString&)>& passedOn);

    /// What a check's subject is in the dialog; nothing when the dialog knows no such subject.
    /// @throws ScriptError when it names a row, a column, a button that is not there.
    std::optional<QString> valueOf(const QString& subject) const;

    /// What the dialog offers, for a message about a name that it does not have.
    QString offers() const;

private:
    void press(const QString& caption) const;
    bool pressMenu(const QString& caption) const;
    bool savePicture(const QString& line) const;
    bool setField(const QString& line) const;
    bool setCell(const QString& line) const;
    bool actOnList(const QString& line) const;
    bool chooseTab(const QString& line) const;
    std::optional<QString> listValue(const QString& subject) const;
    std::optional<QString> cellValue(const QString& subject) const;

    QWidget& m_dialog;
    QString m_folder;
};

/// The text that a message box shows; nothing for other dialogs.
std::optional<QString> messageOf(const QWidget& dialog);
