#include "tools/DlgCarroyage.h"

#include "services/dialogueChamps.h"
#include "services/selection.h"

#include "ui_DlgCarroyage.h"

DlgCarroyage::DlgCarroyage(std::vector<AcDbObjectId> lesRegions) :
    m_ui(std::make_unique<Ui::DlgCarroyage>()),
    m_regions(std::move(lesRegions))
{
    m_ui->setupUi(this);
    connect(m_ui->boutonEcritures, &QPushButton::toggled, this, [this](bool internes) {
        m_ui->boutonEcritures->setText(internes ? "Ecritures internes" : "Ecritures externes");
    });
    connect(m_ui->boutonRegions, &QPushButton::clicked, this, [this] { choisirRegions(); });
    connect(m_ui->boutonOk, &QPushButton::clicked, this, &DlgCarroyage::accept);
    connect(m_ui->boutonAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    montrerRegions();
}

DlgCarroyage::~DlgCarroyage() = default;

void DlgCarroyage::choisirRegions()
{
    saisirDansDessin([this] { return redemanderSelection(L"\nSélectionner objets", L"LWPOLYLINE", m_regions); });
    montrerRegions();
}

void DlgCarroyage::montrerRegions()
{
    m_ui->labelRegions->setText(QString("%1 régions").arg(m_regions.size()));
}

void DlgCarroyage::accept()
{
    constexpr double min = longueurCarroyageMin, max = longueurCarroyageMax;
    parametresCarroyage p;
    if (!lireChamp(*m_ui->editPasX, L"le pas sur X", p.pasX, min, max) ||
        !lireChamp(*m_ui->editPasY, L"le pas sur Y", p.pasY, min, max) ||
        !lireChamp(*m_ui->editTailleCroix, L"la taille des croix", p.tailleCroix, min, max) ||
        !lireChamp(*m_ui->editTailleTextes, L"la taille des textes", p.tailleTextes, min, max))
        return;
    p.decimales = m_ui->comboFormat->currentIndex();
    p.ecrituresInternes = m_ui->boutonEcritures->isChecked();
    m_parametres = p;
    QDialog::accept();
}
