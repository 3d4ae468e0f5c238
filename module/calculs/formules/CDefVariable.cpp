#include "calculs/formules/CDefVariable.h"

#include "services/codages.h"
#include "services/dialogueChamps.h"
#include "services/reelDeTexte.h"

#include "ui_CDefVariable.h"

CDefVariable::CDefVariable(tableVariables& table, int indice) :
    m_table(table),
    m_indice(indice),
    m_ui(std::make_unique<Ui::CDefVariable>())
{
    m_ui->setupUi(this);
    surveillerNombre(*m_ui->editValeur, L"la valeur");
    connect(m_ui->boutonOk, &QPushButton::clicked, this, &CDefVariable::valider);
    connect(m_ui->boutonAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    if (m_indice < 0)
        return;
    const variableFormule& v = m_table.variables()[static_cast<std::size_t>(m_indice)];
    m_ui->editNom->setText(QString::fromStdWString(depuisAnsi(v.nom)));
    m_ui->editValeur->setText(QString::number(v.valeur, 'g', QLocale::FloatingPointShortest));
    m_ui->editCommentaire->setText(QString::fromStdWString(depuisAnsi(v.commentaire)));
}

CDefVariable::~CDefVariable() = default;

/// A name that a new variable cannot have is no reason for a message: the dialog stays.
void CDefVariable::valider()
{
    variableFormule v;
    v.nom = nomDeVariable(versAnsi(m_ui->editNom->text().toStdWString()));
    v.valeur = reelDeTexte(m_ui->editValeur->text().toStdWString());
    v.commentaire = versAnsi(m_ui->editCommentaire->text().toStdWString());
    if (m_indice >= 0)
        m_table.remplacer(m_indice, std::move(v));
    else if (nomDeVariableLibre(m_table, v.nom))
        m_table.definir(std::move(v));
    else
        return;
    accept();
}
