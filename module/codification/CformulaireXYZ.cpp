#include "codification/CformulaireXYZ.h"

#include <algorithm>
#include <QLocale>

#include "codification/apparenceSymbole.h"
#include "codification/codificationDuModule.h"
#include "codification/editionPoint.h"
#include "codification/regleCode.h"
#include "points/projetDansDessin.h"
#include "services/blocFichier.h"
#include "services/calqueVerrouille.h"
#include "services/codages.h"
#include "services/dialogueCellules.h"
#include "services/dialogueChamps.h"
#include "services/dialogueMessage.h"
#include "services/entierDeTexte.h"
#include "services/grandeur.h"
#include "services/lettres.h"
#include "services/reelDeTexte.h"

#include "aced.h"
#include "ui_CformulaireXYZ.h"

namespace {

QString texteCoordonnee(double valeur)
{
    // The shortest text that reads back as the same number: a point shown and written again does not move.
    return valeur == inconnu ? QString() : QString::number(valeur, 'f', QLocale::FloatingPointShortest);
}

bool dire(const wchar_t* texte, QWidget& champ)
{
    avertirErreur(texte);
    champ.setFocus();
    return false;
}

/// An altitude may be unknown: its field is empty.
bool lireCoordonnee(QLineEdit& champ, const wchar_t* refus, bool peutManquer, double& valeur)
{
    const std::wstring texte = champ.text().trimmed().toStdWString();
    if (texte.empty() && peutManquer) {
        valeur = inconnu;
        return true;
    }
    bool entierement = false;
    valeur = reelDeTexte(texte, &entierement);
    return (entierement && estConnue(valeur)) || dire(refus, champ);
}

void signalerSymboleAbsent(const std::wstring& chemin)
{
    avertirErreur(L"Le point est enregistré, mais son symbole n'a pas pu être dessiné avec le block\n" + chemin);
}

} // namespace

CformulaireXYZ::CformulaireXYZ(listePointsDuDessin& laTable, tableCodification& lesCodes) :
    m_ui(std::make_unique<Ui::CformulaireXYZ>()),
    m_table(laTable),
    m_codes(lesCodes)
{
    m_ui->setupUi(this);
    m_ui->editNumero->setMaxLength(pointDuDessin::longueurNom);
    remplirCodes();
    connecter();
    montrer(m_table.nbPoint() > 0 ? 0 : -1);
}

CformulaireXYZ::~CformulaireXYZ() = default;

void CformulaireXYZ::remplirCodes()
{
    for (int i = 0; i < m_codes.nombre(); ++i) {
        const codifPoint& code = m_codes[i];
        m_ui->comboCode->addItem(
            QStringLiteral("%1   ").arg(code.code, 4, 10, QLatin1Char('0')) + texteQt(code.libelle), code.code);
    }
}

void CformulaireXYZ::connecter()
{
    connect(m_ui->boutonPremier, &QPushButton::clicked, this, [this] { aller(0); });
    connect(m_ui->boutonPrecedent, &QPushButton::clicked, this,
            [this] { aller(m_position < 0 ? m_table.nbPoint() - 1 : m_position - 1); });
    connect(m_ui->boutonSuivant, &QPushButton::clicked, this, [this] { aller(m_position + 1); });
    connect(m_ui->boutonDernier, &QPushButton::clicked, this, [this] { aller(m_table.nbPoint() - 1); });
    connect(m_ui->boutonNouveau, &QPushButton::clicked, this, [this] { aller(-1); });
    surveillerNombre(*m_ui->editX, L"X");
    surveillerNombre(*m_ui->editY, L"Y");
    surveillerNombre(*m_ui->editZ, L"Z");
    connect(m_ui->boutonDesigner, &QPushButton::clicked, this, [this] { designer(); });
    connect(m_ui->boutonEnregistrer, &QPushButton::clicked, this, [this] { enregistrer(); });
    connect(m_ui->boutonSupprimer, &QPushButton::clicked, this, [this] { supprimer(); });
    connect(m_ui->boutonFermer, &QPushButton::clicked, this, &CformulaireXYZ::reject);
    connect(m_ui->comboCode, &QComboBox::editTextChanged, this, [this] { direBlocGarde(); });
}

void CformulaireXYZ::montrer(int position)
{
    const int nombre = m_table.nbPoint();
    m_position = position;
    if (position >= 0) {
        const listePointsDuDessin& table = m_table;
        afficher(*table.getData(position));
    } else {
        pointDuDessin nouveau;
        nouveau.setNomPoint(QString::number(m_table.getMaxNum() + 1).toStdWString().c_str());
        afficher(nouveau);
    }
    m_ui->labelRang->setText(position < 0 ? QStringLiteral("Nouveau point")
                                          : QStringLiteral("Point %1 sur %2").arg(position + 1).arg(nombre));
    m_ui->boutonPremier->setEnabled(nombre > 0 && position != 0);
    m_ui->boutonPrecedent->setEnabled(nombre > 0 && position != 0);
    m_ui->boutonSuivant->setEnabled(position >= 0 && position < nombre - 1);
    m_ui->boutonDernier->setEnabled(nombre > 0 && position != nombre - 1);
    m_ui->boutonSupprimer->setEnabled(position >= 0);
}

void CformulaireXYZ::afficher(const pointDuDessin& point)
{
    m_ui->editNumero->setText(texteQt(depuisAnsi(point.getNomPoint())));
    m_ui->editX->setText(texteCoordonnee(point.getX()));
    m_ui->editY->setText(texteCoordonnee(point.getY()));
    m_ui->editZ->setText(texteCoordonnee(point.getZ()));
    const int rang = m_ui->comboCode->findData(point.getCode());
    m_ui->comboCode->setCurrentIndex(rang);
    if (rang < 0)
        m_ui->comboCode->setEditText(QString::number(point.getCode()));
    direBlocGarde();
    m_affiche = textes();
}

