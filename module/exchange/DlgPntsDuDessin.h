#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "exchange/ajoutPoints.h"
#include "services/dialogueModule.h"

class listePointsDuDessin;
class modelePoints;
class tableCodification;
namespace Ui {
class DlgPntsDuDessin;
}

/// What the points dialog is opened for. Menus and siblings know the numbers.
enum modePoints { modeImport = 12, modeMiseAJour = 16, modeExport = 17, modeTable = 18 };

/// "Points du dessin": the points of a table in a list, and what goes on between them, files and the drawing.
/// Everything can be done in every mode. The mode tells which button Enter presses, and where "Importer" takes points
/// from: a file in mode 12, else the entities of the drawing.
class DlgPntsDuDessin : public dialogueModule {
    Q_OBJECT

public:
    DlgPntsDuDessin(listePointsDuDessin& table, tableCodification& codes, int mode);
    ~DlgPntsDuDessin() override;

private:
    void connecter();
    void remplirCodes();
    void filtrerParCode();
    void chercher();
    void montrerPoint(int ligne);
    /// The places of the rows selected, of all when none is, in the order of the list.
    std::vector<int> placesVoulues() const;
    void pointsChanges();
    /// Runs what may sort the table anew or put it together anew: the observations that wait follow their points.
    void pointsRefaits(const std::function<void()>& refaire);
    void dire(const std::vector<std::wstring>& phrases);

    void importer();
    void importerFichier();
    void importerDessin();
    void exporter();
    void placerTable();
    void placer();
    void raffraichir();

    std::unique_ptr<Ui::DlgPntsDuDessin> m_ui;
    listePointsDuDessin& m_table;
    tableCodification& m_codes;
    int m_mode;
    modelePoints* m_modele; // the dialog's
    observationsEnAttente m_observations;
};

// The commands, each on the current table: IMPORTPOINTS, EXPORTPOINTS, TABLEXYZ, MAJPOINTS.
void commandeImportPoints();
void commandeExportPoints();
void commandeTableXYZ();
void commandeMajPoints();
