#include "DlgTerrain.h"

#include "services/dialogueCellules.h"
#include "services/dialogueMessage.h"
#include "services/nombreFixe.h"

#include "aced.h"
#include "creationTerrain.h"
#include "dialoguesTerrain.h"
#include "DlgCourbesNiveau.h"
#include "DlgProfilTerrain.h"
#include "DlgSourcesTerrain.h"
#include "DlgVolumesTerrain.h"
#include "terrainsOuverts.h"
#include "tracesTerrain.h"
#include "ui_DlgTerrain.h"

namespace {

enum colonne { nom, courant, etat };

QString fixe(double valeur)
{
    return QString::fromStdString(nombreFixe(valeur, 3));
}

} // namespace

DlgTerrain::DlgTerrain(terrainsDuDessin& leDessin) : m_dessin(leDessin), m_ui(std::make_unique<Ui::DlgTerrain>())
{
    m_ui->setupUi(this);
    m_ui->liste->setColumnCount(3); // in the drawing's order: the list is short
    m_ui->liste->setHorizontalHeaderLabels({"Nom", "Courant", "État"});
    m_ui->liste->verticalHeader()->hide();
    m_ui->liste->horizontalHeader()->setStretchLastSection(true);
    m_ui->liste->horizontalHeader()->setHighlightSections(false);
    m_ui->liste->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    brancher();
    const terrain* const enCours = m_dessin.courant();
    afficher(enCours ? enCours->id() : AcDbObjectId());
}

DlgTerrain::~DlgTerrain() = default;

void DlgTerrain::brancher()
{
    const auto bouton = [this](const QPushButton* quel, auto faire) {
        connect(quel, &QPushButton::clicked, this, faire);
    };
    connect(m_ui->liste, &QTableWidget::itemSelectionChanged, this, [this] { montrerChoisi(); });
    connect(m_ui->liste, &QTableWidget::cellChanged, this, [this](int ligne, int) { renommer(ligne); });
    bouton(m_ui->boutonCreer, [this] { creer(); });
    bouton(m_ui->boutonActualiser, [this] { actualiser(); });
    bouton(m_ui->boutonCourant, [this] { rendreCourant(); });
    bouton(m_ui->boutonRenommer, [this] { m_ui->liste->editItem(m_ui->liste->item(ligneChoisie(*m_ui->liste), nom)); });
    bouton(m_ui->boutonSupprimer, [this] { supprimer(); });
    bouton(m_ui->boutonTriangles, [this] { triangles(); });
    bouton(m_ui->boutonAltitude, [this] { altitudes(); });
    bouton(m_ui->boutonProfil, [this] { DlgProfilTerrain(*choisi(), nomChoisi()).exec(); });
    bouton(m_ui->boutonCourbes, [this] { DlgCourbesNiveau(*choisi()).exec(); });
    bouton(m_ui->boutonVolumes, [this] { DlgVolumesTerrain(m_dessin, *choisi(), nomChoisi()).exec(); });
    bouton(m_ui->boutonFermer, [this] { accept(); });
}

void DlgTerrain::afficher(AcDbObjectId choisi)
{
    const QSignalBlocker silence(m_ui->liste);
    m_modeles = modelesDuDessin(m_dessin.base());
    const terrain* const enCours = m_dessin.courant();
    m_ui->liste->setRowCount(static_cast<int>(m_modeles.size()));
    for (int i = 0; i < static_cast<int>(m_modeles.size()); ++i) {
        const auto& [sonNom, id] = m_modeles[static_cast<std::size_t>(i)];
        m_ui->liste->setItem(i, nom, new QTableWidgetItem(QString::fromStdWString(sonNom)));
        const bool leCourant = enCours && enCours->id() == id;
        const QString fraicheur = m_dessin.de(id)->perime() ? "à actualiser" : "à jour";
        for (const auto& [rang, texte] : {std::pair(courant, QString(leCourant ? "oui" : "")), {etat, fraicheur}}) {
            auto* const cellule = new QTableWidgetItem(texte);
            cellule->setFlags(cellule->flags() & ~Qt::ItemIsEditable);
            m_ui->liste->setItem(i, rang, cellule);
        }
        if (id == choisi)
            m_ui->liste->selectRow(i);
    }
    m_ui->liste->resizeColumnsToContents();
    montrerChoisi();
}

std::wstring DlgTerrain::nomChoisi() const
{
    const int ligne = ligneChoisie(*m_ui->liste);
    return ligne < 0 ? std::wstring() : m_modeles[static_cast<std::size_t>(ligne)].first;
}

terrain* DlgTerrain::choisi()
{
    const int ligne = ligneChoisie(*m_ui->liste);
    return ligne < 0 ? nullptr : m_dessin.de(m_modeles[static_cast<std::size_t>(ligne)].second);
}

