#include "implantation/CDlgRepartition.h"

#include "services/dialogueChamps.h"
#include "services/dialogueMessage.h"

#include "ui_CDlgRepartition.h"

CDlgRepartition::CDlgRepartition() : m_ui(std::make_unique<Ui::CDlgRepartition>())
{
    m_ui->setupUi(this);
    m_ui->editPortee->setPlaceholderText(QStringLiteral("sans limite"));
    connect(m_ui->boutonOk, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->boutonAnnuler, &QPushButton::clicked, this, &QDialog::reject);
}

CDlgRepartition::~CDlgRepartition() = default;

void CDlgRepartition::accept()
{
    double portee = inconnu;
    if (!m_ui->editPortee->text().trimmed().isEmpty() && !lireChamp(*m_ui->editPortee, L"la portée", portee))
        return;
    if (!(portee > 0.0)) {
        avertirErreur(L"Tapez une portée plus grande que 0, ou rien");
        return m_ui->editPortee->setFocus();
    }
    m_choix = {portee, m_ui->caseEquilibrer->isChecked()};
    QDialog::accept();
}
