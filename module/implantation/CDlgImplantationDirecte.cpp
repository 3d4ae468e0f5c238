#include "implantation/CDlgImplantationDirecte.h"

#include <algorithm>
#include <QHeaderView>

#include "implantation/ajoutPoints.h"
#include "implantation/CDlgNumerotation.h"
#include "implantation/CDlgParamGraphiques.h"
#include "implantation/CDlgParamImplantation.h"
#include "implantation/CDlgRepartition.h"
#include "implantation/choixStation.h"
#include "implantation/gererObstacles.h"
#include "implantation/modeleImplantation.h"
#include "implantation/persistanceImplantation.h"
#include "implantation/sortiesImplantation.h"
#include "implantation/vueImplantation.h"
#include "services/CAcadUndoGroup.h"
#include "services/codages.h"
#include "services/dialogueFichier.h"
#include "services/dialogueMessage.h"
#include "services/dialogueTableau.h"
#include "services/fichierEntier.h"
#include "services/lireNombre.h"
#include "services/nombreFixe.h"
#include "services/verrouDocument.h"

#include "acdocman.h"
#include "aced.h"
#include "dbads.h"
#include "ui_CDlgImplantationDirecte.h"

namespace {

constexpr wchar_t filtresRapport[] = L"Fichier HTML(.htm)|*.htm; *.html|Tous (*.*)|*.*||";
constexpr wchar_t filtresFichiers[] = L"Colonnes (.csv)|*.csv|Appareil, 8 caractères (.gsi)|*.gsi|"
                                      L"Appareil, 16 caractères (.gsi)|*.gsi|Rapport JSON (.json)|*.json||";
constexpr formeFichier formesFichiers[] = {formeFichier::colonnes, formeFichier::mots8, formeFichier::mots16,
                                           formeFichier::json};

QString deuxDecimales(double valeur)
{
    return QString::fromStdString(nombreFixe(valeur, 2));
}

void ecrireOuAvertir(const std::wstring& fichier, const std::string& octets)
{
    if (!remplacerFichier(fichier.c_str(), octets))
        avertirErreur(L"Le fichier n'a pas pu être écrit :\n" + fichier);
}

} // namespace

CDlgImplantationDirecte::CDlgImplantationDirecte(travailImplantation& leTravail) :
    m_ui(std::make_unique<Ui::CDlgImplantationDirecte>()),
    m_travail(leTravail)
{
    m_ui->setupUi(this);
    m_modele = new modeleImplantation(m_travail, this);
    m_ui->liste->setModel(m_modele);
    m_ui->liste->verticalHeader()->hide();
    m_ui->liste->verticalHeader()->setDefaultSectionSize(m_ui->liste->fontMetrics().height() + 6);
    ajusterColonnes(*m_ui->liste);
    m_ui->caseVerifier->setChecked(m_travail.verifier);
    m_ui->editHMin->setText(deuxDecimales(reglagesDuProcessus().hauteur));
    m_ui->editHStat->setText(deuxDecimales(m_travail.hauteurStation));
    brancher();
    rafraichir();
}

CDlgImplantationDirecte::~CDlgImplantationDirecte() = default;