void DlgTerrain::montrerChoisi()
{
    terrain* const modele = choisi();
    const maillageTerrain* const sol = modele ? modele->maillage() : nullptr;
    for (QPushButton* const b :
         {m_ui->boutonActualiser, m_ui->boutonCourant, m_ui->boutonRenommer, m_ui->boutonSupprimer})
        b->setEnabled(modele != nullptr);
    for (QPushButton* const b :
         {m_ui->boutonTriangles, m_ui->boutonAltitude, m_ui->boutonProfil, m_ui->boutonCourbes, m_ui->boutonVolumes})
        b->setEnabled(sol != nullptr);
    m_ui->resume->clear();
    if (!sol)
        return;
    m_ui->boutonTriangles->setText(trianglesDessines(modele->id()) ? "Masquer les &triangles"
                                                                   : "Dessiner les &triangles");
    m_ui->resume->setText(QString("%1 sommets, %2 triangles, altitudes de %3 à %4, %5 remarques")
                              .arg(sol->sommets().size())
                              .arg(sol->nombreDedans())
                              .arg(fixe(sol->altitudeMin()), fixe(sol->altitudeMax()))
                              .arg(modele->incidents().size()));
}

void DlgTerrain::creer()
{
    std::vector<std::wstring> noms;
    for (const auto& [sonNom, id] : m_modeles)
        noms.push_back(sonNom);
    DlgSourcesTerrain dialogue(nomLibre(), std::move(noms));
    if (dialogue.exec() != QDialog::Accepted)
        return;
    const AcDbObjectId id = creerModele(dialogue.nom(), dialogue.sources());
    if (id.isNull())
        return avertirErreur(L"Le mod\u00e8le n'a pas \u00e9t\u00e9 fait : la ligne de commande dit pourquoi.");
    afficher(id);
}

/// The same sources as they are now, under the same name.
void DlgTerrain::actualiser()
{
    const auto contenu = choisi()->contenu();
    const AcDbObjectId courantAvant = m_dessin.courant()->id(), id = choisi()->id();
    if (!contenu || creerModele(nomChoisi(), contenu->sources).isNull())
        return avertirErreur(L"Le mod\u00e8le reste comme il \u00e9tait : la ligne de commande dit pourquoi.");
    choisirModele(m_dessin.base(), courantAvant);
    if (trianglesDessines(id)) {
        effacerTriangles(id);
        dessinerTriangles(id, nomChoisi(), *choisi()->maillage());
    }
    afficher(id);
}

void DlgTerrain::rendreCourant()
{
    const AcDbObjectId id = choisi()->id();
    choisirModele(m_dessin.base(), id);
    afficher(id);
}

void DlgTerrain::renommer(int ligne)
{
    const auto [ancien, id] = m_modeles[static_cast<std::size_t>(ligne)];
    const std::wstring nouveau = m_ui->liste->item(ligne, nom)->text().trimmed().toStdWString();
    if (nouveau != ancien && (!nomDeModele(nouveau) || !renommerModele(m_dessin.base(), ancien, nouveau)))
        avertirErreur(L"Ce nom ne convient pas, ou un autre mod\u00e8le le porte : " + nouveau);
    afficher(id);
}

void DlgTerrain::supprimer()
{
    if (!demanderOuiNon(L"Mod\u00e8les de terrain",
                        L"Supprimer le mod\u00e8le " + nomChoisi() + L" et ses triangles ?"))
        return;
    effacerTriangles(choisi()->id());
    supprimerModele(m_dessin.base(), nomChoisi());
    afficher({});
}

void DlgTerrain::triangles()
{
    const AcDbObjectId id = choisi()->id();
    if (effacerTriangles(id) == 0)
        dessinerTriangles(id, nomChoisi(), *choisi()->maillage());
    montrerChoisi();
}

/// Heights at points that are picked, on the command line, until Enter.
void DlgTerrain::altitudes()
{
    parcoursTerrain* const parcours = choisi()->parcours();
    saisirDansDessin([parcours] {
        ads_point p;
        while (acedGetPoint(nullptr, L"\nPoint dont on veut l'altitude :", p) == RTNORM) {
            if (const auto z = parcours->altitude({p[0], p[1]}))
                acutPrintf(L"\nAltitude = %.3f", *z);
            else
                acutPrintf(L"\nCe point est hors du mod\u00e8le.");
        }
    });
}

void commandeMnt()
{
    terrainsDuDessin* const dessin = terrainsEnSession() ? terrainsEnSession()->courants() : nullptr;
    if (dessin && dialoguesPossibles())
        DlgTerrain(*dessin).exec();
}
