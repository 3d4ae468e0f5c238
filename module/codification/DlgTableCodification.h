#pragma once

#include <memory>

#include "services/dialogueModule.h"

class tableCodification;
namespace Ui {
class DlgTableCodification;
}

/// "Table codification": the codes of a table, a row each, in table order until a title is clicked.
class DlgTableCodification : public dialogueModule {
    Q_OBJECT

public:
    explicit DlgTableCodification(tableCodification& laTable);
    ~DlgTableCodification() override;

private:
    void afficher();
    void ouvrir(int ligne);
    void nouveau();
    void supprimer();

    std::unique_ptr<Ui::DlgTableCodification> m_ui;
    tableCodification& m_table;
};

/// The command VCODIFICATION: shows the module's table, and saves it when the dialog closes, whatever closed it.
void commandeCodification();
