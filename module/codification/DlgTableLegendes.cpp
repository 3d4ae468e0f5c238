#include "codification/DlgTableLegendes.h"

#include <QHeaderView>
#include <QItemSelection>

#include "services/dialogueCellules.h"
#include "services/dialogueChamps.h"
#include "services/formatNombres.h"

#include "ui_DlgTableLegendes.h"

namespace {

QString texteDe(double longueur)
{
    return QString::number(longueur, 'g', 15);
}

elementNombre* celluleTaille(double valeur)
{
    return new elementNombre(formaterFixe(valeur, 2));
}

} // namespace

DlgTableLegendes::DlgTableLegendes(std::vector<blocDuDessin> lesBlocs, const parametresLegende& parametresDepart) :
    m_ui(std::make_unique<Ui::DlgTableLegendes>()),
    m_blocs(std::move(lesBlocs))
{
    m_ui->setupUi(this);
    m_ui->editTailleTextes->setText(texteDe(parametresDepart.tailleTextes));
    m_ui->editTailleBlocs->setText(texteDe(parametresDepart.tailleBlocs));
    m_ui->editDistance->setText(texteDe(parametresDepart.distanceLignes));
    m_ui->editTrait->setText(texteDe(parametresDepart.longueurTrait));
    m_ui->caseCalques->setChecked(parametresDepart.calques);
    m_ui->caseGrouper->setChecked(parametresDepart.grouper);
    remplir();
    connect(m_ui->boutonTous, &QPushButton::clicked, this, [this] { selectionner([](int) { return true; }); });
    connect(m_ui->boutonUtilises, &QPushButton::clicked, this,
            [this] { selectionner([this](int ligne) { return blocDeLigne(ligne).occurrences > 0; }); });
    connect(m_ui->boutonInverser, &QPushButton::clicked, this, [this] {
        selectionner([this](int ligne) { return !m_ui->liste->selectionModel()->isRowSelected(ligne, {}); });
    });
    connect(m_ui->boutonAucun, &QPushButton::clicked, this, [this] { selectionner([](int) { return false; }); });
    connect(m_ui->boutonOk, &QPushButton::clicked, this, &DlgTableLegendes::accept);
    connect(m_ui->boutonCancel, &QPushButton::clicked, this, &QDialog::reject);
}

DlgTableLegendes::~DlgTableLegendes() = default;

void DlgTableLegendes::remplir()
{
    QTableWidget& liste = *m_ui->liste;
    preparerListe(liste, {"Block", "Description", "Occur", "Taille X", "Taille Y"});
    liste.horizontalHeader()->setStretchLastSection(false);
    liste.horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch); // descriptions are long
    liste.setSelectionMode(QAbstractItemView::ExtendedSelection);
    liste.setRowCount(static_cast<int>(m_blocs.size()));
    for (int i = 0; i < liste.rowCount(); ++i) {
        const blocDuDessin& bloc = m_blocs[static_cast<std::size_t>(i)];
        auto* const nom = new elementTexte(bloc.nom);
        nom->setData(Qt::UserRole, i);
        liste.setItem(i, 0, nom);
        liste.setItem(i, 1, new elementTexte(bloc.description));
        liste.setItem(i, 2, new elementNombre(std::to_wstring(bloc.occurrences)));
        liste.setItem(i, 3, celluleTaille(bloc.tailleX()));
        liste.setItem(i, 4, celluleTaille(bloc.tailleY()));
    }
    liste.resizeColumnsToContents();
}

const blocDuDessin& DlgTableLegendes::blocDeLigne(int ligne) const
{
    return m_blocs[m_ui->liste->item(ligne, 0)->data(Qt::UserRole).toUInt()];
}

template <typename Choisir>
void DlgTableLegendes::selectionner(Choisir&& choisir)
{
    QItemSelection selection;
    const QAbstractItemModel& modele = *m_ui->liste->model();
    for (int ligne = 0; ligne < modele.rowCount(); ++ligne)
        if (choisir(ligne))
            selection.select(modele.index(ligne, 0), modele.index(ligne, modele.columnCount() - 1));
    m_ui->liste->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

std::vector<blocDuDessin> DlgTableLegendes::choisis() const
{
    std::vector<blocDuDessin> blocs;
    for (int ligne = 0; ligne < m_ui->liste->rowCount(); ++ligne)
        if (m_ui->liste->selectionModel()->isRowSelected(ligne, {}))
            blocs.push_back(blocDeLigne(ligne));
    return blocs;
}

void DlgTableLegendes::accept()
{
    constexpr double min = 1e-6, max = 1e6;
    parametresLegende p;
    if (!lireChamp(*m_ui->editTailleTextes, L"la taille des textes", p.tailleTextes, min, max) ||
        !lireChamp(*m_ui->editTailleBlocs, L"la taille des blocs", p.tailleBlocs, min, max) ||
        !lireChamp(*m_ui->editDistance, L"la distance entre lignes", p.distanceLignes, 0.0, max) ||
        !lireChamp(*m_ui->editTrait, L"la longueur du trait", p.longueurTrait, 0.0, max))
        return;
    p.calques = m_ui->caseCalques->isChecked();
    p.grouper = m_ui->caseGrouper->isChecked();
    m_parametres = p;
    QDialog::accept();
}
