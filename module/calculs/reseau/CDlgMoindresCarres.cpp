#include "calculs/reseau/CDlgMoindresCarres.h"

#include <algorithm>
#include <cmath>
#include <cwctype>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <set>

#include "calculs/avertissementsPolygonale.h"
#include "calculs/formules/CDlgFormulePoids.h"
#include "calculs/phrasesDialogues.h"
#include "calculs/placerPolygonale.h"
#include "calculs/reseau/CDlgTabPoidsObse.h"
#include "calculs/reseau/commandeReseau.h"
#include "calculs/reseau/compensation.h"
#include "calculs/reseau/editionReseau.h"
#include "calculs/reseau/fichierReseau.h"
#include "calculs/reseau/modelesReseau.h"
#include "calculs/reseau/placerReseau.h"
#include "calculs/reseau/rapportReseau.h"
#include "points/nomsDoubles.h"
#include "points/projetDansDessin.h"
#include "reports/resultPolygo.h"
#include "services/dialogueChamps.h"
#include "services/dialogueFichier.h"
#include "services/dialogueMessage.h"
#include "services/fichierEntier.h"
#include "services/reelDeTexte.h"

#include "ui_CDlgMoindresCarres.h"

namespace {

constexpr wchar_t filtresLecture[] =
    L"Réseaux|*.mc; *.gkf; *.obs|Réseau|*.mc|gama-local|*.gkf|Polygonale|*.obs|Tous (*.*)|*.*||";
constexpr wchar_t filtresEcriture[] = L"Réseau|*.mc|Tous (*.*)|*.*||";
constexpr std::size_t phrasesMontrees = 6;
constexpr std::chrono::milliseconds delaiCalcul{150};
constexpr int hauteurLigne = 24;
constexpr int lignesMesurees = 100; // of a long table, to give columns their width

std::set<int, std::greater<>> lignesChoisies(const QTableView& table)
{
    std::set<int, std::greater<>> lignes;
    for (const QModelIndex& index : table.selectionModel()->selectedIndexes())
        lignes.insert(index.row());
    return lignes;
}

} // namespace

CDlgMoindresCarres::CDlgMoindresCarres() : m_ui(std::make_unique<Ui::CDlgMoindresCarres>())
{
    m_ui->setupUi(this);
    m_r.precisions = precisionsUsuelles();
    for (const estimateur e : {estimateur::moindresCarres, estimateur::huber, estimateur::tukey})
        m_ui->comboEstimation->addItem(QString::fromWCharArray(nomEstimateur(e)));
    m_ui->editSigma->setText("1");
    m_ui->editCode->setText(QString::number(codeStationsParDefaut));
    m_ui->casePoints->setChecked(true);
    m_ui->caseAltitudes->setChecked(true);
    m_ui->editEchelle->setText("0");
    m_ui->editEchelle->setToolTip(QStringLiteral("0 : choisie selon le réseau"));
    surveillerNombre(*m_ui->editSigma, L"sigma");
    surveillerNombre(*m_ui->editCode, L"le code");
    surveillerNombre(*m_ui->editEchelle, L"l'échelle");
    m_attente.setSingleShot(true);
    m_attente.setInterval(delaiCalcul);
    connect(&m_attente, &QTimer::timeout, this, &CDlgMoindresCarres::suivre);
    brancherTables();
    const auto relancer = qOverload<>(&QTimer::start);
    connect(m_ui->comboEstimation, &QComboBox::currentIndexChanged, &m_attente, relancer);
    connect(m_ui->caseLibre, &QCheckBox::toggled, &m_attente, relancer);
    connect(m_ui->editSigma, &QLineEdit::textChanged, &m_attente, relancer);
    connect(m_ui->boutonCharger, &QPushButton::clicked, this, &CDlgMoindresCarres::charger);
    connect(m_ui->boutonSauvegarder, &QPushButton::clicked, this, &CDlgMoindresCarres::sauvegarder);
    connect(m_ui->boutonFormules, &QPushButton::clicked, this, &CDlgMoindresCarres::ouvrirFormules);
    connect(m_ui->boutonPoids, &QPushButton::clicked, this, [this] {
        if (recalculer())
            CDlgTabPoidsObse(m_r, m_resultat).exec();
    });
    connect(m_ui->boutonCalculer, &QPushButton::clicked, this, &CDlgMoindresCarres::calculer);
    connect(m_ui->boutonPlacer, &QPushButton::clicked, this, &CDlgMoindresCarres::placer);
    connect(m_ui->boutonFermer, &QPushButton::clicked, this, &QDialog::accept);
}

CDlgMoindresCarres::~CDlgMoindresCarres() = default;

