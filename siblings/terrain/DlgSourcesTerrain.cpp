#include "DlgSourcesTerrain.h"

#include <algorithm>

#include "points/projetDansDessin.h"
#include "services/dialogueCellules.h"
#include "services/dialogueChamps.h"
#include "services/dialogueMessage.h"
#include "services/lettres.h"
#include "services/selection.h"

#include "rangementModeles.h"
#include "ui_DlgSourcesTerrain.h"

namespace {

constexpr wchar_t nomAretes[] = L"la longueur des ar\u00eates";

} // namespace

DlgSourcesTerrain::DlgSourcesTerrain(const std::wstring& nomPropose, std::vector<std::wstring> pris) :
    m_pris(std::move(pris)),
    m_ui(std::make_unique<Ui::DlgSourcesTerrain>())
{
    m_ui->setupUi(this);
    m_ui->nom->setText(QString::fromStdWString(nomPropose));
    m_ui->areteMax->setText("0");
    for (int t = 0; tablesPoints && t < tablesPoints->nbTables(); ++t) {
        auto* const ligne =
            new QListWidgetItem(texteQt(tablesPoints->getTable(t)->getNomTable().GetString()), m_ui->tables);
        ligne->setFlags(ligne->flags() | Qt::ItemIsUserCheckable);
        ligne->setCheckState(Qt::Unchecked);
    }
    const auto designation = [this](const QPushButton* bouton, QLabel* compte, std::vector<AcDbObjectId>& ids,
                                    const wchar_t* message) {
        compte->setText("aucun");
        connect(bouton, &QPushButton::clicked, this,
                [this, compte, &ids, message] { designer(ids, *compte, message); });
    };
    designation(m_ui->boutonObjets, m_ui->objets, m_choisis.objets, L"\nPoints, textes et lignes de rupture :");
    designation(m_ui->boutonLimites, m_ui->limites, m_choisis.limites,
                L"\nLignes ferm\u00e9es o\u00f9 le mod\u00e8le s'arr\u00eate :");
    designation(m_ui->boutonTrous, m_ui->trous, m_choisis.trous, L"\nLignes ferm\u00e9es des trous :");
    surveillerNombre(*m_ui->areteMax, nomAretes);
    connect(m_ui->boutonOk, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->boutonAnnuler, &QPushButton::clicked, this, &QDialog::reject);
}

DlgSourcesTerrain::~DlgSourcesTerrain() = default;

void DlgSourcesTerrain::designer(std::vector<AcDbObjectId>& ids, QLabel& compte, const wchar_t* message)
{
    ids = saisirDansDessin([message] { return demanderSelection(message, L"*"); });
    compte.setText(ids.empty() ? QString("aucun") : QString::number(ids.size()));
}

std::wstring DlgSourcesTerrain::nom() const
{
    return m_ui->nom->text().trimmed().toStdWString();
}

sourcesTerrain DlgSourcesTerrain::sources() const
{
    sourcesTerrain sources = m_choisis;
    // What bounds the model is no break line of it, though it was selected with the rest.
    std::erase_if(sources.objets, [this](const AcDbObjectId& id) {
        const auto parmi = [&id](const auto& ids) { return std::find(ids.begin(), ids.end(), id) != ids.end(); };
        return parmi(m_choisis.limites) || parmi(m_choisis.trous);
    });
    for (int i = 0; i < m_ui->tables->count(); ++i)
        if (m_ui->tables->item(i)->checkState() == Qt::Checked)
            sources.tables.push_back(m_ui->tables->item(i)->text().toStdWString());
    return sources;
}

void DlgSourcesTerrain::accept()
{
    if (!nomDeModele(nom())) {
        avertirErreur(L"Ce nom ne convient pas : " + nom());
        return m_ui->nom->setFocus();
    }
    if (std::ranges::any_of(m_pris,
                            [this](const std::wstring& pris) {
                                return memesLettres(std::wstring_view(pris), std::wstring_view(nom()));
                            }) &&
        !demanderOuiNon(L"Mod\u00e8les de terrain",
                        L"Le mod\u00e8le " + nom() + L" existe d\u00e9j\u00e0. Le remplacer ?"))
        return m_ui->nom->setFocus();
    if (lireChamp(*m_ui->areteMax, nomAretes, m_choisis.areteMax, 0.0))
        dialogueModule::accept();
}
