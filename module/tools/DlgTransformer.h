#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "services/dialogueModule.h"
#include "tools/transformationPlane.h"

#include "dbid.h"

class AcDbEntity;
class listePointsDuDessin;
class projetsTopo;
class QComboBox;
namespace Ui {
class DlgTransformer;
}

/// "Transformation plane": pairs of points, what they give, and its application. Each change of a pair shows at once.
class DlgTransformer : public dialogueModule {
    Q_OBJECT

public:
    DlgTransformer(projetsTopo& leProjet, std::vector<AcDbObjectId> lesObjets);
    ~DlgTransformer() override;

private:
    void designerCouple();
    void ajouterHomonymes();
    void supprimerCouples();
    void designerObjets();
    void montrerObjets();
    void ajouter(couplePoints couple);
    /// Takes a cell that the user changed; one that is no number comes back as it was.
    void lireCellule(int ligne, int colonne);
    void recalculer();
    void montrerEcarts();
    void montrerApercu(bool montrer);
    void montrerRapport();
    void appliquer();
    const listePointsDuDessin& tableDe(const QComboBox& choix) const;

    std::unique_ptr<Ui::DlgTransformer> m_ui;
    projetsTopo& m_projet;
    std::vector<couplePoints> m_couples;
    std::optional<resultatTransformation> m_resultat;
    std::vector<AcDbObjectId> m_objets;
    std::vector<std::unique_ptr<AcDbEntity>> m_apercu; // shown while they are here
    bool m_remplissage = false;                        // cells change by us
};

/// The command VLTRANSFORMER.
void commandeTransformer();
