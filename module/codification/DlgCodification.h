#pragma once

#include <memory>

#include "codification/tableCodification.h"
#include "services/dialogueModule.h"

namespace Ui {
class DlgCodification;
}

/// "Codification": one code. What the fields do not show stays as it was given.
class DlgCodification : public dialogueModule {
    Q_OBJECT

public:
    enum class mode { edition, creation };

    /// @param laTable where numbers are taken
    DlgCodification(const codifPoint& leCode, const tableCodification& laTable, mode leMode);
    ~DlgCodification() override;

    /// The code as the fields have it.
    codifPoint code() const;
    void accept() override;

private:
    void afficher();
    /// @return false when the user was told that the number cannot be.
    bool validerNumero();
    bool validerTaille();
    bool validerCalques();
    void choisirBlock();

    std::unique_ptr<Ui::DlgCodification> m_ui;
    codifPoint m_code;
    const tableCodification& m_table;
    mode m_mode;
};
