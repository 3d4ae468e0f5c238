#include "codification/DlgCodification.h"

#include <algorithm>
#include <array>
#include <QLineEdit>
#include <QSpinBox>

#include "codification/apparenceSymbole.h"
#include "codification/dialogueImageBloc.h"
#include "codification/regleCode.h"
#include "services/dialogueCellules.h"
#include "services/dialogueChamps.h"
#include "services/dialogueFichier.h"
#include "services/dialogueMessage.h"
#include "services/entierDeTexte.h"
#include "services/reelDeTexte.h"

#include "ui_DlgCodification.h"

namespace {

/// The fields of a layer slot.
struct champsCalque {
    emplacementCalque emplacement;
    QLineEdit* nom;
    QSpinBox* couleur;
};

std::array<champsCalque, nombreCalques> champsCalques(const Ui::DlgCodification& ui)
{
    return {{{calqueBlock, ui.editLayerBlock, ui.couleurLayerBlock},
             {calqueNumero, ui.editLayerNumeros, ui.couleurLayerNumeros},
             {calqueAltitudes, ui.editLayerAltitudes, ui.couleurLayerAltitudes},
             {calqueObs, ui.editLayerObs, ui.couleurLayerObs},
             {calqueCode, ui.editLayerCode, ui.couleurLayerCode}}};
}

/// A value out of the control's range, which older files may hold, stays until the user changes it.
void prendre(int& valeur, const QSpinBox& champ)
{
    if (champ.value() != std::clamp(valeur, champ.minimum(), champ.maximum()))
        valeur = champ.value();
}

} // namespace

DlgCodification::DlgCodification(const codifPoint& leCode, const tableCodification& laTable, mode leMode) :
    m_ui(std::make_unique<Ui::DlgCodification>()),
    m_code(leCode),
    m_table(laTable),
    m_mode(leMode)
{
    m_ui->setupUi(this);
    afficher();
    if (m_mode == mode::edition) {
        m_ui->editCode->setReadOnly(true);
        m_ui->editLibelle->setFocus();
    }
    connect(m_ui->editCode, &QLineEdit::editingFinished, this, [this] {
        if (m_ui->editCode->text().contains(u'?'))
            validerNumero();
    });
    connect(m_ui->boutonChemin, &QPushButton::clicked, this, [this] { choisirBlock(); });
    connect(m_ui->boutonOk, &QPushButton::clicked, this, &DlgCodification::accept);
    connect(m_ui->boutonCancel, &QPushButton::clicked, this, &QDialog::reject);
}

DlgCodification::~DlgCodification() = default;

void DlgCodification::afficher()
{
    if (m_mode == mode::edition)
        m_ui->editCode->setText(QString::number(m_code.code));
    m_ui->editLibelle->setText(texteQt(m_code.libelle));
    m_ui->editPrecision->setValue(m_code.precisionAltitudes);
    m_ui->editTaille->setText(QString::number(m_code.tailleBlock, 'g', 15));
    for (const champsCalque& champs : champsCalques(*m_ui)) {
        champs.nom->setText(texteQt(m_code.layers[champs.emplacement]));
        champs.couleur->setValue(m_code.couleurs[champs.emplacement]);
    }
    m_ui->labelChemin->setText(texteQt(m_code.chemin));
}

codifPoint DlgCodification::code() const
{
    codifPoint code = m_code;
    if (m_mode == mode::creation)
        code.code = entierDeTexte(m_ui->editCode->text().toStdWString());
    code.libelle = m_ui->editLibelle->text().toStdWString();
    prendre(code.precisionAltitudes, *m_ui->editPrecision);
    code.tailleBlock = reelDeTexte(m_ui->editTaille->text().toStdWString());
    for (const champsCalque& champs : champsCalques(*m_ui)) {
        code.layers[champs.emplacement] = champs.nom->text().toStdWString();
        prendre(code.couleurs[champs.emplacement], *champs.couleur);
    }
    return code;
}

void DlgCodification::accept()
{
    if (validerNumero() && validerTaille() && validerCalques())
        QDialog::accept();
}

bool DlgCodification::validerNumero()
{
    const avisCode avis = validerCode(m_ui->editCode->text().toStdWString(), m_table, m_mode == mode::creation);
    switch (avis.verdict) {
    case verdictCode::accepte:
    case verdictCode::propose:
        m_ui->editCode->setText(QString::number(avis.code));
        return true;
    case verdictCode::aucunLibre:
        afficherAvertissement(L"erreur", L"Pas de code à attribuer");
        break;
    case verdictCode::horsBornes:
        if (m_mode == mode::edition)
            return true; // a file may hold such a number: the field cannot be changed, the rest can
        m_ui->editCode->clear();
        avertirErreur(messageCodeIncorrect);
        break;
    case verdictCode::dejaExistant:
        avertirErreur(L"Code déjà existant\nTapez un '?' pour qu'un numéro soit attribué automatiquement");
        break;
    }
    m_ui->editCode->setFocus();
    return false;
}

bool DlgCodification::validerTaille()
{
    double taille = 0.0;
    return lireChamp(*m_ui->editTaille, L"la taille", taille, tailleMin, tailleMax);
}

bool DlgCodification::validerCalques()
{
    for (const champsCalque& champs : champsCalques(*m_ui)) {
        const std::wstring nom = champs.nom->text().toStdWString();
        if (calqueValable(nom))
            continue;
        afficherAvertissement(L"Erreur", L"Nom de calque impossible : « " + nom + L" »\n" + regleNomsCalques);
        champs.nom->setFocus();
        champs.nom->selectAll();
        return false;
    }
    return true;
}

void DlgCodification::choisirBlock()
{
    demandeFichier demande;
    demande.titre = L"Block du code";
    demande.filtres = L"Dessins (.dwg, .dxf)|*.dwg; *.dxf||";
    demande.nom = fichierDuBloc(m_code.chemin);
    demande.image = imageBloc;
    const auto choisi = demanderFichierALire(demande);
    if (!choisi)
        return;
    m_code.chemin = cheminDeBloc(*choisi).value_or(*choisi);
    m_ui->labelChemin->setText(texteQt(m_code.chemin));
    m_ui->labelRedessin->setText(
        m_mode == mode::creation ? QString() : texteQt(annonce(symbolesARedessiner(m_code.code, m_code.chemin))));
}

int tableCodification::modifierCode(int index)
{
    if (index < 0 || index >= nombre())
        return 0;
    if (!dialoguesPossibles())
        return 1;
    DlgCodification dialogue((*this)[index], *this, DlgCodification::mode::edition);
    if (dialogue.exec() != QDialog::Accepted)
        return 1;
    codifPoint& code = (*this)[index];
    const bool blocChange = dialogue.code().chemin != code.chemin;
    code = dialogue.code();
    if (blocChange && !redessiner(symbolesARedessiner(code.code, code.chemin), code))
        avertirErreur(L"Les symboles placés gardent leur block : ce dessin ne peut être lu\n" + code.chemin);
    return 1;
}
