#include "codification/DlgChoixCode.h"

#include "codification/codificationDuModule.h"
#include "services/argumentsLisp.h"
#include "services/dialogueCellules.h"
#include "services/listeLisp.h"

#include "aced.h"
#include "ui_DlgChoixCode.h"

DlgChoixCode::DlgChoixCode(const tableCodification& table) : m_ui(std::make_unique<Ui::DlgChoixCode>())
{
    m_ui->setupUi(this);
    QTableWidget& liste = *m_ui->liste;
    preparerListe(liste, {"Code", "Libéllé"});
    liste.setRowCount(table.nombre());
    for (int i = 0; i < table.nombre(); ++i) {
        liste.setItem(i, 0, new elementNombre(std::to_wstring(table[i].code)));
        liste.setItem(i, 1, new elementTexte(table[i].libelle));
    }
    choisirDansListe(*this, liste, *m_ui->editChercher, *m_ui->boutonOk);
    connect(m_ui->boutonCancel, &QPushButton::clicked, this, &QDialog::reject);
}

DlgChoixCode::~DlgChoixCode() = default;

std::optional<int> DlgChoixCode::code() const
{
    const int ligne = ligneChoisie(*m_ui->liste);
    return ligne < 0 ? std::nullopt : std::optional(m_ui->liste->item(ligne, 0)->text().toInt());
}

int lispSelectionnerCode()
{
    if (!argumentsLisp().fini())
        return refuserParametres();
    if (!dialoguesPossibles())
        return rendreNil();
    DlgChoixCode dialogue(codificationDuModule());
    const auto code = dialogue.exec() == QDialog::Accepted ? dialogue.code() : std::nullopt;
    return code ? acedRetInt(*code) : rendreNil();
}
