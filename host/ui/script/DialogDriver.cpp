#include "ui/script/DialogDriver.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <QAbstractButton>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDialog>
#include <QFileDialog>
#include <QImage>
#include <QKeyEvent>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QRegularExpression>
#include <QTabWidget>
#include <QThread>

#include "ui/script/Caption.h"
#include "ui/script/DialogButtons.h"
#include "ui/script/DialogFields.h"
#include "ui/script/DialogLists.h"
#include "ui/script/FieldValue.h"
#include "ui/script/FileDialogAnswer.h"
#include "ui/script/ScriptCheck.h"
#include "ui/script/ScriptError.h"

namespace {

/// "liste 2,1", "2,Code", "Observations 12,Angle": a row and a column, with the list's name when there are several.
struct CellName {
    QString list;
    QString row;
    QString column;
};
std::optional<CellName> cellName(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("^(?:(.+)\\s)?\\s*(\\d+)\\s*,\\s*(.+)$"));
    const auto match = form.match(text.trimmed());
    if (!match.hasMatch())
        return std::nullopt;
    const QString list = match.captured(1).trimmed();
    return CellName{list.isEmpty() ? QStringLiteral("liste") : list, match.captured(2), match.captured(3).trimmed()};
}

QString yesNo(bool value)
{
    return value ? QStringLiteral("oui") : QStringLiteral("non");
}

/// The tab widget of a dialog that has that tab; -1 when there is none.
std::pair<QTabWidget*, int> findTab(const QWidget& dialog, const QString& title)
{
    for (QTabWidget* const tabs : dialog.findChildren<QTabWidget*>())
        for (int i = 0; tabs->isVisible() && i < tabs->count(); ++i)
            if (captionText(tabs->tabText(i)) == captionText(title))
                return {tabs, i};
    return {nullptr, -1};
}

QString tabNames(const QWidget& dialog)
{
    QStringList names;
    for (const QTabWidget* const tabs : dialog.findChildren<QTabWidget*>())
        for (int i = 0; i < tabs->count(); ++i)
            names << captionText(tabs->tabText(i));
    return names.isEmpty() ? QStringLiteral("Il n'a pas d'onglet.")
                           : QStringLiteral("Ses onglets : %1.").arg(names.join(QStringLiteral(", ")));
}

bool isOfOneColor(const QImage& picture)
{
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixel(x, y) != picture.pixel(0, 0))
                return false;
    return true;
}

/// Without a loop of its own, in which the next line would be read.
void letPass(std::chrono::milliseconds time)
{
    for (const QDeadlineTimer end(time); !end.hasExpired(); QThread::msleep(5))
        QCoreApplication::processEvents();
}

/// What was just changed is laid out; a page of the web is drawn by another process, which says nothing when it has:
/// it has once something stands on it, and stays.
/// @throws ScriptError when nothing comes
void waitForPage(const QWidget& dialog)
{
    constexpr std::chrono::milliseconds pause{150};
    const QDeadlineTimer end(std::chrono::seconds(60));
    QCoreApplication::processEvents();
    const auto widgets = dialog.findChildren<QWidget*>();
    const auto found = std::ranges::find_if(widgets, [](QWidget* w) { return w->inherits("QWebEngineView"); });
    const QPointer<QWidget> page = found != widgets.end() ? *found : nullptr;
    QImage before;
    while (page && !end.hasExpired()) { // one that cannot be shown goes, and a simpler view takes its place
        QImage now = page->grab().toImage();
        if (now == before && !isOfOneColor(now))
            return;
        before = std::move(now);
        letPass(pause);
    }
    if (page)
        throw ScriptError(QStringLiteral("la page du dialogue « %1 » reste vide : son image n'est pas écrite.")
                              .arg(captionText(dialog.windowTitle())));
}

} // namespace

std::optional<QString> messageOf(const QWidget& dialog)
{
    const auto* const box = qobject_cast<const QMessageBox*>(&dialog);
    if (!box)
        return std::nullopt;
    const QString more = box->informativeText();
    return more.isEmpty() ? box->text() : box->text() + u'\n' + more;
}

