#include "codification/DlgInfosBlock.h"

#include <optional>

#include "codification/blocsDuDessin.h"
#include "codification/descriptionBloc.h"
#include "services/CAcadUndoGroup.h"
#include "services/dialogueCellules.h"
#include "services/dialogueMessage.h"
#include "services/formatNombres.h"
#include "services/selection.h"

#include "acutmem.h"
#include "dbents.h"
#include "dbmtext.h"
#include "ui_DlgInfosBlock.h"

namespace {

AcDbObjectId blocDesigne()
{
    const AcDbObjectPointer<AcDbBlockReference> reference(designerEntite(L"\nSelectionnez un block"));
    return reference.openStatus() == Acad::eOk ? reference->blockTableRecord() : AcDbObjectId();
}

std::optional<std::wstring> commentaireDesigne()
{
    const AcDbObjectPointer<AcDbEntity> entite(designerEntite(L"\nCommentaire:"));
    if (entite.openStatus() != Acad::eOk)
        return std::nullopt;
    if (const auto* const ligne = AcDbText::cast(entite.object()))
        return ligne->textStringConst();
    const auto* const lignes = AcDbMText::cast(entite.object());
    if (!lignes)
        return std::nullopt;
    ACHAR* contenu = lignes->contents();
    const std::wstring texte(contenu);
    acutDelString(contenu);
    return texte;
}

QString taille(double valeur)
{
    return texteQt(formaterFixe(valeur, 2));
}

} // namespace

DlgInfosBlock::DlgInfosBlock() : m_ui(std::make_unique<Ui::DlgInfosBlock>())
{
    m_ui->setupUi(this);
    connect(m_ui->boutonChoisir, &QPushButton::clicked, this, [this] { choisir(); });
    connect(m_ui->boutonModifier, &QPushButton::clicked, this, [this] { modifier(); });
    connect(m_ui->boutonFermer, &QPushButton::clicked, this, &QDialog::accept);
    montrer();
}

DlgInfosBlock::~DlgInfosBlock() = default;

void DlgInfosBlock::choisir()
{
    const AcDbObjectId bloc = saisirDansDessin(blocDesigne);
    if (bloc.isNull())
        return;
    m_bloc = bloc;
    montrer();
}

void DlgInfosBlock::modifier()
{
    const auto texte = saisirDansDessin(commentaireDesigne);
    if (!texte)
        return;
    const CAcadUndoGroup groupe;
    if (!ecrireDescription(m_bloc, *texte))
        avertirErreur(L"La description n'a pas pu être écrite dans le dessin.");
    montrer();
}

void DlgInfosBlock::montrer()
{
    const blocDuDessin bloc = m_bloc.isNull() ? blocDuDessin() : blocDe(m_bloc);
    m_ui->labelBlock->setText(texteQt(L"Block " + bloc.nom));
    m_ui->editNom->setText(texteQt(bloc.nom));
    m_ui->editTailleX->setText(m_bloc.isNull() ? QString() : taille(bloc.tailleX()));
    m_ui->editTailleY->setText(m_bloc.isNull() ? QString() : taille(bloc.tailleY()));
    m_ui->comboDescription->clear();
    const descriptionsBloc descriptions = lireDescriptions(m_bloc);
    m_ui->comboDescription->addItem(texteQt(descriptions.bloc));
    if (!descriptions.entite.empty() && descriptions.entite != descriptions.bloc)
        m_ui->comboDescription->addItem(texteQt(descriptions.entite));
    m_ui->boutonModifier->setEnabled(!m_bloc.isNull());
}
