#pragma once

#include <QTableWidget>
#include <vector>

#include "calculs/donneesPolygonale.h"

/// The observation list of a traverse dialog: rows of four texts, kept as typed. Cells can be edited in place; rows can
/// be copied to a spreadsheet and pasted from one (lignesCollees).
class listeObservations : public QTableWidget {
    Q_OBJECT

public:
    explicit listeObservations(QWidget* parent = nullptr);

    std::vector<ligneObservation> lignes() const;
    void afficher(const std::vector<ligneObservation>& lignes);
    void ajouter(const ligneObservation& ligne);
    /// The first selected row; without selection the last one; nothing when there is none.
    void enlever();

    void copier() const;
    /// Inserts what is on the clipboard after the last selected row, at the end without selection.
    void coller();

signals:
    void lignesChangees();
    /// What is to be said of a paste; empty when there is nothing.
    void colle(const QString& remarque);

protected:
    void keyPressEvent(QKeyEvent* touche) override;

private:
    std::vector<int> rangsChoisis() const; ///< ascending
    ligneObservation ligne(int rang) const;
    void inserer(int rang, const std::vector<ligneObservation>& lignes);
};