void DialogDriver::speak(const QString& line, const std::function<void(const QString&)>& passedOn)
{
    const QString text = line.trimmed();
    if (text == u"*Cancel*" || text == u"*Annuler*") {
        if (auto* const dialog = qobject_cast<QDialog*>(&m_dialog))
            return dialog->reject();
        m_dialog.close();
        return;
    }
    if (text.startsWith(u'[')) {
        const qsizetype end = text.indexOf(u']');
        if (end < 0)
            throw ScriptError(QStringLiteral("il manque le « ] » derrière le nom du bouton."));
        if (const QString rest = text.mid(end + 1).trimmed(); !rest.isEmpty())
            passedOn(rest);
        return press(text.mid(1, end - 1));
    }
    if (savePicture(text) || setField(text) || chooseTab(text) || actOnList(text) || setCell(text))
        return;
    if (auto* const files = qobject_cast<QFileDialog*>(&m_dialog))
        return answerFileDialog(*files, text, m_folder);
    throw ScriptError(QStringLiteral("« %1 » ne dit rien au dialogue « %2 », qui est ouvert. %3")
                          .arg(text, captionText(m_dialog.windowTitle()), offers()));
}

QString DialogDriver::offers() const
{
    return DialogFields(m_dialog).list() + u' ' + listNames(m_dialog) + u' ' + buttonList(m_dialog);
}

void DialogDriver::press(const QString& caption) const
{
    if (pressMenu(caption))
        return;
    requireButton(m_dialog, caption).click();
}

bool DialogDriver::pressMenu(const QString& caption) const
{
    auto* const menu = qobject_cast<QMenu*>(&m_dialog);
    if (!menu)
        return false;
    QStringList names;
    for (QAction* const action : menu->actions()) {
        names << captionText(action->text());
        if (names.last() != captionText(caption))
            continue;
        if (!action->isEnabled())
            throw ScriptError(QStringLiteral("le choix « %1 » du menu est grisé.").arg(caption));
        menu->setActiveAction(action);
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier); // the menu answers who opened it
        QCoreApplication::sendEvent(menu, &enter);
        return true;
    }
    throw ScriptError(
        QStringLiteral("le menu n'a pas de choix « %1 » : %2.").arg(caption, names.join(QStringLiteral(" | "))));
}

/// Labels may hold a "=" themselves: each is tried as the one that separates.
bool DialogDriver::setField(const QString& line) const
{
    const DialogFields fields(m_dialog);
    for (qsizetype at = line.indexOf(u'='); at > 0; at = line.indexOf(u'=', at + 1)) {
        QWidget* const field = fields.find(line.left(at));
        if (!field)
            continue;
        try {
            setFieldValue(*field, scriptValue(line.mid(at + 1)));
        } catch (const ScriptError& error) {
            throw ScriptError(QStringLiteral("champ « %1 » : %2").arg(line.left(at).trimmed(), error.reason()));
        }
        return true;
    }
    if (const qsizetype at = line.indexOf(u'=');
        at > 0 && !qobject_cast<QFileDialog*>(&m_dialog) && !line.left(at).contains(u':') && !cellName(line.left(at)))
        fields.require(line.left(at).trimmed()); // says which ones there are
    return false;
}

bool DialogDriver::setCell(const QString& line) const
{
    const qsizetype at = line.indexOf(u'=');
    const auto name = at > 0 ? cellName(line.left(at)) : std::nullopt;
    QAbstractItemView* const list = name ? findList(m_dialog, name->list) : nullptr;
    if (list)
        DialogList(*list).setCell(name->row, name->column, scriptValue(line.mid(at + 1)));
    return list != nullptr;
}

/// As it stands on the screen, without the frame that the desktop puts around it.
bool DialogDriver::savePicture(const QString& line) const
{
    static const QRegularExpression form(QStringLiteral("^image\\s*:\\s*(.+)$"));
    const auto match = form.match(line);
    if (!match.hasMatch())
        return false;
    const QString file = scriptPath(match.captured(1), m_folder, false);
    waitForPage(m_dialog);
    if (!m_dialog.grab().save(file))
        throw ScriptError(QStringLiteral("%1 : l'image n'a pas pu être écrite.").arg(file));
    return true;
}

