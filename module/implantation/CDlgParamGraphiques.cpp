#include "implantation/CDlgParamGraphiques.h"

#include <QComboBox>
#include <QLineEdit>
#include <QLocale>

#include "services/dialogueChamps.h"
#include "services/dialogueMessage.h"

#include "ui_CDlgParamGraphiques.h"

namespace {

void remplirCouleurs(QComboBox& liste, int couleur)
{
    constexpr const char* noms[] = {"rouge", "jaune", "vert", "cyan", "bleu", "magenta", "blanc"};
    for (int i = 1; i <= 255; ++i) {
        const QString nom = i <= static_cast<int>(std::size(noms))
                                ? QStringLiteral("%1 %2").arg(i).arg(QString::fromUtf8(noms[i - 1]))
                                : QString::number(i);
        liste.addItem(nom, i);
    }
    liste.setCurrentIndex(couleur - 1);
}

void montrer(QLineEdit& champ, double taille)
{
    champ.setText(QString::number(taille, 'g', QLocale::FloatingPointShortest));
}

} // namespace

CDlgParamGraphiques::CDlgParamGraphiques(const reglagesImplantation& lesReglages,
                                         const optionsImplantation& lesOptions) :
    m_ui(std::make_unique<Ui::CDlgParamGraphiques>()),
    m_reglages(lesReglages),
    m_options(lesOptions)
{
    m_ui->setupUi(this);
    afficher();
    connect(m_ui->boutonOk, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->boutonAnnuler, &QPushButton::clicked, this, &QDialog::reject);
}

CDlgParamGraphiques::~CDlgParamGraphiques() = default;

void CDlgParamGraphiques::afficher()
{
    montrer(*m_ui->editTextes, m_reglages.tailleTextes);
    montrer(*m_ui->editLargeurFleche, m_reglages.largeurFleche);
    montrer(*m_ui->editLongueurFleche, m_reglages.longueurFleche);
    montrer(*m_ui->editPoints, m_reglages.taillePoints);
    montrer(*m_ui->editStations, m_reglages.tailleStations);
    remplirCouleurs(*m_ui->comboNonVerifie, m_reglages.nonVerifie);
    remplirCouleurs(*m_ui->comboNonVisible, m_reglages.nonVisible);
    remplirCouleurs(*m_ui->comboVisible, m_reglages.visible);
    remplirCouleurs(*m_ui->comboStation, m_reglages.station);
    remplirCouleurs(*m_ui->comboReference, m_reglages.reference);
    m_ui->caseNumeros->setChecked(m_options.numeros);
    m_ui->caseImplantations->setChecked(m_options.implantations);
    m_ui->caseTextes->setChecked(m_options.textes);
    m_ui->caseStations->setChecked(m_options.stations);
    m_ui->caseCoordonnees->setChecked(m_options.coordonnees);
    m_ui->radioAucun->setChecked(m_options.grouper == optionsImplantation::nePasGrouper);
    m_ui->radioStation->setChecked(m_options.grouper == optionsImplantation::grouperParStation);
    m_ui->radioTout->setChecked(m_options.grouper == optionsImplantation::toutGrouper);
}

bool CDlgParamGraphiques::lireTaille(QLineEdit& champ, double plusPetite, double& taille)
{
    double lue = 0.0;
    if (!lireChamp(champ, L"la taille", lue))
        return false;
    if (lue >= plusPetite) {
        taille = lue;
        return true;
    }
    avertirErreur(plusPetite > 0.0 ? L"Tapez une taille plus grande que 0" : L"Tapez un nombre, 0 ou plus");
    champ.setFocus();
    return false;
}

void CDlgParamGraphiques::accept()
{
    reglagesImplantation lus = m_reglages;
    double textes = 0.0, stations = 0.0;
    if (!lireTaille(*m_ui->editTextes, 1e-6, textes) || !lireTaille(*m_ui->editLargeurFleche, 0.0, lus.largeurFleche) ||
        !lireTaille(*m_ui->editLongueurFleche, 0.0, lus.longueurFleche) ||
        !lireTaille(*m_ui->editPoints, 0.0, lus.taillePoints) || !lireTaille(*m_ui->editStations, 0.0, stations))
        return;
    lus.fixerTailleTextes(textes);
    lus.tailleStations = stations; // its own field has the last word
    lus.nonVerifie = m_ui->comboNonVerifie->currentData().toInt();
    lus.nonVisible = m_ui->comboNonVisible->currentData().toInt();
    lus.visible = m_ui->comboVisible->currentData().toInt();
    lus.station = m_ui->comboStation->currentData().toInt();
    lus.reference = m_ui->comboReference->currentData().toInt();
    m_reglages = lus;
    m_options.numeros = m_ui->caseNumeros->isChecked();
    m_options.implantations = m_ui->caseImplantations->isChecked();
    m_options.textes = m_ui->caseTextes->isChecked();
    m_options.stations = m_ui->caseStations->isChecked();
    m_options.coordonnees = m_ui->caseCoordonnees->isChecked();
    m_options.grouper = m_ui->radioAucun->isChecked()     ? optionsImplantation::nePasGrouper
                        : m_ui->radioStation->isChecked() ? optionsImplantation::grouperParStation
                                                          : optionsImplantation::toutGrouper;
    QDialog::accept();
}
