#pragma once

#include <memory>
#include <string>

#include "services/dialogueModule.h"

namespace Ui {
class CCalcGisementDlg;
}

class QLineEdit;

/// "Calcul de gisement": bearing from a station to a direction, each typed or picked in the drawing.
class CCalcGisementDlg : public dialogueModule {
    Q_OBJECT

public:
    struct lieu {
        std::wstring nom;
        double x, y;
    };

    /// @param unite uniteAngulaire of the bearing
    CCalcGisementDlg(int unite, const lieu& direction);
    ~CCalcGisementDlg() override;

    /// From what is in the fields, in the unit.
    double gisementCalcule() const;

private:
    struct champsLieu {
        QLineEdit *nom, *x, *y;
    };
    static void afficher(const champsLieu& champs, const lieu& l);
    static void prelever(const champsLieu& champs);
    void recalculer();

    int m_unite;
    std::unique_ptr<Ui::CCalcGisementDlg> m_ui;
};
