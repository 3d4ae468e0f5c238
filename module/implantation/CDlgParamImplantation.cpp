#include "implantation/CDlgParamImplantation.h"

#include <QLocale>

#include "codification/regleCode.h"
#include "services/dialogueChamps.h"
#include "services/dialogueMessage.h"

#include "ui_CDlgParamImplantation.h"

CDlgParamImplantation::CDlgParamImplantation(const parametresAxe& lesParametres) :
    m_ui(std::make_unique<Ui::CDlgParamImplantation>()),
    m_parametres(lesParametres)
{
    m_ui->setupUi(this);
    m_ui->editCode->setText(QString::number(m_parametres.code));
    m_ui->editNumero->setText(QString::number(m_parametres.noms.numero));
    m_ui->editPrefixe->setText(QString::fromStdWString(m_parametres.noms.prefixe));
    m_ui->editSuffixe->setText(QString::fromStdWString(m_parametres.noms.suffixe));
    m_ui->caseIncrementer->setChecked(m_parametres.prefixeSuivant);
    m_ui->radioPas->setChecked(!m_parametres.choix.suivantErreur);
    m_ui->radioErreur->setChecked(m_parametres.choix.suivantErreur);
    m_ui->editValeur->setText(QString::number(m_parametres.choix.valeur, 'g', QLocale::FloatingPointShortest));
    connect(m_ui->boutonOk, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->boutonAnnuler, &QPushButton::clicked, this, &QDialog::reject);
}

CDlgParamImplantation::~CDlgParamImplantation() = default;

void CDlgParamImplantation::accept()
{
    parametresAxe lus;
    lus.noms.prefixe = m_ui->editPrefixe->text().toStdWString();
    lus.noms.suffixe = m_ui->editSuffixe->text().toStdWString();
    lus.prefixeSuivant = m_ui->caseIncrementer->isChecked();
    lus.choix.suivantErreur = m_ui->radioErreur->isChecked();
    if (!lireEntier(*m_ui->editCode, L"le code", lus.code))
        return;
    if (!codeValable(lus.code)) {
        avertirErreur(messageCodeIncorrect);
        return m_ui->editCode->setFocus();
    }
    if (!lireEntier(*m_ui->editNumero, L"le num\u00e9ro de d\u00e9part", lus.noms.numero, 0,
                    numerotationImplantation::plusGrandNumero) ||
        !lireChamp(*m_ui->editValeur, L"la distance ou l'erreur", lus.choix.valeur))
        return;
    if (!(lus.choix.valeur > 0.0)) {
        avertirErreur(L"Tapez une distance ou une erreur plus grande que 0");
        return m_ui->editValeur->setFocus();
    }
    m_parametres = lus;
    QDialog::accept();
}
