#pragma once

#include <memory>
#include <optional>

#include "services/dialogueModule.h"

class listePointsDuDessin;
class modelePoints;
namespace Ui {
class DlgChoixPoint;
}

/// "Choix d'un point": one point of a table, found by a part of its name.
class DlgChoixPoint : public dialogueModule {
    Q_OBJECT

public:
    explicit DlgChoixPoint(const listePointsDuDessin& table);
    ~DlgChoixPoint() override;

    /// Position in the table of the row chosen; nothing without one.
    std::optional<int> position() const;

private:
    void chercher(const QString& nom);

    std::unique_ptr<Ui::DlgChoixPoint> m_ui;
    modelePoints* m_modele; // the dialog's
};

/// (choixpoint): lets the user choose a point of the current table. Gives its name, or nil when the user cancels or the
/// table is empty.
int lispChoixpoint();
