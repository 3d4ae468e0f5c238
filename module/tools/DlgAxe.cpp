#include "tools/DlgAxe.h"

#include <QTableWidget>

#include "geometrie/axeDeCourbe.h"
#include "reports/resultPolygo.h"
#include "services/calqueVerrouille.h"
#include "services/dialogueCellules.h"
#include "services/dialogueChamps.h"
#include "services/dialogueMessage.h"
#include "services/formatNombres.h"
#include "services/reelDeTexte.h"
#include "services/selection.h"
#include "tools/panneauPoints.h"
#include "tools/placerAxe.h"
#include "tools/rapportAxe.h"

#include "acedads.h"
#include "ui_DlgAxe.h"

namespace {

enum donneeClothoide { parLongueur, parParametre }; // what clothoids are given by
constexpr int nombreColonnes = 5;
constexpr double auPlus = 1e5; // texts of chainages, chords of clothoids: a value typed wrong would fill the memory

std::vector<point2> sommetsDesignes()
{
    std::vector<point2> places;
    ads_point place{}, precedent{};
    int statut = RTNORM;
    while ((statut = acedGetPoint(places.empty() ? nullptr : precedent,
                                  places.empty() ? L"\nPremier sommet :" : L"\nSommet suivant <fin> :", place)) ==
           RTNORM) {
        places.push_back({place[0], place[1]});
        ads_point_set(place, precedent);
    }
    return statut == RTCAN ? std::vector<point2>() : places;
}

double& valeurDe(sommetAlignement& s, int colonne)
{
    switch (colonne) {
    case 0:
        return s.place.x;
    case 1:
        return s.place.y;
    case 2:
        return s.rayon;
    case 3:
        return s.entree;
    default:
        return s.sortie;
    }
}

/// "1250=1300; 1500=1400". @return nothing when a piece is not so.
std::optional<std::vector<equationAbscisse>> lireEquations(const QString& texte)
{
    std::vector<equationAbscisse> equations;
    for (const QString& piece : texte.split(u';', Qt::SkipEmptyParts)) {
        const QStringList cotes = piece.split(u'=');
        bool arriere = false, avant = false;
        if (cotes.size() != 2)
            return std::nullopt;
        const double de = reelDeTexte(cotes[0].trimmed().toStdWString(), &arriere);
        const double a = reelDeTexte(cotes[1].trimmed().toStdWString(), &avant);
        if (!arriere || !avant || !std::isfinite(de) || !std::isfinite(a))
            return std::nullopt;
        equations.push_back({de, a});
    }
    return equations;
}

QString abscisseEcrite(double valeur)
{
    return QString::number(valeur, 'g', 15);
}

QString equationsEcrites(const std::vector<equationAbscisse>& equations)
{
    QStringList pieces;
    for (const equationAbscisse& e : equations)
        pieces << abscisseEcrite(e.arriere) + u'=' + abscisseEcrite(e.avant);
    return pieces.join(QStringLiteral("; "));
}

/// Chords that clothoids are drawn with.
double cordesDe(const axe& ligne, double fleche)
{
    double cordes = 0.0;
    for (const elementAxe& e : ligne.elements())
        cordes += e.estDroit() || e.estArc() ? 0.0 : nombreCordes(e, fleche);
    return cordes;
}

/// The first equation that lies before the one it follows, or beyond the end: numbering would leave it out.
std::optional<equationAbscisse> equationHorsDeLAxe(const axeEnregistre& complet)
{
    std::vector<equationAbscisse> essayees;
    for (const equationAbscisse& e : complet.equations) {
        essayees.push_back(e);
        const auto sauts = abscisses(complet.origine, essayees).sauts();
        if (sauts.size() < essayees.size() || sauts.back().longueur > complet.ligne.longueur())
            return e;
    }
    return std::nullopt;
}

} // namespace

DlgAxe::DlgAxe() : m_ui(std::make_unique<Ui::DlgAxe>())
{
    m_ui->setupUi(this);
    preparerListe(*m_ui->liste, {"X", "Y", "Rayon", "Clothoïde avant", "Clothoïde après"});
    m_ui->liste->setSortingEnabled(false);
    m_ui->liste->horizontalHeader()->setSectionsClickable(false); // rows stand for corners, in their order
    m_ui->liste->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_ui->liste->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    m_ui->editEquations->setPlaceholderText(QStringLiteral("1250=1300; 1500=1400"));
    connect(m_ui->boutonDesigner, &QPushButton::clicked, this, [this] { designerSommets(); });
    connect(m_ui->boutonPolyligne, &QPushButton::clicked, this, [this] { prendrePolyligne(); });
    connect(m_ui->boutonSupprimer, &QPushButton::clicked, this, [this] { supprimerSommets(); });
    connect(m_ui->liste, &QTableWidget::cellChanged, this, [this](int l, int c) { lireCellule(l, c); });
    connect(m_ui->comboClothoides, &QComboBox::currentIndexChanged, this, [this] { recalculer(); });
    connect(m_ui->boutonRapport, &QPushButton::clicked, this, [this] { montrerRapport(); });
    connect(m_ui->boutonDessiner, &QPushButton::clicked, this, [this] { dessiner(); });
    connect(m_ui->boutonFermer, &QPushButton::clicked, this, &QDialog::accept);
    montrer();
}

DlgAxe::~DlgAxe() = default;

void DlgAxe::designerSommets()
{
    for (const point2 place : saisirDansDessin(sommetsDesignes))
        m_sommets.push_back({place});
    montrer();
}

