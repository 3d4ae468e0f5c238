#include "ui/window/PointPanel.h"

#include <array>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>
#include <utility>

#include "ui/window/PropertyRows.h"

// ---- the points of a table

void PointModel::show(int table)
{
    beginResetModel();
    m_table = table;
    m_count = m_tables && table >= 0 ? m_tables->count(table) : 0;
    endResetModel();
}

std::optional<ShownPoint> PointModel::point(int row) const
{
    return m_tables && m_table >= 0 ? m_tables->point(m_table, row) : std::nullopt;
}

int PointModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_count;
}

int PointModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(columnCount_);
}

QVariant PointModel::data(const QModelIndex& at, int role) const
{
    if (role == Qt::TextAlignmentRole && at.column() != name)
        return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
    if (role != Qt::DisplayRole)
        return {};
    const auto shown = point(at.row());
    if (!shown)
        return {};
    constexpr int decimals = 3; // millimetres
    switch (at.column()) {
    case name:
        return shown->name;
    case code:
        return shown->code;
    case x:
        return QString::number(shown->x, 'f', decimals);
    case y:
        return QString::number(shown->y, 'f', decimals);
    case z:
        return shown->altitude;
    default:
        return {};
    }
}

QVariant PointModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static constexpr std::array titles{"Nom", "Code", "X", "Y", "Z"};
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Vertical)
        return section + 1;
    return QString::fromLatin1(titles[static_cast<std::size_t>(section)]);
}

// ---- the panel

PointPanel::PointPanel(PointTables* tables, QWidget* parent) :
    QWidget(parent),
    m_tables(tables),
    m_model(new PointModel(tables, this)),
    m_names(new QComboBox),
    m_table(new QTableView),
    m_count(new QLabel)
{
    m_names->setObjectName(QStringLiteral("listeTables"));
    m_table->setObjectName(QStringLiteral("tablePoints"));
    m_count->setObjectName(QStringLiteral("nombrePoints"));
    m_table->setModel(m_model);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setAlternatingRowColors(true);
    m_table->verticalHeader()->setDefaultSectionSize(20);
    constexpr int air = 10; // pixels around a text
    for (const auto& [column, widest] : {std::pair{PointModel::name, "MMMMM"},
                                         {PointModel::code, "99999"},
                                         {PointModel::x, "1234567.890"}, // Lambert coordinates, to the millimetre
                                         {PointModel::y, "6234567.890"},
                                         {PointModel::z, "1234.567"}})
        m_table->setColumnWidth(column, m_table->fontMetrics().horizontalAdvance(QLatin1String(widest)) + air);
    m_table->verticalHeader()->hide(); // room for Z
    m_table->horizontalHeader()->setStretchLastSection(true);

    auto* const current = new QPushButton(QStringLiteral("Rendre courante"));
    current->setObjectName(QStringLiteral("boutonTableCourante"));
    auto* const top = new QHBoxLayout;
    top->addWidget(m_names, 1);
    top->addWidget(current);
    auto* const wanted = new QLineEdit;
    wanted->setObjectName(QStringLiteral("rechercherPoint"));
    wanted->setPlaceholderText(QStringLiteral("Rechercher un point"));
    wanted->setClearButtonEnabled(true);
    auto* const bottom = new QHBoxLayout;
    bottom->addWidget(m_count);
    bottom->addWidget(wanted, 1);
    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins(4, 4, 4, 4);
    all->addLayout(top);
    all->addWidget(m_table);
    all->addLayout(bottom);

    connect(m_names, &QComboBox::activated, this, &PointPanel::choose);
    connect(current, &QPushButton::clicked, this, &PointPanel::makeCurrent);
    connect(wanted, &QLineEdit::returnPressed, this, [this, wanted] { search(wanted->text()); });
    connect(m_table, &QTableView::doubleClicked, this, [this](const QModelIndex& at) {
        if (const auto point = m_model->point(at.row()))
            emit shown(point->x, point->y);
    });
}

void PointPanel::refresh()
{
    const std::uint64_t state = m_tables ? m_tables->state() : 0;
    if (m_state == state)
        return;
    m_state = state;
    const int current = m_tables ? m_tables->current() : -1;
    QStringList names = m_tables ? m_tables->tables() : QStringList();
    const bool same = std::exchange(m_tableNames, names) == names && m_names->currentIndex() >= 0;
    const int wanted = same ? m_names->currentIndex() : current; // another project: its own current table
    for (int i = 0; i < names.size(); ++i)
        if (i == current)
            names[i] += QStringLiteral(" (courante)");
    m_names->clear();
    m_names->addItems(names);
    m_names->setCurrentIndex(wanted);
    choose(wanted);
    setEnabled(!names.isEmpty());
}

void PointPanel::choose(int table)
{
    m_model->show(table);
    const int count = m_model->rowCount();
    m_count->setText(count == 1 ? QStringLiteral("1 point") : QStringLiteral("%1 points").arg(count));
}

void PointPanel::makeCurrent()
{
    if (!m_tables || m_names->currentIndex() < 0)
        return;
    m_tables->setCurrent(m_names->currentIndex());
    refresh();
    emit edited();
}

/// The next point whose name begins so, after the one that is chosen.
void PointPanel::search(const QString& name)
{
    const int count = m_model->rowCount();
    const int from = m_table->currentIndex().isValid() ? m_table->currentIndex().row() + 1 : 0;
    for (int i = 0; i < count; ++i) {
        const int row = (from + i) % count;
        const auto point = m_model->point(row);
        if (!point || !point->name.startsWith(name.trimmed(), Qt::CaseInsensitive))
            continue;
        m_table->setCurrentIndex(m_model->index(row, PointModel::name));
        return;
    }
}
