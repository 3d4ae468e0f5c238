#include "exchange/dialogueExportPoints.h"

#include "exchange/exportTable.h"
#include "exchange/pointsLus.h"
#include "services/dialogueFichier.h"
#include "services/dialogueMessage.h"
#include "services/dialogueModule.h"
#include "services/dialogueProgression.h"
#include "services/reglages.h"

#include "ui_DlgProjection.h"

namespace {

constexpr const wchar_t* filtres =
    L"Fichier N° X Y Z (.xyz)|*.xyz|Fichier Texte N° X Y Z (.TXT)|*.txt|Fichier HTML(.htm)|*.htm; *.html|"
    L"Tous (*.*)|*.*|LandXML (.xml)|*.xml; *.landxml|GeoJSON (.geojson)|*.geojson|GeoPackage (.gpkg)|*.gpkg|"
    L"KML (.kml)|*.kml|Shapefile (.shp)|*.shp||";
constexpr const wchar_t* reglageProjection = L"projection";

/// What the coordinates of the drawing are in. @return nothing when the user gives up
std::optional<std::string> demanderProjection()
{
    dialogueModule dialogue;
    Ui::DlgProjection ui;
    ui.setupUi(&dialogue);
    ui.editProjection->setText(QString::fromStdWString(lireReglage(reglageProjection, L"EPSG:2154")));
    QObject::connect(ui.boutonOk, &QPushButton::clicked, &dialogue, &QDialog::accept);
    QObject::connect(ui.boutonCancel, &QPushButton::clicked, &dialogue, &QDialog::reject);
    if (dialogue.exec() != QDialog::Accepted)
        return std::nullopt;
    const QString projection = ui.editProjection->text().trimmed();
    garderReglage(reglageProjection, projection.toStdWString());
    return projection.toStdString();
}

} // namespace

std::optional<std::vector<std::wstring>>
exporterFichierPoints(const listePointsDuDessin& table, std::span<const int> places, const tableCodification& codes)
{
    demandeFichier demande;
    demande.titre = L"Exporter des points";
    demande.filtres = filtres;
    demande.extension = L"XYZ";
    const auto fichier = demanderFichierAEcrire(demande);
    if (!fichier)
        return std::nullopt;
    const auto projection = estCarte(*fichier) ? demanderProjection() : std::optional<std::string>("");
    if (!projection)
        return std::nullopt;
    const issueExport issue = [&] { // the progress is gone before a message comes
        dialogueProgression avancement(L"Export des points", static_cast<int>(places.size()) - 1);
        return exporterTable(table, places, codes, *fichier, *projection, [&avancement] { avancement.avancer(); });
    }();
    if (issue.issue != issueEcriture::ecrit) {
        afficherAvertissement(L"erreur", erreurOuverture);
        return std::vector{issue.raison};
    }
    const std::size_t ecrits = places.size() - static_cast<std::size_t>(issue.sansPlace);
    std::vector phrases{std::to_wstring(ecrits) + L" point(s) exporté(s) : " + *fichier};
    if (std::wstring phrase = phraseSansPlace(issue); !phrase.empty())
        phrases.push_back(std::move(phrase));
    return phrases;
}
