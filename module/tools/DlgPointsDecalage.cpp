#include "tools/DlgPointsDecalage.h"

#include <algorithm>
#include <cmath>

#include "points/listePointsDuDessin.h"
#include "points/nomValable.h"
#include "points/numeroteurEntier.h"
#include "services/dialogueChamps.h"
#include "services/dialogueMessage.h"
#include "services/formatNombres.h"
#include "services/reelDeTexte.h"

#include "ui_DlgPointsDecalage.h"

namespace {

constexpr double pointsAuPlus = 1e6; // a step typed wrong would fill the memory

std::wstring observationDe(const pointDecale& p)
{
    return formaterAbscisse(p.abscisse, 2, 2) + (p.decalage < 0.0 ? L" " : L" +") + formaterFixe(p.decalage, 2);
}

} // namespace

DlgPointsDecalage::DlgPointsDecalage(const listePointsDuDessin& table) :
    m_ui(disposer<Ui::DlgPointsDecalage>(*this)),
    m_ligne(*m_ui->boutonDesignerLigne, *m_ui->labelLigne, m_ui->editOrigine)
{
    remplirCodes(*m_ui->comboCode);
    m_ui->editPremier->setText(QString::number(table.getMaxNum() + 1));
    connect(m_ui->boutonOk, &QPushButton::clicked, this, &DlgPointsDecalage::accept);
    connect(m_ui->boutonAnnuler, &QPushButton::clicked, this, &QDialog::reject);
}

DlgPointsDecalage::~DlgPointsDecalage() = default;

bool DlgPointsDecalage::lireListe(QLineEdit& champ, const wchar_t* nomme, std::vector<double>& nombres) const
{
    std::wstring faute;
    const auto lus = nombresListes(champ.text().toStdWString(), faute);
    const auto demesure = [](double valeur) { return std::abs(valeur) > plusGrandNombre; };
    if (lus && !lus->empty() && std::ranges::none_of(*lus, demesure)) {
        nombres = *lus;
        return true;
    }
    avertirErreur(std::wstring(nomme) + L" : " +
                  (!lus           ? pasUnNombre(faute)
                   : lus->empty() ? std::wstring(L"donnez au moins un nombre.")
                                  : std::wstring(L"un nombre est trop grand.")));
    champ.setFocus();
    return false;
}

bool DlgPointsDecalage::lireDemande(demandeDecalage& demande) const
{
    using mode = demandeDecalage::mode;
    demande.choix = m_ui->radioIntervalle->isChecked()  ? mode::intervalle
                    : m_ui->radioAbscisses->isChecked() ? mode::abscisses
                                                        : mode::sommets;
    demande.altitudes = m_ui->caseAltitudes->isChecked();
    if (demande.choix == mode::intervalle && !lireChamp(*m_ui->editPas, L"l'intervalle", demande.pas, 1e-6))
        return false;
    if (demande.choix == mode::abscisses && !lireListe(*m_ui->editAbscisses, L"Abscisses", demande.listees))
        return false;
    return lireListe(*m_ui->editDecalages, L"Décalages", demande.decalages);
}

bool DlgPointsDecalage::nommer(const std::vector<pointDecale>& decales)
{
    int premier = 1;
    if (!lireEntier(*m_ui->editPremier, L"le premier numéro", premier, 0, plusGrandNumero))
        return false;
    numeroteurEntier noms(m_ui->editPrefixe->text().trimmed().toStdWString(), premier, L"", 1);
    m_points.clear();
    for (const pointDecale& p : decales)
        m_points.push_back({{noms.nomSuivant(), p.place}, observationDe(p)});
    const std::wstring refus = refusDesNoms(m_points);
    if (refus.empty())
        return true;
    avertirErreur(refus);
    m_ui->editPrefixe->setFocus();
    return false;
}

void DlgPointsDecalage::accept()
{
    double origine = 0.0;
    demandeDecalage demande;
    const axe* const ligne = m_ligne.choisie();
    if (!ligne || !lireOrigine(*m_ui->editOrigine, origine) || !lireDemande(demande) ||
        !lireCode(*m_ui->comboCode, m_code))
        return;
    if (nombrePointsDecales(*ligne, demande) > pointsAuPlus)
        return avertirErreur(L"Intervalle trop petit : cela ferait plus d'un million de points.");
    const abscisses numerotation = m_ligne.numerotation(origine);
    const std::vector<pointDecale> decales = pointsDecales(*ligne, numerotation, demande);
    m_absentes = abscissesAbsentes(*ligne, numerotation, demande);
    if (decales.empty())
        return avertirErreur(L"La polyligne n'a aucune de ces abscisses.");
    if (nommer(decales))
        QDialog::accept();
}
