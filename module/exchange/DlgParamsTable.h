#pragma once

#include <memory>

#include "exchange/tableauCoordonnees.h"
#include "services/dialogueModule.h"

namespace Ui {
class DlgParamsTable;
}

/// "Params mise en place": what the table of coordinates shows.
class DlgParamsTable : public dialogueModule {
    Q_OBJECT

public:
    explicit DlgParamsTable(const paramsTable& params);
    ~DlgParamsTable() override;

    paramsTable params() const;

private:
    void afficherColonnes(const paramsTable& params);
    void afficherEncadrement(const paramsTable& params);
    void valider();

    std::unique_ptr<Ui::DlgParamsTable> m_ui;
};
