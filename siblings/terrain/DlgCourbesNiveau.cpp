#include "DlgCourbesNiveau.h"

#include <cmath>

#include "services/dialogueChamps.h"
#include "services/dialogueMessage.h"

#include "acutads.h"
#include "terrainsOuverts.h"
#include "ui_DlgCourbesNiveau.h"

namespace {

/// Some ten to twenty lines, at 1, 2 or 5 times a power of ten.
double intervallePropose(const maillageTerrain& sol)
{
    const double voulu = (sol.altitudeMax() - sol.altitudeMin()) / 15.0;
    if (!(voulu > 1e-6))
        return 1.0;
    const double decade = std::pow(10.0, std::floor(std::log10(voulu)));
    const double part = voulu / decade;
    return decade * (part < 1.5 ? 1.0 : part < 3.5 ? 2.0 : part < 7.5 ? 5.0 : 10.0);
}

constexpr wchar_t nomIntervalle[] = L"l'intervalle";
constexpr wchar_t nomMaitresses[] = L"les courbes ma\u00eetresses";
constexpr wchar_t nomTextes[] = L"la hauteur des textes";
constexpr wchar_t nomEspacement[] = L"l'espacement des textes";

} // namespace

DlgCourbesNiveau::DlgCourbesNiveau(terrain& leModele) :
    m_modele(leModele),
    m_ui(std::make_unique<Ui::DlgCourbesNiveau>())
{
    m_ui->setupUi(this);
    const reglagesCourbes defauts;
    m_ui->intervalle->setText(QString::number(intervallePropose(*m_modele.maillage())));
    m_ui->maitresse->setText(QString::number(defauts.maitresse));
    m_ui->hauteurTexte->setText(QString::number(defauts.hauteurTexte));
    m_ui->espacement->setText(QString::number(defauts.espacement));
    m_ui->lisser->setChecked(defauts.demande.lisser);
    m_ui->coter->setChecked(defauts.coter);
    m_ui->remplacer->setChecked(defauts.remplacer);
    surveillerNombre(*m_ui->intervalle, nomIntervalle);
    surveillerNombre(*m_ui->maitresse, nomMaitresses);
    surveillerNombre(*m_ui->hauteurTexte, nomTextes);
    surveillerNombre(*m_ui->espacement, nomEspacement);
    connect(m_ui->boutonOk, &QPushButton::clicked, this, [this] { dessiner(); });
    connect(m_ui->boutonAnnuler, &QPushButton::clicked, this, &QDialog::reject);
}

DlgCourbesNiveau::~DlgCourbesNiveau() = default;

std::optional<reglagesCourbes> DlgCourbesNiveau::reglages() const
{
    reglagesCourbes lus;
    lus.demande.lisser = m_ui->lisser->isChecked();
    lus.coter = m_ui->coter->isChecked();
    lus.remplacer = m_ui->remplacer->isChecked();
    if (!lireChamp(*m_ui->intervalle, nomIntervalle, lus.demande.intervalle) ||
        !lireEntier(*m_ui->maitresse, nomMaitresses, lus.maitresse, 0, 1000))
        return std::nullopt;
    if (lus.coter && (!lireChamp(*m_ui->hauteurTexte, nomTextes, lus.hauteurTexte) ||
                      !lireChamp(*m_ui->espacement, nomEspacement, lus.espacement)))
        return std::nullopt;
    return lus;
}

void DlgCourbesNiveau::dessiner()
{
    constexpr double trop = 2000.0; // altitudes
    const auto lus = reglages();
    if (!lus)
        return;
    const reglagesCourbes& voulus = *lus;
    const maillageTerrain& sol = *m_modele.maillage();
    if (!(voulus.demande.intervalle > 0.0) || nombreAltitudes(sol, voulus.demande.intervalle) > trop)
        return avertirErreur(L"L'intervalle doit \u00eatre un nombre positif, et pas si petit que les courbes ne se "
                             L"comptent plus (2000 altitudes au plus).");
    if (voulus.coter && (!(voulus.hauteurTexte > 0.0) || !(voulus.espacement > 0.0)))
        return avertirErreur(L"La hauteur des textes et leur espacement doivent \u00eatre positifs.");
    const bilanCourbes bilan = dessinerCourbes(m_modele.id(), sol, voulus);
    acutPrintf(L"\n%d courbes de niveau, %d ma\u00eetresses, %d cotes", bilan.courbes, bilan.maitresses, bilan.cotes);
    accept();
}
