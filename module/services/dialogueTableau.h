#pragma once

#include <functional>
#include <QAbstractTableModel>
#include <QStringList>
#include <string>

class QTableView;

/// Rows of texts made as they are shown, for lists that may be long.
class modeleTableau : public QAbstractTableModel {
public:
    using cellule = std::function<std::wstring(int ligne, int colonne)>;

    /// @param premiereDesNombres columns from this one on stand to the right
    modeleTableau(QStringList titres, int premiereDesNombres, cellule texte, QObject* parent = nullptr);

    /// Everything may have changed.
    void montrer(std::size_t lignes);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation sens, int role) const override;

private:
    QStringList m_titres;
    int m_premiereDesNombres;
    cellule m_texte;
    int m_lignes = 0;
};

/// Columns at least as wide as their titles and first rows ask for, now and each time the list is filled anew; the last
/// takes what is left.
void ajusterColonnes(QTableView& vue);

/// Whole rows, plain lines, widths by titles and texts.
void preparerTableau(QTableView& vue, modeleTableau& modele);
