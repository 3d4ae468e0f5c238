#pragma once

#include <memory>
#include <QWidget>
#include <vector>

#include "calculs/polygonaleCalculee.h"

namespace Ui {
class panneauPolygonale;
}

/// What the dialogs of closed and open traverses share: entry fields, observation list, unit and levelling mode,
/// sketch, summary of the last computation, buttons. Adding and removing rows is done here; the rest is asked of the
/// dialog.
class panneauPolygonale : public QWidget {
    Q_OBJECT

public:
    explicit panneauPolygonale(QWidget* parent = nullptr);
    ~panneauPolygonale() override;

    std::vector<ligneObservation> lignes() const;
    int unite() const;
    int nivellement() const;
    void afficher(const std::vector<ligneObservation>& lignes, int unite, int nivellement);

    void dessiner(const polygonaleCalculee& calculee);
    /// Replaces what stands under the list.
    void montrerBilan(const std::vector<std::wstring>& phrases);
    /// Shows "Reprendre", with what was typed last and not saved behind it.
    void proposerReprise(bool possible);

signals:
    void reprendre();
    void charger();
    void sauvegarder();
    void calculer();
    void comparer();
    void placer();
    void fermer();
    void donneesChangees();

private:
    void ajouter();

    std::unique_ptr<Ui::panneauPolygonale> m_ui;
};