void CDlgMoindresCarres::brancherTables()
{
    m_points = new modelePointsReseau(m_r, m_resultat, this);
    m_observations = new modeleObservations(m_r, m_resultat, this);
    m_ui->points->setModel(m_points);
    m_ui->observations->setModel(m_observations);
    for (QTableView* const table : {m_ui->points, m_ui->observations}) {
        table->verticalHeader()->setDefaultSectionSize(hauteurLigne);
        table->horizontalHeader()->setResizeContentsPrecision(lignesMesurees);
    }
    const auto relancer = qOverload<>(&QTimer::start);
    connect(m_points, &modelePointsReseau::change, &m_attente, relancer);
    connect(m_observations, &modeleObservations::change, &m_attente, relancer);
    connect(m_points, &modelePointsReseau::refuse, m_ui->bilan, &QLabel::setText);
    connect(m_observations, &modeleObservations::refuse, m_ui->bilan, &QLabel::setText);
    connect(m_ui->boutonAjouterPoint, &QPushButton::clicked, this, &CDlgMoindresCarres::ajouterPoint);
    connect(m_ui->boutonEnleverPoint, &QPushButton::clicked, this, &CDlgMoindresCarres::enleverPoint);
    connect(m_ui->boutonCollerPoints, &QPushButton::clicked, this, [this] { coller(true); });
    connect(m_ui->boutonAjouterObservation, &QPushButton::clicked, this, &CDlgMoindresCarres::ajouterObservation);
    connect(m_ui->boutonEnleverObservation, &QPushButton::clicked, this, &CDlgMoindresCarres::enleverObservations);
    connect(m_ui->boutonCollerObservations, &QPushButton::clicked, this, [this] { coller(false); });
}

void CDlgMoindresCarres::dire(const std::vector<std::wstring>& phrases)
{
    QStringList textes;
    for (const std::wstring& phrase : premieresPhrases(phrases, phrasesMontrees))
        textes << QString::fromStdWString(phrase);
    m_ui->bilan->setText(textes.join(u'\n'));
}

/// To what they hold, so that results show without scrolling.
void CDlgMoindresCarres::ajusterColonnes()
{
    m_ui->points->resizeColumnsToContents();
    m_ui->observations->resizeColumnsToContents();
}

void CDlgMoindresCarres::toutMontrer()
{
    m_points->rafraichir();
    m_observations->rafraichir();
    ajusterColonnes();
    m_attente.start();
}

void CDlgMoindresCarres::charger()
{
    demandeFichier demande;
    demande.filtres = filtresLecture;
    const auto fichier = demanderFichierALire(demande);
    if (!fichier)
        return;
    const auto octets = lireFichier(fichier->c_str());
    if (!octets)
        return avertirErreur(ouvertureImpossible);
    reseauLu lu = lireReseau(*octets, *fichier);
    std::vector<std::wstring> phrases;
    for (const remarqueLecture& remarque : lu.remarques)
        phrases.push_back((remarque.numero > 0 ? L"Ligne " + std::to_wstring(remarque.numero) + L" : " : L"") +
                          remarque.phrase);
    if (!lu.lisible)
        return avertirErreur(phrases.empty() ? L"Fichier illisible" : phrases.front());
    m_r = std::move(lu.r);
    m_resultat = {};
    m_ui->editSigma->setText(QString::number(m_r.sigma, 'g', QLocale::FloatingPointShortest));
    toutMontrer();
    recalculer();
    if (!phrases.empty())
        dire(phrases);
}

void CDlgMoindresCarres::sauvegarder()
{
    demandeFichier demande;
    demande.filtres = filtresEcriture;
    demande.extension = L"mc";
    const auto fichier = demanderFichierAEcrire(demande);
    if (!fichier)
        return;
    if (!remplacerFichier(fichier->c_str(), contenuMc(m_r)))
        return avertirErreur(phraseNonEcrit(*fichier));
    std::wstring pertes;
    for (const std::wstring& perte : pertesMc(m_r))
        pertes += (pertes.empty() ? L"" : L"\n") + perte;
    if (!pertes.empty())
        afficherAvertissement(L"Sauvegarde", pertes);
}

void CDlgMoindresCarres::ouvrirFormules()
{
    CDlgFormulePoids dialogue(m_r.formules);
    dialogue.exec();
    m_r.formules = dialogue.formules();
    m_attente.start();
}

bool CDlgMoindresCarres::recalculer()
{
    m_attente.stop();
    std::vector<std::wstring> phrases;
    if (const double sigma = reelDeTexte(m_ui->editSigma->text().toStdWString()); sigma > 0.0 && std::isfinite(sigma))
        m_r.sigma = sigma;
    else
        phrases.push_back(L"Sigma est un nombre plus grand que 0 : " + QString::number(m_r.sigma).toStdWString() +
                          L" est gardé.");
    optionsCompensation options;
    options.methode = static_cast<estimateur>(m_ui->comboEstimation->currentIndex());
    options.libre = m_ui->caseLibre->isChecked();
    bool fait = true;
    try {
        m_resultat = compenser(m_r, options);
        phrases.push_back(phraseTestGlobal(m_r, m_resultat));
        for (const suspectReseau& s : m_resultat.suspects)
            phrases.push_back(phraseSuspect(m_r, s));
        phrases.insert(phrases.end(), m_resultat.messages.begin(), m_resultat.messages.end());
    } catch (const erreurReseau& faute) {
        m_resultat = {};
        phrases = {faute.phrase()};
        phrases.front().front() = static_cast<wchar_t>(std::towupper(static_cast<wint_t>(phrases.front().front())));
        fait = false;
    }
    m_points->resultatsChanges();
    m_observations->resultatsChanges();
    ajusterColonnes();
    m_ui->croquis->montrer(fait ? figureDe(m_r, m_resultat) : figureDe(m_r));
    dire(phrases);
    return fait;
}

