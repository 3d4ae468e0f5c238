#pragma once

#include <QAbstractTableModel>

#include "calculs/reseau/resultatReseau.h"

/// The observations of a network as rows: what was typed, and what the last adjustment made of it. A box switches an
/// observation off and on.
class modeleObservations : public QAbstractTableModel {
    Q_OBJECT

public:
    modeleObservations(reseau& r, const resultatReseau& resultat, QObject* parent);
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& valeur, int role) override;
    QVariant headerData(int section, Qt::Orientation sens, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    void rafraichir();
    /// The figures changed, the rows did not.
    void resultatsChanges();

signals:
    void change();
    void refuse(const QString& raison);

private:
    QVariant texteResultat(int ligne, int colonne) const;
    reseau& m_r;
    const resultatReseau& m_resultat;
};

/// The points of a network as rows: given coordinates and how they are held, adjusted ones and their precision.
class modelePointsReseau : public QAbstractTableModel {
    Q_OBJECT

public:
    modelePointsReseau(reseau& r, const resultatReseau& resultat, QObject* parent);
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& valeur, int role) override;
    QVariant headerData(int section, Qt::Orientation sens, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    void rafraichir();
    void resultatsChanges();

signals:
    void change();
    void refuse(const QString& raison);

private:
    reseau& m_r;
    const resultatReseau& m_resultat;
};
