#include "tools/DlgTransformer.h"

#include <QComboBox>
#include <QHeaderView>
#include <QTableWidget>

#include "points/projetDansDessin.h"
#include "reports/resultPolygo.h"
#include "services/codages.h"
#include "services/dialogueCellules.h"
#include "services/dialogueMessage.h"
#include "services/formatNombres.h"
#include "services/lettres.h"
#include "services/reelDeTexte.h"
#include "services/selection.h"
#include "tools/placerTransformation.h"
#include "tools/rapportTransformation.h"

#include "acedads.h"
#include "acgitransient.h"
#include "acutads.h"
#include "ui_DlgTransformer.h"

namespace {

enum colonne { nom, xSource, ySource, xCible, yCible, poids, vx, vy, ecart, norme2, nombreColonnes };
constexpr std::size_t apercuAuPlus = 5000;

std::optional<couplePoints> coupleDesigne()
{
    ads_point source{}, cible{};
    if (acedGetPoint(nullptr, L"\nPoint source :", source) != RTNORM ||
        acedGetPoint(source, L"\nPoint cible :", cible) != RTNORM)
        return std::nullopt;
    couplePoints couple;
    couple.source = {source[0], source[1]};
    couple.cible = {cible[0], cible[1]};
    return couple;
}

double& valeurDe(couplePoints& couple, int quelle)
{
    switch (quelle) {
    case xSource:
        return couple.source.x;
    case ySource:
        return couple.source.y;
    case xCible:
        return couple.cible.x;
    case yCible:
        return couple.cible.y;
    default:
        return couple.poids;
    }
}

/// What must be known of entities that do not follow as they are; nothing when all do.
std::wstring avertissement(const bilanTransformation& prevu)
{
    std::wstring texte;
    const auto dire = [&texte](int nombre, const wchar_t* suite) {
        if (nombre > 0)
            texte += std::to_wstring(nombre) + suite + L"\n";
    };
    dire(prevu.refuses, L" objet(s) ne peuvent pas suivre cette transformation : ils resteront.");
    dire(prevu.verrouilles, L" objet(s) sur un calque verrouillé : ils resteront.");
    dire(prevu.ellipses, L" cercle(s) ou arc(s) deviendront des ellipses.");
    dire(prevu.approches, L" objet(s) suivront au plus près (textes, blocs et motifs de hachures sans être déformés, "
                          L"arcs de polylignes, cotes redessinées sur leurs points).");
    return texte;
}

/// Texts of a row; what is computed is empty without a result.
QString texteDe(couplePoints couple, const ecartCouple* e, int quelle)
{
    if (quelle == nom)
        return texteQt(couple.nom);
    if (quelle < poids)
        return texteQt(formaterFixe(valeurDe(couple, quelle), 4));
    if (quelle == poids)
        return QString::number(couple.poids, 'g', 10);
    if (!e || (quelle == norme2 && !e->normalise))
        return {};
    const double valeur = quelle == vx ? e->vx : quelle == vy ? e->vy : std::hypot(e->vx, e->vy);
    return texteQt(quelle == norme2 ? formaterFixe(*e->normalise, 2) : formaterFixe(valeur, 4));
}

} // namespace

DlgTransformer::DlgTransformer(projetsTopo& leProjet, std::vector<AcDbObjectId> lesObjets) :
    m_ui(std::make_unique<Ui::DlgTransformer>()),
    m_projet(leProjet),
    m_objets(std::move(lesObjets))
{
    m_ui->setupUi(this);
    preparerListe(*m_ui->liste,
                  {"Couple", "X source", "Y source", "X cible", "Y cible", "Poids", "vX", "vY", "Écart", "Normé"});
    m_ui->liste->setSortingEnabled(false);
    m_ui->liste->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents); // residuals stay in view
    m_ui->liste->horizontalHeader()->setSectionsClickable(false); // rows stand for pairs, in their order
    m_ui->liste->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_ui->liste->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    for (int i = 0; i < m_projet.nbTables(); ++i)
        for (QComboBox* const choix : {m_ui->comboSource, m_ui->comboCible})
            choix->addItem(texteQt(m_projet.getTable(i)->getNomTable().GetString()));
    m_ui->comboCible->setCurrentIndex(std::max(0, m_projet.getCourante()));
    connect(m_ui->comboType, &QComboBox::currentIndexChanged, this, [this] { recalculer(); });
    connect(m_ui->boutonDesigner, &QPushButton::clicked, this, [this] { designerCouple(); });
    connect(m_ui->boutonSupprimer, &QPushButton::clicked, this, [this] { supprimerCouples(); });
    connect(m_ui->boutonHomonymes, &QPushButton::clicked, this, [this] { ajouterHomonymes(); });
    connect(m_ui->liste, &QTableWidget::cellChanged, this, [this](int l, int c) { lireCellule(l, c); });
    connect(m_ui->boutonObjets, &QPushButton::clicked, this, [this] { designerObjets(); });
    m_ui->boutonApercu->setCheckable(true);
    connect(m_ui->boutonApercu, &QPushButton::toggled, this, [this](bool oui) { montrerApercu(oui); });
    connect(m_ui->boutonRapport, &QPushButton::clicked, this, [this] { montrerRapport(); });
    connect(m_ui->boutonAppliquer, &QPushButton::clicked, this, [this] { appliquer(); });
    connect(m_ui->boutonFermer, &QPushButton::clicked, this, &QDialog::accept);
    montrerObjets();
    recalculer();
}