/// After a change: nothing is said while there is nothing to compute.
void CDlgMoindresCarres::suivre()
{
    if (!m_r.observations.empty())
        recalculer();
    else
        m_ui->croquis->montrer(figureDe(m_r));
}

void CDlgMoindresCarres::calculer()
{
    if (!recalculer())
        return afficherAvertissement(titreCalculs, m_ui->bilan->text().toStdWString());
    htmlDocument rapport;
    rapporterReseau(m_r, m_resultat, rapport);
    std::vector<std::wstring> remarques{phraseTestGlobal(m_r, m_resultat)};
    for (const suspectReseau& s : m_resultat.suspects)
        remarques.push_back(phraseSuspect(m_r, s));
    ecrireEtMontrer(rapport, premieresPhrases(remarques, phrasesMontrees));
}

void CDlgMoindresCarres::placer()
{
    if (!recalculer())
        return afficherAvertissement(titreCalculs, m_ui->bilan->text().toStdWString());
    placementReseau placement;
    placement.code = codeDesStations(reelDeTexte(m_ui->editCode->text().toStdWString()));
    placement.points = m_ui->casePoints->isChecked();
    placement.altitudes = m_ui->caseAltitudes->isChecked();
    placement.ellipses = m_ui->caseEllipses->isChecked();
    if (!placement.points && !placement.ellipses)
        return dire({L"Rien à placer : cochez les points, ou les ellipses."});
    if (placement.points && !tableCourante())
        return afficherAvertissement(titreCalculs, sansTableDePoints);
    const figurePlane figure = figureDe(m_r, m_resultat, reelDeTexte(m_ui->editEchelle->text().toStdWString()));
    const listePointsDuDessin* const table = tableCourante();
    const int avant = table ? table->nbPoint() : 0;
    const int places = placerReseau(m_r, m_resultat, figure, placement);
    std::vector<std::wstring> phrases;
    if (placement.points)
        phrases.push_back(std::to_wstring(places) + L" point(s) placé(s), code " + std::to_wstring(placement.code) +
                          L".");
    if (std::wstring doubles = table ? phraseNomsDoubles(*table, avant) : std::wstring(); !doubles.empty())
        phrases.push_back(std::move(doubles));
    if (placement.ellipses)
        phrases.push_back(L"Ellipses et vecteurs agrandis " + QString::number(figure.echelle).toStdWString() +
                          L" fois.");
    dire(phrases);
}

void CDlgMoindresCarres::ajouterPoint()
{
    int numero = static_cast<int>(m_r.points.size()) + 1;
    while (m_r.chercher(L"P" + std::to_wstring(numero)) >= 0)
        ++numero;
    m_r.point(L"P" + std::to_wstring(numero));
    toutMontrer();
    m_ui->points->scrollToBottom();
}

void CDlgMoindresCarres::enleverPoint()
{
    std::vector<std::wstring> refus;
    for (const int ligne : lignesChoisies(*m_ui->points))
        if (const std::wstring raison = retirerPoint(m_r, ligne); !raison.empty())
            refus.push_back(raison);
    m_resultat = {};
    toutMontrer();
    if (!refus.empty()) {
        m_attente.stop();
        dire(refus);
    }
}

/// Like the last one, ready to be changed; the first is between the first two points.
void CDlgMoindresCarres::ajouterObservation()
{
    if (m_r.observations.empty() && m_r.points.size() < 2)
        return dire({L"Il faut d'abord deux points."});
    observationReseau o;
    o.de = 0;
    o.vers = 1;
    o.mesure = 1.0;
    m_r.observations.push_back(m_r.observations.empty() ? o : m_r.observations.back());
    m_resultat = {};
    toutMontrer();
    m_ui->observations->scrollToBottom();
}

void CDlgMoindresCarres::enleverObservations()
{
    for (const int ligne : lignesChoisies(*m_ui->observations))
        retirerObservation(m_r, ligne);
    m_resultat = {};
    toutMontrer();
}

void CDlgMoindresCarres::coller(bool points)
{
    const std::wstring texte = QGuiApplication::clipboard()->text().toStdWString();
    const std::wstring phrase = points ? collerPoints(m_r, texte) : collerObservations(m_r, texte);
    m_resultat = {};
    toutMontrer();
    m_attente.stop();
    suivre();
    dire({phrase});
}

void corrMCarres()
{
    if (dialoguesPossibles())
        CDlgMoindresCarres().exec();
}
