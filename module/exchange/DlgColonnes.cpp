#include "exchange/DlgColonnes.h"

#include <algorithm>
#include <array>
#include <QComboBox>
#include <QLabel>

#include "services/dialogueMessage.h"
#include "services/dialogueModule.h"
#include "services/reglages.h"

#include "ui_DlgColonnes.h"

namespace {

constexpr std::size_t lignesMontrees = 20;
constexpr std::size_t plusDeColonnes = 12;
constexpr const wchar_t* reglage = L"colonnes";

constexpr std::array<char, 4> separateurs{';', ',', '\t', ' '};

struct sensColonne {
    colonne sens;
    const char* nom;
    wchar_t lettre; ///< in the settings
};
constexpr std::array<sensColonne, 7> sens{{{colonne::ignoree, "(ignorée)", L'-'},
                                           {colonne::nom, "N°", L'N'},
                                           {colonne::x, "X", L'X'},
                                           {colonne::y, "Y", L'Y'},
                                           {colonne::z, "Z", L'Z'},
                                           {colonne::code, "Code", L'C'},
                                           {colonne::observation, "Observation", L'O'}}};

/// "rank of the separator, 1 for a header line, one letter a column": "01NXYZC"
std::wstring texteFormat(const formatColonnes& format)
{
    std::wstring texte = std::to_wstring(std::ranges::find(separateurs, format.separateur) - separateurs.begin());
    texte += format.enTete ? L'1' : L'0';
    for (const colonne c : format.colonnes)
        texte += std::ranges::find(sens, c, &sensColonne::sens)->lettre;
    return texte;
}

/// What the user chose for the last file, when this one has the same separator, header and number of columns.
formatColonnes formatPropose(const formatColonnes& devine, std::size_t largeur)
{
    const std::wstring garde = lireReglage(reglage, L"");
    if (garde.size() != largeur + 2 || !garde.starts_with(texteFormat({devine.separateur, devine.enTete, {}})))
        return devine;
    formatColonnes format{devine.separateur, devine.enTete, {}};
    for (std::size_t i = 2; i < garde.size(); ++i) {
        const auto* const trouve = std::ranges::find(sens, garde[i], &sensColonne::lettre);
        format.colonnes.push_back(trouve == sens.end() ? colonne::ignoree : trouve->sens);
    }
    return format;
}

class DlgColonnes : public dialogueModule {
public:
    DlgColonnes(const std::wstring& fichier, std::string_view debut) : m_debut(debut)
    {
        m_ui.setupUi(this);
        setWindowTitle(windowTitle() + QStringLiteral(" : ") + QString::fromStdWString(fichier));
        for (const char* const nom : {"point-virgule", "virgule", "tabulation", "blancs"})
            m_ui.comboSeparateur->addItem(QString::fromUtf8(nom));
        creerChoix();
        afficher(devinerColonnes(debut), true);
        connect(m_ui.comboSeparateur, &QComboBox::activated, this, [this](int rang) {
            formatColonnes autre = format();
            autre.separateur = separateurs[static_cast<std::size_t>(rang)];
            afficher(autre, false);
        });
        connect(m_ui.boutonOk, &QPushButton::clicked, this, [this] { valider(); });
        connect(m_ui.boutonCancel, &QPushButton::clicked, this, &QDialog::reject);
    }

    formatColonnes format() const
    {
        formatColonnes f;
        f.separateur = separateurs[static_cast<std::size_t>(m_ui.comboSeparateur->currentIndex())];
        f.enTete = m_ui.cocheEnTete->isChecked();
        for (std::size_t i = 0; i < m_largeur; ++i)
            f.colonnes.push_back(sens[static_cast<std::size_t>(m_choix[i].second->currentIndex())].sens);
        return f;
    }

private:
    void creerChoix()
    {
        for (std::size_t i = 0; i < plusDeColonnes; ++i) {
            auto* const titre = new QLabel(QStringLiteral("Colonne %1").arg(i + 1), this);
            auto* const choix = new QComboBox(this);
            titre->setBuddy(choix);
            choix->setObjectName(QStringLiteral("comboColonne%1").arg(i + 1));
            for (const sensColonne& s : sens)
                choix->addItem(QString::fromUtf8(s.nom));
            const int rang = static_cast<int>(i % 6), bande = static_cast<int>(i / 6) * 2;
            m_ui.dispositionColonnes->addWidget(titre, bande, rang);
            m_ui.dispositionColonnes->addWidget(choix, bande + 1, rang);
            m_choix[i] = {titre, choix};
        }
    }

    void afficher(const formatColonnes& voulu, bool premiere)
    {
        const auto apercu = apercuColonnes(m_debut, voulu.separateur, lignesMontrees);
        std::size_t largeur = 0;
        for (const auto& ligne : apercu)
            largeur = std::max(largeur, ligne.size());
        m_largeur = std::min(largeur, plusDeColonnes);
        const formatColonnes f = premiere ? formatPropose(voulu, m_largeur) : voulu;
        m_ui.comboSeparateur->setCurrentIndex(
            static_cast<int>(std::ranges::find(separateurs, f.separateur) - separateurs.begin()));
        m_ui.cocheEnTete->setChecked(f.enTete);
        for (std::size_t i = 0; i < plusDeColonnes; ++i) {
            m_choix[i].first->setVisible(i < m_largeur);
            m_choix[i].second->setVisible(i < m_largeur);
            const colonne c = i < f.colonnes.size() ? f.colonnes[i] : colonne::ignoree;
            m_choix[i].second->setCurrentIndex(
                static_cast<int>(std::ranges::find(sens, c, &sensColonne::sens) - sens.begin()));
        }
        montrer(apercu);
    }

    void montrer(const std::vector<std::vector<std::wstring>>& apercu)
    {
        m_ui.liste->clear();
        m_ui.liste->setRowCount(static_cast<int>(apercu.size()));
        m_ui.liste->setColumnCount(static_cast<int>(m_largeur));
        for (int ligne = 0; ligne < m_ui.liste->rowCount(); ++ligne) {
            const auto& cellules = apercu[static_cast<std::size_t>(ligne)];
            for (int c = 0; c < m_ui.liste->columnCount() && c < static_cast<int>(cellules.size()); ++c)
                m_ui.liste->setItem(
                    ligne, c, new QTableWidgetItem(QString::fromStdWString(cellules[static_cast<std::size_t>(c)])));
        }
    }

    void valider()
    {
        const formatColonnes f = format();
        for (const sensColonne& s : sens) {
            const auto nombre = std::ranges::count(f.colonnes, s.sens);
            const std::wstring nom = QString::fromUtf8(s.nom).toStdWString();
            if (nombre == 0 && (s.sens == colonne::x || s.sens == colonne::y))
                return avertirErreur(L"Aucune colonne n'est " + nom);
            if (nombre > 1 && s.sens != colonne::ignoree && s.sens != colonne::observation)
                return avertirErreur(L"Plusieurs colonnes sont " + nom);
        }
        garderReglage(reglage, texteFormat(f));
        accept();
    }

    Ui::DlgColonnes m_ui;
    std::string_view m_debut;
    std::size_t m_largeur = 0;
    std::array<std::pair<QLabel*, QComboBox*>, plusDeColonnes> m_choix{};
};

} // namespace

std::optional<formatColonnes> choisirColonnes(const std::wstring& fichier, std::string_view debut)
{
    DlgColonnes dialogue(fichier, debut);
    return dialogue.exec() == QDialog::Accepted ? std::optional(dialogue.format()) : std::nullopt;
}
