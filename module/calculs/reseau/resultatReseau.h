#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "calculs/reseau/reseau.h"

enum class estimateur { moindresCarres, huber, tukey };
/// "moindres carrés", "Huber", "Tukey (redescendant)"
const wchar_t* nomEstimateur(estimateur e);

struct optionsCompensation {
    estimateur methode = estimateur::moindresCarres;
    bool libre = false; ///< no point is held: the network is placed on all of them
    bool chercherSuspects = true;
    int iterations = 60; ///< at most
};

/// Standard ellipse: half axes in metres, bearing of the larger one.
struct ellipseErreur {
    double a = 0.0, b = 0.0, gisement = 0.0;
};

struct pointCompense {
    double x = inconnu, y = inconnu, z = inconnu; ///< unknown: not determined
    double xApproche = inconnu, yApproche = inconnu, zApproche = inconnu;
    double sx = inconnu, sy = inconnu, sz = inconnu; ///< metres; unknown for what was not looked for
    double cxy = 0.0;                                ///< covariance of x and y, square metres
    ellipseErreur ellipse;
    bool planCherche = false, altitudeCherchee = false; ///< looked for and determined
};

struct observationCompensee {
    bool retenue = false;
    std::wstring raison; ///< why it is not
    double ecart = 0.0;  ///< standard deviation taken
    double poids =
        0.0; ///< (sigma / ecart)² in the units of files (mm, ten-thousandths of a grade), robust factor aside
    double facteurRobuste = 1.0;
    double compensee = 0.0, residu = 0.0; ///< metres, radians
    double redondance = 0.0;
    double normalise = inconnu;        ///< residual over its standard deviation after adjustment
    double erreurDetectable = inconnu; ///< smallest fault found with a chance of 80 % at a risk of 0.1 %
    double effet = inconnu;            ///< how far such a fault, not found, moves the points of the observation, metres
    double s0Sans = inconnu;           ///< s0 without it; unknown beyond a fault too large to be linear
    bool suspecte = false;
};

struct suspectReseau {
    int observation = -1;
    double faute = 0.0;      ///< measure less what the others say it should be
    double s0Sans = inconnu; ///< once this one and those before it are left out; unknown as for an observation
    double risque = 1.0;     ///< the chance of such a misfit without a fault
    std::wstring cause;      ///< French, what would explain it; may be empty
};

struct resultatReseau {
    double s0 = inconnu; ///< unknown without redundancy
    double sommePvv = 0.0;
    int degresDeLiberte = 0;
    int inconnues = 0, defaut = 0, observations = 0;
    int iterations = 0;
    bool converge = false;
    bool horsTolerance = false;       ///< the global test refuses s0 against the standard deviation of unit weight
    double s0Bas = 0.0, s0Haut = 0.0; ///< between them s0 is as announced
    estimateur methode = estimateur::moindresCarres;
    bool libre = false; ///< placed by inner constraints
    std::vector<pointCompense> points;
    std::vector<observationCompensee> mesures;
    std::vector<double> orientations; ///< of sets; unknown for those that take no part
    std::vector<suspectReseau> suspects;
    std::vector<std::wstring> messages; ///< French: what was left out, what floats, what to look at

    /// What standard deviations are made with: s0, or the one announced when it is asked for, or without redundancy.
    double s0Pris(const reseau& r) const { return estConnue(s0) && !r.ecartsAPriori ? s0 : r.sigma; }
};

/// The network cannot be computed. The text is for the user: French sentences.
class erreurReseau : public std::runtime_error {
public:
    explicit erreurReseau(std::wstring phrase) : std::runtime_error("reseau"), m_phrase(std::move(phrase)) {}
    const std::wstring& phrase() const { return m_phrase; }

private:
    std::wstring m_phrase;
};
