#pragma once

#include <memory>
#include <optional>

#include "services/dialogueModule.h"

class tableCodification;
namespace Ui {
class DlgChoixCode;
}

/// "Choix d'un code": one code of a table, found by its number or by a part of its label.
class DlgChoixCode : public dialogueModule {
    Q_OBJECT

public:
    explicit DlgChoixCode(const tableCodification& table);
    ~DlgChoixCode() override;

    /// The number of the row chosen; nothing without one.
    std::optional<int> code() const;

private:
    std::unique_ptr<Ui::DlgChoixCode> m_ui;
};

/// (selectionnerCode): lets the user choose a code. Gives its number, or nil when the user cancels.
int lispSelectionnerCode();
