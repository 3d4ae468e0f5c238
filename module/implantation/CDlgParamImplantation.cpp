#include "implantation/CDlgParamImplantation.h"

#include <QLocale>

#include "codification/regleCode.h"
#include "services/dialogueMessage.h"
#include "services/entierDeTexte.h"
#include "services/grandeur.h"
#include "services/reelDeTexte.h"

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
    lus.code = entierDeTexte(m_ui->editCode->text().toStdWString().c_str());
    lus.noms = {m_ui->editPrefixe->text().toStdWString(),
                entierDeTexte(m_ui->editNumero->text().toStdWString().c_str()),
                m_ui->editSuffixe->text().toStdWString()};
    lus.prefixeSuivant = m_ui->caseIncrementer->isChecked();
    lus.choix = {m_ui->radioErreur->isChecked(), reelDeTexte(m_ui->editValeur->text().toStdWString())};
    if (!codeValable(lus.code)) {
        avertirErreur(messageCodeIncorrect);
        return m_ui->editCode->setFocus();
    }
    if (!(lus.choix.valeur > 0.0) || !estConnue(lus.choix.valeur)) {
        avertirErreur(L"Tapez une distance ou une erreur plus grande que 0");
        return m_ui->editValeur->setFocus();
    }
    m_parametres = lus;
    QDialog::accept();
}
