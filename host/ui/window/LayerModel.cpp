#include "ui/window/LayerModel.h"

#include <algorithm>
#include <array>
#include <QFont>
#include <utility>

#include "ap/Document.h"

namespace {

struct ColumnText {
    const char* title;
    const char* hint;
};
constexpr std::array<ColumnText, LayerModel::columnCount_> columns{{
    {"", "Calque courant"},
    {"Nom", "Nom du calque"},
    {"Vis.", "Visible : actif ou inactif"},
    {"Gel", "Gelé : ni montré, ni calculé"},
    {"Verr.", "Verrouillé : montré, mais pas modifiable"},
    {"Coul.", "Couleur"},
    {"Type", "Type de ligne"},
}};

} // namespace

void LayerModel::setDocument(Document* document)
{
    if (document != m_document)
        m_hidden.clear();
    m_document = document;
    refresh();
}

void LayerModel::refresh()
{
    std::vector<LayerRow> rows = m_document ? layersOf(*m_document->database()) : std::vector<LayerRow>();
    if (rows == m_rows)
        return;
    const bool sameLayers = std::ranges::equal(rows, m_rows, {}, &LayerRow::id, &LayerRow::id);
    if (!sameLayers)
        beginResetModel();
    m_rows = std::move(rows);
    if (!sameLayers)
        endResetModel();
    else
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount_ - 1));
}

int LayerModel::rowOf(AcDbObjectId layer) const
{
    const auto found = std::ranges::find(m_rows, layer, &LayerRow::id);
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

int LayerModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int LayerModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(columnCount_);
}

QVariant LayerModel::data(const QModelIndex& at, int role) const
{
    const LayerRow& layer = row(at.row());
    if (role == Qt::FontRole && layer.current) {
        QFont font;
        font.setBold(true);
        return font;
    }
    if (role == Qt::ToolTipRole)
        return QString::fromUtf8(columns[static_cast<std::size_t>(at.column())].hint);
    if (role == Qt::DisplayRole || role == Qt::EditRole) {
        if (at.column() == name)
            return layer.name;
        if (at.column() == color)
            return QString::number(layer.color);
        if (at.column() == linetype)
            return layer.linetype;
    }
    if (role != Qt::DecorationRole)
        return {};
    switch (at.column()) {
    case current:
        return layer.current ? QVariant(m_icons.current()) : QVariant();
    case visible:
        return m_icons.bulb(!layer.off);
    case frozen:
        return m_icons.frost(layer.frozen);
    case locked:
        return m_icons.padlock(layer.locked);
    case color:
        return m_icons.swatch(layer.color);
    default:
        return {};
    }
}

QVariant LayerModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    const ColumnText& column = columns[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole)
        return QString::fromUtf8(column.title);
    if (role == Qt::ToolTipRole)
        return QString::fromUtf8(column.hint);
    return {};
}

Qt::ItemFlags LayerModel::flags(const QModelIndex& at) const
{
    const Qt::ItemFlags usual = QAbstractTableModel::flags(at);
    return at.column() == name ? usual | Qt::ItemIsEditable : usual;
}

bool LayerModel::setData(const QModelIndex& at, const QVariant& value, int role)
{
    const LayerRow& layer = row(at.row());
    if (role != Qt::EditRole || at.column() != name || value.toString() == layer.name)
        return false;
    return done(layerEdits::rename(*m_document, layer.id, value.toString()));
}

void LayerModel::toggle(const QModelIndex& at)
{
    const LayerRow layer = row(at.row());
    switch (at.column()) {
    case current:
        done(layerEdits::setCurrent(*m_document, layer.id));
        break;
    case visible:
        done(layerEdits::setOff(*m_document, layer.id, !layer.off));
        break;
    case frozen:
        done(layerEdits::setFrozen(*m_document, layer.id, !layer.frozen));
        break;
    case locked:
        done(layerEdits::setLocked(*m_document, layer.id, !layer.locked));
        break;
    default:
        break;
    }
}

void LayerModel::setColor(const QModelIndex& at, int wanted)
{
    done(layerEdits::setColor(*m_document, row(at.row()).id, wanted));
}

int LayerModel::create()
{
    AcDbObjectId made;
    if (!m_document || !done(layerEdits::create(*m_document, made)))
        return -1;
    return rowOf(made);
}

std::vector<AcDbObjectId> LayerModel::layersAt(const std::vector<int>& rows) const
{
    std::vector<AcDbObjectId> layers;
    for (const int at : rows)
        layers.push_back(row(at).id);
    return layers;
}

void LayerModel::remove(const std::vector<int>& rows)
{
    if (m_document && !rows.empty())
        done(layerEdits::remove(*m_document, layersAt(rows)));
}

void LayerModel::isolate(const std::vector<int>& rows)
{
    if (m_document)
        done(layerEdits::isolate(*m_document, layersAt(rows), m_hidden));
}

void LayerModel::endIsolation()
{
    if (!m_document)
        return;
    layerEdits::setShown(*m_document, std::exchange(m_hidden, {}));
    done(std::nullopt);
}

bool LayerModel::done(const layerEdits::Refusal& refusal)
{
    refresh();
    if (refusal)
        emit refused(*refusal);
    else
        emit edited();
    return !refusal;
}
