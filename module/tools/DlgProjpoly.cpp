#include "tools/DlgProjpoly.h"

#include "points/listePointsDuDessin.h"
#include "reports/resultPolygo.h"
#include "services/dialogueChamps.h"
#include "services/dialogueMessage.h"
#include "services/formatNombres.h"
#include "tools/placerPoints.h"

#include "ui_DlgProjpoly.h"

namespace {

std::wstring nombreConnu(double valeur)
{
    return valeur == inconnu ? std::wstring() : formaterFixe(valeur, 3);
}

std::wstring texteDe(const pointProjete& p, int colonne)
{
    switch (colonne) {
    case 0:
        return p.point.nom;
    case 1:
        return formaterAbscisse(p.abscisse, 3, 2);
    case 2:
        return formaterFixe(p.pied.decalage, 3);
    case 3:
        return formaterFixe(p.pied.distance, 3);
    case 4:
        return nombreConnu(p.denivelee);
    case 5:
        return formaterFixe(p.pied.pied.x, 3);
    case 6:
        return formaterFixe(p.pied.pied.y, 3);
    default:
        return nombreConnu(p.pied.pied.z);
    }
}

} // namespace

DlgProjpoly::DlgProjpoly(listePointsDuDessin& laTable) :
    m_ui(disposer<Ui::DlgProjpoly>(*this)),
    m_table(laTable),
    m_points(laTable, *m_ui->editPoints, *m_ui->boutonDesignerPoints, *m_ui->labelPointsDesignes),
    m_ligne(*m_ui->boutonDesignerLigne, *m_ui->labelLigne, m_ui->editOrigine),
    m_modele({"Point", "Abscisse", "Décalage", "Distance", "Dénivelée", "X du pied", "Y du pied", "Z du pied"}, 1,
             [this](int ligne, int colonne) { return texteDe(m_projetes[static_cast<std::size_t>(ligne)], colonne); })
{
    preparerTableau(*m_ui->liste, m_modele);
    remplirCodes(*m_ui->comboCode);
    m_ui->boutonRapport->setEnabled(false);
    m_ui->boutonPlacer->setEnabled(false);
    connect(m_ui->boutonCalculer, &QPushButton::clicked, this, [this] { calculer(); });
    connect(m_ui->boutonRapport, &QPushButton::clicked, this, [this] { montrerRapport(); });
    connect(m_ui->boutonPlacer, &QPushButton::clicked, this, [this] { placerPieds(); });
    connect(m_ui->boutonFermer, &QPushButton::clicked, this, &QDialog::accept);
}

DlgProjpoly::~DlgProjpoly() = default;

void DlgProjpoly::calculer()
{
    double origine = 0.0;
    const axe* const ligne = m_ligne.choisie();
    if (!ligne || !lireOrigine(*m_ui->editOrigine, origine))
        return;
    const std::vector<int> positions = m_points.positions();
    if (positions.empty())
        return;
    m_axe = *ligne;
    m_numerotation = m_ligne.numerotation(origine);
    m_projetes = projeterPoints(m_axe, m_numerotation, pointsNommes(m_table, positions));
    m_modele.montrer(m_projetes.size());
    m_ui->boutonRapport->setEnabled(true);
    m_ui->boutonPlacer->setEnabled(true);
}

void DlgProjpoly::montrerRapport()
{
    htmlDocument rapport = rapportProjection(m_axe, m_numerotation, m_projetes);
    ecrireEtMontrer(rapport);
}

void DlgProjpoly::placerPieds()
{
    int code = 1;
    if (!lireCode(*m_ui->comboCode, code))
        return;
    int numero = m_table.getMaxNum();
    std::vector<pointACreer> pieds;
    for (const pointProjete& p : m_projetes)
        pieds.push_back({{std::to_wstring(++numero), p.pied.pied}, p.point.nom});
    if (const std::wstring refus = refusDesNoms(pieds); !refus.empty())
        return avertirErreur(refus);
    creerPoints(m_table, pieds, code);
    m_ui->boutonPlacer->setEnabled(false); // twice would double them
}
