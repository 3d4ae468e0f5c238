#include "services/dialogueTableau.h"

#include <algorithm>
#include <QHeaderView>
#include <QTableView>

modeleTableau::modeleTableau(QStringList titres, int premiereDesNombres, cellule texte, QObject* parent) :
    QAbstractTableModel(parent),
    m_titres(std::move(titres)),
    m_premiereDesNombres(premiereDesNombres),
    m_texte(std::move(texte))
{
}

void modeleTableau::montrer(std::size_t lignes)
{
    beginResetModel();
    m_lignes = static_cast<int>(lignes);
    endResetModel();
}

int modeleTableau::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_lignes;
}

int modeleTableau::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_titres.size());
}

QVariant modeleTableau::data(const QModelIndex& index, int role) const
{
    if (role == Qt::DisplayRole)
        return QString::fromStdWString(m_texte(index.row(), index.column()));
    if (role == Qt::TextAlignmentRole && index.column() >= m_premiereDesNombres)
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QVariant modeleTableau::headerData(int section, Qt::Orientation sens, int role) const
{
    if (role != Qt::DisplayRole)
        return {};
    return sens == Qt::Horizontal ? QVariant(m_titres.value(section)) : QVariant(section + 1);
}

void ajusterColonnes(QTableView& vue)
{
    constexpr int lignesMesurees = 100; // lists of points are long
    QHeaderView& titres = *vue.horizontalHeader();
    titres.setStretchLastSection(true);
    titres.setHighlightSections(false); // in bold they would want more room
    titres.setResizeContentsPrecision(lignesMesurees);
    vue.resizeColumnsToContents();
    const QAbstractItemView& base = vue;    // where the widths are not hidden
    const auto ajuster = [&base, &titres] { // none gets narrower than the user has made it
        for (int i = 0; i + 1 < titres.count(); ++i)
            titres.resizeSection(
                i, std::max({titres.sectionSize(i), base.sizeHintForColumn(i), titres.sectionSizeHint(i)}));
    };
    QObject::connect(vue.model(), &QAbstractItemModel::modelReset, &vue, ajuster);
    QObject::connect(vue.model(), &QAbstractItemModel::rowsInserted, &vue, ajuster, Qt::QueuedConnection);
}

void preparerTableau(QTableView& vue, modeleTableau& modele)
{
    vue.setModel(&modele);
    vue.setSelectionBehavior(QAbstractItemView::SelectRows);
    vue.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed); // as high as each other: no row is measured
    ajusterColonnes(vue);
}
