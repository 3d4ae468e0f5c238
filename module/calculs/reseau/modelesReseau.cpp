#include "calculs/reseau/modelesReseau.h"

#include <QColor>

#include "calculs/reseau/editionReseau.h"
#include "calculs/reseau/rapportReseau.h"
#include "services/dialogueCellules.h"
#include "services/nombreFixe.h"

namespace {

constexpr const wchar_t* titresObservations[] = {L"Type",         L"Stat",        L"P.Vis",  L"2e P.Vis",
                                                 L"Mesure",       L"Écart-type",  L"Résidu", L"Redondance",
                                                 L"Résidu normé", L"s0 sans elle"};
constexpr const wchar_t* titresPoints[] = {L"Point",      L"X",           L"Y",          L"Z",
                                           L"En plan",    L"En altitude", L"X compensé", L"Y compensé",
                                           L"Z compensé", L"sX mm",       L"sY mm",      L"sZ mm"};

QString nombre(double valeur, int decimales)
{
    return estConnue(valeur) ? QString::fromStdString(nombreFixe(valeur, decimales)) : QString();
}

} // namespace

modeleReseau::modeleReseau(reseau& r, const resultatReseau& resultat, std::span<const wchar_t* const> titres,
                           QObject* parent) :
    QAbstractTableModel(parent),
    m_r(r),
    m_resultat(resultat),
    m_titres(titres)
{
}

int modeleReseau::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(lignes());
}

int modeleReseau::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_titres.size());
}

QVariant modeleReseau::headerData(int section, Qt::Orientation sens, int role) const
{
    if (role != Qt::DisplayRole || sens != Qt::Horizontal)
        return QAbstractTableModel::headerData(section, sens, role);
    return QString::fromWCharArray(m_titres[static_cast<std::size_t>(section)]);
}

void modeleReseau::rafraichir()
{
    beginResetModel();
    endResetModel();
}

void modeleReseau::resultatsChanges()
{
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

bool modeleReseau::conclure(const std::wstring& faute)
{
    if (!faute.empty()) {
        emit refuse(texteQt(faute));
        return false;
    }
    emit change();
    return true;
}

modeleObservations::modeleObservations(reseau& r, const resultatReseau& resultat, QObject* parent) :
    modeleReseau(r, resultat, titresObservations, parent)
{
}

/// Residuals in ten-thousandths of a grade and millimetres, as deviations are.
QVariant modeleObservations::texteResultat(int ligne, int colonne) const
{
    const auto k = static_cast<std::size_t>(ligne);
    if (k >= m_resultat.mesures.size() || !m_resultat.mesures[k].retenue)
        return {};
    const observationCompensee& m = m_resultat.mesures[k];
    const observationReseau& o = m_r.observations[k];
    const double unite = estAngulaire(o.genre) ? gradeEnRadians / dmgrEnRadians : 1.0 / milli;
    switch (colonne - colonnesObservation) {
    case 0:
        return nombre(residuAffiche(m_r, o, m.residu) * unite, 1);
    case 1:
        return nombre(m.redondance, 2);
    case 2:
        return nombre(m.normalise, 2);
    default:
        return nombre(m.s0Sans, 3);
    }
}

QVariant modeleObservations::data(const QModelIndex& index, int role) const
{
    const int ligne = index.row(), colonne = index.column();
    const auto k = static_cast<std::size_t>(ligne);
    if (role == Qt::CheckStateRole && colonne == 0)
        return m_r.observations[k].active ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::ForegroundRole && k < m_resultat.mesures.size() && m_resultat.mesures[k].suspecte)
        return QColor(Qt::red);
    if (role == Qt::TextAlignmentRole && colonne >= static_cast<int>(colonneObservation::mesure))
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return {};
    return colonne < colonnesObservation
               ? texteQt(texteObservation(m_r, ligne, static_cast<colonneObservation>(colonne)))
               : texteResultat(ligne, colonne);
}

bool modeleObservations::setData(const QModelIndex& index, const QVariant& valeur, int role)
{
    if (role == Qt::CheckStateRole) {
        m_r.observations[static_cast<std::size_t>(index.row())].active = valeur.toInt() == Qt::Checked;
        return conclure({});
    }
    return conclure(changerObservation(m_r, index.row(), static_cast<colonneObservation>(index.column()),
                                       valeur.toString().toStdWString()));
}

Qt::ItemFlags modeleObservations::flags(const QModelIndex& index) const
{
    Qt::ItemFlags etat = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (index.column() == 0)
        etat |= Qt::ItemIsUserCheckable;
    return index.column() < colonnesObservation ? etat | Qt::ItemIsEditable : etat;
}

modelePointsReseau::modelePointsReseau(reseau& r, const resultatReseau& resultat, QObject* parent) :
    modeleReseau(r, resultat, titresPoints, parent)
{
}

QVariant modelePointsReseau::data(const QModelIndex& index, int role) const
{
    const int colonne = index.column();
    const auto i = static_cast<std::size_t>(index.row());
    if (role == Qt::TextAlignmentRole && colonne > 0)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return {};
    if (colonne < colonnesPoint)
        return texteQt(textePoint(m_r, index.row(), static_cast<colonnePoint>(colonne)));
    if (i >= m_resultat.points.size())
        return {};
    const pointCompense& p = m_resultat.points[i];
    double a = inconnu, b = inconnu;
    if (estConnue(p.x) && estConnue(p.y))
        m_r.axes.versFichier(p.x, p.y, a, b);
    const bool droit = m_r.axes.premiereEstX();
    const auto mm = [](double v) { return estConnue(v) ? nombre(v / milli, 1) : QString(); };
    switch (colonne - colonnesPoint) {
    case 0:
        return nombre(a, 4);
    case 1:
        return nombre(b, 4);
    case 2:
        return nombre(p.z, 4);
    case 3:
        return mm(droit ? p.sx : p.sy);
    case 4:
        return mm(droit ? p.sy : p.sx);
    default:
        return mm(p.sz);
    }
}

bool modelePointsReseau::setData(const QModelIndex& index, const QVariant& valeur, int role)
{
    return role == Qt::EditRole && conclure(changerPoint(m_r, index.row(), static_cast<colonnePoint>(index.column()),
                                                         valeur.toString().toStdWString()));
}

Qt::ItemFlags modelePointsReseau::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags etat = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return index.column() < colonnesPoint ? etat | Qt::ItemIsEditable : etat;
}
