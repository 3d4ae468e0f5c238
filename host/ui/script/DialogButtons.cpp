#include "ui/script/DialogButtons.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QRadioButton>
#include <QStringList>

#include "ui/script/Caption.h"
#include "ui/script/DialogFields.h"
#include "ui/script/ScriptError.h"

namespace {

/// Those a person can see and press. The arrows of scroll bars, the corner of a table have no name.
QList<QAbstractButton*> buttons(const QWidget& dialog)
{
    QList<QAbstractButton*> found;
    for (QAbstractButton* const button : dialog.findChildren<QAbstractButton*>()) {
        const bool isField = qobject_cast<QCheckBox*>(button) || qobject_cast<QRadioButton*>(button);
        if (!isField && button->isVisible() && button->window() == &dialog &&
            !(button->text().isEmpty() && button->objectName().isEmpty()))
            found << button;
    }
    return found;
}

QString name(const QAbstractButton& button)
{
    const QString caption = captionText(button.text());
    return caption.isEmpty() ? button.objectName() : caption;
}

bool bears(const QAbstractButton& button, const QString& caption)
{
    return captionText(button.text()) == caption || button.objectName() == caption;
}

QAbstractButton* findButton(const QWidget& dialog, const QString& caption)
{
    const QString wanted = captionText(caption);
    QList<QAbstractButton*> found;
    for (QAbstractButton* const button : buttons(dialog))
        if (bears(*button, wanted))
            found << button;
    for (qsizetype slash = wanted.indexOf(u'/'); found.isEmpty() && slash >= 0; slash = wanted.indexOf(u'/', slash + 1))
        for (QAbstractButton* const button : buttons(dialog))
            if (bears(*button, captionText(wanted.mid(slash + 1))) &&
                groupCaptions(*button, dialog).contains(captionText(wanted.left(slash))))
                found << button;
    if (found.size() <= 1)
        return found.value(0);
    QStringList names;
    for (const QAbstractButton* const button : found)
        names << (groupCaptions(*button, dialog).mid(0, 1) << name(*button)).join(u'/') +
                     QStringLiteral(" (%1)").arg(button->objectName());
    throw ScriptError(
        QStringLiteral("plusieurs boutons s'appellent « %1 » : %2.").arg(caption, names.join(QStringLiteral(", "))));
}

} // namespace

QAbstractButton& requireShownButton(const QWidget& dialog, const QString& caption)
{
    if (QAbstractButton* const button = findButton(dialog, caption))
        return *button;
    throw ScriptError(QStringLiteral("le dialogue « %1 » n'a pas de bouton « %2 ». %3")
                          .arg(captionText(dialog.windowTitle()), caption, buttonList(dialog)));
}

QAbstractButton& requireButton(const QWidget& dialog, const QString& caption)
{
    QAbstractButton& button = requireShownButton(dialog, caption);
    if (!button.isEnabled())
        throw ScriptError(QStringLiteral("le bouton « %1 » est grisé.").arg(caption));
    return button;
}

QString buttonList(const QWidget& dialog)
{
    QStringList names;
    for (const QAbstractButton* const button : buttons(dialog))
        names << u'[' + name(*button) + u']';
    return names.isEmpty() ? QStringLiteral("Il n'a pas de bouton.")
                           : QStringLiteral("Ses boutons : %1.").arg(names.join(u' '));
}
