#include "tools/DlgSuperpositions.h"

#include <algorithm>

#include "codification/observationSymbole.h"
#include "points/projetDansDessin.h"
#include "points/superpositions.h"
#include "services/CAcadUndoGroup.h"
#include "services/codages.h"
#include "services/dialogueChamps.h"
#include "services/dialogueMessage.h"
#include "services/etendueVue.h"
#include "services/formatNombres.h"
#include "tools/fusionPoints.h"
#include "tools/placerObservations.h"

#include "ui_DlgSuperpositions.h"

DlgSuperpositions::DlgSuperpositions(listePointsDuDessin& laTable) :
    m_ui(disposer<Ui::DlgSuperpositions>(*this)),
    m_table(laTable),
    m_modele({"Groupe", "Point", "X", "Y", "Z", "Code", "Observation"}, 2,
             [this](int l, int colonne) { return texte(m_lignes[static_cast<std::size_t>(l)], colonne); })
{
    preparerTableau(*m_ui->liste, m_modele);
    connect(m_ui->boutonChercher, &QPushButton::clicked, this, [this] {
        if (lireChamp(*m_ui->editDistance, L"la distance", m_distance, 1e-9, 1e9))
            chercher();
    });
    connect(m_ui->boutonVoir, &QPushButton::clicked, this, [this] { voir(); });
    connect(m_ui->liste, &QTableView::doubleClicked, this, [this] { voir(); });
    connect(m_ui->boutonGarder, &QPushButton::clicked, this, [this] { garder(positionsChoisies()); });
    connect(m_ui->boutonPremiers, &QPushButton::clicked, this, [this] {
        std::vector<int> premiers;
        for (const std::vector<int>& groupe : m_groupes)
            premiers.push_back(groupe.front());
        garder(premiers);
    });
    connect(m_ui->boutonFermer, &QPushButton::clicked, this, &QDialog::accept);
    chercher();
}

DlgSuperpositions::~DlgSuperpositions() = default;

void DlgSuperpositions::chercher()
{
    m_groupes = superpositions(m_table, m_distance);
    m_lignes.clear();
    for (std::size_t g = 0; g < m_groupes.size(); ++g)
        for (const int position : m_groupes[g])
            m_lignes.push_back({static_cast<int>(g), position});
    m_modele.montrer(m_lignes.size());
    m_ui->labelBilan->setText(QStringLiteral("%1 superposition(s)").arg(m_groupes.size()));
}

std::wstring DlgSuperpositions::texte(const ligne& l, int colonne) const
{
    const listePointsDuDessin& table = m_table;
    const pointDuDessin& p = *table.getData(l.position);
    switch (colonne) {
    case 0:
        return std::to_wstring(l.groupe + 1);
    case 1:
        return depuisAnsi(p.getNomPoint());
    case 2:
        return formaterFixe(p.getX(), 3);
    case 3:
        return formaterFixe(p.getY(), 3);
    case 4:
        return p.altitudeConnue() ? formaterFixe(p.getZ(), 3) : std::wstring();
    case 5:
        return std::to_wstring(p.getCode());
    default:
        return observationDe(p.getId());
    }
}

std::vector<int> DlgSuperpositions::positionsChoisies() const
{
    std::vector<int> positions;
    for (const QModelIndex& index : m_ui->liste->selectionModel()->selectedRows())
        positions.push_back(m_lignes[static_cast<std::size_t>(index.row())].position);
    std::sort(positions.begin(), positions.end());
    return positions;
}

void DlgSuperpositions::voir()
{
    const std::vector<int> positions = positionsChoisies();
    if (positions.empty())
        return;
    const listePointsDuDessin& table = m_table;
    const pointDuDessin& p = *table.getData(positions.front());
    montrerEtendue({p.getX(), p.getY(), p.getX(), p.getY()});
}

void DlgSuperpositions::garder(const std::vector<int>& positions)
{
    const fusionPoints fusion = fusionner(m_groupes, positions);
    if (fusion.gardes.empty())
        return avertirErreur(L"Choisissez dans la liste les points à garder.");
    const CAcadUndoGroup groupe;
    std::vector<int> partent;
    int restent = 0;
    for (const fusionPoints::garde& g : fusion.gardes) {
        if (m_ui->caseObservations->isChecked() && !reunirObservations(m_table, g.position, g.partent))
            ++restent;
        else
            partent.insert(partent.end(), g.partent.begin(), g.partent.end());
    }
    m_table.supprimerPositions(partent);
    chercher();
    if (restent > 0)
        avertirErreur(
            std::to_wstring(restent) +
            L" groupe(s) inchangé(s) : le symbole gardé ne peut pas recevoir les observations des autres (calque "
            L"verrouillé, ou symbole sans place pour une observation).");
}

void commandeSuperpositions()
{
    if (listePointsDuDessin* const table = tableCourante(); table && dialoguesPossibles())
        DlgSuperpositions(*table).exec();
}
