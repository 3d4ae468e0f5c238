#include "exchange/DlgParamsTable.h"

#include <QCheckBox>
#include <QSpinBox>

#include "services/dialogueChamps.h"
#include "services/dialogueMessage.h"
#include "services/reelDeTexte.h"

#include "ui_DlgParamsTable.h"

namespace {

paramsTable toutCoche()
{
    paramsTable params;
    params.code = params.libelle = params.separerColonnes = params.separerLignes = true;
    return params;
}

} // namespace

DlgParamsTable::DlgParamsTable(const paramsTable& params) : m_ui(std::make_unique<Ui::DlgParamsTable>())
{
    m_ui->setupUi(this);
    m_ui->editTaille->setText(QString::number(params.tailleTextes, 'g', 15));
    m_ui->editLignes->setValue(params.lignesParColonne);
    m_ui->cocheGrouper->setChecked(params.grouper);
    afficherColonnes(params);
    afficherEncadrement(params);
    connect(m_ui->boutonToutColonnes, &QPushButton::clicked, this, [this] { afficherColonnes(toutCoche()); });
    connect(m_ui->boutonStdColonnes, &QPushButton::clicked, this, [this] { afficherColonnes({}); });
    connect(m_ui->boutonToutEncadrement, &QPushButton::clicked, this, [this] { afficherEncadrement(toutCoche()); });
    connect(m_ui->boutonStdEncadrement, &QPushButton::clicked, this, [this] { afficherEncadrement({}); });
    connect(m_ui->boutonOk, &QPushButton::clicked, this, [this] { valider(); });
    connect(m_ui->boutonCancel, &QPushButton::clicked, this, &QDialog::reject);
}

DlgParamsTable::~DlgParamsTable() = default;

void DlgParamsTable::afficherColonnes(const paramsTable& params)
{
    m_ui->cocheNumeros->setChecked(params.numeros);
    m_ui->cocheX->setChecked(params.x);
    m_ui->cocheY->setChecked(params.y);
    m_ui->cocheZ->setChecked(params.z);
    m_ui->cocheCode->setChecked(params.code);
    m_ui->cocheLibelle->setChecked(params.libelle);
}

void DlgParamsTable::afficherEncadrement(const paramsTable& params)
{
    m_ui->cocheEncadrer->setChecked(params.encadrer);
    m_ui->cocheEnTete->setChecked(params.separerEnTete);
    m_ui->cocheSepColonnes->setChecked(params.separerColonnes);
    m_ui->cocheSepLignes->setChecked(params.separerLignes);
}

paramsTable DlgParamsTable::params() const
{
    paramsTable params;
    params.tailleTextes = reelDeTexte(m_ui->editTaille->text().toStdWString());
    params.lignesParColonne = m_ui->editLignes->value();
    params.numeros = m_ui->cocheNumeros->isChecked();
    params.x = m_ui->cocheX->isChecked();
    params.y = m_ui->cocheY->isChecked();
    params.z = m_ui->cocheZ->isChecked();
    params.code = m_ui->cocheCode->isChecked();
    params.libelle = m_ui->cocheLibelle->isChecked();
    params.encadrer = m_ui->cocheEncadrer->isChecked();
    params.separerEnTete = m_ui->cocheEnTete->isChecked();
    params.separerColonnes = m_ui->cocheSepColonnes->isChecked();
    params.separerLignes = m_ui->cocheSepLignes->isChecked();
    params.grouper = m_ui->cocheGrouper->isChecked();
    return params;
}

void DlgParamsTable::valider()
{
    const paramsTable p = params();
    if (double taille = 0.0; !lireChamp(*m_ui->editTaille, L"la taille des textes", taille))
        return;
    if (p.tailleTextes <= 0.0) {
        avertirErreur(L"La taille des textes doit être un nombre plus grand que 0");
        m_ui->editTaille->setFocus();
        return;
    }
    if (!p.numeros && !p.x && !p.y && !p.z && !p.code && !p.libelle)
        return avertirErreur(L"Cochez au moins une colonne");
    accept();
}
