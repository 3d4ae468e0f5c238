#include "SampleDialog.h"

#include <QFormLayout>
#include <QHeaderView>
#include <QIntValidator>
#include <QVBoxLayout>

namespace {

QFormLayout* form(QWidget* parent, const QString& label, QWidget* field)
{
    auto* const layout = new QFormLayout(parent);
    layout->addRow(label, field);
    return layout;
}

} // namespace

SampleDialog::SampleDialog()
{
    setWindowTitle("Saisie d'essai");
    distance->setRange(0.0, 1000.0);
    distance->setDecimals(3);
    distance->setSuffix(" m");
    decimals->setRange(0, 4);
    angles->addItems({"grades", "degrés", "radians"});
    code->addItems({"100", "200"});
    code->setEditable(true);
    fixed->setText("fixe");
    fixed->setReadOnly(true);
    bounded->setValidator(new QIntValidator(0, 999, this));
    greyed->setEnabled(false);
    startX->setObjectName("editDepartX");
    endX->setObjectName("editArriveeX");
    number->setObjectName("editNumero");

    auto* const page = new QWidget;
    auto* const rows = new QFormLayout(page);
    auto* const label = new QLabel("&Numéro :");
    label->setBuddy(number);
    rows->addRow(label, number);
    rows->addRow("Distance", distance);
    rows->addRow("Décimales", decimals);
    rows->addRow("Angles", angles);
    rows->addRow("Code", code);
    rows->addRow(altitudes);
    rows->addRow("Commentaire", comment);
    rows->addRow("Fixe", fixed);
    rows->addRow("Borné", bounded);
    rows->addRow("Fermeture", result);
    form(start, "X", startX);
    form(end, "X", endX);
    auto* const choices = new QVBoxLayout(grouping);
    choices->addWidget(none);
    choices->addWidget(all);
    none->setChecked(true);
    rows->addRow(start);
    rows->addRow(end);
    rows->addRow(grouping);

    auto* const detailPage = new QWidget;
    form(detailPage, "Repère", detail);
    tabs->addTab(page, "&Général");
    tabs->addTab(detailPage, "Détail");

    auto* const byHand = new QWidget; // no layout: places only
    byHand->setMinimumSize(320, 90);
    auto* const left = new QLabel("À gauche :", byHand);
    left->setGeometry(5, 5, 100, 22);
    beside = new QLineEdit(byHand);
    beside->setGeometry(110, 5, 100, 24);
    auto* const above = new QLabel("Au-dessus", byHand);
    above->setGeometry(215, 30, 100, 20);
    below = new QLineEdit(byHand);
    below->setGeometry(215, 55, 100, 24);

    auto* const layout = new QVBoxLayout(this);
    for (QWidget* const widget : std::initializer_list<QWidget*>{tabs, byHand, compute, greyed})
        layout->addWidget(widget);
    auto* const close = new QPushButton("&Fermer");
    layout->addWidget(close);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
}

TableDialog::TableDialog()
{
    setWindowTitle("Table d'essai");
    table->setObjectName("tableObservations");
    table->setHorizontalHeaderLabels({"Station", "Angle", "Code"});
    for (int row = 0; row < table->rowCount(); ++row) {
        table->setItem(row, 0, new QTableWidgetItem(QStringLiteral("S%1").arg(row + 1)));
        table->setItem(row, 1, new QTableWidgetItem(QStringLiteral("10%1.5").arg(row)));
        auto* const box = new QTableWidgetItem;
        box->setCheckState(row == 1 ? Qt::Checked : Qt::Unchecked);
        table->setItem(row, 2, box);
        table->item(row, 0)->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    }
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    auto* const layout = new QVBoxLayout(this);
    auto* const label = new QLabel("Observations :");
    label->setBuddy(table);
    layout->addWidget(label);
    layout->addWidget(table);
    auto* const close = new QPushButton("Fermer");
    layout->addWidget(close);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    connect(table, &QTableWidget::cellDoubleClicked, this,
            [this](int row, int column) { events << QStringLiteral("ouvert %1,%2").arg(row + 1).arg(column + 1); });
    connect(table, &QTableWidget::cellClicked, this,
            [this](int row, int column) { events << QStringLiteral("clic %1,%2").arg(row + 1).arg(column + 1); });
    connect(table->horizontalHeader(), &QHeaderView::sectionClicked, this,
            [this](int column) { events << QStringLiteral("titre %1").arg(column + 1); });
}

void TableDialog::showFiles()
{
    files = new QListWidget;
    files->setObjectName("listeFichiers");
    files->addItems({"a.obs", "b.obs"});
    files->setSelectionMode(QAbstractItemView::SingleSelection);
    layout()->addWidget(files);
}
