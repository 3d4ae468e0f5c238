#pragma once

#include <memory>
#include <optional>
#include <QStringList>

#include "services/dialogueModule.h"

class listePointsDuDessin;
class pointDuDessin;
class tableCodification;
namespace Ui {
class CformulaireXYZ;
}

/// The coordinate form: the points of a table one by one, and new ones. What was typed reaches the table and the
/// drawing with "Enregistrer"; leaving a point that was changed asks first.
class CformulaireXYZ : public dialogueModule {
    Q_OBJECT

public:
    CformulaireXYZ(listePointsDuDessin& laTable, tableCodification& lesCodes);
    ~CformulaireXYZ() override;

    void reject() override;

private:
    void remplirCodes();
    void connecter();
    /// -1: a new point, numbered after the highest.
    void montrer(int position);
    void afficher(const pointDuDessin& point);
    void aller(int position);
    void direBlocGarde();
    void designer();
    bool refuserVerrouille() const;
    void supprimer();
    bool enregistrer();
    /// Whether the point shown may be left: unchanged, written, or given up.
    bool quitter();
    QStringList textes() const;
    bool modifie() const;
    /// The point as the fields have it; nothing when the user was told what is wrong.
    std::optional<pointDuDessin> saisi() const;

    std::unique_ptr<Ui::CformulaireXYZ> m_ui;
    listePointsDuDessin& m_table;
    tableCodification& m_codes;
    int m_position = -1;
    QStringList m_affiche; // the texts of the fields as the point filled them
};

/// The command COORDSXYZ: the form on the current table.
void commandeCoordonnees();
