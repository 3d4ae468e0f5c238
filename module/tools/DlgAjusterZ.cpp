#include "tools/DlgAjusterZ.h"

#include <algorithm>

#include "points/altitudeDuSol.h"
#include "points/listePointsDuDessin.h"
#include "services/dialogueChamps.h"
#include "services/dialogueMessage.h"
#include "services/formatNombres.h"
#include "tools/deplacementPoints.h"
#include "tools/placerCotes.h"
#include "tools/placerPoints.h"

#include "ui_DlgAjusterZ.h"

namespace {

enum modeAltitude { valeurFixe, decalageConstant, pente, lelongDeLigne, texteProche, modeleTerrain };

std::wstring altitude(double z)
{
    return z == inconnu ? std::wstring() : formaterFixe(z, 3);
}

std::vector<double> altitudesDuSol(const std::vector<pointNomme>& points)
{
    std::vector<double> altitudes;
    for (const pointNomme& p : points)
        altitudes.push_back(altitudeDuSol(p.place.x, p.place.y));
    return altitudes;
}

} // namespace

DlgAjusterZ::DlgAjusterZ(listePointsDuDessin& laTable) :
    m_ui(disposer<Ui::DlgAjusterZ>(*this)),
    m_table(laTable),
    m_points(laTable, *m_ui->editPoints, *m_ui->boutonDesignerPoints, *m_ui->labelPointsDesignes),
    m_ligne(*m_ui->boutonDesignerLigne, *m_ui->labelLigne),
    m_modele({"Point", "Z avant", "Z après", "Différence"}, 1, [this](int ligne, int colonne) {
        const ajustement& a = m_ajustements[static_cast<std::size_t>(ligne)];
        const double avant = a.point.place.z;
        return colonne == 0   ? a.point.nom
               : colonne == 1 ? altitude(avant)
               : colonne == 2 ? altitude(a.apres)
                              : altitude((grandeur(a.apres) - grandeur(avant)).valeur());
    })
{
    preparerTableau(*m_ui->liste, m_modele);
    oublier();
    connect(m_ui->boutonCalculer, &QPushButton::clicked, this, [this] { calculer(); });
    connect(m_ui->boutonAppliquer, &QPushButton::clicked, this, [this] { appliquer(); });
    connect(m_ui->boutonFermer, &QPushButton::clicked, this, &QDialog::accept);
}

DlgAjusterZ::~DlgAjusterZ() = default;

void DlgAjusterZ::oublier()
{
    m_ajustements.clear();
    m_modele.montrer(0);
    m_ui->boutonAppliquer->setEnabled(false);
}

void DlgAjusterZ::calculer()
{
    oublier();
    m_ui->labelBilan->clear();
    const std::vector<int> positions = m_points.positions();
    const std::vector<pointNomme> points = pointsNommes(m_table, positions);
    const std::vector<double> apres = points.empty() ? std::vector<double>() : altitudes(points);
    if (apres.empty())
        return;
    for (std::size_t i = 0; i < points.size(); ++i)
        if (apres[i] != inconnu && apres[i] != points[i].place.z)
            m_ajustements.push_back({positions[i], points[i], apres[i]});
    const auto sans = std::count(apres.begin(), apres.end(), inconnu);
    m_modele.montrer(m_ajustements.size());
    m_ui->labelBilan->setText(
        QStringLiteral("%1 altitude(s) à changer ; %2 point(s) pour lesquels aucune n'est trouvée")
            .arg(m_ajustements.size())
            .arg(sans));
    m_ui->boutonAppliquer->setEnabled(!m_ajustements.empty());
}

std::vector<double> DlgAjusterZ::altitudes(const std::vector<pointNomme>& points) const
{
    double valeur = 0.0;
    switch (m_ui->comboMode->currentIndex()) {
    case valeurFixe:
        if (!lireChamp(*m_ui->editValeur, L"l'altitude", valeur))
            return {};
        return std::vector<double>(points.size(), valeur);
    case decalageConstant:
        return lireChamp(*m_ui->editValeur, L"le décalage", valeur) ? altitudesDecalees(points, valeur)
                                                                    : std::vector<double>();
    case pente:
        return enPente(points);
    case lelongDeLigne: {
        const axe* const ligne = m_ligne.choisie();
        return ligne ? altitudesDeLAxe(points, *ligne) : std::vector<double>();
    }
    case texteProche:
        return lireChamp(*m_ui->editDistance, L"la distance", valeur, 1e-6)
                   ? altitudesVoisines(points, cotesDuDessin(), valeur)
                   : std::vector<double>();
    default:
        if (solDuDessin())
            return altitudesDuSol(points);
        avertirErreur(L"Le dessin n'a pas de modèle de terrain.");
        return {};
    }
}

bool DlgAjusterZ::pointNommeDans(const QLineEdit& champ, point3& place) const
{
    const std::wstring nom = champ.text().trimmed().toStdWString();
    int position = -1;
    if (!m_table.existPoint(nom.c_str(), position)) {
        avertirErreur(L"La table n'a pas de point nommé « " + nom + L" ».");
        return false;
    }
    const listePointsDuDessin& table = m_table;
    const pointDuDessin& p = *table.getData(position);
    place = {p.getX(), p.getY(), p.getZ()};
    if (estConnue(place.x) && estConnue(place.y) && estConnue(place.z))
        return true;
    avertirErreur(L"Le point « " + nom + L" » n'a pas d'altitude connue.");
    return false;
}

std::vector<double> DlgAjusterZ::enPente(const std::vector<pointNomme>& points) const
{
    point3 de, a;
    if (!pointNommeDans(*m_ui->editPremier, de) || !pointNommeDans(*m_ui->editSecond, a))
        return {};
    std::vector<double> altitudes = altitudesEnPente(points, de, a);
    if (altitudes.empty())
        avertirErreur(L"Les deux points sont au même endroit.");
    return altitudes;
}

void DlgAjusterZ::appliquer()
{
    std::vector<int> positions;
    std::vector<point3> places;
    for (const ajustement& a : m_ajustements) {
        positions.push_back(a.position);
        places.push_back({a.point.place.x, a.point.place.y, a.apres});
    }
    const int changes = deplacerPoints(m_table, positions, places);
    oublier();
    QString bilan = QStringLiteral("%1 altitude(s) changée(s)").arg(changes);
    if (const int restent = static_cast<int>(positions.size()) - changes; restent > 0)
        bilan += QStringLiteral(" ; %1 point(s) sur un calque verrouillé sont restés").arg(restent);
    m_ui->labelBilan->setText(bilan);
}