DlgTransformer::~DlgTransformer()
{
    montrerApercu(false);
}

const listePointsDuDessin& DlgTransformer::tableDe(const QComboBox& choix) const
{
    return *m_projet.getTable(std::max(0, choix.currentIndex()));
}

void DlgTransformer::ajouter(couplePoints couple)
{
    if (couple.nom.empty())
        couple.nom = std::to_wstring(m_couples.size() + 1);
    m_couples.push_back(std::move(couple));
}

void DlgTransformer::designerCouple()
{
    if (auto couple = saisirDansDessin(coupleDesigne))
        ajouter(std::move(*couple));
    recalculer();
}

void DlgTransformer::ajouterHomonymes()
{
    const listePointsDuDessin &source = tableDe(*m_ui->comboSource), &cible = tableDe(*m_ui->comboCible);
    if (&source == &cible)
        return avertirErreur(L"Choisissez deux tables différentes.");
    int ajoutes = 0;
    for (int i = 0; i < source.nbPoint(); ++i) {
        const pointDuDessin& p = *source.getData(i);
        const std::wstring nomPoint = depuisAnsi(p.getNomPoint());
        int autre = -1;
        if (sansBlancs(std::wstring_view(nomPoint), L" ").empty() || !cible.existPoint(nomPoint.c_str(), autre))
            continue;
        const pointDuDessin& q = *cible.getData(autre);
        if (!estConnue(p.getX()) || !estConnue(p.getY()) || !estConnue(q.getX()) || !estConnue(q.getY()))
            continue;
        ajouter({nomPoint, {p.getX(), p.getY()}, {q.getX(), q.getY()}, 1.0, true});
        ++ajoutes;
    }
    if (ajoutes == 0)
        avertirErreur(L"Les deux tables n'ont aucun nom de point en commun.");
    recalculer();
}

void DlgTransformer::supprimerCouples()
{
    for (int ligne = m_ui->liste->rowCount() - 1; ligne >= 0; --ligne)
        if (m_ui->liste->selectionModel()->isRowSelected(ligne, {}))
            m_couples.erase(m_couples.begin() + ligne);
    recalculer();
}

void DlgTransformer::designerObjets()
{
    if (!saisirDansDessin([this] { return redemanderSelection(L"\nSélectionner objets", L"*", m_objets); }))
        return;
    m_ui->boutonApercu->setChecked(false);
    montrerObjets();
}

void DlgTransformer::montrerObjets()
{
    m_ui->labelObjets->setText(m_objets.empty() ? QStringLiteral("aucun objet")
                                                : QStringLiteral("%1 objet(s)").arg(m_objets.size()));
}

void DlgTransformer::lireCellule(int ligne, int quelle)
{
    if (m_remplissage)
        return;
    couplePoints& couple = m_couples[static_cast<std::size_t>(ligne)];
    const QTableWidgetItem& item = *m_ui->liste->item(ligne, quelle);
    bool entier = false;
    if (quelle == nom) {
        couple.nom = item.text().toStdWString();
        couple.actif = item.checkState() == Qt::Checked;
    } else if (quelle <= poids) {
        const double valeur = reelDeTexte(item.text().toStdWString(), &entier);
        if (entier && std::abs(valeur) <= coordonneeAuPlus && (quelle < poids || valeur > 0.0))
            valeurDe(couple, quelle) = valeur;
        else
            avertirErreur(L"« " + item.text().toStdWString() +
                          (quelle == poids ? L" » n'est pas un poids." : L" » n'est pas une coordonnée."));
    }
    recalculer();
}

