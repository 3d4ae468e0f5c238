#include "calculs/reseau/CDlgTabPoidsObse.h"

#include <cmath>
#include <QAbstractTableModel>

#include "calculs/reseau/editionReseau.h"

#include "ui_CDlgTabPoidsObse.h"

namespace {

constexpr const char* titres[] = {"Type", "Stat", "P.Vis", "Mesure", "Poids", "Nord", "Dist"};

class modelePoids : public QAbstractTableModel {
public:
    modelePoids(const reseau& r, const resultatReseau& resultat, QObject* parent) :
        QAbstractTableModel(parent),
        m_r(r),
        m_resultat(resultat)
    {
    }
    int rowCount(const QModelIndex& parent) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_r.observations.size());
    }
    int columnCount(const QModelIndex& parent) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(std::size(titres));
    }
    QVariant headerData(int section, Qt::Orientation sens, int role) const override
    {
        return role == Qt::DisplayRole && sens == Qt::Horizontal ? QVariant(titres[section])
                                                                 : QAbstractTableModel::headerData(section, sens, role);
    }
    QVariant data(const QModelIndex& index, int role) const override
    {
        if (role != Qt::DisplayRole)
            return {};
        const int ligne = index.row();
        const auto texte = [&](colonneObservation c) {
            return QString::fromStdWString(texteObservation(m_r, ligne, c));
        };
        switch (index.column()) {
        case 0:
            return texte(colonneObservation::genre);
        case 1:
            return texte(colonneObservation::station);
        case 2:
            return texte(colonneObservation::vise);
        case 3:
            return texte(colonneObservation::mesure);
        case 4:
            return poids(static_cast<std::size_t>(ligne));
        default:
            return vers(m_r.observations[static_cast<std::size_t>(ligne)], index.column() == 5);
        }
    }

private:
    QVariant poids(std::size_t k) const
    {
        const bool pese = k < m_resultat.mesures.size() && m_resultat.mesures[k].retenue;
        return pese ? QVariant(
                          QString::number(m_resultat.mesures[k].poids * m_resultat.mesures[k].facteurRobuste, 'g', 6))
                    : QVariant();
    }
    /// Bearing in grades or horizontal length from the station to the point sighted, as adjusted.
    QVariant vers(const observationReseau& o, bool nord) const
    {
        if (o.vers < 0 || m_resultat.points.size() != m_r.points.size())
            return {};
        const pointCompense &a = m_resultat.points[static_cast<std::size_t>(o.de)],
                            &b = m_resultat.points[static_cast<std::size_t>(o.vers)];
        if (!estConnue(a.x) || !estConnue(b.x))
            return {};
        return nord ? QString::number(gisementDe(b.x - a.x, b.y - a.y) / gradeEnRadians, 'f', 4)
                    : QString::number(std::hypot(b.x - a.x, b.y - a.y), 'f', 4);
    }

    const reseau& m_r;
    const resultatReseau& m_resultat;
};

} // namespace

CDlgTabPoidsObse::CDlgTabPoidsObse(const reseau& r, const resultatReseau& resultat) :
    m_ui(std::make_unique<Ui::CDlgTabPoidsObse>())
{
    m_ui->setupUi(this);
    m_ui->liste->setModel(new modelePoids(r, resultat, this));
    connect(m_ui->boutonFermer, &QPushButton::clicked, this, &QDialog::accept);
}

CDlgTabPoidsObse::~CDlgTabPoidsObse() = default;
