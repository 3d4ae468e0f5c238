#pragma once

#include <memory>
#include <vector>

#include "services/dialogueModule.h"

class projetsTopo;
namespace Ui {
class DlgTablesPoints;
}

/// "Tables de points": the point tables of a drawing, a row each, in the order of the project.
class DlgTablesPoints : public dialogueModule {
    Q_OBJECT

public:
    explicit DlgTablesPoints(projetsTopo& projet);
    ~DlgTablesPoints() override;

private:
    void afficher();
    void afficherLigne(int ligne);
    void afficherCourante();
    std::vector<int> choisies() const;
    /// The one row selected; -1, after a message, when it is not one.
    int uneSeule() const;
    void creer();
    void renommer();
    void supprimer();
    void rendreCourante();
    void fusionner();

    std::unique_ptr<Ui::DlgTablesPoints> m_ui;
    projetsTopo& m_projet;
};

/// c:gererLeves, also the command GERERLEVES: the dialog on the project in use.
int lispGererLeves();
