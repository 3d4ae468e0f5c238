#include "ui/script/DialogLists.h"

#include <algorithm>
#include <array>
#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QListView>
#include <QMouseEvent>
#include <QPointer>
#include <QRegularExpression>
#include <QTableView>
#include <QTreeView>

#include "ui/script/Caption.h"
#include "ui/script/DialogFields.h"
#include "ui/script/DialogLabels.h"
#include "ui/script/FieldValue.h"
#include "ui/script/ScriptCheck.h"
#include "ui/script/ScriptError.h"

namespace {

const QHeaderView* headerOf(const QAbstractItemView& view)
{
    if (const auto* const table = qobject_cast<const QTableView*>(&view))
        return table->horizontalHeader();
    if (const auto* const tree = qobject_cast<const QTreeView*>(&view))
        return tree->header();
    return nullptr;
}

bool isRowHidden(const QAbstractItemView& view, const QModelIndex& row)
{
    if (const auto* const table = qobject_cast<const QTableView*>(&view))
        return table->isRowHidden(row.row());
    if (const auto* const tree = qobject_cast<const QTreeView*>(&view))
        return tree->isRowHidden(row.row(), row.parent());
    if (const auto* const list = qobject_cast<const QListView*>(&view))
        return list->isRowHidden(row.row());
    return false;
}

void addRows(const QAbstractItemView& view, const QModelIndex& parent, std::vector<QModelIndex>& rows)
{
    const auto* const tree = qobject_cast<const QTreeView*>(&view);
    const int count = view.model()->rowCount(parent);
    for (int i = 0; i < count; ++i) {
        const QModelIndex row = view.model()->index(i, 0, parent);
        if (isRowHidden(view, row))
            continue;
        rows.push_back(row);
        if (tree && tree->isExpanded(row))
            addRows(view, row, rows);
    }
}

/// The mouse on a widget, as a person uses it.
void sendMouse(QWidget& widget, QEvent::Type type, const QPoint& place)
{
    const bool released = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, place, widget.mapToGlobal(place), Qt::LeftButton, released ? Qt::NoButton : Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

void click(QWidget& widget, const QPoint& place)
{
    const QPointer<QWidget> alive(&widget);
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
        if (alive)
            sendMouse(widget, type, place);
}

void doubleClick(QWidget& widget, const QPoint& place)
{
    const QPointer<QWidget> alive(&widget);
    click(widget, place);
    for (const QEvent::Type type : {QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease})
        if (alive)
            sendMouse(widget, type, place);
}

/// A place in a cell, brought into view; its right part may be covered by an editor or lie outside.
std::optional<QPoint> placeOf(QAbstractItemView& view, const QModelIndex& cell)
{
    view.scrollTo(cell);
    const QRect rect = view.visualRect(cell) & view.viewport()->rect();
    return rect.isEmpty() ? std::nullopt : std::optional(rect.center());
}

[[noreturn]] void refuseRow(const QString& row, int count)
{
    throw ScriptError(QStringLiteral("la ligne « %1 » n'existe pas : la liste en a %2.").arg(row).arg(count));
}

QString cellText(const QAbstractItemView& view, const QModelIndex& cell)
{
    if (const QWidget* const widget = view.indexWidget(cell); widget && isField(*widget))
        return fieldValue(*widget);
    const QString text = cell.data(Qt::DisplayRole).toString();
    const QVariant state = cell.data(Qt::CheckStateRole);
    if (!text.isEmpty() || !state.isValid())
        return text;
    return state.toInt() == Qt::Unchecked ? QStringLiteral("non") : QStringLiteral("oui");
}

QList<QAbstractItemView*> listsOf(const QWidget& dialog)
{
    QList<QAbstractItemView*> found;
    for (QAbstractItemView* const view : dialog.findChildren<QAbstractItemView*>())
        if (view->isVisible() && view->window() == &dialog && view->model() && !qobject_cast<QHeaderView*>(view))
            found << view;
    return found;
}

QStringList namesOf(const QAbstractItemView& list, const QWidget& dialog)
{
    std::vector<QWidget*> lists;
    for (QAbstractItemView* const one : listsOf(dialog))
        lists.push_back(one);
    std::vector<QLabel*> labels;
    for (QLabel* const label : dialog.findChildren<QLabel*>())
        if (label->isVisible() && !captionText(label->text()).isEmpty())
            labels.push_back(label);
    const auto owned = labelsOf(lists, labels);
    QStringList names;
    if (const auto label = owned.find(&list); label != owned.end())
        names << captionText(label->second->text());
    names << groupCaptions(list, dialog) << list.objectName();
    names.removeAll(QString());
    return names;
}

/// Whether a message came over a dialog meanwhile. A value that is refused with one is refused as a person sees it, and
/// the script's next line has answered it.
class BlockedWatch : public QObject {
public:
    explicit BlockedWatch(QWidget& dialog) { dialog.installEventFilter(this); }
    bool wasBlocked() const { return m_blocked; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        m_blocked = m_blocked || event->type() == QEvent::WindowBlocked;
        return QObject::eventFilter(watched, event);
    }

private:
    bool m_blocked = false;
};

} // namespace

std::vector<QModelIndex> DialogList::rows() const
{
    std::vector<QModelIndex> all;
    addRows(m_view, m_view.rootIndex(), all);
    return all;
}

QModelIndex DialogList::requireRow(const QString& number) const
{
    return requireRows(number).front();
}

std::vector<QModelIndex> DialogList::requireRows(const QString& ranges) const
{
    static const QRegularExpression range(QStringLiteral("^\\s*(\\d+)\\s*(?:-\\s*(\\d+)\\s*)?$"));
    const std::vector<QModelIndex> all = rows();
    const int count = static_cast<int>(all.size());
    std::vector<QModelIndex> chosen;
    for (const QString& part : ranges.split(u',')) {
        const auto match = range.match(part);
        const int first = match.captured(1).toInt();
        const int last = match.captured(2).isEmpty() ? first : match.captured(2).toInt();
        if (!match.hasMatch() || first < 1 || last > count || first > last)
            refuseRow(part.trimmed(), count);
        chosen.insert(chosen.end(), all.begin() + first - 1, all.begin() + last);
    }
    return chosen;
}

int DialogList::requireColumn(const QString& column) const
{
    const QString wanted = captionText(column);
    const QStringList all = titles();
    if (const auto title = all.indexOf(wanted); title >= 0)
        return static_cast<int>(title);
    bool valid = false;
    const int number = wanted.toInt(&valid);
    if (!valid || number < 1 || number > m_view.model()->columnCount(m_view.rootIndex()))
        throw ScriptError(
            QStringLiteral("la colonne « %1 » n'existe pas : %2.").arg(column, all.join(QStringLiteral(" | "))));
    return number - 1;
}

QModelIndex DialogList::requireCell(const QString& row, const QString& column) const
{
    const QModelIndex first = requireRow(row);
    return first.siblingAtColumn(requireColumn(column));
}

QString DialogList::cell(const QString& row, const QString& column) const
{
    return cellText(m_view, requireCell(row, column));
}

QStringList DialogList::titles() const
{
    QStringList all;
    const int columns = m_view.model()->columnCount(m_view.rootIndex());
    for (int i = 0; i < columns; ++i)
        all << captionText(m_view.model()->headerData(i, Qt::Horizontal).toString());
    return all;
}

QString DialogList::selection() const
{
    const std::vector<QModelIndex> all = rows();
    const auto isSelected = [&](std::size_t i) {
        return i < all.size() && m_view.selectionModel()->rowIntersectsSelection(all[i].row(), all[i].parent());
    };
    QStringList ranges;
    for (std::size_t first = 0; first < all.size(); ++first) {
        if (!isSelected(first))
            continue;
        std::size_t last = first;
        while (isSelected(last + 1))
            ++last;
        ranges << (first == last ? QString::number(first + 1) : QStringLiteral("%1-%2").arg(first + 1).arg(last + 1));
        first = last;
    }
    return ranges.join(u',');
}

void DialogList::setCell(const QString& row, const QString& column, const QString& value)
{
    const QModelIndex cell = requireCell(row, column);
    if (QWidget* const widget = m_view.indexWidget(cell); widget && isField(*widget))
        return setFieldValue(*widget, value);
    if (!(cell.flags() & Qt::ItemIsEditable) || m_view.editTriggers() == QAbstractItemView::NoEditTriggers)
        throw ScriptError(QStringLiteral("la cellule %1,%2 ne se modifie pas.").arg(row, column));
    const QPersistentModelIndex written(cell);
    const auto asWritten = [&] {
        return !written.isValid() ||
               ScriptCheck{{}, ScriptCheck::Relation::equal, value, {}}.isMetBy(cellText(m_view, written));
    };
    const BlockedWatch watch(*m_view.window());
    const bool taken = m_view.model()->setData(cell, value) && asWritten();
    if (!taken && !watch.wasBlocked())
        throw ScriptError(QStringLiteral("la valeur « %1 » est refusée : la cellule vaut « %2 ».")
                              .arg(value, written.isValid() ? cellText(m_view, written) : QString()));
}

bool DialogList::act(const QString& action)
{
    struct Action {
        const char16_t* verb;
        bool takesMore;
        void (DialogList::*perform)(const QString& rest);
    };
    static constexpr std::array actions{
        Action{u"sélection", true, &DialogList::select}, Action{u"tout", false, &DialogList::selectAll},
        Action{u"rien", false, &DialogList::selectNone}, Action{u"ouvrir", true, &DialogList::open},
        Action{u"titre", true, &DialogList::clickTitle}, Action{u"cocher", true, &DialogList::check},
        Action{u"décocher", true, &DialogList::uncheck},
    };
    const QString text = action.trimmed();
    const QString verb = text.section(u' ', 0, 0), rest = text.section(u' ', 1).trimmed();
    const auto known = std::ranges::find_if(actions, [&](const Action& a) { return verb == QStringView(a.verb); });
    if (known == actions.end() || known->takesMore == rest.isEmpty())
        return false;
    if (!m_view.isEnabled())
        throw ScriptError(QStringLiteral("la liste est grisée."));
    m_view.setFocus(Qt::TabFocusReason);
    (this->*known->perform)(rest);
    return true;
}

namespace {

void requireSelectable(const QAbstractItemView& view, bool several)
{
    if (view.selectionMode() == QAbstractItemView::NoSelection)
        throw ScriptError(QStringLiteral("les lignes de la liste ne se choisissent pas."));
    if (several && view.selectionMode() == QAbstractItemView::SingleSelection)
        throw ScriptError(QStringLiteral("la liste ne prend qu'une ligne à la fois."));
}

} // namespace

/// The first row is clicked, so that what follows a click follows; the others join it at once.
void DialogList::select(const QString& ranges)
{
    const std::vector<QModelIndex> chosen = requireRows(ranges);
    requireSelectable(m_view, chosen.size() > 1);
    const QPointer<QAbstractItemView> alive(&m_view);
    std::vector<QPersistentModelIndex> kept(chosen.begin(), chosen.end());
    m_view.clearSelection();
    if (const auto place = placeOf(m_view, chosen.front()))
        click(*m_view.viewport(), *place);
    if (!alive || std::ranges::any_of(kept, [](const auto& row) { return !row.isValid(); }))
        return; // what follows the click has changed the list
    QItemSelection selection;
    for (const QModelIndex row : kept)
        selection.select(row, row.siblingAtColumn(m_view.model()->columnCount(row.parent()) - 1));
    m_view.selectionModel()->setCurrentIndex(kept.back(), QItemSelectionModel::NoUpdate);
    m_view.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void DialogList::selectAll(const QString&)
{
    requireSelectable(m_view, true);
    m_view.selectAll();
}

void DialogList::selectNone(const QString&)
{
    m_view.clearSelection();
}

void DialogList::open(const QString& cell)
{
    const QString row = cell.section(u',', 0, 0), column = cell.section(u',', 1);
    const QModelIndex index = column.isEmpty() ? requireRow(row) : requireCell(row, column);
    const auto place = placeOf(m_view, index);
    if (!place)
        throw ScriptError(QStringLiteral("la cellule %1 ne se voit pas.").arg(cell));
    doubleClick(*m_view.viewport(), *place);
}

void DialogList::clickTitle(const QString& title)
{
    const int column = requireColumn(title);
    const QHeaderView* const header = headerOf(m_view);
    if (!header || !header->isVisible())
        throw ScriptError(QStringLiteral("la liste n'a pas de titres."));
    if (!header->sectionsClickable())
        throw ScriptError(QStringLiteral("les titres de la liste ne répondent pas."));
    const int middle = header->sectionViewportPosition(column) + header->sectionSize(column) / 2;
    click(*header->viewport(), QPoint(middle, header->height() / 2));
}

void DialogList::setChecked(const QString& ranges, Qt::CheckState state)
{
    const std::vector<QModelIndex> chosen = requireRows(ranges);
    const std::vector<QPersistentModelIndex> kept(chosen.begin(), chosen.end());
    for (const QModelIndex row : kept)
        if (!(row.flags() & Qt::ItemIsUserCheckable) || !m_view.model()->setData(row, state, Qt::CheckStateRole))
            throw ScriptError(QStringLiteral("la ligne %1 n'a pas de case à cocher.").arg(row.row() + 1));
}

QAbstractItemView* findList(const QWidget& dialog, const QString& name)
{
    const QList<QAbstractItemView*> lists = listsOf(dialog);
    const QString wanted = captionText(name);
    if (wanted == u"liste" && lists.size() == 1)
        return lists.first();
    QList<QAbstractItemView*> found;
    for (QAbstractItemView* const list : lists)
        if (namesOf(*list, dialog).contains(wanted))
            found << list;
    if (found.size() > 1 || (wanted == u"liste" && found.isEmpty() && !lists.isEmpty()))
        throw ScriptError(QStringLiteral("plusieurs listes peuvent être « %1 ». %2").arg(name, listNames(dialog)));
    return found.value(0);
}

QString listNames(const QWidget& dialog)
{
    QStringList names;
    const QList<QAbstractItemView*> lists = listsOf(dialog);
    if (lists.isEmpty())
        return QStringLiteral("Il n'a pas de liste.");
    if (lists.size() == 1)
        names << QStringLiteral("liste");
    for (const QAbstractItemView* const list : lists)
        names << namesOf(*list, dialog).join(QStringLiteral(" ou "));
    names.removeAll(QString());
    names.removeDuplicates();
    return QStringLiteral("Ses listes : %1.").arg(names.join(QStringLiteral(", ")));
}
