#include "implantation/CDlgNumerotation.h"

#include "services/dialogueChamps.h"
#include "services/entierDeTexte.h"

#include "ui_CDlgNumerotation.h"

CDlgNumerotation::CDlgNumerotation(const numerotationImplantation& laNumerotation) :
    m_ui(std::make_unique<Ui::CDlgNumerotation>())
{
    m_ui->setupUi(this);
    m_ui->editPrefixe->setText(QString::fromStdWString(laNumerotation.prefixe));
    m_ui->editNumero->setText(QString::number(laNumerotation.numero));
    m_ui->editSuffixe->setText(QString::fromStdWString(laNumerotation.suffixe));
    surveillerNombre(*m_ui->editNumero, L"le num\u00e9ro");
    montrerExemple();
    for (QLineEdit* const champ : {m_ui->editPrefixe, m_ui->editNumero, m_ui->editSuffixe})
        connect(champ, &QLineEdit::textChanged, this, &CDlgNumerotation::montrerExemple);
    connect(m_ui->boutonOk, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->boutonAnnuler, &QPushButton::clicked, this, &QDialog::reject);
}

CDlgNumerotation::~CDlgNumerotation() = default;

numerotationImplantation CDlgNumerotation::numerotation() const
{
    return {m_ui->editPrefixe->text().toStdWString(), entierDeTexte(m_ui->editNumero->text().toStdWString().c_str()),
            m_ui->editSuffixe->text().toStdWString()};
}

void CDlgNumerotation::accept()
{
    int numero = 0;
    if (lireEntier(*m_ui->editNumero, L"le num\u00e9ro", numero, 0, numerotationImplantation::plusGrandNumero))
        QDialog::accept();
}

void CDlgNumerotation::montrerExemple()
{
    m_ui->labelExemple->setText(QString::fromStdWString(numerotation().nom()));
}
