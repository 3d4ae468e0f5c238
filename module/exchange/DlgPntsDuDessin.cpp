#include "exchange/DlgPntsDuDessin.h"

#include <set>

#include "codification/codificationDuModule.h"
#include "codification/modelePoints.h"
#include "exchange/dialogueExportPoints.h"
#include "exchange/dialogueImportPoints.h"
#include "exchange/DlgImportation.h"
#include "exchange/DlgParamsTable.h"
#include "exchange/placerPoints.h"
#include "exchange/placerTableau.h"
#include "points/projetDansDessin.h"
#include "services/codages.h"
#include "services/dialogueCellules.h"
#include "services/etendueVue.h"
#include "services/verrouDocument.h"

#include "ui_DlgPntsDuDessin.h"

DlgPntsDuDessin::DlgPntsDuDessin(listePointsDuDessin& table, tableCodification& codes, int mode) :
    m_ui(std::make_unique<Ui::DlgPntsDuDessin>()),
    m_table(table),
    m_codes(codes),
    m_mode(mode),
    m_modele(new modelePoints(table, codes, {"N°", "X", "Y", "Z", "Code", "Libellé"}, this))
{
    m_ui->setupUi(this);
    m_ui->textProblemes->hide();
    preparerVue(*m_ui->liste, *m_modele);
    QPushButton* const duMode = m_mode == modeExport  ? m_ui->boutonExporter
                                : m_mode == modeTable ? m_ui->boutonTable
                                                      : m_ui->boutonImporter;
    duMode->setDefault(true);
    duMode->setFocus();
    connecter();
    pointsChanges();
}

DlgPntsDuDessin::~DlgPntsDuDessin() = default;

void DlgPntsDuDessin::connecter()
{
    connect(m_ui->comboCode, &QComboBox::currentIndexChanged, this, [this] { filtrerParCode(); });
    connect(m_ui->editChercher, &QLineEdit::textChanged, this, [this] { chercher(); });
    connect(m_ui->liste, &QTableView::doubleClicked, this, [this](const QModelIndex& i) { montrerPoint(i.row()); });
    connect(m_ui->boutonImporter, &QPushButton::clicked, this, [this] { importer(); });
    connect(m_ui->boutonExporter, &QPushButton::clicked, this, [this] { exporter(); });
    connect(m_ui->boutonTable, &QPushButton::clicked, this, [this] { placerTable(); });
    connect(m_ui->boutonPlacer, &QPushButton::clicked, this, [this] { placer(); });
    connect(m_ui->boutonRaffraichir, &QPushButton::clicked, this, [this] { raffraichir(); });
    connect(m_ui->boutonFermer, &QPushButton::clicked, this, &QDialog::accept);
}

/// The codes of the table of codes, and those that points have without it.
void DlgPntsDuDessin::remplirCodes()
{
    const QVariant choisi = m_ui->comboCode->currentData();
    const QSignalBlocker silence(m_ui->comboCode);
    m_ui->comboCode->clear();
    m_ui->comboCode->addItem(QStringLiteral("*** TOUS LES CODES ***"));
    std::set<int> connus, autres;
    const auto ajouter = [this](int code, const std::wstring& libelle) {
        CString texte;
        texte.Format(L"%04d   %s", code, libelle.c_str());
        m_ui->comboCode->addItem(texteQt(texte.GetString()), code);
    };
    for (int i = 0; i < m_codes.nombre(); ++i)
        if (connus.insert(m_codes[i].code).second)
            ajouter(m_codes[i].code, m_codes[i].libelle);
    const listePointsDuDessin& lue = m_table;
    for (int i = 0, precedent = -1; i < lue.nbPoint(); ++i)
        if (const int code = lue.getData(i)->getCode();
            code != std::exchange(precedent, code) && !connus.contains(code))
            autres.insert(code);
    for (const int code : autres)
        ajouter(code, {});
    m_ui->comboCode->setCurrentIndex(choisi.isValid() ? std::max(m_ui->comboCode->findData(choisi), 0) : 0);
}

void DlgPntsDuDessin::filtrerParCode()
{
    const QVariant code = m_ui->comboCode->currentData();
    m_modele->filtrer(code.isValid() ? std::optional(code.toInt()) : std::nullopt, {});
    m_ui->labelNombre->setText(QStringLiteral("%1 point(s)").arg(m_modele->rowCount()));
}

void DlgPntsDuDessin::chercher()
{
    const std::string nom = versAnsi(m_ui->editChercher->text().trimmed().toStdWString());
    const int ligne = nom.empty() ? -1 : m_modele->ligneNommee(nom);
    m_ui->liste->clearSelection();
    if (ligne >= 0) {
        m_ui->liste->selectRow(ligne);
        m_ui->liste->scrollTo(m_modele->index(ligne, 0));
    }
}

