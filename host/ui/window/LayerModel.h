#pragma once

#include <QAbstractTableModel>

#include "ui/window/LayerIcons.h"
#include "ui/window/LayerList.h"

/// The layers of a drawing as a table; editing a cell changes the drawing.
class LayerModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { current, name, visible, frozen, locked, color, linetype, columnCount_ };

    using QAbstractTableModel::QAbstractTableModel;

    /// Null for none.
    void setDocument(Document* document);
    /// Reads the drawing again.
    void refresh();
    const LayerRow& row(int at) const { return m_rows[static_cast<std::size_t>(at)]; }
    int rowOf(AcDbObjectId layer) const;
    /// What a click on a cell does: switches visible, frozen, locked; makes current.
    void toggle(const QModelIndex& at);
    void setColor(const QModelIndex& at, int color);
    /// Row of the new layer; -1 when there is none.
    int create();
    void remove(const std::vector<int>& rows);
    /// Switches the other layers off, or on again those that this switched off.
    void isolate(const std::vector<int>& rows);
    void endIsolation();
    bool isIsolating() const { return !m_hidden.empty(); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& at, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& at) const override;
    bool setData(const QModelIndex& at, const QVariant& value, int role) override;

signals:
    /// A change was not done, and why.
    void refused(const QString& reason);
    /// The drawing was changed.
    void edited();

private:
    bool done(const layerEdits::Refusal& refusal);
    std::vector<AcDbObjectId> layersAt(const std::vector<int>& rows) const;

    Document* m_document = nullptr;
    std::vector<LayerRow> m_rows;
    std::vector<AcDbObjectId> m_hidden; ///< by isolating
    LayerIcons m_icons;
};
