#include "ui/script/DialogFields.h"

#include <algorithm>
#include <limits>
#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QTabWidget>

#include "ui/script/Caption.h"
#include "ui/script/DialogLabels.h"
#include "ui/script/FieldValue.h"
#include "ui/script/ScriptError.h"

namespace {

/// The caption that a field bears itself.
QString ownCaption(const QWidget& field)
{
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&field))
        return captionText(button->text());
    if (const auto* const group = qobject_cast<const QGroupBox*>(&field))
        return captionText(group->title());
    return {};
}

} // namespace

QStringList groupCaptions(const QWidget& widget, const QWidget& dialog)
{
    QStringList captions;
    const QWidget* page = &widget; // a page stands in a stack inside its tab widget
    for (const QWidget* around = widget.parentWidget(); around && around != &dialog; around = around->parentWidget()) {
        if (const auto* const group = qobject_cast<const QGroupBox*>(around))
            captions << captionText(group->title());
        if (const auto* const tabs = qobject_cast<const QTabWidget*>(around->parentWidget()))
            captions << captionText(tabs->tabText(tabs->indexOf(const_cast<QWidget*>(page))));
        page = around;
    }
    captions.removeAll(QString());
    return captions;
}

QString DialogFields::Field::fullName() const
{
    const QString name = names.isEmpty() ? QStringLiteral("?") : names.first();
    return groups.isEmpty() ? name : groups.first() + u'/' + name;
}

DialogFields::DialogFields(QWidget& dialog) : m_dialog(dialog)
{
    std::vector<QWidget*> widgets;
    for (QWidget* const widget : dialog.findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->window() != &dialog)
            continue;
        if (auto* const label = qobject_cast<QLabel*>(widget); label && !captionText(label->text()).isEmpty())
            m_labels.push_back(label);
        else if (isField(*widget))
            widgets.push_back(widget);
    }
    const auto labels = labelsOf(widgets, m_labels);
    for (QWidget* const widget : widgets) {
        const auto label = labels.find(widget);
        QStringList names{ownCaption(*widget)};
        if (names.first().isEmpty() && label != labels.end())
            names << captionText(label->second->text());
        names << widget->objectName();
        names.removeAll(QString());
        m_fields.push_back({widget, names, groupCaptions(*widget, dialog)});
    }
}

std::vector<const DialogFields::Field*> DialogFields::matching(const QString& group, const QString& name) const
{
    std::vector<const Field*> found;
    for (const Field& field : m_fields)
        if (field.names.contains(name) && (group.isEmpty() || field.groups.contains(group)))
            found.push_back(&field);
    return found;
}

QWidget* DialogFields::find(const QString& name) const
{
    const QString wanted = captionText(name);
    if (wanted.isEmpty())
        return nullptr;
    std::vector<const Field*> found = matching(QString(), wanted);
    for (qsizetype slash = wanted.indexOf(u'/'); found.empty() && slash >= 0; slash = wanted.indexOf(u'/', slash + 1))
        found = matching(captionText(wanted.left(slash)), captionText(wanted.mid(slash + 1)));
    if (found.empty())
        return nullptr;
    if (found.size() == 1)
        return found.front()->widget;
    QStringList names;
    for (const Field* const field : found)
        names << QStringLiteral("%1 (%2)").arg(field->fullName(), field->widget->objectName());
    throw ScriptError(
        QStringLiteral("plusieurs champs s'appellent « %1 » : %2.").arg(wanted, names.join(QStringLiteral(", "))));
}

QLabel* DialogFields::shownBeside(const QLabel& label) const
{
    QLabel* nearest = nullptr;
    double best = std::numeric_limits<double>::infinity();
    for (QLabel* const shown : m_dialog.findChildren<QLabel*>()) {
        const double far = shown->isVisible() && shown != &label ? labelDistance(label, *shown) : best;
        if (far < best) {
            best = far;
            nearest = shown;
        }
    }
    return nearest;
}

QWidget* DialogFields::findShown(const QString& name) const
{
    if (QWidget* const field = find(name))
        return field;
    const QString wanted = captionText(name);
    for (QLabel* const shown : m_dialog.findChildren<QLabel*>())
        if (shown->isVisible() && shown->objectName() == wanted)
            return shown;
    for (const QLabel* const label : m_labels)
        if (captionText(label->text()) == wanted)
            return label->buddy() ? label->buddy() : shownBeside(*label);
    return nullptr;
}

QWidget& DialogFields::require(const QString& name) const
{
    if (QWidget* const field = find(name))
        return *field;
    throw ScriptError(QStringLiteral("le dialogue « %1 » n'a pas de champ « %2 ». %3")
                          .arg(captionText(m_dialog.windowTitle()), name, list()));
}

QString DialogFields::list() const
{
    QStringList names;
    for (const Field& field : m_fields)
        names << field.fullName();
    return names.isEmpty() ? QStringLiteral("Il n'a pas de champ.")
                           : QStringLiteral("Ses champs : %1.").arg(names.join(QStringLiteral(", ")));
}
