#include "exchange/DlgTablesPoints.h"

#include <algorithm>
#include <QHeaderView>

#include "exchange/fusionTables.h"
#include "points/projetDansDessin.h"
#include "services/argumentsLisp.h"
#include "services/CAcadUndoGroup.h"
#include "services/dialogueCellules.h"
#include "services/dialogueMessage.h"
#include "services/lettres.h"
#include "services/verrouDocument.h"

#include "aced.h"
#include "ui_DlgTablesPoints.h"

DlgTablesPoints::DlgTablesPoints(projetsTopo& projet) : m_ui(std::make_unique<Ui::DlgTablesPoints>()), m_projet(projet)
{
    m_ui->setupUi(this);
    QTableWidget& liste = *m_ui->liste;
    liste.setColumnCount(2);
    liste.setHorizontalHeaderLabels({"Nom de la table", "Nb Pts"});
    liste.verticalHeader()->hide();
    liste.horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_ui->editNom->setMaxLength(longueurNomTable);
    afficher();
    connect(&liste, &QTableWidget::cellDoubleClicked, this, [this] { rendreCourante(); });
    connect(m_ui->boutonCreer, &QPushButton::clicked, this, [this] { creer(); });
    connect(m_ui->boutonFusionner, &QPushButton::clicked, this, [this] { fusionner(); });
    connect(m_ui->boutonSupprimer, &QPushButton::clicked, this, [this] { supprimer(); });
    connect(m_ui->boutonRenommer, &QPushButton::clicked, this, [this] { renommer(); });
    connect(m_ui->boutonFermer, &QPushButton::clicked, this, &QDialog::accept);
}

DlgTablesPoints::~DlgTablesPoints() = default;

void DlgTablesPoints::afficher()
{
    m_ui->liste->clearSelection();
    m_ui->liste->setRowCount(m_projet.nbTables());
    for (int i = 0; i < m_projet.nbTables(); ++i)
        afficherLigne(i);
    afficherCourante();
}

void DlgTablesPoints::afficherLigne(int ligne)
{
    const listePointsDuDessin& table = *m_projet.getTable(ligne);
    m_ui->liste->setItem(ligne, 0, new elementTexte(table.getNomTable().GetString()));
    m_ui->liste->setItem(ligne, 1, new elementNombre(std::to_wstring(table.nbPoint())));
}

void DlgTablesPoints::afficherCourante()
{
    m_ui->labelTable->setText(texteQt(m_projet.currTable()->getNomTable().GetString()));
}

std::vector<int> DlgTablesPoints::choisies() const
{
    std::vector<int> lignes;
    for (const QModelIndex& ligne : m_ui->liste->selectionModel()->selectedRows())
        lignes.push_back(ligne.row());
    std::ranges::sort(lignes);
    return lignes;
}

int DlgTablesPoints::uneSeule() const
{
    const std::vector<int> lignes = choisies();
    if (lignes.size() == 1)
        return lignes.front();
    afficherAvertissement(L"erreur", L"Selectionnez un seul element SVP");
    return -1;
}

void DlgTablesPoints::creer()
{
    CString nom;
    nom.Format(L"Table %d", m_projet.nbTables() + 1);
    m_projet.creerTablePoints(nom);
    afficher();
}

void DlgTablesPoints::renommer()
{
    const int ligne = uneSeule();
    if (ligne < 0)
        return;
    const std::wstring tape = m_ui->editNom->text().toStdWString();
    m_projet.getTable(ligne)->setNomTable(std::wstring(sansBlancs(tape, blancsSaisie)).c_str());
    afficherLigne(ligne);
    afficherCourante();
}

void DlgTablesPoints::supprimer()
{
    const std::vector<int> lignes = choisies();
    if (lignes.empty())
        return;
    const CAcadUndoGroup groupe;
    std::for_each(lignes.rbegin(), lignes.rend(), [this](int ligne) { m_projet.removeTablePoints(ligne); });
    afficher();
}

void DlgTablesPoints::rendreCourante()
{
    const int ligne = uneSeule();
    if (ligne < 0)
        return;
    m_projet.setCourante(ligne);
    afficherCourante();
}

void DlgTablesPoints::fusionner()
{
    const std::vector<int> lignes = choisies();
    if (lignes.size() < 2)
        return afficherAvertissement(L"erreur", L"Vous devez selectionner au moins\ndeux (02) tables a fusionner");
    fusionnerTables(m_projet, lignes);
    afficher();
}

int lispGererLeves()
{
    if (!argumentsLisp().fini())
        return refuserParametres();
    if (!tablesPoints || !dialoguesPossibles())
        return RTNORM;
    const verrouDocument verrou;
    DlgTablesPoints(*tablesPoints).exec();
    return RTNORM;
}
