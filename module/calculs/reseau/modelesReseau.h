#pragma once

#include <QAbstractTableModel>
#include <span>

#include "calculs/reseau/resultatReseau.h"

/// Rows that are typed into, beside what the last adjustment made of them.
class modeleReseau : public QAbstractTableModel {
    Q_OBJECT

public:
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation sens, int role) const override;
    void rafraichir();
    /// The figures changed, the rows did not.
    void resultatsChanges();

signals:
    void change();
    void refuse(const QString& raison);

protected:
    modeleReseau(reseau& r, const resultatReseau& resultat, std::span<const wchar_t* const> titres, QObject* parent);
    virtual std::size_t lignes() const = 0;
    /// Tells that a cell was changed, or why it was not. @param faute empty when it was
    bool conclure(const std::wstring& faute);

    reseau& m_r;
    const resultatReseau& m_resultat;

private:
    std::span<const wchar_t* const> m_titres;
};

/// The observations of a network. A box switches an observation off and on.
class modeleObservations : public modeleReseau {
    Q_OBJECT

public:
    modeleObservations(reseau& r, const resultatReseau& resultat, QObject* parent);
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& valeur, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    std::size_t lignes() const override { return m_r.observations.size(); }
    QVariant texteResultat(int ligne, int colonne) const;
};

/// The points of a network: given coordinates and how they are held, adjusted ones and their precision.
class modelePointsReseau : public modeleReseau {
    Q_OBJECT

public:
    modelePointsReseau(reseau& r, const resultatReseau& resultat, QObject* parent);
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& valeur, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    std::size_t lignes() const override { return m_r.points.size(); }
};
