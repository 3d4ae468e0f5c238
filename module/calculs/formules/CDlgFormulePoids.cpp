#include "calculs/formules/CDlgFormulePoids.h"

#include "calculs/formules/CDefVariable.h"
#include "calculs/formules/fichierFormules.h"
#include "calculs/formules/formule.h"
#include "calculs/phrasesDialogues.h"
#include "calculs/reseau/poidsReseau.h"
#include "services/codages.h"
#include "services/dialogueCellules.h"
#include "services/dialogueChamps.h"
#include "services/dialogueFichier.h"
#include "services/dialogueMessage.h"
#include "services/fichierEntier.h"
#include "services/reelDeTexte.h"

#include "ui_CDlgFormulePoids.h"

namespace {

constexpr wchar_t filtreFormules[] = L"Formules|*.fmc|Tous (*.*)|*.*||";

QString texteDuFichier(const std::string& octets)
{
    return texteQt(depuisAnsi(octets));
}

std::string octets(const QLineEdit& champ)
{
    return versAnsi(champ.text().toStdWString());
}

double reel(const QLineEdit& champ)
{
    return reelDeTexte(champ.text().toStdWString());
}

} // namespace

CDlgFormulePoids::CDlgFormulePoids(const formulesPoids& formules) : m_ui(std::make_unique<Ui::CDlgFormulePoids>())
{
    m_ui->setupUi(this);
    preparerListe(*m_ui->liste, {"Variable", "Valeur", "Commentaire"});
    m_ui->editD1->setText("100");
    m_ui->editD2->setText("150");
    m_ui->editD3->setText("180");
    m_ui->editAngle->setText("100");
    for (QLineEdit* const champ : {m_ui->editD1, m_ui->editD2, m_ui->editD3})
        surveillerNombre(*champ, L"la distance");
    surveillerNombre(*m_ui->editAngle, L"l'angle");
    for (QLineEdit* const champ : {m_ui->editAngles, m_ui->editGisements, m_ui->editDistances, m_ui->editD1,
                                   m_ui->editD2, m_ui->editD3, m_ui->editAngle})
        connect(champ, &QLineEdit::textChanged, this, &CDlgFormulePoids::evaluer);
    connect(m_ui->boutonAngles, &QPushButton::clicked, this, [this] { verifier(*m_ui->editAngles); });
    connect(m_ui->boutonGisements, &QPushButton::clicked, this, [this] { verifier(*m_ui->editGisements); });
    connect(m_ui->boutonDistances, &QPushButton::clicked, this, [this] { verifier(*m_ui->editDistances); });
    connect(m_ui->boutonAjouter, &QPushButton::clicked, this, [this] { modifierVariable(-1); });
    connect(m_ui->boutonModifier, &QPushButton::clicked, this, [this] {
        if (const int ligne = ligneChoisie(*m_ui->liste); ligne >= 0)
            modifierVariable(m_variables.indice(versAnsi(m_ui->liste->item(ligne, 0)->text().toStdWString())));
    });
    connect(m_ui->boutonSupprimer, &QPushButton::clicked, this, &CDlgFormulePoids::supprimerVariable);
    connect(m_ui->boutonImporter, &QPushButton::clicked, this, [this] { lireFichier(true); });
    connect(m_ui->boutonCharger, &QPushButton::clicked, this, [this] { lireFichier(false); });
    connect(m_ui->boutonEnregistrer, &QPushButton::clicked, this, &CDlgFormulePoids::enregistrer);
    connect(m_ui->boutonFermer, &QPushButton::clicked, this, &QDialog::accept);
    afficher(formules);
}

CDlgFormulePoids::~CDlgFormulePoids() = default;

formulesPoids CDlgFormulePoids::formules() const
{
    return {octets(*m_ui->editAngles), octets(*m_ui->editGisements), octets(*m_ui->editDistances), m_variables};
}

