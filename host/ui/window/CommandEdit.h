#pragma once

#include <QLineEdit>
#include <QStringList>

class CompletionList;

/// The line in which one types. Enter sends it, a blank too where blanks end an input; the arrows go through the lines
/// sent before; Tab takes a name from the list of completions.
class CommandEdit : public QLineEdit {
    Q_OBJECT

public:
    explicit CommandEdit(QWidget* parent);

    /// Names are completed at the prompt of commands only.
    void setCompleting(bool completing) { m_completing = completing; }
    /// Where a text is asked for, a blank belongs to it.
    void setTakesBlanks(bool takesBlanks) { m_takesBlanks = takesBlanks; }
    const QStringList& sentLines() const { return m_sent; }
    void setSentLines(const QStringList& lines);

signals:
    void sent(const QString& line);
    void cancelled();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    /// Tab would leave the line.
    bool focusNextPrevChild(bool) override { return false; }

private:
    void send();
    void complete(const QString& text);
    void take(const QString& name);
    void recall(int by);
    void arrow(int by);
    bool blankSends() const;

    CompletionList* m_completions;
    QStringList m_sent;
    qsizetype m_recalled = 0; // place in m_sent; its size: the line being typed
    bool m_completing = true;
    bool m_takesBlanks = false;
};
