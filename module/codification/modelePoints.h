#pragma once

#include <optional>
#include <QAbstractTableModel>
#include <QStringList>
#include <string>
#include <vector>

class listePointsDuDessin;
class tableCodification;
class QTableView;

/// The points of a table as lists show them: all, those of a code, those whose name holds a text; in table order until
/// a title is clicked. Of the points it keeps their places in the table only: a million of them open at once.
class modelePoints : public QAbstractTableModel {
    Q_OBJECT

public:
    enum colonne { numero, x, y, z, code, libelle };

    /// @param titres of the columns, from the left; as many columns are shown
    modelePoints(const listePointsDuDessin& table, const tableCodification& codes, QStringList titres,
                 QObject* parent = nullptr);

    /// Reads the table anew: points came, went or changed.
    void recharger();
    /// @param nom part of the names wanted, letter case aside; empty: all
    void filtrer(std::optional<int> parCode, const std::string& nom);
    /// Stable; unknown values come last. Names go by their letters and the numbers in them: P2 before P10.
    void sort(int colonneTri, Qt::SortOrder ordre) override;

    /// Place in the table of the point in a row.
    int position(int ligne) const { return m_positions[static_cast<std::size_t>(ligne)]; }
    /// The first row whose name begins so, else the first whose name holds it, letter case aside; -1 without one.
    int ligneNommee(const std::string& nom) const;
    /// Whether the reset under way shows the same points in another choice or order.
    bool memesPoints() const { return m_memesPoints; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation sens, int role) const override;

private:
    void refaire(bool memes);
    void choisir();
    void trier();
    QString texte(int position, int colonneVoulue) const;

    const listePointsDuDessin& m_table;
    const tableCodification& m_codes;
    QStringList m_titres;
    std::vector<int> m_positions;
    std::optional<int> m_code;
    std::string m_nom; // in lower case
    int m_tri = -1;
    Qt::SortOrder m_ordre = Qt::AscendingOrder;
    bool m_memesPoints = false;
};

/// Makes a view of whole rows: a click on a title sorts by it, another one the other way round; what is selected stays
/// so when the choice or the order changes.
void preparerVue(QTableView& vue, modelePoints& modele);
/// The rows selected, ascending.
std::vector<int> lignesChoisies(const QTableView& vue);