void CDlgImplantationDirecte::brancher()
{
    const auto bouton = [this](QPushButton* lequel, void (CDlgImplantationDirecte::*action)()) {
        connect(lequel, &QPushButton::clicked, this, action);
    };
    bouton(m_ui->boutonNumerotation, &CDlgImplantationDirecte::numeroter);
    bouton(m_ui->boutonStation, &CDlgImplantationDirecte::mettreEnStation);
    bouton(m_ui->boutonObstacles, &CDlgImplantationDirecte::obstacles);
    bouton(m_ui->boutonAjouter, &CDlgImplantationDirecte::ajouter);
    bouton(m_ui->boutonEnlever, &CDlgImplantationDirecte::enlever);
    bouton(m_ui->boutonAxe, &CDlgImplantationDirecte::suivreAxe);
    bouton(m_ui->boutonRepartir, &CDlgImplantationDirecte::repartirPoints);
    bouton(m_ui->boutonLocaliser, &CDlgImplantationDirecte::localiser);
    bouton(m_ui->boutonApercu, &CDlgImplantationDirecte::montrerApercu);
    bouton(m_ui->boutonCoupe, &CDlgImplantationDirecte::couper);
    bouton(m_ui->boutonConfig, &CDlgImplantationDirecte::configurer);
    bouton(m_ui->boutonFichiers, &CDlgImplantationDirecte::ecrireFichiers);
    bouton(m_ui->boutonGenerer, &CDlgImplantationDirecte::generer);
    connect(m_ui->boutonAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_ui->caseVerifier, &QCheckBox::toggled, this, &CDlgImplantationDirecte::changerVerification);
    connect(m_ui->editHMin, &QLineEdit::editingFinished, this, &CDlgImplantationDirecte::changerHauteurMin);
    connect(m_ui->editHStat, &QLineEdit::editingFinished, this, &CDlgImplantationDirecte::changerHauteurStation);
    connect(m_ui->liste->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &CDlgImplantationDirecte::direVisee);
}

travailImplantation::positions CDlgImplantationDirecte::selection() const
{
    travailImplantation::positions lignes;
    for (const QModelIndex& index : m_ui->liste->selectionModel()->selectedRows())
        lignes.push_back(static_cast<std::size_t>(index.row()));
    std::ranges::sort(lignes);
    return lignes;
}

travailImplantation::positions CDlgImplantationDirecte::choisis() const
{
    const travailImplantation::positions lignes = selection();
    return lignes.empty() ? m_travail.toutes() : lignes;
}

void CDlgImplantationDirecte::selectionner(const travailImplantation::positions& lignes)
{
    QItemSelection toutes;
    for (const std::size_t i : lignes) {
        const int ligne = static_cast<int>(i);
        toutes.select(m_modele->index(ligne, 0), m_modele->index(ligne, nbColonnes - 1));
    }
    m_ui->liste->selectionModel()->select(toutes, QItemSelectionModel::ClearAndSelect);
}

/// Rows that are still there stay selected.
void CDlgImplantationDirecte::rafraichir()
{
    travailImplantation::positions avant = selection();
    m_modele->rafraichir();
    std::erase_if(avant, [this](std::size_t i) { return i >= m_travail.points.size(); });
    selectionner(avant);
    const bool vide = m_travail.points.empty();
    m_ui->boutonNumerotation->setEnabled(vide);
    direVisee();
}

void CDlgImplantationDirecte::dire(const std::wstring& phrase)
{
    m_ui->bilan->setText(QString::fromStdWString(phrase));
}

void CDlgImplantationDirecte::direVisee()
{
    const travailImplantation::positions lignes = selection();
    if (lignes.size() != 1)
        return dire({});
    const pointDuTravail& point = m_travail.points[lignes.front()];
    const observationMiseEnStation* const station = m_travail.station(point.station);
    const donneesStation donnees = station ? station->donnees() : donneesStation();
    dire(L"Point " + point.nom + L" : " +
         phraseDuPoint(point, station ? &donnees : nullptr, reglagesDuProcessus().hauteur));
}

void CDlgImplantationDirecte::numeroter()
{
    CDlgNumerotation dialogue(m_travail.numerotation);
    if (dialogue.exec() == Accepted)
        m_travail.numerotation = dialogue.numerotation();
}

void CDlgImplantationDirecte::mettreEnStation()
{
    const travailImplantation::positions avant = selection();
    travailImplantation::positions lignes = choisis();
    saisirDansDessin([&] { choisirMiseEnStation(m_travail, lignes); });
    rafraichir();
    selectionner(lignes.size() == m_travail.points.size() && avant.empty() ? avant : lignes);
    const bool uneLigne = selection().size() == 1; // which is told of by itself
    if (const std::wstring phrase = m_travail.phraseSousLeurStation(); !phrase.empty() && !uneLigne)
        dire(phrase);
}

