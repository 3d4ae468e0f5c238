#include "codification/DlgTableCodification.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "codification/codificationDuModule.h"
#include "codification/DlgCodification.h"
#include "services/dialogueCellules.h"
#include "services/dialogueMessage.h"
#include "services/verrouDocument.h"

#include "ui_DlgTableCodification.h"

namespace {

/// Where the cell of the number keeps the code's place in the table.
constexpr int roleIndex = Qt::UserRole;

void ecrireLigne(QTableWidget& liste, int ligne, const codifPoint& code, int index)
{
    auto* const numero = new elementNombre(std::to_wstring(code.code));
    numero->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    numero->setData(roleIndex, index);
    int colonne = 0;
    for (QTableWidgetItem* const cellule :
         {static_cast<QTableWidgetItem*>(numero), static_cast<QTableWidgetItem*>(new elementTexte(code.libelle)),
          static_cast<QTableWidgetItem*>(new elementNombre(std::to_wstring(code.precisionAltitudes))),
          static_cast<QTableWidgetItem*>(new elementTexte(code.chemin))})
        liste.setItem(ligne, colonne++, cellule);
}

int indexDeLigne(const QTableWidget& liste, int ligne)
{
    return liste.item(ligne, 0)->data(roleIndex).toInt();
}

/// Intended: rows go by their code, so that of several rows of one code the first goes, whichever was chosen.
/// @return a line for each row that went and was not chosen.
std::wstring supprimerCodes(tableCodification& table, const std::vector<int>& choisis)
{
    std::vector<int> numeros, restants(static_cast<std::size_t>(table.nombre()));
    for (const int index : choisis)
        numeros.push_back(table[index].code);
    std::iota(restants.begin(), restants.end(), 0);
    std::wstring autres;
    for (const int numero : numeros) {
        const int index = table.indexCode(numero);
        if (std::ranges::find(choisis, restants[static_cast<std::size_t>(index)]) == choisis.end())
            autres += L"\n" + std::to_wstring(numero) + L" : " + table[index].libelle;
        restants.erase(restants.begin() + index);
        table.supprimer(index);
    }
    return autres;
}

} // namespace

DlgTableCodification::DlgTableCodification(tableCodification& laTable) :
    m_ui(std::make_unique<Ui::DlgTableCodification>()),
    m_table(laTable)
{
    m_ui->setupUi(this);
    preparerListe(*m_ui->liste, {"Code", "Libéllé", "PreciZ", "Chemin"});
    afficher();
    connect(m_ui->liste, &QTableWidget::cellDoubleClicked, this, [this](int ligne) { ouvrir(ligne); });
    connect(m_ui->boutonNouveau, &QPushButton::clicked, this, [this] { nouveau(); });
    connect(m_ui->boutonSupprimer, &QPushButton::clicked, this, [this] { supprimer(); });
    connect(m_ui->boutonFermer, &QPushButton::clicked, this, &QDialog::accept);
}

DlgTableCodification::~DlgTableCodification() = default;

void DlgTableCodification::afficher()
{
    m_ui->liste->setRowCount(m_table.nombre());
    for (int i = 0; i < m_table.nombre(); ++i)
        ecrireLigne(*m_ui->liste, i, m_table[i], i);
    trierDeNouveau(*m_ui->liste);
}

void DlgTableCodification::ouvrir(int ligne)
{
    const int index = indexDeLigne(*m_ui->liste, ligne);
    m_table.modifierCode(index);
    ecrireLigne(*m_ui->liste, ligne, m_table[index], index);
    m_ui->liste->resizeColumnsToContents();
}

void DlgTableCodification::nouveau()
{
    DlgCodification dialogue(codifPoint(), m_table, DlgCodification::mode::creation);
    if (dialogue.exec() != QDialog::Accepted)
        return;
    m_table.ajouter(dialogue.code());
    const int ligne = m_ui->liste->rowCount();
    m_ui->liste->insertRow(ligne);
    ecrireLigne(*m_ui->liste, ligne, m_table[ligne], ligne);
    m_ui->liste->resizeColumnsToContents();
    m_ui->liste->selectRow(ligne);
}

void DlgTableCodification::supprimer()
{
    std::vector<int> choisis;
    for (const QModelIndex& ligne : m_ui->liste->selectionModel()->selectedRows())
        choisis.push_back(indexDeLigne(*m_ui->liste, ligne.row()));
    if (choisis.empty() || !confirmerSuppression(L"Confirmez la suppression\ndes éléments sélectionnés"))
        return;
    const std::wstring autres = supprimerCodes(m_table, choisis);
    afficher();
    if (!autres.empty())
        afficherMessage(L"Suppression", L"Plusieurs lignes ont le même code : la première a été supprimée" + autres);
}

void commandeCodification()
{
    if (!dialoguesPossibles())
        return;
    const verrouDocument verrou;
    tableCodification& table = codificationDuModule();
    DlgTableCodification(table).exec();
    table.sauver();
}
