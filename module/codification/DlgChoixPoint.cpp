#include "codification/DlgChoixPoint.h"

#include "codification/codificationDuModule.h"
#include "codification/modelePoints.h"
#include "points/projetDansDessin.h"
#include "services/argumentsLisp.h"
#include "services/codages.h"
#include "services/listeLisp.h"

#include "aced.h"
#include "ui_DlgChoixPoint.h"

DlgChoixPoint::DlgChoixPoint(const listePointsDuDessin& table) :
    m_ui(std::make_unique<Ui::DlgChoixPoint>()),
    m_modele(new modelePoints(table, codificationDuModule(), {"Numéro", "X", "Y", "Z", "Code"}, this))
{
    m_ui->setupUi(this);
    preparerVue(*m_ui->liste, *m_modele);
    m_ui->boutonOk->setEnabled(false);
    connect(m_ui->liste->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { m_ui->boutonOk->setEnabled(position().has_value()); });
    connect(m_modele, &QAbstractItemModel::modelReset, this,
            [this] { m_ui->boutonOk->setEnabled(position().has_value()); });
    connect(m_ui->editChercher, &QLineEdit::textChanged, this, [this](const QString& nom) { chercher(nom); });
    connect(m_ui->liste, &QTableView::doubleClicked, this, &QDialog::accept);
    connect(m_ui->boutonOk, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->boutonCancel, &QPushButton::clicked, this, &QDialog::reject);
}

DlgChoixPoint::~DlgChoixPoint() = default;

/// The first row left is selected: Enter takes it.
void DlgChoixPoint::chercher(const QString& nom)
{
    m_ui->liste->clearSelection();
    m_modele->filtrer(std::nullopt, versAnsi(nom.trimmed().toStdWString()));
    if (!nom.isEmpty() && m_modele->rowCount() > 0)
        m_ui->liste->selectRow(0);
}

std::optional<int> DlgChoixPoint::position() const
{
    const std::vector<int> lignes = lignesChoisies(*m_ui->liste);
    return lignes.empty() ? std::nullopt : std::optional(m_modele->position(lignes.front()));
}

int lispChoixpoint()
{
    if (!argumentsLisp().fini())
        return refuserParametres();
    const listePointsDuDessin* const table = tableCourante();
    if (!table || table->nbPoint() == 0 || !dialoguesPossibles())
        return rendreNil();
    DlgChoixPoint dialogue(*table);
    const auto position = dialogue.exec() == QDialog::Accepted ? dialogue.position() : std::nullopt;
    return position ? acedRetStr(depuisAnsi(table->getData(*position)->getNomPoint()).c_str()) : rendreNil();
}
