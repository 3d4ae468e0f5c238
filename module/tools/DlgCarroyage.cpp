#include "tools/DlgCarroyage.h"

#include <QLineEdit>

#include "services/dialogueMessage.h"
#include "services/reelDeTexte.h"
#include "services/selection.h"

#include "ui_DlgCarroyage.h"

namespace {

double longueurDe(const QLineEdit& champ)
{
    return reelDeTexte(champ.text().toStdWString());
}

} // namespace

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

parametresCarroyage DlgCarroyage::parametres() const
{
    parametresCarroyage p;
    p.pasX = longueurDe(*m_ui->editPasX);
    p.pasY = longueurDe(*m_ui->editPasY);
    p.tailleCroix = longueurDe(*m_ui->editTailleCroix);
    p.tailleTextes = longueurDe(*m_ui->editTailleTextes);
    p.decimales = m_ui->comboFormat->currentIndex();
    p.ecrituresInternes = m_ui->boutonEcritures->isChecked();
    return p;
}

void DlgCarroyage::choisirRegions()
{
    m_regions = saisirDansDessin([] { return demanderSelection(L"\nSélectionner objets", L"LWPOLYLINE"); });
    montrerRegions();
}

void DlgCarroyage::montrerRegions()
{
    m_ui->labelRegions->setText(QString("%1 régions").arg(m_regions.size()));
}

bool DlgCarroyage::valider(QLineEdit& champ, const wchar_t* nom)
{
    const std::wstring texte = champ.text().toStdWString();
    const double valeur = reelDeTexte(texte);
    const std::wstring remarque = remarqueNombre(nom, texte);
    const bool bornee = valeur >= longueurCarroyageMin && valeur <= longueurCarroyageMax;
    if (bornee && remarque.empty())
        return true;
    avertirErreur(bornee ? remarque : L"Entrez un nombre compris entre 1e-006 et 1e+036.");
    champ.setFocus();
    champ.selectAll();
    return false;
}

void DlgCarroyage::accept()
{
    if (valider(*m_ui->editPasX, L"le pas sur X") && valider(*m_ui->editPasY, L"le pas sur Y") &&
        valider(*m_ui->editTailleCroix, L"la taille des croix") &&
        valider(*m_ui->editTailleTextes, L"la taille des textes"))
        QDialog::accept();
}
