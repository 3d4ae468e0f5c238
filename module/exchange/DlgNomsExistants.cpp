#include "exchange/DlgNomsExistants.h"

#include "services/dialogueModule.h"

#include "ui_DlgNomsExistants.h"

std::optional<nomsExistants> demanderNomsExistants(int nombre)
{
    dialogueModule dialogue;
    Ui::DlgNomsExistants ui;
    ui.setupUi(&dialogue);
    ui.labelQuestion->setText(
        QStringLiteral("%1 point(s) du fichier portent un nom qui existe déjà dans la table.").arg(nombre));
    QObject::connect(ui.boutonOk, &QPushButton::clicked, &dialogue, &QDialog::accept);
    QObject::connect(ui.boutonCancel, &QPushButton::clicked, &dialogue, &QDialog::reject);
    if (dialogue.exec() != QDialog::Accepted)
        return std::nullopt;
    if (ui.radioRenumeroter->isChecked())
        return nomsExistants::renumeroter;
    if (ui.radioRemplacer->isChecked())
        return nomsExistants::remplacer;
    return ui.radioLaisser->isChecked() ? nomsExistants::laisser : nomsExistants::ajouter;
}