void CDlgFormulePoids::afficher(const formulesPoids& formules)
{
    m_variables = formules.variables;
    m_ui->editAngles->setText(texteDuFichier(formules.angles));
    m_ui->editGisements->setText(texteDuFichier(formules.gisements));
    m_ui->editDistances->setText(texteDuFichier(formules.distances));
    montrerVariables();
}

void CDlgFormulePoids::montrerVariables()
{
    m_ui->liste->setRowCount(0);
    for (const variableFormule& v : m_variables.variables()) {
        const int ligne = m_ui->liste->rowCount();
        m_ui->liste->insertRow(ligne);
        m_ui->liste->setItem(ligne, 0, new elementTexte(depuisAnsi(v.nom)));
        m_ui->liste->setItem(
            ligne, 1, new elementNombre(QString::number(v.valeur, 'g', QLocale::FloatingPointShortest).toStdWString()));
        m_ui->liste->setItem(ligne, 2, new elementTexte(depuisAnsi(v.commentaire)));
    }
    trierDeNouveau(*m_ui->liste);
    evaluer();
}

/// The example's angle is its bearing too.
void CDlgFormulePoids::evaluer()
{
    const double angle = reel(*m_ui->editAngle);
    const tableVariables variables =
        variablesDe({reel(*m_ui->editD1), reel(*m_ui->editD2), reel(*m_ui->editD3), angle, angle}, m_variables);
    for (const auto& [champ, valeur] :
         {std::pair{m_ui->editAngles, m_ui->valeurAngles}, std::pair{m_ui->editGisements, m_ui->valeurGisements},
          std::pair{m_ui->editDistances, m_ui->valeurDistances}}) {
        formule f;
        const bool juste = f.analyser(octets(*champ));
        valeur->setText(juste && !f.vide() ? QString::number(f.evaluer(variables), 'g', 8) : QString());
    }
}

void CDlgFormulePoids::verifier(const QLineEdit& champ) const
{
    afficherMessage(L"Calculs Topo", depuisAnsi(messageVerification(octets(champ))));
}

void CDlgFormulePoids::modifierVariable(int indice)
{
    if (CDefVariable(m_variables, indice).exec() == Accepted)
        montrerVariables();
}

void CDlgFormulePoids::supprimerVariable()
{
    const int ligne = ligneChoisie(*m_ui->liste);
    if (ligne < 0)
        return;
    m_variables.supprimer(m_variables.indice(versAnsi(m_ui->liste->item(ligne, 0)->text().toStdWString())));
    montrerVariables();
}

/// "Importer" takes the variables of a file and leaves the formulas; "Charger" replaces all.
void CDlgFormulePoids::lireFichier(bool variablesSeules)
{
    demandeFichier demande;
    demande.filtres = filtreFormules;
    const auto fichier = demanderFichierALire(demande);
    if (!fichier)
        return;
    const auto contenu = ::lireFichier(fichier->c_str());
    if (!contenu)
        return avertirErreur(ouvertureImpossible);
    formulesPoids lues;
    if (variablesSeules)
        lues.variables = m_variables;
    const auto remarques = lireFormules(*contenu, lues);
    if (variablesSeules) {
        const formulesPoids la = formules();
        lues.angles = la.angles;
        lues.gisements = la.gisements;
        lues.distances = la.distances;
    }
    afficher(lues);
    m_ui->bilan->setText(remarques.empty() ? QString()
                                           : QStringLiteral("Ligne %1 : %2")
                                                 .arg(remarques.front().numero)
                                                 .arg(QString::fromStdWString(remarques.front().phrase)));
}

void CDlgFormulePoids::enregistrer()
{
    demandeFichier demande;
    demande.filtres = filtreFormules;
    demande.extension = L"fmc";
    const auto fichier = demanderFichierAEcrire(demande);
    if (fichier && !remplacerFichier(fichier->c_str(), contenuFormules(formules())))
        avertirErreur(phraseNonEcrit(*fichier));
}
