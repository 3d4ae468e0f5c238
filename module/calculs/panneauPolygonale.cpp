#include "calculs/panneauPolygonale.h"

#include <QStringList>

#include "calculs/dialoguePolygonale.h"
#include "services/dialogueChamps.h"
#include "services/nombreFixe.h"

#include "ui_panneauPolygonale.h"

namespace {

/// The decimals of an angle, a distance and a height in the list.
constexpr int decimalesSaisie = 5;

std::wstring nombreDe(const QLineEdit& champ)
{
    const std::string texte = nombreFixe(reelDuChamp(champ), decimalesSaisie);
    return {texte.begin(), texte.end()};
}

} // namespace

panneauPolygonale::panneauPolygonale(QWidget* parent) : QWidget(parent), m_ui(std::make_unique<Ui::panneauPolygonale>())
{
    m_ui->setupUi(this);
    connect(m_ui->boutonAjouter, &QPushButton::clicked, this, &panneauPolygonale::ajouter);
    for (const QLineEdit* const champ : {m_ui->editStation, m_ui->editAngle, m_ui->editDistance, m_ui->editAltitude})
        connect(champ, &QLineEdit::returnPressed, this, &panneauPolygonale::ajouter);
    surveillerNombre(*m_ui->editAngle, L"l'angle");
    surveillerNombre(*m_ui->editDistance, L"la distance");
    surveillerNombre(*m_ui->editAltitude, L"l'altitude");
    connect(m_ui->boutonEnlever, &QPushButton::clicked, m_ui->liste, &listeObservations::enlever);
    connect(m_ui->boutonCharger, &QPushButton::clicked, this, &panneauPolygonale::charger);
    connect(m_ui->boutonReprendre, &QPushButton::clicked, this, &panneauPolygonale::reprendre);
    connect(m_ui->boutonSauvegarder, &QPushButton::clicked, this, &panneauPolygonale::sauvegarder);
    connect(m_ui->boutonCalculer, &QPushButton::clicked, this, &panneauPolygonale::calculer);
    connect(m_ui->boutonComparer, &QPushButton::clicked, this, &panneauPolygonale::comparer);
    connect(m_ui->boutonPlacer, &QPushButton::clicked, this, &panneauPolygonale::placer);
    connect(m_ui->boutonFermer, &QPushButton::clicked, this, &panneauPolygonale::fermer);
    connect(m_ui->liste, &listeObservations::lignesChangees, this, &panneauPolygonale::donneesChangees);
    connect(m_ui->liste, &listeObservations::colle, m_ui->bilan, &QLabel::setText);
    connect(m_ui->comboAngles, &QComboBox::currentIndexChanged, this, &panneauPolygonale::donneesChangees);
    connect(m_ui->comboNivellement, &QComboBox::currentIndexChanged, this, &panneauPolygonale::donneesChangees);
}

panneauPolygonale::~panneauPolygonale() = default;

void panneauPolygonale::ajouter()
{
    m_ui->liste->ajouter({m_ui->editStation->text().toStdWString(), nombreDe(*m_ui->editAngle),
                          nombreDe(*m_ui->editDistance), nombreDe(*m_ui->editAltitude)});
    std::vector<std::wstring> remarques;
    remarquerChamp(L"l'angle", *m_ui->editAngle, remarques);
    remarquerChamp(L"la distance", *m_ui->editDistance, remarques);
    remarquerChamp(L"l'altitude", *m_ui->editAltitude, remarques);
    montrerBilan(remarques);
    // Ready for the next row.
    m_ui->editStation->setFocus();
    m_ui->editStation->selectAll();
}

std::vector<ligneObservation> panneauPolygonale::lignes() const
{
    return m_ui->liste->lignes();
}

int panneauPolygonale::unite() const
{
    return m_ui->comboAngles->currentIndex();
}

int panneauPolygonale::nivellement() const
{
    return m_ui->comboNivellement->currentIndex();
}

void panneauPolygonale::afficher(const std::vector<ligneObservation>& lignes, int unite, int nivellement)
{
    m_ui->comboAngles->setCurrentIndex(unite);
    m_ui->comboNivellement->setCurrentIndex(nivellement);
    m_ui->liste->afficher(lignes);
}

void panneauPolygonale::dessiner(const polygonaleCalculee& calculee)
{
    std::vector<croquisPolygonale::nomPlace> noms;
    for (const stationCorrigee& s : calculee.resultat.stations)
        noms.push_back({QString::fromStdWString(s.nom), {s.x, s.y}});
    m_ui->croquis->montrer(calculee.originelle, calculee.compensee, std::move(noms));
}

void panneauPolygonale::montrerBilan(const std::vector<std::wstring>& phrases)
{
    QStringList textes;
    for (const std::wstring& phrase : phrases)
        textes << QString::fromStdWString(phrase);
    m_ui->bilan->setText(textes.join(u'\n'));
}

void panneauPolygonale::proposerReprise(bool possible)
{
    m_ui->boutonReprendre->setVisible(possible);
}
