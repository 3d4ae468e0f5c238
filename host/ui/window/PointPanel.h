#pragma once

#include <memory>
#include <QAbstractTableModel>
#include <QWidget>

#include "ui/window/PointTables.h"

class Document;
class QComboBox;
class QLabel;
class QTableView;

/// The points of one table, read as they come into sight.
class PointModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { name, code, x, y, z, columnCount_ };

    PointModel(const PointTables* tables, QObject* parent) : QAbstractTableModel(parent), m_tables(tables) {}

    /// -1 for none.
    void show(int table);
    std::optional<ShownPoint> point(int row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& at, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const PointTables* m_tables; // may be null
    int m_table = -1;
    int m_count = 0;
};

/// The point tables of the project of the current drawing. A double click on a point shows where it is.
class PointPanel : public QWidget {
    Q_OBJECT

public:
    /// `tables` may be null: then there are none.
    explicit PointPanel(PointTables* tables, QWidget* parent = nullptr);

    /// Reads the project again when it changed.
    void refresh();

signals:
    void shown(double x, double y);
    void edited();

private:
    void choose(int table);
    void makeCurrent();
    void search(const QString& name);

    PointTables* m_tables;
    PointModel* m_model;
    QComboBox* m_names;
    QTableView* m_table;
    QLabel* m_count;
    std::optional<std::uint64_t> m_state;
    QStringList m_tableNames;
};