void DlgPntsDuDessin::montrerPoint(int ligne)
{
    const listePointsDuDessin& lue = m_table;
    const pointDuDessin& point = *lue.getData(m_modele->position(ligne));
    if (point.getX() != inconnu && point.getY() != inconnu)
        montrerEtendue({point.getX(), point.getY(), point.getX(), point.getY()});
}

std::vector<int> DlgPntsDuDessin::placesVoulues() const
{
    std::vector<int> places;
    const std::vector<int> lignes = lignesChoisies(*m_ui->liste);
    const int nombre = lignes.empty() ? m_modele->rowCount() : static_cast<int>(lignes.size());
    places.reserve(static_cast<std::size_t>(nombre));
    for (int i = 0; i < nombre; ++i)
        places.push_back(m_modele->position(lignes.empty() ? i : lignes[static_cast<std::size_t>(i)]));
    return places;
}

void DlgPntsDuDessin::pointsChanges()
{
    m_modele->recharger();
    remplirCodes();
    filtrerParCode();
}

void DlgPntsDuDessin::pointsRefaits(const std::function<void()>& refaire)
{
    const std::vector<pointDuDessin> observes = pointsObserves(m_table, m_observations);
    refaire();
    m_observations = observationsSuivies(m_table, m_observations, observes);
    pointsChanges();
}

void DlgPntsDuDessin::dire(const std::vector<std::wstring>& phrases)
{
    QStringList lignes;
    for (const std::wstring& phrase : phrases)
        lignes << QString::fromStdWString(phrase);
    m_ui->textProblemes->setPlainText(lignes.join(u'\n'));
    m_ui->textProblemes->setVisible(!lignes.isEmpty());
}

void DlgPntsDuDessin::importer()
{
    m_mode == modeImport ? importerFichier() : importerDessin();
}

void DlgPntsDuDessin::importerFichier()
{
    const auto bilan = importerFichierPoints(m_table, m_observations);
    if (!bilan)
        return;
    pointsChanges();
    dire(*bilan);
}

void DlgPntsDuDessin::importerDessin()
{
    DlgImportation dialogue;
    if (dialogue.exec() != QDialog::Accepted)
        return;
    const int avant = m_table.nbPoint();
    pointsRefaits([&] { saisirDansDessin([&] { releverEntites(m_table, dialogue.demande()); }); });
    dire({L"Points de la table : " + std::to_wstring(m_table.nbPoint()) + L" (" + std::to_wstring(avant) +
          L" avant l'importation)."});
}

void DlgPntsDuDessin::exporter()
{
    if (const auto bilan = exporterFichierPoints(m_table, placesVoulues(), m_codes))
        dire(*bilan);
}

void DlgPntsDuDessin::placerTable()
{
    DlgParamsTable dialogue(lireParamsTable());
    if (dialogue.exec() != QDialog::Accepted)
        return;
    garderParamsTable(dialogue.params());
    const std::vector<int> places = placesVoulues();
    saisirDansDessin([&] { placerTableau(m_table, places, m_codes, dialogue.params()); });
}

void DlgPntsDuDessin::placer()
{
    const bilanPlacement bilan = placerPoints(m_table, placesVoulues(), m_observations);
    m_modele->recharger();
    std::vector<std::wstring> phrases = phrasesNonPlaces(bilan);
    phrases.insert(phrases.begin(), std::to_wstring(bilan.dessines) + L" point(s) placé(s).");
    dire(phrases);
}

void DlgPntsDuDessin::raffraichir()
{
    bilanReleve bilan;
    pointsRefaits([&] { bilan = releverSymboles(m_table); });
    if (bilan.arrete)
        return dire({L"Lecture arrêtée : la table n'a pas changé."});
    std::vector<std::wstring> phrases{std::to_wstring(bilan.lus) + L" symbole(s) lu(s) dans le dessin."};
    if (bilan.sansSymbole > 0)
        phrases.push_back(std::to_wstring(bilan.sansSymbole) + L" point(s) jamais dessiné(s) restent dans la table.");
    dire(phrases);
}

namespace {

void ouvrirPoints(int mode)
{
    if (!dialoguesPossibles())
        return;
    const verrouDocument verrou;
    if (listePointsDuDessin* const table = tableCourante())
        DlgPntsDuDessin(*table, codificationDuModule(), mode).exec();
}

} // namespace

void commandeImportPoints()
{
    ouvrirPoints(modeImport);
}

void commandeExportPoints()
{
    ouvrirPoints(modeExport);
}

void commandeTableXYZ()
{
    ouvrirPoints(modeTable);
}

void commandeMajPoints()
{
    ouvrirPoints(modeMiseAJour);
}
