#include "services/dialogueCellules.h"

#include <QCollator>
#include <QHeaderView>

QString texteQt(std::wstring_view texte)
{
    return QString::fromWCharArray(texte.data(), static_cast<qsizetype>(texte.size()));
}

namespace {

const QCollator& ordreFrancais()
{
    static const QCollator ordre = [] {
        QCollator c{QLocale(QLocale::French, QLocale::France)};
        c.setCaseSensitivity(Qt::CaseInsensitive);
        return c;
    }();
    return ordre;
}

} // namespace

int comparerTextes(const QString& a, const QString& b)
{
    return ordreFrancais().compare(a, b);
}

elementTexte::elementTexte(std::wstring_view texte) : QTableWidgetItem(texteQt(texte)) {}

bool elementTexte::operator<(const QTableWidgetItem& autre) const
{
    return comparerTextes(text(), autre.text()) < 0;
}

elementNombre::elementNombre(std::wstring_view texte) : QTableWidgetItem(texteQt(texte))
{
    setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

bool elementNombre::operator<(const QTableWidgetItem& autre) const
{
    if (text().isEmpty() || autre.text().isEmpty())
        return !text().isEmpty() && autre.text().isEmpty();
    return text().toDouble() < autre.text().toDouble();
}

void preparerListe(QTableWidget& liste, const QStringList& titres)
{
    liste.setColumnCount(static_cast<int>(titres.size()));
    liste.setHorizontalHeaderLabels(titres);
    liste.verticalHeader()->hide();
    liste.verticalHeader()->setDefaultSectionSize(liste.fontMetrics().height() + 6); // lists of points are long
    liste.horizontalHeader()->setStretchLastSection(true);
    liste.horizontalHeader()->setHighlightSections(false); // in bold they would want more room
    liste.horizontalHeader()->setResizeContentsPrecision(100);
    QObject::connect(liste.horizontalHeader(), &QHeaderView::sectionClicked, &liste, [&liste] {
        liste.horizontalHeader()->setSortIndicatorShown(true);
        trierDeNouveau(liste);
    });
}

void trierDeNouveau(QTableWidget& liste)
{
    const QHeaderView& titres = *liste.horizontalHeader();
    if (titres.isSortIndicatorShown())
        liste.sortItems(titres.sortIndicatorSection(), titres.sortIndicatorOrder());
    liste.resizeColumnsToContents();
}

int ligneChoisie(const QTableWidget& liste)
{
    const QModelIndexList lignes = liste.selectionModel()->selectedRows();
    return lignes.isEmpty() ? -1 : lignes.front().row();
}

namespace {

bool ligneContient(const QTableWidget& liste, int ligne, const QString& texte)
{
    for (int colonne = 0; colonne < liste.columnCount(); ++colonne)
        if (liste.item(ligne, colonne)->text().contains(texte, Qt::CaseInsensitive))
            return true;
    return false;
}

/// The first row left is selected: Enter takes it.
void filtrer(QTableWidget& liste, const QString& texte)
{
    liste.clearSelection();
    for (int ligne = 0; ligne < liste.rowCount(); ++ligne) {
        const bool voulue = ligneContient(liste, ligne, texte);
        liste.setRowHidden(ligne, !voulue);
        if (voulue && ligneChoisie(liste) < 0 && !texte.isEmpty())
            liste.selectRow(ligne);
    }
}

} // namespace

void choisirDansListe(QDialog& dialogue, QTableWidget& liste, QLineEdit& chercher, QPushButton& ok)
{
    ok.setEnabled(false);
    liste.resizeColumnsToContents();
    QObject::connect(liste.selectionModel(), &QItemSelectionModel::selectionChanged, &dialogue,
                     [&liste, &ok] { ok.setEnabled(ligneChoisie(liste) >= 0); });
    QObject::connect(&chercher, &QLineEdit::textChanged, &dialogue,
                     [&liste](const QString& texte) { filtrer(liste, texte.trimmed()); });
    QObject::connect(&liste, &QTableWidget::cellDoubleClicked, &dialogue, &QDialog::accept);
    QObject::connect(&ok, &QPushButton::clicked, &dialogue, &QDialog::accept);
}
