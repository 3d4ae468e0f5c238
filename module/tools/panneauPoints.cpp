#include "tools/panneauPoints.h"

#include <algorithm>
#include <QComboBox>

#include "codification/codificationDuModule.h"
#include "codification/regleCode.h"
#include "geometrie/axeDeCourbe.h"
#include "geometrie/axeEnregistre.h"
#include "points/listePointsDuDessin.h"
#include "points/nomsVoulus.h"
#include "services/codages.h"
#include "services/dialogueCellules.h"
#include "services/dialogueChamps.h"
#include "services/dialogueMessage.h"
#include "services/dialogueModule.h"
#include "services/entierDeTexte.h"
#include "services/formatNombres.h"
#include "services/selection.h"

namespace {

constexpr double flecheMesures = 1e-5; // of ellipses and splines: chainages are shown to the millimetre

bool place(const pointDuDessin& p)
{
    return estConnue(p.getX()) && estConnue(p.getY());
}

std::vector<int> positionsDesSymboles(const listePointsDuDessin& table, std::vector<AcDbObjectId> symboles)
{
    std::sort(symboles.begin(), symboles.end());
    std::vector<int> positions;
    for (int i = 0; i < table.nbPoint(); ++i)
        if (std::binary_search(symboles.begin(), symboles.end(), table.getData(i)->getId()))
            positions.push_back(i);
    return positions;
}

} // namespace

panneauPoints::panneauPoints(const listePointsDuDessin& laTable, QLineEdit& champ, QPushButton& designer,
                             QLabel& designes) :
    m_table(laTable),
    m_champ(champ),
    m_label(designes)
{
    champ.setPlaceholderText(QStringLiteral("tous ; ou 1-20, A*, B3"));
    QObject::connect(&champ, &QLineEdit::textEdited, &designes, [this] {
        m_designes.clear();
        m_label.clear();
    });
    QObject::connect(&designer, &QPushButton::clicked, &designes, [this] { designerSymboles(); });
}

void panneauPoints::designerSymboles()
{
    std::vector<AcDbObjectId> symboles;
    const bool donnes = dialogueModule::saisirDansDessin(
        [&symboles] { return redemanderSelection(L"\nSélectionner les symboles des points", L"INSERT", symboles); });
    if (!donnes)
        return;
    std::vector<int> designes = positionsDesSymboles(m_table, symboles);
    if (designes.empty() && !symboles.empty())
        return avertirErreur(L"Aucun des blocs désignés n'est le symbole d'un point de la table courante.");
    m_designes = std::move(designes);
    m_champ.clear();
    m_label.setText(m_designes.empty() ? QStringLiteral("toute la table")
                                       : QStringLiteral("%1 désigné(s)").arg(m_designes.size()));
}

std::vector<int> panneauPoints::positions() const
{
    const std::wstring texte = m_champ.text().trimmed().toStdWString();
    const nomsVoulus voulus(texte);
    std::vector<int> candidats = m_designes, positions;
    if (candidats.empty())
        for (int i = 0; i < m_table.nbPoint(); ++i)
            if (texte.empty() || voulus.contient(depuisAnsi(m_table.getData(i)->getNomPoint())))
                candidats.push_back(i);
    for (const int i : candidats)
        if (place(*m_table.getData(i)))
            positions.push_back(i);
    if (positions.empty())
        avertirErreur(texte.empty() ? L"La table courante n'a pas de point."
                                    : L"Aucun point de la table ne porte ce nom : " + texte);
    return positions;
}

ligneDesignee designerLigne()
{
    ligneDesignee ligne{dialogueModule::saisirDansDessin([] { return designerEntite(L"\nDésignez une polyligne :"); }),
                        axe()};
    if (ligne.entite.isNull())
        return ligne;
    ligne.suivie = axeDeEntite(ligne.entite, flecheMesures);
    if (ligne.suivie.vide())
        avertirErreur(L"Cet objet n'est pas une ligne que l'on puisse suivre.");
    return ligne;
}

panneauLigne::panneauLigne(QPushButton& designer, QLabel& designee, QLineEdit* origine) : m_label(designee)
{
    QObject::connect(&designer, &QPushButton::clicked, &designee, [this, origine] {
        ligneDesignee ligne = designerLigne();
        if (ligne.suivie.vide())
            return;
        m_axe = std::move(ligne.suivie);
        const auto enregistre = lireAxeEnregistre(ligne.entite);
        m_equations = enregistre ? enregistre->equations : std::vector<equationAbscisse>();
        if (enregistre && origine)
            origine->setText(QString::number(enregistre->origine, 'g', 15));
        m_label.setText(texteQt(L"longueur " + formaterFixe(m_axe.longueur(), 3)));
    });
}

const axe* panneauLigne::choisie() const
{
    if (!m_axe.vide())
        return &m_axe;
    avertirErreur(L"Désignez d'abord une polyligne.");
    return nullptr;
}

void remplirCodes(QComboBox& liste)
{
    const tableCodification& codes = codificationDuModule();
    for (int i = 0; i < codes.nombre(); ++i)
        liste.addItem(QStringLiteral("%1   ").arg(codes[i].code, 4, 10, QLatin1Char('0')) + texteQt(codes[i].libelle));
}

bool lireCode(const QComboBox& liste, int& code)
{
    const int lu = entierDeTexte(liste.currentText().toStdWString());
    if (!codeValable(lu)) {
        avertirErreur(messageCodeIncorrect);
        return false;
    }
    code = lu;
    return true;
}

bool lireOrigine(QLineEdit& champ, double& origine)
{
    return lireChamp(champ, L"l'abscisse de départ", origine);
}
