#pragma once

#include <QAbstractTableModel>

class travailImplantation;

/// The points of a job as rows, made as they are shown.
class modeleImplantation : public QAbstractTableModel {
public:
    explicit modeleImplantation(const travailImplantation& travail, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation sens, int role) const override;

    /// The job changed.
    void rafraichir();

private:
    const travailImplantation& m_travail;
};