void DlgAxe::prendrePolyligne()
{
    const ligneDesignee ligne = designerLigne();
    if (ligne.suivie.vide())
        return;
    auto sommets = sommetsDeLAxe(ligne.suivie);
    if (const auto* const raison = std::get_if<std::wstring>(&sommets))
        return avertirErreur(*raison);
    m_sommets = std::get<std::vector<sommetAlignement>>(std::move(sommets));
    if (const auto enregistre = lireAxeEnregistre(ligne.entite)) {
        m_ui->editOrigine->setText(abscisseEcrite(enregistre->origine));
        m_ui->editEquations->setText(equationsEcrites(enregistre->equations));
    }
    m_ui->comboClothoides->setCurrentIndex(parLongueur);
    montrer();
}

void DlgAxe::supprimerSommets()
{
    for (int rang = m_ui->liste->rowCount() - 1; rang >= 0; --rang)
        if (m_ui->liste->selectionModel()->isRowSelected(rang, {}))
            m_sommets.erase(m_sommets.begin() + rang);
    montrer();
}

void DlgAxe::lireCellule(int rang, int colonne)
{
    if (m_remplissage)
        return;
    const std::wstring texte = m_ui->liste->item(rang, colonne)->text().toStdWString();
    bool entier = false;
    const bool rien = texte.empty() && colonne > 1; // no curve; a corner has a place
    const double valeur = rien ? 0.0 : reelDeTexte(texte, &entier);
    if ((entier || rien) && std::abs(valeur) <= plusGrandNombre)
        valeurDe(m_sommets[static_cast<std::size_t>(rang)], colonne) = valeur;
    else
        avertirErreur(entier ? L"« " + texte + L" » est trop grand." : pasUnNombre(texte));
    montrer();
}

void DlgAxe::montrer()
{
    m_remplissage = true;
    QTableWidget& liste = *m_ui->liste;
    liste.setRowCount(static_cast<int>(m_sommets.size()));
    for (int i = 0; i < liste.rowCount(); ++i)
        for (int c = 0; c < nombreColonnes; ++c) {
            if (!liste.item(i, c))
                liste.setItem(i, c, new QTableWidgetItem);
            const double valeur = valeurDe(m_sommets[static_cast<std::size_t>(i)], c);
            liste.item(i, c)->setText(c > 1 && valeur == 0.0 ? QString() : texteQt(formaterFixe(valeur, 3)));
            liste.item(i, c)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        }
    m_remplissage = false;
    recalculer();
}

std::vector<sommetAlignement> DlgAxe::sommets() const
{
    std::vector<sommetAlignement> voulus = m_sommets;
    for (sommetAlignement& s : voulus)
        if (m_ui->comboClothoides->currentIndex() == parParametre && s.rayon > 0.0) {
            s.entree = longueurClothoide(s.entree, s.rayon);
            s.sortie = longueurClothoide(s.sortie, s.rayon);
        }
    return voulus;
}

void DlgAxe::recalculer()
{
    const auto trace = tracerAlignement(sommets());
    const axe* const reussi = std::get_if<axe>(&trace);
    m_axe = reussi ? std::optional(*reussi) : std::nullopt;
    m_ui->labelResultats->setText(texteQt(m_axe ? L"Longueur " + formaterFixe(m_axe->longueur(), 3) + L", " +
                                                      std::to_wstring(m_axe->elements().size()) + L" élément(s)"
                                                : std::get<std::wstring>(trace)));
    m_ui->boutonRapport->setEnabled(m_axe.has_value());
    m_ui->boutonDessiner->setEnabled(m_axe.has_value());
}

bool DlgAxe::lireNumerotation(axeEnregistre& complet) const
{
    if (!lireOrigine(*m_ui->editOrigine, complet.origine))
        return false;
    const auto equations = lireEquations(m_ui->editEquations->text());
    if (!equations) {
        avertirErreur(L"Une équation s'écrit arrière=avant, par exemple 1250=1300.");
        m_ui->editEquations->setFocus();
        return false;
    }
    complet.equations = *equations;
    complet.ligne = *m_axe;
    const auto fautive = equationHorsDeLAxe(complet);
    if (!fautive)
        return true;
    avertirErreur(L"L'équation " + formaterFixe(fautive->arriere, 3) + L"=" + formaterFixe(fautive->avant, 3) +
                  L" tombe hors de l'axe, ou avant ce qui la précède.");
    m_ui->editEquations->setFocus();
    return false;
}

void DlgAxe::montrerRapport()
{
    axeEnregistre complet;
    if (!lireNumerotation(complet))
        return;
    htmlDocument rapport = rapportAxe(complet.ligne, complet.numerotation());
    ecrireEtMontrer(rapport);
}

void DlgAxe::dessiner()
{
    axeEnregistre complet;
    dessinAxe dessin;
    if (!lireNumerotation(complet) || !lireChamp(*m_ui->editFleche, L"l'erreur de corde", dessin.fleche, 1e-6, 1e6) ||
        !lireChamp(*m_ui->editPas, L"le pas des écritures", dessin.pasEcritures, 1e-3, 1e9) ||
        !lireChamp(*m_ui->editTextes, L"la taille des textes", dessin.tailleTextes, 1e-6, 1e6))
        return;
    if (complet.ligne.longueur() / dessin.pasEcritures > auPlus)
        return avertirErreur(L"Pas des écritures trop petit : cela ferait plus de cent mille textes.");
    if (cordesDe(complet.ligne, dessin.fleche) > auPlus)
        return avertirErreur(L"Erreur de corde trop petite : les clothoïdes auraient plus de cent mille cordes.");
    if (!placerAxe(complet, dessin))
        return avertirErreur(L"L'axe n'a pas pu être dessiné.");
    signalerCalqueCourantVerrouille();
}

void commandeAxe()
{
    if (dialoguesPossibles())
        DlgAxe().exec();
}
