#include "tools/DlgAllegerDessin.h"

#include <QCheckBox>

#include "reports/resultPolygo.h"
#include "services/dialogueChamps.h"
#include "services/dialogueMessage.h"
#include "services/selection.h"
#include "tools/rapportOutils.h"

#include "ui_DlgAllegerDessin.h"

namespace {

std::array<QCheckBox*, nombreGenresDefinition> casesDefinitions(const Ui::DlgAllegerDessin& ui)
{
    return {ui.caseBlocs, ui.caseCalques, ui.caseStyles, ui.caseTypesLigne};
}

std::wstring enListe(const std::vector<std::wstring>& noms)
{
    std::wstring liste;
    for (const std::wstring& nom : noms)
        liste.append(liste.empty() ? L"" : L", ").append(nom);
    return liste;
}

} // namespace

DlgAllegerDessin::DlgAllegerDessin(std::vector<AcDbObjectId> lesObjets) :
    m_ui(disposer<Ui::DlgAllegerDessin>(*this)),
    m_modele({"Ce qui peut partir", "Lesquels", "Nombre"}, 2,
             [this](int ligne, int colonne) {
                 const compte& c = m_comptes[static_cast<std::size_t>(ligne)];
                 return colonne == 0 ? std::wstring(c.quoi) : colonne == 1 ? c.noms : std::to_wstring(c.nombre);
             }),
    m_objets(std::move(lesObjets))
{
    preparerTableau(*m_ui->liste, m_modele);
    m_ui->editCalques->setPlaceholderText(QStringLiteral("tous ; ou BATI*, VOIRIE"));
    connect(m_ui->boutonObjets, &QPushButton::clicked, this, [this] { designer(); });
    connect(m_ui->boutonAnalyser, &QPushButton::clicked, this, [this] { analyser(); });
    connect(m_ui->boutonRapport, &QPushButton::clicked, this, [this] { montrerRapport(); });
    connect(m_ui->boutonAppliquer, &QPushButton::clicked, this, [this] { appliquer(); });
    connect(m_ui->boutonFermer, &QPushButton::clicked, this, &QDialog::accept);
    montrerObjets();
    oublier();
}

DlgAllegerDessin::~DlgAllegerDessin() = default;

void DlgAllegerDessin::oublier()
{
    m_allegement.reset();
    m_ui->boutonAppliquer->setEnabled(false);
    m_ui->boutonRapport->setEnabled(!m_comptes.empty());
}

void DlgAllegerDessin::designer()
{
    if (!saisirDansDessin([this] { return redemanderSelection(L"\nSélectionner objets", L"*", m_objets); }))
        return;
    montrerObjets();
    oublier();
}

void DlgAllegerDessin::montrerObjets()
{
    m_ui->labelObjets->setText(m_objets.empty() ? QStringLiteral("tout le dessin")
                                                : QStringLiteral("%1 objet(s)").arg(m_objets.size()));
}

void DlgAllegerDessin::analyser()
{
    optionsAllegement options;
    if (!lireChamp(*m_ui->editTolerance, L"la tolérance", options.tolerance, 0.0, 1e6))
        return;
    options.nuls = m_ui->caseNuls->isChecked();
    options.repetes = m_ui->caseRepetes->isChecked();
    options.sommets = m_ui->caseSommets->isChecked();
    options.segments = m_ui->caseSegments->isChecked();
    options.objets = m_objets;
    options.calques = m_ui->editCalques->text().trimmed().toStdWString();
    const auto cases = casesDefinitions(*m_ui);
    for (std::size_t genre = 0; genre < cases.size(); ++genre)
        options.definitions[genre] = cases[genre]->isChecked();
    m_allegement.emplace(options);
    const allegementDessin::bilan& b = m_allegement->trouve();
    m_comptes = {{L"Objets de longueur nulle", b.nuls, {}},
                 {L"Objets répétés", b.repetes, {}},
                 {L"Sommets alignés", b.sommets, {}},
                 {L"Segments superposés", b.segments, {}}};
    constexpr std::array<const wchar_t*, nombreGenresDefinition> genres{
        L"Blocs inutilisés", L"Calques inutilisés", L"Styles de texte inutilisés", L"Types de ligne inutilisés"};
    for (std::size_t genre = 0; genre < genres.size(); ++genre) {
        const std::vector<std::wstring>& noms = m_allegement->definitions().noms[genre];
        m_comptes.push_back({genres[genre], static_cast<int>(noms.size()), enListe(noms)});
    }
    m_modele.montrer(m_comptes.size());
    m_ui->liste->resizeColumnsToContents();
    m_ui->labelRemarque->setText(
        b.verrouilles > 0 ? QStringLiteral("%1 objet(s) sur un calque verrouillé : ils resteront.").arg(b.verrouilles)
                          : QString());
    m_ui->boutonAppliquer->setEnabled(!m_allegement->vide());
    m_ui->boutonRapport->setEnabled(true);
}

void DlgAllegerDessin::montrerRapport()
{
    rapportOutils rapport(L"Allègement du dessin");
    htmlTable table = rapport.tableau({L"Ce qui peut partir", L"Nombre", L"Lesquels"});
    for (const compte& c : m_comptes) {
        table.beginRow();
        rapportOutils::texte(table, c.quoi);
        rapportOutils::nombre(table, c.nombre, 0);
        rapportOutils::texte(table, c.noms);
    }
    rapport.ajouter(table);
    htmlDocument document = rapport.document();
    ecrireEtMontrer(document);
}

void DlgAllegerDessin::appliquer()
{
    m_allegement->appliquer();
    oublier();
    m_ui->labelRemarque->setText(QStringLiteral("Le dessin est allégé."));
}
