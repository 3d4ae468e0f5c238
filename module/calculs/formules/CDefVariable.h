#pragma once

#include <memory>

#include "calculs/formules/tableVariables.h"
#include "services/dialogueModule.h"

namespace Ui {
class CDefVariable;
}

/// "Définir une variable": a new one, or another value and comment for one there is.
class CDefVariable : public dialogueModule {
    Q_OBJECT

public:
    /// @param indice the variable to change, or -1 for a new one
    CDefVariable(tableVariables& table, int indice);
    ~CDefVariable() override;

private:
    void valider();

    tableVariables& m_table;
    int m_indice;
    std::unique_ptr<Ui::CDefVariable> m_ui;
};
