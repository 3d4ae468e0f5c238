#pragma once

#include <QString>
#include <QStringList>
#include <vector>

class QLabel;
class QWidget;

/// The fields of a dialog that can be seen now, found by the names that a person, or the one who made the dialog, gives
/// them: its label (the one it is the buddy of, that of its row in a form, else the one before it on its row or above
/// it), its own caption, or its object name. "Groupe/Étiquette" tells apart fields with the same label in several
/// groups or tabs.
class DialogFields {
public:
    explicit DialogFields(QWidget& dialog);

    /// @return null when no field has that name. @throws ScriptError when several have.
    QWidget* find(const QString& name) const;
    /// The same for results that are shown in a text beside their label, or that have an object name.
    QWidget* findShown(const QString& name) const;
    /// @throws ScriptError that names the fields that there are.
    QWidget& require(const QString& name) const;

    /// The names to use, as a message lists them.
    QString list() const;

private:
    struct Field {
        QWidget* widget;
        QStringList names; ///< the one that a person reads first
        QStringList groups;
        QString fullName() const;
    };
    std::vector<const Field*> matching(const QString& group, const QString& name) const;
    QLabel* shownBeside(const QLabel& label) const;

    QWidget& m_dialog;
    std::vector<QLabel*> m_labels; ///< with a text
    std::vector<Field> m_fields;
};

/// The captions of the group boxes and tabs around a widget of a dialog, the nearest first.
QStringList groupCaptions(const QWidget& widget, const QWidget& dialog);
