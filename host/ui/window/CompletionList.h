#pragma once

#include <QListWidget>

/// The list of names that could end what is being typed: it floats above the line, never takes the keyboard, and
/// chooses nothing by itself.
class CompletionList : public QListWidget {
    Q_OBJECT

public:
    explicit CompletionList(QWidget* parent);

    /// Shows the names above a widget; hides when there is none.
    void offer(const QStringList& names, const QWidget& above);
    /// Goes through the names, round the ends; 1 down, -1 up.
    void step(int by);
    /// The name gone to, empty when none was.
    QString chosen() const;

signals:
    void clickedOn(const QString& name);
};