void CDlgImplantationDirecte::obstacles()
{
    saisirDansDessin([this] { gererObstacles(m_travail); });
    m_travail.verifierVisibilite(m_travail.toutes()); // any sight may be cut, or free again
    rafraichir();
}

void CDlgImplantationDirecte::changerVerification(bool verifier)
{
    m_travail.verifier = verifier;
    if (verifier)
        m_travail.verifierVisibilite(choisis());
    rafraichir();
}

/// What is no number leaves the height as it was: its box shows it again, and nothing is read.
std::optional<double> CDlgImplantationDirecte::lireHauteur(const wchar_t* nom, QLineEdit& champ, double hauteur)
{
    const std::wstring texte = champ.text().toStdWString();
    double lue = 0.0;
    if (lireNombre(texte.c_str(), lue))
        return hauteurAdmise(lue);
    champ.setText(deuxDecimales(hauteur));
    dire(std::wstring(nom) + L" : « " + texte + L" » n'est pas un nombre écrit comme 1.50. La hauteur reste " +
         deuxDecimales(hauteur).toStdWString() + L".");
    return std::nullopt;
}

void CDlgImplantationDirecte::changerHauteurMin()
{
    double& hauteur = reglagesDuProcessus().hauteur;
    const auto lue = lireHauteur(L"H.Min", *m_ui->editHMin, hauteur);
    if (!lue)
        return;
    hauteur = *lue;
    m_ui->editHMin->setText(deuxDecimales(hauteur));
    direVisee(); // seen or hidden by that height
}

void CDlgImplantationDirecte::changerHauteurStation()
{
    const auto lue = lireHauteur(L"H.Stat", *m_ui->editHStat, m_travail.hauteurStation);
    if (!lue)
        return;
    m_travail.fixerHauteurStation(*lue);
    // Intended: in the box of the other height, as if typed there. Who leaves that box takes it.
    m_ui->editHMin->selectAll();
    m_ui->editHMin->insert(deuxDecimales(m_travail.hauteurStation));
    rafraichir();
}

void CDlgImplantationDirecte::ajouter()
{
    saisirDansDessin([this] { demanderPoints(m_travail); });
    rafraichir();
}

void CDlgImplantationDirecte::enlever()
{
    const travailImplantation::positions lignes = selection();
    m_ui->liste->clearSelection();
    m_travail.enlever(lignes);
    rafraichir();
}

void CDlgImplantationDirecte::suivreAxe()
{
    CDlgParamImplantation dialogue(parametresDuDernierAxe());
    if (dialogue.exec() != Accepted)
        return;
    parametresAxe& parametres = parametresDuDernierAxe() = dialogue.parametres();
    std::optional<bilanAxe> bilan;
    saisirDansDessin([&] {
        ads_name nom;
        ads_point clic;
        AcDbObjectId id;
        if (acedEntSel(L"\nAxe à implanter :", nom, clic) == RTNORM && acdbGetObjectId(id, nom) == Acad::eOk)
            bilan = implanterAxe(m_travail, id, parametres);
    });
    rafraichir();
    if (bilan && !bilan->refus.empty())
        avertirErreur(bilan->refus);
    else if (bilan)
        dire(std::to_wstring(bilan->points) + L" point(s) le long de l'axe");
}

void CDlgImplantationDirecte::repartirPoints()
{
    if (m_travail.stations.empty())
        return avertirErreur(L"Aucune mise en station : donnez d'abord des stations à des points");
    CDlgRepartition dialogue;
    if (dialogue.exec() != Accepted)
        return;
    const auto bilan = m_travail.repartirPoints(choisis(), dialogue.choix());
    rafraichir();
    std::vector<std::wstring> nonVus;
    for (const auto& [point, refus] : bilan.nonVus)
        nonVus.push_back(m_travail.points[point].nom + L" (" + phraseRefus(refus) + L")");
    std::wstring phrase = bilan.sansTerrain ? L"Sans terrain : seule la distance compte. " : L"";
    phrase += nonVus.empty()
                  ? L"Tous les points ont une station."
                  : std::to_wstring(nonVus.size()) + L" point(s) vus d'aucune station : " + enumererNoms(nonVus);
    dire(phrase);
}

