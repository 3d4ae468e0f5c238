#pragma once

#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

#include "implantation/numerotationImplantation.h"
#include "implantation/observationMiseEnStation.h"
#include "implantation/obstacleImplantation.h"
#include "implantation/reglagesImplantation.h"
#include "implantation/repartition.h"
#include "implantation/resultatImplantation.h"

/// A point of the job with what is drawn of it.
struct pointDuTravail : pointImplante {
    std::vector<AcDbObjectId> apercu;
};

/// The stake-out job: its setups, its obstacles, its points, what is to be shown of them. Positions are those of
/// `points`, which the list of the dialog shows in this order.
class travailImplantation : Uncopyable {
public:
    using positions = std::vector<std::size_t>;

    travailImplantation();
    ~travailImplantation();

    bool verifier = true;
    std::vector<std::unique_ptr<observationMiseEnStation>> stations;
    std::vector<std::unique_ptr<obstacleImplantation>> obstacles;
    std::vector<pointDuTravail> points;
    optionsImplantation options;
    double hauteurStation;
    numerotationImplantation numerotation;

    positions toutes() const;
    observationMiseEnStation* station(identifiantImplantation identifiant) const;

    /// Appends a point, unless one of that name stands at that place (1e-4). @return whether it was
    bool ajouterPoint(const lieuNomme& lieu);
    /// The next name of a free point, that none in the job has.
    std::wstring nomLibre();
    void enlever(const positions& choisis);

    /// Makes, appends and draws a setup. @return its identifier; `aucunIdentifiant` for a kind that is none
    identifiantImplantation ajouterStation(const lieuNomme& lieu, const lieuNomme& reference, int genre);
    /// A name for a station that has none: "ST1", "ST2"...
    std::wstring nomDeStation() const;
    void affecter(const positions& choisis, identifiantImplantation station);
    /// The points lose their station, and setups that have no point any more go.
    void annulerStations(const positions& choisis);

    /// French sentence on the points whose station stands on them: nothing is staked out so. Empty when there are none.
    std::wstring phraseSousLeurStation() const;
    /// Another height of instrument and target: sights are checked anew, or not known any more.
    void fixerHauteurStation(double hauteur);
    /// Checks the sights of these points that have a setup, as far as there is ground; see visibilite.h. The altitudes
    /// of stations and points that were unknown are taken from it.
    void verifierVisibilite(const positions& choisis);
    /// The section of a point's sight; nothing without setup, ground or altitudes.
    std::optional<coupeVisee> coupeDe(const pointImplante& point) const;

    struct bilanRepartition {
        bool sansTerrain = false; ///< no ground: all within range is taken as seen
        struct pointNonVu {
            std::size_t point;
            repartition::refus refus;
        };
        std::vector<pointNonVu> nonVus;
    };
    /// Spreads points over all setups; those that no station sees keep none.
    bilanRepartition repartirPoints(const positions& choisis, const choixRepartition& choix);

    resultatImplantation resultat() const;

    // Drawing: what is shown while the job lasts.

    void dessinerStations();
    void dessinerApercu(const positions& choisis);
    void effacerApercu();
    /// Everything that was only shown goes, the setups too.
    void effacerTout();

private:
    /// Whether a point of the job may have that name: lists are long, and most points are new.
    bool nomConnu(const std::wstring& nom);

    /// The ground of the drawing, null without one; from then on results tell whether it is out of date.
    std::unique_ptr<const solImplantation> sol();

    bool m_solServi = false;
    std::unordered_set<std::wstring> m_noms;
    std::size_t m_nommes = 0; ///< how many points there were when the names were taken
};
