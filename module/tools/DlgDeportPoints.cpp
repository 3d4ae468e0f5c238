#include "tools/DlgDeportPoints.h"

#include <optional>

#include "services/dialogueChamps.h"
#include "tools/deplacementPoints.h"
#include "tools/placerPoints.h"

#include "acedads.h"
#include "ui_DlgDeportPoints.h"

namespace {

std::optional<point3> vecteurDesigne()
{
    ads_point de{}, vers{};
    if (acedGetPoint(nullptr, L"\nPremier point :", de) != RTNORM ||
        acedGetPoint(de, L"\nSecond point :", vers) != RTNORM)
        return std::nullopt;
    return point3{vers[0] - de[0], vers[1] - de[1], vers[2] - de[2]};
}

} // namespace

DlgDeportPoints::DlgDeportPoints(const listePointsDuDessin& laTable) :
    m_ui(disposer<Ui::DlgDeportPoints>(*this)),
    m_table(laTable),
    m_points(laTable, *m_ui->editPoints, *m_ui->boutonDesignerPoints, *m_ui->labelPointsDesignes),
    m_ligne(*m_ui->boutonDesignerLigne, *m_ui->labelLigne)
{
    connect(m_ui->boutonPrelever, &QPushButton::clicked, this, [this] { preleverVecteur(); });
    connect(m_ui->boutonOk, &QPushButton::clicked, this, &DlgDeportPoints::accept);
    connect(m_ui->boutonAnnuler, &QPushButton::clicked, this, &QDialog::reject);
}

DlgDeportPoints::~DlgDeportPoints() = default;

void DlgDeportPoints::preleverVecteur()
{
    const auto vecteur = saisirDansDessin(vecteurDesigne);
    if (!vecteur)
        return;
    m_ui->radioVecteur->setChecked(true);
    m_ui->editDx->setText(texteDesigne(vecteur->x));
    m_ui->editDy->setText(texteDesigne(vecteur->y));
    m_ui->editDz->setText(texteDesigne(vecteur->z));
}

bool DlgDeportPoints::calculer(const std::vector<pointNomme>& points)
{
    if (m_ui->radioVecteur->isChecked()) {
        point3 v;
        if (!lireChamp(*m_ui->editDx, L"dX", v.x) || !lireChamp(*m_ui->editDy, L"dY", v.y) ||
            !lireChamp(*m_ui->editDz, L"dZ", v.z))
            return false;
        m_places = deportesDuVecteur(points, v);
        return true;
    }
    const axe* const ligne = m_ligne.choisie();
    double distance = 0.0;
    if (!ligne || (m_ui->radioDistance->isChecked() && !lireChamp(*m_ui->editDistance, L"la distance", distance)))
        return false;
    m_places =
        m_ui->radioDistance->isChecked() ? deportesDeLAxe(points, *ligne, distance) : deportesSurLAxe(points, *ligne);
    return true;
}

void DlgDeportPoints::accept()
{
    m_positions = m_points.positions();
    if (!m_positions.empty() && calculer(pointsNommes(m_table, m_positions)))
        QDialog::accept();
}
