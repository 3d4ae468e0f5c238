#include "calculs/CCalcGisementDlg.h"

#include <optional>

#include "calculs/dialoguePolygonale.h"
#include "calculs/gisement.h"
#include "calculs/uniteAngulaire.h"
#include "points/projetDansDessin.h"
#include "services/codages.h"
#include "services/dialogueChamps.h"
#include "services/nombreFixe.h"

#include "acedads.h"
#include "adscodes.h"
#include "ui_CCalcGisementDlg.h"

namespace {

/// The point of the current table that stands there, else the place itself, without a name.
CCalcGisementDlg::lieu lieuDessine(const ads_point point)
{
    pointDuDessin trouve;
    if (listePointsDuDessin* const table = tableCourante(); table && table->getAt(point[0], point[1], trouve))
        return {depuisAnsi(trouve.getNomPoint()), trouve.getX(), trouve.getY()};
    return {{}, point[0], point[1]};
}

std::optional<CCalcGisementDlg::lieu> lieuDesigne()
{
    return dialogueModule::saisirDansDessin([]() -> std::optional<CCalcGisementDlg::lieu> {
        ads_point point;
        if (acedGetPoint(nullptr, L"\nPoint : ", point) != RTNORM)
            return std::nullopt;
        return lieuDessine(point);
    });
}

} // namespace

CCalcGisementDlg::CCalcGisementDlg(int unite, const lieu& direction) :
    m_unite(unite),
    m_ui(std::make_unique<Ui::CCalcGisementDlg>())
{
    m_ui->setupUi(this);
    if (m_unite >= uniteGrades && m_unite <= uniteRadians)
        m_ui->labelUnite->setText(QString::fromWCharArray(motUniteAngulaire(m_unite)));
    const champsLieu champsStation{m_ui->editNomStation, m_ui->editXStation, m_ui->editYStation};
    const champsLieu champsDirection{m_ui->editNomDirection, m_ui->editXDirection, m_ui->editYDirection};
    afficher(champsStation, {{}, 0.0, 0.0});
    afficher(champsDirection, direction);
    for (const QLineEdit* const champ : {champsStation.x, champsStation.y, champsDirection.x, champsDirection.y})
        connect(champ, &QLineEdit::textChanged, this, &CCalcGisementDlg::recalculer);
    connect(m_ui->boutonPreleverStation, &QPushButton::clicked, this, [champsStation] { prelever(champsStation); });
    connect(m_ui->boutonPreleverDirection, &QPushButton::clicked, this,
            [champsDirection] { prelever(champsDirection); });
    connect(m_ui->boutonOk, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->boutonAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    recalculer();
}

CCalcGisementDlg::~CCalcGisementDlg() = default;

double CCalcGisementDlg::gisementCalcule() const
{
    return gisement(reelDuChamp(*m_ui->editXStation), reelDuChamp(*m_ui->editYStation),
                    reelDuChamp(*m_ui->editXDirection), reelDuChamp(*m_ui->editYDirection), m_unite);
}

void CCalcGisementDlg::afficher(const champsLieu& champs, const lieu& l)
{
    champs.nom->setText(QString::fromStdWString(l.nom));
    montrerReel(*champs.x, l.x);
    montrerReel(*champs.y, l.y);
}

/// A cancelled pick leaves the fields as they are.
void CCalcGisementDlg::prelever(const champsLieu& champs)
{
    const auto designe = lieuDesigne();
    if (!designe)
        return;
    if (!designe->nom.empty())
        return afficher(champs, *designe); // as the table has it
    champs.nom->clear();
    champs.x->setText(texteDesigne(designe->x));
    champs.y->setText(texteDesigne(designe->y));
}

void CCalcGisementDlg::recalculer()
{
    m_ui->editGisement->setText(QString::fromStdString(nombreFixe(gisementCalcule(), 4)));
    std::vector<std::wstring> remarques;
    remarquerChamp(L"X de la station", *m_ui->editXStation, remarques);
    remarquerChamp(L"Y de la station", *m_ui->editYStation, remarques);
    remarquerChamp(L"X de la direction", *m_ui->editXDirection, remarques);
    remarquerChamp(L"Y de la direction", *m_ui->editYDirection, remarques);
    QStringList textes;
    for (const std::wstring& remarque : remarques)
        textes << QString::fromStdWString(remarque);
    m_ui->remarques->setText(textes.join(u'\n'));
    m_ui->remarques->setVisible(!textes.isEmpty());
}
