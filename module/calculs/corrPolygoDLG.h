#pragma once

#include <memory>

#include "calculs/dialoguePolygonale.h"

namespace Ui {
class corrPolygoDLG;
}

/// "Correction de polygonale fermée".
class corrPolygoDLG : public dialoguePolygonale {
    Q_OBJECT

public:
    corrPolygoDLG();
    ~corrPolygoDLG() override;

    donneesPolygonaleFermee donnees() const;
    void afficher(const donneesPolygonaleFermee& donnees);

protected:
    bilanLecture lire(std::string_view contenu) override;
    std::string contenu() const override { return contenuPolygonale(donnees()); }
    std::vector<std::wstring> perduALEcriture() const override { return avertissementsEcriture(donnees()); }
    polygonaleCalculee calculee(htmlDocument* rapport) const override { return calculerPolygonale(donnees(), rapport); }
    polygonaleEnReseau observations() const override { return enReseau(donnees()); }

private:
    std::unique_ptr<Ui::corrPolygoDLG> m_ui;
};
