#pragma once

#include <QWidget>

class CommandEdit;
class CommandInput;
class QLabel;
class QPlainTextEdit;

/// The command line: what was printed and typed, the prompt with its options to click, and the line to type in.
class CommandPanel : public QWidget {
    Q_OBJECT

public:
    explicit CommandPanel(CommandInput& input, QWidget* parent = nullptr);

    /// What modules and commands print: line breaks are its own.
    void print(const QString& text);
    CommandEdit& edit() const { return *m_edit; }
    void setHistoryVisible(bool visible);
    bool isHistoryHidden() const;

private:
    void send(const QString& line);
    void cancel();
    void showPrompt();
    void flush();

    CommandInput& m_input;
    QPlainTextEdit* m_history;
    QLabel* m_prompt;
    CommandEdit* m_edit;
    QString m_pending;    // printed, and not yet in the history
    QString m_expression; // lines of an expression whose parentheses are still open
};
