#pragma once

#include <memory>

#include "calculs/placerPolygonale.h"
#include "services/dialogueModule.h"

namespace Ui {
class CParamMisePlaceResultCalcs;
}

/// "Params mise en place": how computed stations go into the drawing.
class CParamMisePlaceResultCalcs : public dialogueModule {
    Q_OBJECT

public:
    CParamMisePlaceResultCalcs();
    ~CParamMisePlaceResultCalcs() override;

    placementPolygonale placement() const; ///< its code is within 1 to 9999
    bool dessinerOriginelle() const;
    bool dessinerCompensee() const;

private:
    std::unique_ptr<Ui::CParamMisePlaceResultCalcs> m_ui;
};
