#include "exchange/DlgImportation.h"

#include <array>
#include <QCheckBox>

#include "exchange/selectionGenres.h"
#include "services/dialogueCellules.h"
#include "services/dialogueChamps.h"
#include "services/reglages.h"

#include "aced.h"
#include "ui_DlgAttributs.h"
#include "ui_DlgImportation.h"

namespace {

struct etiquette {
    const wchar_t* reglage;
    const wchar_t* defaut;
};
constexpr etiquette etiquetteNumero{L"importation.numero", L"NUM"}, etiquetteAltitude{L"importation.altitude", L"ALT"},
    etiquetteCode{L"importation.code", L"CODE"};

constexpr const wchar_t* decalageX = L"le décalage X";
constexpr const wchar_t* decalageY = L"le décalage Y";

struct caseGenre {
    QCheckBox* coche;
    int genre;
};

std::array<caseGenre, 12> casesDesGenres(const Ui::DlgImportation& ui)
{
    return {{{ui.cochePoints, genrePoint},
             {ui.cocheTextes, genreTexte},
             {ui.cochePolylines2d, genrePolyligne},
             {ui.cochePolylignes3d, genrePolyligne3d},
             {ui.cocheAnciennes, genreAnciennePolyligne},
             {ui.cocheLignes, genreLigne},
             {ui.cocheMaillages, genreMaillage},
             {ui.cocheFacettes, genreFacette},
             {ui.cochePolyfaces, genrePolyface},
             {ui.cocheSymboles, genreSymbole},
             {ui.cocheBlocs, genreBloc},
             {ui.cocheAttributs, genreBlocAttributs}}};
}

int genresCoches(const Ui::DlgImportation& ui)
{
    int genres = 0;
    for (const caseGenre& c : casesDesGenres(ui))
        genres |= c.coche->isChecked() ? c.genre : 0;
    return genres;
}

std::wstring lire(const etiquette& e)
{
    return lireReglage(e.reglage, e.defaut);
}

} // namespace

DlgImportation::DlgImportation() : m_ui(std::make_unique<Ui::DlgImportation>())
{
    m_ui->setupUi(this);
    connect(m_ui->boutonTous, &QPushButton::clicked, this, [this] { cocher(tousLesGenres); });
    connect(m_ui->boutonAucun, &QPushButton::clicked, this, [this] { cocher(0); });
    connect(m_ui->boutonConfigurer, &QPushButton::clicked, this, [this] { configurer(); });
    connect(m_ui->boutonPrelever, &QPushButton::clicked, this, [this] { prelever(); });
    connect(m_ui->boutonOk, &QPushButton::clicked, this, [this] { valider(); });
    connect(m_ui->boutonCancel, &QPushButton::clicked, this, &QDialog::reject);
    surveillerNombre(*m_ui->editX, decalageX);
    surveillerNombre(*m_ui->editY, decalageY);
}

DlgImportation::~DlgImportation() = default;

void DlgImportation::valider()
{
    const auto lireDecalage = [](QLineEdit& champ, const wchar_t* nomme, double& valeur) {
        valeur = 0.0; // of a blank field
        return champ.text().trimmed().isEmpty() || lireChamp(champ, nomme, valeur);
    };
    if (lireDecalage(*m_ui->editX, decalageX, m_decalage.x) && lireDecalage(*m_ui->editY, decalageY, m_decalage.y))
        accept();
}

void DlgImportation::cocher(int genres)
{
    for (const caseGenre& c : casesDesGenres(*m_ui))
        c.coche->setChecked((genres & c.genre) != 0);
}

demandeImportation DlgImportation::demande() const
{
    return {genresCoches(*m_ui), lire(etiquetteNumero), lire(etiquetteAltitude), lire(etiquetteCode), m_decalage};
}

void DlgImportation::configurer()
{
    dialogueModule dialogue(this);
    Ui::DlgAttributs ui;
    ui.setupUi(&dialogue);
    const std::array<std::pair<QComboBox*, etiquette>, 3> champs{
        {{ui.comboNumero, etiquetteNumero}, {ui.comboAltitude, etiquetteAltitude}, {ui.comboCode, etiquetteCode}}};
    const std::vector<std::wstring> presentes = etiquettesDuDessin();
    for (const auto& champ : champs) {
        for (const std::wstring& presente : presentes)
            champ.first->addItem(QString::fromStdWString(presente));
        champ.first->setEditText(texteQt(lire(champ.second)));
    }
    connect(ui.boutonOk, &QPushButton::clicked, &dialogue, &QDialog::accept);
    connect(ui.boutonCancel, &QPushButton::clicked, &dialogue, &QDialog::reject);
    if (dialogue.exec() != QDialog::Accepted)
        return;
    for (const auto& champ : champs)
        garderReglage(champ.second.reglage, champ.first->currentText().trimmed().toStdWString());
}

/// The offset leads from the first point to the second.
void DlgImportation::prelever()
{
    ads_point de, vers;
    const bool donne = saisirDansDessin([&] {
        return acedGetPoint(nullptr, L"\nPremier point", de) == RTNORM &&
               acedGetPoint(de, L"\nDeuxieme point", vers) == RTNORM;
    });
    if (!donne)
        return;
    m_ui->editX->setText(texteDesigne(vers[0] - de[0]));
    m_ui->editY->setText(texteDesigne(vers[1] - de[1]));
}
