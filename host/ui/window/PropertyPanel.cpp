#include "ui/window/PropertyPanel.h"

#include <map>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QStyledItemDelegate>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "ap/Document.h"
#include "db/entities/KindNames.h"
#include "ed/input/PickFirst.h"

namespace {

constexpr int valueColumn = 1;
constexpr int placeRole = Qt::UserRole; // of the property, in the panel's list
const QString varied = QStringLiteral("*VARIÉ*");
/// Reading the properties of more would make selecting slow.
constexpr std::size_t mostRead = 5000;

/// Lists offer what a value may be; other texts are typed.
class ValueDelegate : public QStyledItemDelegate {
public:
    using Choices = std::function<QStringList(const QModelIndex&)>;
    ValueDelegate(Choices choices, QObject* parent) : QStyledItemDelegate(parent), m_choices(std::move(choices)) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& at) const override
    {
        if (at.column() != valueColumn)
            return nullptr;
        const QStringList choices = m_choices(at);
        if (choices.isEmpty())
            return QStyledItemDelegate::createEditor(parent, option, at);
        auto* const box = new QComboBox(parent);
        box->setEditable(true);
        box->addItems(choices);
        return box;
    }
    void setEditorData(QWidget* editor, const QModelIndex& at) const override
    {
        if (auto* const box = qobject_cast<QComboBox*>(editor))
            box->setCurrentText(at.data().toString());
        else
            QStyledItemDelegate::setEditorData(editor, at);
    }
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& at) const override
    {
        if (const auto* const box = qobject_cast<QComboBox*>(editor))
            model->setData(at, box->currentText());
        else
            QStyledItemDelegate::setModelData(editor, model, at);
    }

private:
    Choices m_choices;
};

} // namespace

PropertyPanel::PropertyPanel(QWidget* parent) : QWidget(parent), m_summary(new QLabel), m_tree(new QTreeWidget)
{
    m_summary->setObjectName(QStringLiteral("resumeSelection"));
    m_summary->setWordWrap(true); // many kinds must not widen the panel
    m_tree->setObjectName(QStringLiteral("arbreProprietes"));
    m_tree->setColumnCount(2);
    m_tree->setHeaderLabels({QStringLiteral("Propriété"), QStringLiteral("Valeur")});
    m_tree->setAlternatingRowColors(true);
    m_tree->setIndentation(12);
    m_tree->header()->setDefaultSectionSize(150);
    m_tree->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::SelectedClicked |
                            QAbstractItemView::EditKeyPressed);
    m_tree->setItemDelegate(new ValueDelegate(
        [this](const QModelIndex& at) {
            const auto place = at.siblingAtColumn(0).data(placeRole).toULongLong();
            return m_document && place < m_properties.size()
                       ? choicesOf(m_properties[place].kind, *m_document->database())
                       : QStringList();
        },
        this));
    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins(4, 4, 4, 4);
    all->addWidget(m_summary);
    all->addWidget(m_tree);
    connect(m_tree, &QTreeWidget::itemChanged, this, &PropertyPanel::change);
}

void PropertyPanel::setDocument(Document* document)
{
    m_document = document;
    setEnabled(document != nullptr);
    refresh();
}

void PropertyPanel::refresh()
{
    m_stale = true;
    if (isVisible())
        fill();
}

void PropertyPanel::showEvent(QShowEvent*)
{
    if (m_stale)
        fill();
}

QString PropertyPanel::summary(const std::vector<AcDbObjectId>& selected)
{
    if (selected.empty())
        return QStringLiteral("Rien n'est sélectionné");
    if (selected.size() > mostRead)
        return QStringLiteral("%1 objets").arg(selected.size());
    std::map<QString, int> kinds;
    for (const AcDbObjectId id : selected)
        if (const AcDbObjectPointer<AcDbEntity> entity(id); entity.openStatus() == Acad::eOk)
            ++kinds[QString::fromStdWString(kindName(*entity.object()))];
    QStringList texts;
    for (const auto& [kind, count] : kinds)
        texts.append(selected.size() == 1 ? kind : QStringLiteral("%1 : %2").arg(kind).arg(count));
    return texts.join(QStringLiteral(", "));
}

void PropertyPanel::fill()
{
    m_stale = false;
    m_filling = true;
    m_tree->clear();
    const auto selected = m_document ? PickFirst::of(*m_document).objects() : std::vector<AcDbObjectId>();
    m_summary->setText(summary(selected));
    m_properties = selected.size() <= mostRead ? propertiesOf(selected) : std::vector<EntityProperty>();
    for (std::size_t i = 0; i < m_properties.size(); ++i) {
        const EntityProperty& property = m_properties[i];
        auto* const item = new QTreeWidgetItem(groupItem(property.group));
        item->setText(0, property.name);
        item->setText(valueColumn, property.differs ? varied : property.value);
        item->setData(0, placeRole, QVariant::fromValue<qulonglong>(i));
        item->setToolTip(valueColumn, item->text(valueColumn));
        if (property.readOnly)
            item->setForeground(valueColumn, palette().placeholderText());
        else
            item->setFlags(item->flags() | Qt::ItemIsEditable);
    }
    m_tree->expandAll();
    m_filling = false;
}

QTreeWidgetItem* PropertyPanel::groupItem(const QString& name)
{
    const auto found = m_tree->findItems(name, Qt::MatchExactly);
    if (!found.isEmpty())
        return found.constFirst();
    auto* const group = new QTreeWidgetItem(m_tree, {name});
    QFont font = group->font(0);
    font.setBold(true);
    group->setFont(0, font);
    group->setFirstColumnSpanned(true);
    return group;
}

void PropertyPanel::change(QTreeWidgetItem* item)
{
    const auto place = item->data(0, placeRole).toULongLong();
    if (m_filling || !m_document || !item->parent() || place >= m_properties.size())
        return;
    const EntityProperty property = m_properties[place];
    const QString value = item->text(valueColumn);
    if (value == (property.differs ? varied : property.value))
        return;
    const QString refused = ::setProperty(*m_document, property, value);
    // The tree must not go while it tells of its change.
    QMetaObject::invokeMethod(
        this,
        [this, refused] {
            refresh();
            emit edited();
            if (!refused.isEmpty())
                QMessageBox::warning(this, QStringLiteral("Propriétés"),
                                     QStringLiteral("Modification refusée : ") + refused);
        },
        Qt::QueuedConnection);
}
