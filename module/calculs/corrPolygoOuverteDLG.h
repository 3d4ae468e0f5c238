#pragma once

#include <memory>

#include "calculs/dialoguePolygonale.h"

namespace Ui {
class corrPolygoOuverteDLG;
}

/// "Correction Polygonale ouverte".
class corrPolygoOuverteDLG : public dialoguePolygonale {
    Q_OBJECT

public:
    corrPolygoOuverteDLG();
    ~corrPolygoOuverteDLG() override;

    donneesPolygonaleOuverte donnees() const;
    void afficher(const donneesPolygonaleOuverte& donnees);

protected:
    bilanLecture lire(std::string_view contenu) override;
    std::string contenu() const override { return contenuPolygonale(donnees()); }
    std::vector<std::wstring> perduALEcriture() const override { return avertissementsEcriture(donnees()); }
    polygonaleCalculee calculee(htmlDocument* rapport) const override { return calculerPolygonale(donnees(), rapport); }
    polygonaleEnReseau observations() const override { return enReseau(donnees()); }

private:
    /// The fields of one end.
    struct champsStation {
        QLineEdit *numero, *x, *y, *z, *gisement;
    };
    champsStation champsDepart() const;
    champsStation champsArrivee() const;
    static stationPolygonale station(const champsStation& champs);
    static void afficherStation(const champsStation& champs, const stationPolygonale& station);
    /// Bearing of the line that arrives at a station, from the calculator.
    void calculerGisement(const champsStation& champs) const;

    std::unique_ptr<Ui::corrPolygoOuverteDLG> m_ui;
};
