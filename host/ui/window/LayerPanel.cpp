#include "ui/window/LayerPanel.h"

#include <QHeaderView>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include "ui/window/ColorDialog.h"
#include "ui/window/LayerModel.h"

LayerPanel::LayerPanel(QWidget* parent) : QWidget(parent), m_model(new LayerModel(this)), m_table(new QTableView)
{
    m_table->setObjectName(QStringLiteral("tableCalques"));
    m_table->setModel(m_model);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    m_table->setShowGrid(false);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setDefaultSectionSize(22);
    m_table->horizontalHeader()->setMinimumSectionSize(24);
    for (const auto& [column, width] : {std::pair{LayerModel::current, 22},
                                        {LayerModel::visible, 32},
                                        {LayerModel::frozen, 32},
                                        {LayerModel::locked, 36},
                                        {LayerModel::color, 46},
                                        {LayerModel::linetype, 72}})
        m_table->setColumnWidth(column, width);
    m_table->horizontalHeader()->setSectionResizeMode(LayerModel::name, QHeaderView::Stretch);

    auto* const add = new QPushButton(QStringLiteral("Nouveau"));
    add->setObjectName(QStringLiteral("boutonNouveauCalque"));
    auto* const current = new QPushButton(QStringLiteral("Rendre courant"));
    current->setObjectName(QStringLiteral("boutonCalqueCourant"));
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(add);
    buttons->addWidget(current);
    buttons->addStretch();
    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins(4, 4, 4, 4);
    all->addWidget(m_table);
    all->addLayout(buttons);

    connect(m_table, &QTableView::clicked, this, &LayerPanel::click);
    connect(add, &QPushButton::clicked, this, &LayerPanel::create);
    connect(current, &QPushButton::clicked, this, &LayerPanel::makeCurrent);
    connect(m_model, &LayerModel::refused, this, [this](const QString& reason) {
        QMessageBox::warning(this, QStringLiteral("Calques"), QStringLiteral("Modification refusée : ") + reason);
    });
    connect(m_model, &LayerModel::edited, this, &LayerPanel::edited);
}

void LayerPanel::setDocument(Document* document)
{
    m_model->setDocument(document);
    setEnabled(document != nullptr);
}

void LayerPanel::refresh()
{
    m_model->refresh();
}

void LayerPanel::click(const QModelIndex& at)
{
    if (at.column() != LayerModel::color)
        return m_model->toggle(at);
    if (const auto color = ColorDialog::ask(m_model->row(at.row()).color, false, this))
        m_model->setColor(at, *color);
}

void LayerPanel::create()
{
    const int row = m_model->create();
    if (row < 0)
        return;
    const QModelIndex name = m_model->index(row, LayerModel::name);
    m_table->setCurrentIndex(name);
    m_table->edit(name);
}

void LayerPanel::makeCurrent()
{
    if (m_table->currentIndex().isValid())
        m_model->toggle(m_model->index(m_table->currentIndex().row(), LayerModel::current));
}