void DlgTransformer::recalculer()
{
    const auto calcul = calculerTransformation(m_couples, typeTransformation(m_ui->comboType->currentIndex()));
    const auto* const resultat = std::get_if<resultatTransformation>(&calcul);
    m_resultat = resultat ? std::optional(*resultat) : std::nullopt;
    QStringList phrases;
    if (m_resultat)
        for (const std::wstring& phrase :
             phrasesTransformation(m_couples, typeTransformation(m_ui->comboType->currentIndex()), *m_resultat))
            phrases << texteQt(phrase);
    else
        phrases << texteQt(std::get<std::wstring>(calcul));
    m_ui->labelResultats->setText(phrases.join(u'\n'));
    for (QPushButton* const bouton : {m_ui->boutonApercu, m_ui->boutonRapport, m_ui->boutonAppliquer})
        bouton->setEnabled(m_resultat.has_value());
    m_ui->boutonApercu->setChecked(false);
    montrerEcarts();
}

void DlgTransformer::montrerEcarts()
{
    m_remplissage = true;
    QTableWidget& liste = *m_ui->liste;
    liste.setRowCount(static_cast<int>(m_couples.size()));
    for (int i = 0; i < liste.rowCount(); ++i) {
        const couplePoints& couple = m_couples[static_cast<std::size_t>(i)];
        const ecartCouple* const e = m_resultat ? &m_resultat->ecarts[static_cast<std::size_t>(i)] : nullptr;
        for (int c = 0; c < nombreColonnes; ++c) {
            if (!liste.item(i, c))
                liste.setItem(i, c, new QTableWidgetItem);
            QTableWidgetItem& item = *liste.item(i, c);
            item.setText(texteDe(couple, e, c));
            if (c > poids)
                item.setFlags(item.flags() & ~Qt::ItemIsEditable);
            if (c > nom)
                item.setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        }
        liste.item(i, nom)->setCheckState(couple.actif ? Qt::Checked : Qt::Unchecked);
    }
    m_remplissage = false;
}

void DlgTransformer::montrerApercu(bool montrer)
{
    AcGiTransientManager& transitoires = *acgiGetTransientManager();
    for (const auto& copie : m_apercu)
        transitoires.eraseTransient(copie.get(), AcGeIntArray());
    m_apercu.clear();
    if (!montrer || !m_resultat)
        return;
    m_apercu = copiesTransformees(m_objets, matriceDe(m_resultat->transformation), apercuAuPlus);
    for (const auto& copie : m_apercu)
        transitoires.addTransient(copie.get(), kAcGiContrast, 0, AcGeIntArray());
}

void DlgTransformer::montrerRapport()
{
    htmlDocument rapport =
        rapportTransformation(m_couples, typeTransformation(m_ui->comboType->currentIndex()), *m_resultat);
    ecrireEtMontrer(rapport);
}

void DlgTransformer::appliquer()
{
    if (m_objets.empty() && !m_ui->casePoints->isChecked())
        return avertirErreur(L"Désignez des objets, ou cochez les points de la table courante.");
    const std::wstring aSavoir = avertissement(prevoirTransformation(m_projet, m_objets, m_resultat->transformation));
    if (!aSavoir.empty() && !demanderConfirmation(L"Transformation plane", aSavoir + L"Appliquer ?"))
        return;
    m_ui->boutonApercu->setChecked(false);
    const bilanTransformation bilan =
        placerTransformation(m_projet, m_objets, m_ui->casePoints->isChecked(), m_resultat->transformation);
    acutPrintf(L"\n%d objet(s) et %d point(s) transform\u00e9s", bilan.objets, bilan.points);
    if (bilan.refuses > 0)
        acutPrintf(L"\n%d objet(s) ne peuvent pas suivre cette transformation : ils sont rest\u00e9s.", bilan.refuses);
    m_objets.clear(); // twice would move them twice
    montrerObjets();
    m_ui->casePoints->setChecked(false);
}

void commandeTransformer()
{
    if (tablesPoints && tableCourante() && dialoguesPossibles())
        DlgTransformer(*tablesPoints, selectionPrealable(L"*")).exec();
}