void CDlgImplantationDirecte::localiser()
{
    saisirDansDessin([this] { localiserPoints(m_travail, selection()); });
}

void CDlgImplantationDirecte::montrerApercu()
{
    saisirDansDessin([this] { apercuDuTravail(m_travail); });
}

void CDlgImplantationDirecte::couper()
{
    const travailImplantation::positions lignes = selection();
    if (lignes.size() != 1)
        return avertirErreur(L"Choisissez le point dont la visée est à couper");
    const pointDuTravail& point = m_travail.points[lignes.front()];
    if (!m_travail.coupeDe(point))
        return avertirErreur(L"Pas de coupe : il faut une station, des altitudes et un terrain sous la visée");
    ads_point place;
    if (saisirDansDessin([&] { return acedGetPoint(nullptr, L"\nPosition de la coupe", place); }) == RTNORM)
        dessinerCoupe(m_travail, point, {place[0], place[1]});
}

void CDlgImplantationDirecte::configurer()
{
    CDlgParamGraphiques dialogue(reglagesDuProcessus(), m_travail.options);
    if (dialogue.exec() != Accepted)
        return;
    reglagesDuProcessus() = dialogue.reglages();
    m_travail.options = dialogue.options();
    m_travail.dessinerStations();
    rafraichir();
}

void CDlgImplantationDirecte::ecrireFichiers()
{
    demandeFichier demande;
    demande.filtres = filtresFichiers;
    int filtre = 1;
    const auto fichier = demanderFichierAEcrire(demande, &filtre);
    if (!fichier)
        return;
    std::vector<std::wstring> ecartes;
    const auto rang = static_cast<std::size_t>(std::clamp(filtre, 1, static_cast<int>(std::size(formesFichiers))) - 1);
    ecrireOuAvertir(*fichier, contenuFichier(m_travail, formesFichiers[rang], ecartes));
    if (!ecartes.empty())
        afficherAvertissement(L"Fichiers",
                              L"Sans place dans ce format, ou sans coordonnées : " + enumererNoms(ecartes));
}

void CDlgImplantationDirecte::schematiser()
{
    ads_point place;
    if (saisirDansDessin([&] { return acedGetPoint(nullptr, L"Position des textes", place); }) != RTNORM)
        return;
    dessinerCroquis(m_travail, {place[0], place[1]});
}

void CDlgImplantationDirecte::exporter()
{
    demandeFichier demande;
    demande.filtres = filtresRapport;
    demande.extension = L"htm";
    const auto fichier = demanderFichierAEcrire(demande);
    if (!fichier)
        return;
    std::vector<std::wstring> aucun;
    ecrireOuAvertir(*fichier, contenuFichier(m_travail, formeFichier::html, aucun));
}

/// A step that the user cancels is left out; the others are done.
void CDlgImplantationDirecte::generer()
{
    const bool croquis = m_ui->caseSchematiser->isChecked(), rapport = m_ui->caseExporter->isChecked(),
               dessin = m_ui->caseDessiner->isChecked();
    if (!croquis && !rapport && !dessin)
        return;
    if (croquis)
        schematiser();
    if (rapport)
        exporter();
    if (dessin)
        dessinerResultats(m_travail);
    accept();
}

int lispImplant2()
{
    AcApDocument* const document = curDoc();
    if (!document || !dialoguesPossibles())
        return acedRetNil();
    const verrouDocument verrou;
    const CAcadUndoGroup groupe;
    travailImplantation travail;
    const bool repris = reprendreTravail(*document->database(), travail);
    travail.verifierVisibilite(travail.toutes()); // ground and obstacles may have changed since
    travail.dessinerStations();
    CDlgImplantationDirecte(travail).exec();
    travail.effacerTout();
    // A job that could not be read stays in the drawing until there is another one to keep.
    const bool aGarder = repris || !travail.points.empty();
    if (aGarder && !garderTravail(*document->database(), travail))
        avertirErreur(L"Le travail d'implantation n'a pas pu être gardé dans le dessin");
    return acedRetT();
}
