#include "DlgProfilTerrain.h"

#include <algorithm>
#include <cmath>

#include "reports/resultPolygo.h"
#include "services/dialogueChamps.h"
#include "services/dialogueMessage.h"

#include "aced.h"
#include "rapportTerrain.h"
#include "terrainsOuverts.h"
#include "tracesTerrain.h"
#include "ui_DlgProfilTerrain.h"

namespace {

constexpr wchar_t nomFacteur[] = L"le rapport des hauteurs";
constexpr wchar_t nomHauteur[] = L"la hauteur des textes";

} // namespace

DlgProfilTerrain::DlgProfilTerrain(terrain& leModele, std::wstring sonNom) :
    m_modele(leModele),
    m_nom(std::move(sonNom)),
    m_ui(std::make_unique<Ui::DlgProfilTerrain>())
{
    m_ui->setupUi(this);
    m_ui->facteur->setText("5");
    m_ui->hauteurTexte->setText("1.5");
    surveillerNombre(*m_ui->facteur, nomFacteur);
    surveillerNombre(*m_ui->hauteurTexte, nomHauteur);
    connect(m_ui->boutonPoints, &QPushButton::clicked, this, [this] { designer(); });
    connect(m_ui->boutonTableau, &QPushButton::clicked, this, [this] { tableau(); });
    connect(m_ui->boutonDessiner, &QPushButton::clicked, this, [this] { dessiner(); });
    connect(m_ui->boutonFermer, &QPushButton::clicked, this, &QDialog::accept);
    montrer();
}

DlgProfilTerrain::~DlgProfilTerrain() = default;

void DlgProfilTerrain::designer()
{
    saisirDansDessin([this] {
        ads_point de, vers;
        if (acedGetPoint(nullptr, L"\nD\u00e9but du profil :", de) != RTNORM ||
            acedGetPoint(de, L"\nFin du profil :", vers) != RTNORM)
            return;
        m_de = {de[0], de[1]};
        m_vers = {vers[0], vers[1]};
        m_profil = m_modele.parcours()->profil(m_de, m_vers);
        if (m_profil.empty())
            acutPrintf(L"\nCe profil ne passe pas sur le mod\u00e8le.");
    });
    montrer();
}

void DlgProfilTerrain::montrer()
{
    for (QPushButton* const b : {m_ui->boutonTableau, m_ui->boutonDessiner})
        b->setEnabled(!m_profil.empty());
    if (m_profil.empty()) {
        m_ui->resume->setText("Désigner les deux bouts du profil, sur le modèle.");
        return;
    }
    std::size_t points = 0;
    for (const auto& troncon : m_profil)
        points += troncon.size();
    m_ui->resume->setText(QString("%1 m, %2 points, %3 tronçons")
                              .arg(std::hypot(m_vers.x - m_de.x, m_vers.y - m_de.y), 0, 'f', 3)
                              .arg(points)
                              .arg(m_profil.size()));
}

void DlgProfilTerrain::tableau()
{
    htmlDocument rapport = rapportProfil(m_nom, m_de, m_vers, m_profil);
    ecrireEtMontrer(rapport);
}

void DlgProfilTerrain::dessiner()
{
    double facteur = 0.0, hauteur = 0.0;
    if (!lireChamp(*m_ui->facteur, nomFacteur, facteur) || !lireChamp(*m_ui->hauteurTexte, nomHauteur, hauteur))
        return;
    if (!(facteur > 0.0) || !(hauteur > 0.0))
        return avertirErreur(L"La hauteur des textes et le rapport des hauteurs doivent \u00eatre positifs.");
    saisirDansDessin([&] {
        ads_point bas;
        if (acedGetPoint(nullptr, L"\nPosition du profil, en bas \u00e0 gauche :", bas) == RTNORM)
            dessinerProfil(m_modele.id(), m_profil, m_de, {bas[0], bas[1]}, facteur, hauteur);
    });
}
