#pragma once

#include <numbers>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "calculs/formules/formulesPoids.h"
#include "services/grandeur.h"

// A network of observations, as it was read or typed. Lengths in metres, angles in radians; x runs east, y north,
// angles clockwise, whatever the file's own axes.

enum class genreObservation : unsigned char {
    direction, ///< of a set: its zero is one unknown a set
    angle,     ///< from `vers` to `vers2`, clockwise
    gisement,
    distance, ///< horizontal
    distanceInclinee,
    zenithal,
    denivelee,
    coordonneeX, ///< a coordinate of `de` that was observed
    coordonneeY,
    coordonneeZ,
};

/// Whether the measure is an angle, in radians; otherwise a length.
bool estAngulaire(genreObservation genre);
/// Whether a height takes part.
bool estAltimetrique(genreObservation genre);
/// Whether X and Y take part.
bool estPlanimetrique(genreObservation genre);
/// Word of the kind in files and results: "direction", "angle", "gisement", "distance", "inclinee", "zenithal",
/// "denivelee", "x", "y", "z".
const wchar_t* motObservation(genreObservation genre);
/// The same for people: "distance inclinée", "angle zénithal", "dénivelée", "X"...
const wchar_t* nomGenre(genreObservation genre);
/// The kind that a word of files stands for.
std::optional<genreObservation> genreDuMot(std::wstring_view mot);

/// What becomes of a coordinate.
enum class tenue : unsigned char {
    ignoree, ///< neither given nor looked for
    libre,   ///< looked for
    appui,   ///< looked for; where the network floats, it is placed on those
    fixe,
};

/// Word of files: "fixe", "appui", "libre", "ignore".
const wchar_t* motTenue(tenue t);
/// The same for people: "-" for what is left out.
const wchar_t* nomTenue(tenue t);
/// What a word of files stands for.
std::optional<tenue> tenueDuMot(std::wstring_view mot);

struct pointReseau {
    std::wstring nom;
    double x = inconnu, y = inconnu, z = inconnu; ///< known, approximate, or not known
    tenue plan = tenue::libre;
    tenue altitude = tenue::libre;

    bool enPlan() const { return estConnue(x) && estConnue(y); }
};

struct observationReseau {
    genreObservation genre = genreObservation::distance;
    int de = -1, vers = -1, vers2 = -1; ///< positions of points
    int serie = -1;                     ///< directions: their set
    double mesure = 0.0;
    double ecart = 0.0; ///< standard deviation before adjustment; 0: from the defaults or formulas
    double hauteurDe = 0.0, hauteurVers = 0.0; ///< of instrument and target above their points
    double longueur = 0.0;                     ///< height differences: of the line, in kilometres; 0: not known
    bool active = true;
    int ligne = 0; ///< of the file, 1-based
};

/// Observations that are correlated, and their covariances in the units of the measures: row by row, full.
struct blocCovariance {
    std::vector<int> observations;
    std::vector<double> matrice;
};

/// Standard deviations of observations that have none. Angles in radians, lengths in metres.
struct precisionsParDefaut {
    double direction = 0.0, angle = 0.0, gisement = 0.0, zenithal = 0.0;
    double distance = 0.0, distanceKm = 0.0, distanceExposant = 1.0; ///< distance + distanceKm·(km)^distanceExposant
    double denivelee = 0.0;                                          ///< times the root of the kilometres of the line
};

/// How the axes of a file lie: where its first and second axes point.
struct axesFichier {
    double estX = 1.0, estY = 0.0;   ///< east = estX·first + estY·second
    double nordX = 0.0, nordY = 1.0; ///< north
    bool antihoraire = false;        ///< angles of the file run anticlockwise

    void versTerrain(double premiere, double seconde, double& x, double& y) const;
    void versFichier(double x, double y, double& premiere, double& seconde) const;
    /// Whether the first axis of the file runs east or west, so that its standard deviation is that of x.
    bool premiereEstX() const { return estX != 0.0; }
    double angle(double mesure) const { return antihoraire ? -mesure : mesure; } ///< either way
};

struct reseau {
    std::wstring titre;
    std::vector<pointReseau> points;
    std::vector<observationReseau> observations;
    std::vector<blocCovariance> covariances;
    int series = 0;
    double sigma = 1.0; ///< standard deviation of unit weight, in the file's unit: a weight is (sigma / ecart)²
    bool ecartsAPriori = false; ///< standard deviations of results are made with sigma, not with s0
    double confiance = 0.95;
    double toleranceAbsolue = inconnu; ///< an observation farther from the approximate place of its points is set aside
    precisionsParDefaut precisions;
    formulesPoids formules;
    axesFichier axes;

    /// Position of the point of that name, made when it is not there.
    int point(const std::wstring& nom);
    /// Position, or -1.
    int chercher(const std::wstring& nom) const;
    /// Forget the index, after names were changed from outside.
    void indexer();

private:
    std::unordered_map<std::wstring, int> m_index;
};

inline constexpr double pi = std::numbers::pi;
inline constexpr double gradeEnRadians = pi / 200.0;
inline constexpr double dmgrEnRadians = gradeEnRadians / 10000.0;
inline constexpr double milli = 1e-3;

/// Into (−π, π].
double ecartAngulaire(double angle);
/// Into [0, 2π).
double angleReduit(double angle);
/// Clockwise from north; 0 for two points at the same place.
double gisementDe(double dx, double dy);

/// In the unit of results: grades or metres, angles in the sense and the bearing of the file.
double mesureAffichee(const reseau& r, const observationReseau& o, double valeur);
/// "distance A - B", "angle A : B, C"
std::wstring nomObservation(const reseau& r, const observationReseau& o);
