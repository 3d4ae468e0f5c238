#include "calculs/CParamMisePlaceResultCalcs.h"

#include "services/dialogueChamps.h"
#include "services/reelDeTexte.h"

#include "ui_CParamMisePlaceResultCalcs.h"

CParamMisePlaceResultCalcs::CParamMisePlaceResultCalcs() : m_ui(std::make_unique<Ui::CParamMisePlaceResultCalcs>())
{
    m_ui->setupUi(this);
    m_ui->editCode->setText(QString::number(codeStationsParDefaut));
    surveillerNombre(*m_ui->editCode, L"le code");
    connect(m_ui->boutonAltitudes, &QPushButton::toggled, this, [this](bool altitudes) {
        m_ui->boutonAltitudes->setText(altitudes ? QStringLiteral("Placer les altitudes")
                                                 : QStringLiteral("Ne pas placer les altitudes"));
    });
    connect(m_ui->boutonOk, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->boutonAnnuler, &QPushButton::clicked, this, &QDialog::reject);
}

CParamMisePlaceResultCalcs::~CParamMisePlaceResultCalcs() = default;

placementPolygonale CParamMisePlaceResultCalcs::placement() const
{
    return {codeDesStations(reelDeTexte(m_ui->editCode->text().toStdWString())), m_ui->boutonAltitudes->isChecked()};
}

bool CParamMisePlaceResultCalcs::dessinerOriginelle() const
{
    return m_ui->caseOriginelle->isChecked();
}

bool CParamMisePlaceResultCalcs::dessinerCompensee() const
{
    return m_ui->caseCompensee->isChecked();
}
