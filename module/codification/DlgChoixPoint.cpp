#include "codification/DlgChoixPoint.h"

#include "points/projetDansDessin.h"
#include "services/argumentsLisp.h"
#include "services/codages.h"
#include "services/dialogueCellules.h"
#include "services/formatNombres.h"
#include "services/listeLisp.h"

#include "aced.h"
#include "ui_DlgChoixPoint.h"

namespace {

std::wstring coordonnee(double valeur)
{
    return valeur != inconnu ? formaterFixe(valeur, 3) : std::wstring();
}

void ecrireLigne(QTableWidget& liste, int ligne, const pointDuDessin& point)
{
    CString altitude;
    point.getZAsString(altitude);
    auto* const nom = new celluleTexte(depuisAnsi(point.getNomPoint()));
    nom->setData(Qt::UserRole, ligne);
    liste.setItem(ligne, 0, nom);
    int colonne = 1;
    for (const std::wstring& texte : {coordonnee(point.getX()), coordonnee(point.getY()),
                                      std::wstring(altitude.GetString()), std::to_wstring(point.getCode())})
        liste.setItem(ligne, colonne++, new celluleNombre(texte));
}

} // namespace

DlgChoixPoint::DlgChoixPoint(const listePointsDuDessin& table) : m_ui(std::make_unique<Ui::DlgChoixPoint>())
{
    m_ui->setupUi(this);
    preparerListe(*m_ui->liste, {"Numéro", "X", "Y", "Z", "Code"});
    m_ui->liste->setRowCount(table.nbPoint());
    for (int i = 0; i < table.nbPoint(); ++i)
        ecrireLigne(*m_ui->liste, i, *table.getData(i));
    choisirDansListe(*this, *m_ui->liste, *m_ui->editChercher, *m_ui->boutonOk);
    connect(m_ui->boutonCancel, &QPushButton::clicked, this, &QDialog::reject);
}

DlgChoixPoint::~DlgChoixPoint() = default;

std::optional<int> DlgChoixPoint::position() const
{
    const int ligne = ligneChoisie(*m_ui->liste);
    return ligne < 0 ? std::nullopt : std::optional(m_ui->liste->item(ligne, 0)->data(Qt::UserRole).toInt());
}

int lispChoixpoint()
{
    if (!argumentsLisp().fini())
        return refuserParametres();
    const listePointsDuDessin* const table = tableCourante();
    if (!table || table->nbPoint() == 0 || !dialoguesPossibles())
        return rendreNil();
    DlgChoixPoint dialogue(*table);
    const auto position = dialogue.exec() == QDialog::Accepted ? dialogue.position() : std::nullopt;
    return position ? acedRetStr(depuisAnsi(table->getData(*position)->getNomPoint()).c_str()) : rendreNil();
}
