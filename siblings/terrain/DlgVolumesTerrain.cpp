#include "DlgVolumesTerrain.h"

#include "reports/resultPolygo.h"
#include "services/dialogueChamps.h"
#include "services/dialogueMessage.h"

#include "rangementModeles.h"
#include "rapportTerrain.h"
#include "terrainsOuverts.h"
#include "ui_DlgVolumesTerrain.h"

namespace {

constexpr wchar_t nomAltitude[] = L"l'altitude du plan";

} // namespace

DlgVolumesTerrain::DlgVolumesTerrain(terrainsDuDessin& leDessin, terrain& leModele, std::wstring sonNom) :
    m_modele(leModele),
    m_nom(std::move(sonNom)),
    m_ui(std::make_unique<Ui::DlgVolumesTerrain>())
{
    m_ui->setupUi(this);
    m_ui->reference->addItem("Plan horizontal");
    for (const auto& [autre, id] : modelesDuDessin(leDessin.base())) {
        if (id == m_modele.id())
            continue;
        m_ui->reference->addItem(QString::fromStdWString(autre));
        m_autres.push_back(leDessin.de(id));
    }
    m_ui->altitude->setText(QString::number(m_modele.maillage()->altitudeMin(), 'f', 3));
    surveillerNombre(*m_ui->altitude, nomAltitude);
    connect(m_ui->reference, &QComboBox::currentIndexChanged, this, [this] { choisirReference(); });
    connect(m_ui->boutonCalculer, &QPushButton::clicked, this, [this] { calculer(); });
    connect(m_ui->boutonRapport, &QPushButton::clicked, this, [this] { rapport(); });
    connect(m_ui->boutonFermer, &QPushButton::clicked, this, &QDialog::accept);
    choisirReference();
}

DlgVolumesTerrain::~DlgVolumesTerrain() = default;

void DlgVolumesTerrain::choisirReference()
{
    m_ui->altitude->setEnabled(m_ui->reference->currentIndex() == 0);
    m_volumes.reset();
    m_ui->resultat->clear();
    m_ui->boutonRapport->setEnabled(false);
}

void DlgVolumesTerrain::calculer()
{
    const int rang = m_ui->reference->currentIndex();
    if (rang == 0) {
        double altitude = 0.0;
        if (!lireChamp(*m_ui->altitude, nomAltitude, altitude))
            return;
        m_volumes = volumesSousPlan(*m_modele.maillage(), altitude);
        m_reference = L"plan horizontal d'altitude " + m_ui->altitude->text().trimmed().toStdWString();
    } else {
        const maillageTerrain* const autre = m_autres[static_cast<std::size_t>(rang - 1)]->maillage();
        if (!autre)
            return avertirErreur(L"L'autre mod\u00e8le ne peut pas \u00eatre lu.");
        m_volumes = volumesEntre(*m_modele.maillage(), *autre);
        m_reference = L"mod\u00e8le " + m_ui->reference->currentText().toStdWString();
    }
    m_ui->resultat->setText(QString("Déblai %1, remblai %2, surface %3")
                                .arg(m_volumes->deblai, 0, 'f', 3)
                                .arg(m_volumes->remblai, 0, 'f', 3)
                                .arg(m_volumes->aire(), 0, 'f', 3));
    m_ui->boutonRapport->setEnabled(true);
}

void DlgVolumesTerrain::rapport()
{
    htmlDocument document = rapportVolumes(m_nom, m_reference, *m_volumes);
    ecrireEtMontrer(document);
}
