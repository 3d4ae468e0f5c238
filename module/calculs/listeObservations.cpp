#include "calculs/listeObservations.h"

#include <algorithm>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QSignalBlocker>

#include "calculs/lignesCollees.h"

listeObservations::listeObservations(QWidget* parent) : QTableWidget(parent)
{
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    setWordWrap(false);
    connect(this, &QTableWidget::cellChanged, this, &listeObservations::lignesChangees);
}

ligneObservation listeObservations::ligne(int rang) const
{
    const auto texte = [&](int colonne) {
        const QTableWidgetItem* const cellule = item(rang, colonne);
        return cellule ? cellule->text().toStdWString() : std::wstring();
    };
    return {texte(0), texte(1), texte(2), texte(3)};
}

std::vector<ligneObservation> listeObservations::lignes() const
{
    std::vector<ligneObservation> toutes;
    toutes.reserve(static_cast<std::size_t>(rowCount()));
    for (int rang = 0; rang < rowCount(); ++rang)
        toutes.push_back(ligne(rang));
    return toutes;
}

void listeObservations::inserer(int rang, const std::vector<ligneObservation>& lignes)
{
    if (lignes.empty())
        return;
    {
        const QSignalBlocker silence(this); // one change, not one a cell
        model()->insertRows(rang, static_cast<int>(lignes.size()));
        for (const ligneObservation& l : lignes) {
            int colonne = 0;
            for (const std::wstring* const texte : {&l.station, &l.angle, &l.distance, &l.altitude}) {
                auto* const cellule = new QTableWidgetItem(QString::fromStdWString(*texte));
                if (colonne > 0)
                    cellule->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
                setItem(rang, colonne++, cellule);
            }
            ++rang;
        }
    }
    emit lignesChangees();
}

void listeObservations::afficher(const std::vector<ligneObservation>& lignes)
{
    setRowCount(0);
    inserer(0, lignes);
    emit lignesChangees(); // also when no row came
}

void listeObservations::ajouter(const ligneObservation& ligne)
{
    inserer(rowCount(), {ligne});
    scrollToBottom();
}

std::vector<int> listeObservations::rangsChoisis() const
{
    std::vector<int> rangs;
    for (const QModelIndex& index : selectionModel()->selectedRows())
        rangs.push_back(index.row());
    std::ranges::sort(rangs);
    return rangs;
}

void listeObservations::enlever()
{
    if (rowCount() == 0)
        return;
    const std::vector<int> rangs = rangsChoisis();
    removeRow(rangs.empty() ? rowCount() - 1 : rangs.front());
    clearSelection(); // what moves up to the row removed was not chosen
    emit lignesChangees();
}

void listeObservations::copier() const
{
    std::vector<ligneObservation> copiees;
    for (const int rang : rangsChoisis())
        copiees.push_back(ligne(rang));
    if (!copiees.empty())
        QGuiApplication::clipboard()->setText(QString::fromStdWString(texteDesLignes(copiees)));
}

void listeObservations::coller()
{
    const std::vector<int> rangs = rangsChoisis();
    const collage lu = lignesCollees(QGuiApplication::clipboard()->text().toStdWString());
    inserer(rangs.empty() ? rowCount() : rangs.back() + 1, lu.lignes);
    emit colle(QString::fromStdWString(remarqueCollage(lu)));
}

void listeObservations::keyPressEvent(QKeyEvent* touche)
{
    if (touche->matches(QKeySequence::Paste))
        coller();
    else if (touche->matches(QKeySequence::Copy))
        copier();
    else
        QTableWidget::keyPressEvent(touche);
}
