#include "implantation/modeleImplantation.h"

#include "implantation/travailImplantation.h"

namespace {

constexpr const char* titres[] = {"Num", "X", "Y", "Z", "Station", "Ref", "Angle", "Distance", "Visible"};
static_assert(std::size(titres) == nbColonnes);

bool estTexte(int colonne)
{
    return colonne == colNum || colonne == colStation || colonne == colRef;
}

} // namespace

modeleImplantation::modeleImplantation(const travailImplantation& travail, QObject* parent) :
    QAbstractTableModel(parent),
    m_travail(travail)
{
}

int modeleImplantation::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_travail.points.size());
}

int modeleImplantation::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : nbColonnes;
}

QVariant modeleImplantation::data(const QModelIndex& index, int role) const
{
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>(Qt::AlignVCenter | (estTexte(index.column()) ? Qt::AlignLeft : Qt::AlignRight));
    if (role != Qt::DisplayRole || !index.isValid() || index.row() >= rowCount())
        return {};
    const pointDuTravail& point = m_travail.points[static_cast<std::size_t>(index.row())];
    const observationMiseEnStation* const station = m_travail.station(point.station);
    const donneesStation donnees = station ? station->donnees() : donneesStation();
    return QString::fromStdWString(
        ligneDe(point, station ? &donnees : nullptr)[static_cast<std::size_t>(index.column())]);
}

QVariant modeleImplantation::headerData(int section, Qt::Orientation sens, int role) const
{
    if (sens != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= nbColonnes)
        return {};
    return QString::fromUtf8(titres[section]);
}

void modeleImplantation::rafraichir()
{
    beginResetModel();
    endResetModel();
}