bool DialogDriver::chooseTab(const QString& line) const
{
    static const QRegularExpression form(QStringLiteral("^onglet\\s*:\\s*(.+)$"));
    const auto match = form.match(line);
    if (!match.hasMatch())
        return false;
    const auto [tabs, index] = findTab(m_dialog, match.captured(1));
    if (!tabs)
        throw ScriptError(
            QStringLiteral("le dialogue n'a pas d'onglet « %1 ». %2").arg(match.captured(1), tabNames(m_dialog)));
    if (!tabs->isTabEnabled(index))
        throw ScriptError(QStringLiteral("l'onglet « %1 » est grisé.").arg(match.captured(1)));
    tabs->setCurrentIndex(index);
    return true;
}

bool DialogDriver::actOnList(const QString& line) const
{
    const qsizetype colon = line.indexOf(u':');
    if (colon <= 0)
        return false;
    const QString name = line.left(colon).trimmed();
    QAbstractItemView* const list = findList(m_dialog, name);
    if (!list && name != u"liste")
        return false;
    if (!list)
        throw ScriptError(QStringLiteral("le dialogue « %1 » n'a pas de liste.").arg(m_dialog.windowTitle()));
    if (!DialogList(*list).act(line.mid(colon + 1)))
        throw ScriptError(QStringLiteral("« %1 » ne se fait pas sur une liste : sélection 1,3-5 ; tout ; rien ; "
                                         "ouvrir 2 ; titre Code ; cocher 1 ; décocher 1.")
                              .arg(line.mid(colon + 1).trimmed()));
    return true;
}

std::optional<QString> DialogDriver::valueOf(const QString& subject) const
{
    if (subject == u"titre")
        return captionText(m_dialog.windowTitle());
    if (subject == u"message")
        return messageOf(m_dialog);
    if (subject == u"onglet")
        if (const auto* const tabs = m_dialog.findChild<QTabWidget*>())
            return captionText(tabs->tabText(tabs->currentIndex()));
    if (subject.startsWith(u"actif ")) {
        const QString name = subject.mid(6).trimmed();
        if (name.startsWith(u'[') && name.endsWith(u']'))
            return yesNo(requireShownButton(m_dialog, name.mid(1, name.size() - 2)).isEnabled());
        return yesNo(DialogFields(m_dialog).require(name).isEnabled());
    }
    const DialogFields fields(m_dialog);
    if (subject.startsWith(u"choix "))
        return fieldChoices(fields.require(subject.mid(6))).join(QStringLiteral(" | "));
    // What a dialog calls itself so comes before the words of the language.
    if (const QWidget* const field = fields.findShown(subject))
        return fieldValue(*field);
    if (const auto value = listValue(subject))
        return value;
    return cellValue(subject);
}

std::optional<QString> DialogDriver::listValue(const QString& subject) const
{
    struct Property {
        const char16_t* word;
        QString (*read)(const DialogList& list);
    };
    static constexpr std::array properties{
        Property{u"lignes", [](const DialogList& list) { return QString::number(list.rowCount()); }},
        Property{u"sélection", [](const DialogList& list) { return list.selection(); }},
        Property{u"titres", [](const DialogList& list) { return list.titles().join(QStringLiteral(" | ")); }},
    };
    for (const Property& property : properties) {
        const QString word = QString::fromUtf16(property.word);
        if (subject != word && !subject.startsWith(word + u' '))
            continue;
        const QString name = subject.mid(word.size()).trimmed();
        QAbstractItemView* const list = findList(m_dialog, name.isEmpty() ? QStringLiteral("liste") : name);
        if (!list)
            throw ScriptError(QStringLiteral("le dialogue « %1 » n'a pas de liste « %2 ». %3")
                                  .arg(captionText(m_dialog.windowTitle()), name, listNames(m_dialog)));
        return property.read(DialogList(*list));
    }
    return std::nullopt;
}

std::optional<QString> DialogDriver::cellValue(const QString& subject) const
{
    const auto name = cellName(subject);
    QAbstractItemView* const list = name ? findList(m_dialog, name->list) : nullptr;
    return list ? std::optional(DialogList(*list).cell(name->row, name->column)) : std::nullopt;
}
