#include "ui/window/LayerPanel.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTableView>
#include <QVBoxLayout>

#include "ui/window/ColorDialog.h"
#include "ui/window/LayerModel.h"

LayerPanel::LayerPanel(QWidget* parent) :
    QWidget(parent),
    m_model(new LayerModel(this)),
    m_table(new QTableView),
    m_filter(new QLineEdit)
{
    m_table->setObjectName(QStringLiteral("tableCalques"));
    m_table->setModel(m_model);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::ExtendedSelection);
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

    m_filter->setObjectName(QStringLiteral("filtreCalques"));
    m_filter->setPlaceholderText(QStringLiteral("Filtrer les calques"));
    m_filter->setClearButtonEnabled(true);
    auto* const buttons = new QGridLayout;
    addButton(*buttons, "Nouveau", "boutonNouveauCalque", "Un calque de plus", &LayerPanel::create);
    addButton(*buttons, "Rendre courant", "boutonCalqueCourant", "Dessiner sur ce calque", &LayerPanel::makeCurrent);
    addButton(*buttons, "Supprimer", "boutonSupprimerCalque", "Supprimer les calques choisis, s'ils sont vides",
              &LayerPanel::remove);
    m_isolate =
        addButton(*buttons, "Isoler", "boutonIsolerCalque",
                  "Éteindre les autres calques ; un second clic rallume ce qui a été éteint", &LayerPanel::isolate);
    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins(4, 4, 4, 4);
    all->addWidget(m_filter);
    all->addWidget(m_table);
    all->addLayout(buttons);

    connect(m_table, &QTableView::clicked, this, &LayerPanel::click);
    connect(m_filter, &QLineEdit::textChanged, this, &LayerPanel::filter);
    connect(m_model, &LayerModel::modelReset, this, &LayerPanel::filter);
    connect(m_model, &LayerModel::dataChanged, this, &LayerPanel::filter); // a name may have changed
    connect(m_model, &LayerModel::refused, this, [this](const QString& reason) {
        QMessageBox::warning(this, QStringLiteral("Calques"), QStringLiteral("Modification refusée : ") + reason);
    });
    connect(m_model, &LayerModel::edited, this, &LayerPanel::edited);
}

QPushButton* LayerPanel::addButton(QGridLayout& grid, const char* caption, const char* name, const char* hint,
                                   void (LayerPanel::*action)())
{
    constexpr int inOneRow = 2; // the panel is narrow
    auto* const button = new QPushButton(QString::fromUtf8(caption));
    button->setObjectName(QString::fromLatin1(name));
    button->setToolTip(QString::fromUtf8(hint));
    const int place = grid.count();
    grid.addWidget(button, place / inOneRow, place % inOneRow);
    connect(button, &QPushButton::clicked, this, action);
    return button;
}

void LayerPanel::setDocument(Document* document)
{
    m_model->setDocument(document);
    setEnabled(document != nullptr);
    followIsolation();
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

std::vector<int> LayerPanel::chosenRows() const
{
    std::vector<int> rows;
    for (const QModelIndex& at : m_table->selectionModel()->selectedRows())
        if (!m_table->isRowHidden(at.row()))
            rows.push_back(at.row());
    return rows;
}

void LayerPanel::remove()
{
    m_model->remove(chosenRows());
}

void LayerPanel::isolate()
{
    if (m_model->isIsolating())
        m_model->endIsolation();
    else
        m_model->isolate(chosenRows());
    followIsolation();
}

void LayerPanel::followIsolation()
{
    m_isolate->setText(m_model->isIsolating() ? QStringLiteral("Rallumer les autres") : QStringLiteral("Isoler"));
}

void LayerPanel::filter()
{
    const QString wanted = m_filter->text().trimmed();
    const bool pattern = wanted.contains(u'*') || wanted.contains(u'?');
    const QRegularExpression name(pattern ? QRegularExpression::wildcardToRegularExpression(wanted)
                                          : QRegularExpression::escape(wanted),
                                  QRegularExpression::CaseInsensitiveOption);
    for (int row = 0; row < m_model->rowCount(); ++row)
        m_table->setRowHidden(row, !name.match(m_model->row(row).name).hasMatch());
}
