#include "calculs/CParamMisePlaceResultCalcs.h"

#include "calculs/reelDeTexte.h"
#include "ui_CParamMisePlaceResultCalcs.h"

namespace {

constexpr int codeParDefaut = placementPolygonale{}.code;

} // namespace

CParamMisePlaceResultCalcs::CParamMisePlaceResultCalcs() : m_ui(std::make_unique<Ui::CParamMisePlaceResultCalcs>())
{
    m_ui->setupUi(this);
    m_ui->editCode->setText(QString::number(codeParDefaut));
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
    const double code = reelDeTexte(m_ui->editCode->text().toStdWString());
    const bool valable = code >= 1.0 && code < 10000.0;
    return {valable ? static_cast<int>(code) : codeParDefaut, m_ui->boutonAltitudes->isChecked()};
}

bool CParamMisePlaceResultCalcs::dessinerOriginelle() const
{
    return m_ui->caseOriginelle->isChecked();
}

bool CParamMisePlaceResultCalcs::dessinerCompensee() const
{
    return m_ui->caseCompensee->isChecked();
}