/// A symbol takes a block when its point is given a code, and keeps it whatever becomes of the code's.
void CformulaireXYZ::direBlocGarde()
{
    const listePointsDuDessin& table = m_table;
    const bool place = m_position >= 0 && m_position < table.nbPoint();
    const int code = place ? table.getData(m_position)->getCode() : 0;
    const std::wstring block = place ? nomBlocSymbole(table.getData(m_position)->getId()) : std::wstring();
    const int choisi = entierDeTexte(m_ui->comboCode->currentText().toStdWString());
    const int rang = m_codes.indexCode(code);
    const bool garde = !block.empty() && choisi == code && rang >= 0 &&
                       !memesLettres(block, nomBlocDeFichier(sansBlancs(m_codes[rang].chemin, blancsSaisie)));
    m_ui->labelBlock->setText(garde ? texteQt(L"Le symbole placé garde son block « " + block + L" ».") : QString());
}

QStringList CformulaireXYZ::textes() const
{
    return {m_ui->editNumero->text(), m_ui->editX->text(), m_ui->editY->text(), m_ui->editZ->text(),
            m_ui->comboCode->currentText()};
}

void CformulaireXYZ::aller(int position)
{
    if (quitter())
        montrer(position);
}

void CformulaireXYZ::designer()
{
    ads_point designe;
    if (saisirDansDessin([&] { return acedGetPoint(nullptr, L"\nPosition du point", designe); }) != RTNORM)
        return;
    m_ui->editX->setText(texteDesigne(designe[0]));
    m_ui->editY->setText(texteDesigne(designe[1]));
}

std::optional<pointDuDessin> CformulaireXYZ::saisi() const
{
    const std::wstring nom = m_ui->editNumero->text().trimmed().toStdWString();
    double x = 0.0, y = 0.0, z = 0.0;
    if (nom.empty()) {
        dire(L"Tapez le numéro du point", *m_ui->editNumero);
        return std::nullopt;
    }
    bool entier = true;
    versAnsi(nom, &entier);
    if (!entier) {
        dire(L"Ce numéro a un caractère\nqu'un nom de point ne peut pas garder", *m_ui->editNumero);
        return std::nullopt;
    }
    if (!lireCoordonnee(*m_ui->editX, L"X n'est pas un nombre", false, x) ||
        !lireCoordonnee(*m_ui->editY, L"Y n'est pas un nombre", false, y) ||
        !lireCoordonnee(*m_ui->editZ, L"Z n'est pas un nombre", true, z))
        return std::nullopt;
    const int code = entierDeTexte(m_ui->comboCode->currentText().toStdWString());
    if (!codeValable(code)) {
        dire(messageCodeIncorrect, *m_ui->comboCode);
        return std::nullopt;
    }
    pointDuDessin point;
    point.setParams(nom.c_str(), AcGePoint3d(x, y, z), code);
    return point;
}

bool CformulaireXYZ::enregistrer()
{
    const auto point = saisi();
    if (!point || refuserVerrouille())
        return false;
    int homonyme = -1;
    if (m_table.existPoint(depuisAnsi(point->getNomPoint()).c_str(), homonyme) && homonyme != m_position &&
        !demanderOuiNon(windowTitle().toStdWString(), L"Un autre point porte ce numéro.\nEnregistrer quand même ?"))
        return false;
    bool dessine = false;
    montrer(enregistrerPoint(m_table, m_position, *point, dessine));
    if (!dessine)
        signalerSymboleAbsent(m_codes.getCodif(point->getCode()).chemin);
    return true;
}

/// A symbol on a locked layer stays as it is, and its point with it.
bool CformulaireXYZ::refuserVerrouille() const
{
    const listePointsDuDessin& table = m_table;
    if (m_position < 0 || !estVerrouille(table.getData(m_position)->getId()))
        return false;
    afficherAvertissement(L"Coordonnées XYZ", L"Le symbole de ce point est sur un calque verrouillé :\n"
                                              L"déverrouillez-le d'abord");
    return true;
}

void CformulaireXYZ::supprimer()
{
    if (refuserVerrouille())
        return;
    const listePointsDuDessin& table = m_table;
    const std::wstring nom = depuisAnsi(table.getData(m_position)->getNomPoint());
    int trouve = -1;
    if (!table.existPoint(nom.c_str(), trouve) || trouve != m_position) {
        avertirErreur(L"Plusieurs points portent ce numéro :\ndonnez-lui-en d'abord un autre");
        return;
    }
    if (!confirmerSuppression(L"Supprimer le point " + nom + L" et son symbole ?"))
        return;
    m_table.supprimerPoint(nom.c_str());
    montrer(std::min(m_position, m_table.nbPoint() - 1));
}

bool CformulaireXYZ::modifie() const
{
    return textes() != m_affiche;
}

bool CformulaireXYZ::quitter()
{
    if (!modifie())
        return true;
    switch (demanderOuiNonAnnuler(windowTitle().toStdWString(),
                                  L"Le point a été modifié.\nEnregistrer les modifications ?")) {
    case reponseQuestion::oui:
        return enregistrer();
    case reponseQuestion::non:
        return true;
    case reponseQuestion::annuler:
        break;
    }
    return false;
}

void CformulaireXYZ::reject()
{
    if (quitter())
        QDialog::reject();
}

void commandeCoordonnees()
{
    listePointsDuDessin* const table = tableCourante();
    if (table && dialoguesPossibles())
        CformulaireXYZ(*table, codificationDuModule()).exec();
}
