#pragma once

#include <deque>
#include <vector>

#include "calculs/reseau/equationsObservation.h"
#include "calculs/reseau/relevement.h"

/// What joins points in plan, ready to be walked: for each point the observations that name it.
struct voisinageReseau {
    explicit voisinageReseau(const reseau& r);
    const reseau& r;
    std::vector<std::vector<int>> parPoint;
    std::vector<std::vector<int>> parSerie;
    /// Horizontal length of an observation of a distance, or 0. Slope distances with the zenith angle of the same
    /// sight.
    std::vector<double> longueurs;
};

/// A set of points with places that grows by the observations that join it to others.
class figureReseau {
public:
    struct choix {
        bool gisements = true;
        bool distances = true;
    };
    figureReseau(const voisinageReseau& v, choix quoi);

    void poser(int point, double x, double y);
    /// Not for the point that an observation of one point alone lacks (-1).
    bool pose(int point) const { return point >= 0 && m_pose[static_cast<std::size_t>(point)]; }
    double x(int point) const { return m_x[static_cast<std::size_t>(point)]; }
    double y(int point) const { return m_y[static_cast<std::size_t>(point)]; }
    const std::vector<int>& points() const { return m_poses; }

    /// Places all it can: what has one place first; of two places that nothing tells apart, one in the end.
    void grandir();

    /// A point that was placed at one of two places, and the other one.
    struct autrePlace {
        int point;
        double x, y;
    };
    /// Those whose other place agrees as well with all that is placed now.
    std::vector<autrePlace> autresPlaces() const;

    /// Bearing of the zero of a set whose station is placed, from what its directions say; unknown without one.
    double orientation(int serie) const;

private:
    struct droite {
        int de;
        double gisement;
    };
    struct cercle {
        int de;
        double rayon;
    };
    struct place {
        double x, y;
    };
    struct lieux {
        std::vector<droite> droites;
        std::vector<cercle> cercles;
    };
    void voisinsATenter(int point);
    bool tenter(int point, bool ambigu);
    lieux lieuxDe(int point) const;
    void lieuDeDirection(const observationReseau& o, int point, lieux& l) const;
    void lieuDAngle(const observationReseau& o, int point, lieux& l) const;
    std::vector<place> intersections(const lieux& l) const;
    std::vector<place> rayonnees(const lieux& l) const;
    std::vector<place> croiserDroites(const lieux& l) const;
    std::vector<place> croiserDroiteEtCercle(const lieux& l) const;
    std::vector<place> croiserCercles(const lieux& l) const;
    std::vector<repereVise> reperesDe(int point) const;
    std::vector<repereVise> enchainer(const std::vector<const observationReseau*>& angles) const;
    double desaccord(int point, const place& p) const;
    bool departages(int point, const place& a, const place& b) const;
    double gisementVers(int de, int vers) const;
    struct partie;
    void ajouterAPartie(partie& p, int observation) const;
    void reprendre(std::size_t depuis);
    void reprendreAuBesoin();

    const voisinageReseau& m_v;
    choix m_choix;
    std::vector<double> m_x, m_y;
    std::vector<bool> m_pose, m_enFile;
    std::vector<int> m_poses;
    std::vector<autrePlace> m_autresPlaces; ///< when they were placed
    std::size_t m_donnes = 0; ///< the first ones were given, or begin the figure: they stay where they are
    std::size_t m_avantReprise = 0, m_reprise = 0; ///< how many were placed when the last parts were adjusted
    std::size_t m_repriseEntiere = 4000;           ///< how many are placed when all are adjusted next
    std::deque<int> m_file;
};
