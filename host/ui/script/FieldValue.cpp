#include "ui/script/FieldValue.h"

#include <array>
#include <optional>
#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDoubleSpinBox>
#include <QFocusEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QRadioButton>
#include <QSpinBox>
#include <QTextEdit>

#include "ui/script/Caption.h"
#include "ui/script/ScriptError.h"

namespace {

QString yesNo(bool on)
{
    return on ? QStringLiteral("oui") : QStringLiteral("non");
}

bool readYesNo(const QString& value)
{
    if (value == u"oui" || value == u"non")
        return value == u"oui";
    throw ScriptError(QStringLiteral("« %1 » : « oui » ou « non » est attendu.").arg(value));
}

[[noreturn]] void refuse(const QString& value, const QString& stays)
{
    throw ScriptError(QStringLiteral("la valeur « %1 » est refusée : le champ vaut « %2 ».").arg(value, stays));
}

/// A field hears that it has been left, as when one goes on to the next.
void leave(QWidget* field)
{
    if (field->hasFocus())
        return field->clearFocus();
    QFocusEvent left(QEvent::FocusOut, Qt::TabFocusReason); // its window is not the active one
    QCoreApplication::sendEvent(field, &left);
}

template <typename Field>
void refuseReadOnly(const Field& field)
{
    if (field.isReadOnly())
        throw ScriptError(QStringLiteral("le champ ne se modifie pas."));
}

void type(QLineEdit& edit, const QString& value)
{
    edit.setFocus(Qt::TabFocusReason);
    edit.selectAll();
    // Not setText: what is typed goes through the mask and the validator.
    value.isEmpty() ? edit.del() : edit.insert(value);
}

void set(QLineEdit& edit, const QString& value)
{
    refuseReadOnly(edit);
    const QPointer<QLineEdit> alive(&edit);
    type(edit, value);
    const QString text = edit.text();
    leave(&edit);
    if (text != value && alive)
        refuse(value, edit.text());
}

template <typename TextEdit>
void setText(TextEdit& edit, const QString& value)
{
    refuseReadOnly(edit);
    edit.setFocus(Qt::TabFocusReason);
    edit.selectAll();
    edit.insertPlainText(value);
    leave(&edit);
}

QString spinText(const QAbstractSpinBox& spin)
{
    if (const auto* const whole = qobject_cast<const QSpinBox*>(&spin))
        return whole->cleanText();
    if (const auto* const real = qobject_cast<const QDoubleSpinBox*>(&spin))
        return real->cleanText();
    return spin.text();
}

bool sameText(const QString& shown, const QString& value)
{
    bool valid = false, wanted = false;
    const double a = shown.toDouble(&valid), b = value.toDouble(&wanted);
    return shown == value || (valid && wanted && a == b);
}

void set(QAbstractSpinBox& spin, const QString& value)
{
    refuseReadOnly(spin);
    auto* const edit = spin.findChild<QLineEdit*>();
    const QPointer<QAbstractSpinBox> alive(&spin);
    type(*edit, value);
    spin.interpretText();
    leave(&spin);
    if (alive && !sameText(spinText(spin), value))
        refuse(value, spinText(spin));
}

/// By its text, else by its place, 1-based. -1 when there is none.
int comboIndex(const QComboBox& combo, const QString& value)
{
    for (int i = 0; i < combo.count(); ++i)
        if (typedText(combo.itemText(i)) == typedText(value))
            return i;
    bool valid = false;
    const int place = value.toInt(&valid);
    return valid && place >= 1 && place <= combo.count() && !combo.isEditable() ? place - 1 : -1;
}

void set(QComboBox& combo, const QString& value)
{
    const int index = comboIndex(combo, value);
    if (index < 0) {
        if (combo.isEditable())
            return set(*combo.lineEdit(), value);
        throw ScriptError(QStringLiteral("« %1 » n'est pas un choix de la liste : %2.")
                              .arg(value, fieldChoices(combo).join(QStringLiteral(" | "))));
    }
    const QPointer<QComboBox> alive(&combo);
    const QString text = combo.itemText(index);
    combo.setFocus(Qt::TabFocusReason);
    combo.setCurrentIndex(index);
    if (alive)
        emit combo.activated(index);
    if (alive)
        emit combo.textActivated(text);
}

void set(QAbstractButton& button, const QString& value)
{
    const bool on = readYesNo(value);
    if (button.isChecked() == on)
        return;
    if (!on && qobject_cast<QRadioButton*>(&button))
        throw ScriptError(QStringLiteral("un choix s'enlève en choisissant un autre du même groupe."));
    button.setFocus(Qt::TabFocusReason);
    const QPointer<QAbstractButton> alive(&button);
    button.click();
    if (alive && button.isChecked() != on)
        refuse(value, fieldValue(button));
}

QList<QRadioButton*> radios(const QGroupBox& group)
{
    return group.findChildren<QRadioButton*>();
}

void set(QGroupBox& group, const QString& value)
{
    for (QRadioButton* const radio : radios(group))
        if (captionText(radio->text()) == captionText(value))
            return setFieldValue(*radio, QStringLiteral("oui"));
    if (!group.isCheckable())
        throw ScriptError(QStringLiteral("« %1 » n'est pas un choix du groupe : %2.")
                              .arg(value, fieldChoices(group).join(QStringLiteral(" | "))));
    if (const bool on = readYesNo(value); group.isChecked() != on) {
        group.setChecked(on);
        emit group.clicked(on);
    }
}

QString groupValue(const QGroupBox& group)
{
    for (const QRadioButton* const radio : radios(group))
        if (radio->isChecked())
            return captionText(radio->text());
    return group.isCheckable() ? yesNo(group.isChecked()) : QString();
}

/// Calls something with a field as what it is; false when the widget is none.
template <typename Task>
bool withField(const QWidget& widget, Task&& task)
{
    auto* const field = const_cast<QWidget*>(&widget);
    if (auto* const spin = qobject_cast<QAbstractSpinBox*>(field))
        return task(*spin), true;
    if (auto* const combo = qobject_cast<QComboBox*>(field))
        return task(*combo), true;
    if (auto* const edit = qobject_cast<QLineEdit*>(field))
        return task(*edit), true;
    if (auto* const text = qobject_cast<QTextEdit*>(field))
        return task(*text), true;
    if (auto* const plain = qobject_cast<QPlainTextEdit*>(field))
        return task(*plain), true;
    if (auto* const group = qobject_cast<QGroupBox*>(field); group && (group->isCheckable() || !radios(*group).empty()))
        return task(*group), true;
    if (auto* const button = qobject_cast<QAbstractButton*>(field); button && button->isCheckable())
        return task(*button), true;
    if (auto* const label = qobject_cast<QLabel*>(field))
        return task(*label), true;
    return false;
}

struct Reader {
    QString text;
    void operator()(const QAbstractSpinBox& spin) { text = spinText(spin); }
    void operator()(const QComboBox& combo) { text = combo.currentText(); }
    void operator()(const QLineEdit& edit) { text = edit.text(); }
    void operator()(const QTextEdit& edit) { text = edit.toPlainText(); }
    void operator()(const QPlainTextEdit& edit) { text = edit.toPlainText(); }
    void operator()(const QGroupBox& group) { text = groupValue(group); }
    void operator()(const QAbstractButton& button) { text = yesNo(button.isChecked()); }
    void operator()(const QLabel& label) { text = label.text(); }
};

struct Writer {
    const QString& value;
    void operator()(QTextEdit& edit) const { setText(edit, value); }
    void operator()(QPlainTextEdit& edit) const { setText(edit, value); }
    void operator()(QLabel&) const { throw ScriptError(QStringLiteral("ce texte ne se modifie pas.")); }
    template <typename Field>
    void operator()(Field& field) const
    {
        set(field, value);
    }
};

} // namespace

bool isField(const QWidget& widget)
{
    if (qobject_cast<const QLabel*>(&widget))
        return false;
    // The edit of a spin box or a combo box, the corners of tables.
    for (const QWidget* part = widget.parentWidget(); part && !part->isWindow(); part = part->parentWidget())
        if (qobject_cast<const QAbstractSpinBox*>(part) || qobject_cast<const QComboBox*>(part) ||
            part->inherits("QAbstractItemView"))
            return false;
    return withField(widget, [](const auto&) {});
}

QString fieldValue(const QWidget& field)
{
    Reader reader;
    withField(field, reader);
    return reader.text;
}

void setFieldValue(QWidget& field, const QString& value)
{
    if (!field.isEnabled())
        throw ScriptError(QStringLiteral("le champ est grisé."));
    withField(field, Writer{value});
}

QStringList fieldChoices(const QWidget& field)
{
    QStringList choices;
    if (const auto* const combo = qobject_cast<const QComboBox*>(&field))
        for (int i = 0; i < combo->count(); ++i)
            choices << typedText(combo->itemText(i));
    if (const auto* const group = qobject_cast<const QGroupBox*>(&field))
        for (const QRadioButton* const radio : radios(*group))
            choices << captionText(radio->text());
    return choices;
}
