#pragma once

#include <cstddef>
#include <vector>

#include "calculs/calculPolygonaleFermee.h"
#include "calculs/calculPolygonaleOuverte.h"

// What may be behind a traverse that does not close: its angles booked by another rule, or one of them off by half a
// turn, as a reading on the other face or a bearing given the other way makes them. A hypothesis holds when under it
// the traverse closes in angle but for half turns, and in position. Several may hold; none is preferred here.

/// How angles may have been booked. The first is the rule of the computations: clockwise, from the station before to
/// the one after. A deflection is what a leg turns from the one before it.
enum class regleAngles { horaires, antihoraires, deviationsADroite, deviationsAGauche };

/// An angle booked so, by our rule: in [0, turn].
double angleHoraire(double angle, regleAngles regle, double tour);

struct hypotheseAngulaire {
    regleAngles regle = regleAngles::horaires;
    /// The angles off by half a turn: none, one, or the two at the ends of an open traverse. Of these, the first angle
    /// and the departure bearing cannot be told apart, nor can the last angle and the arrival bearing.
    std::vector<std::size_t> retournes;
    double fermeture = 0.0; ///< in position, drawing units
};

/// The hypotheses that hold and that the observations cannot tell apart, simple ones first: those that close within
/// what practice allows, and either three times as well as the best or within 1/1000 of the length, which a good
/// traverse may miss by. A traverse that holds unknown values has none. Time is linear in the rows.
std::vector<hypotheseAngulaire> hypothesesAngulaires(const resultatPolygonaleOuverte& r);
/// A loop and its image in a mirror close alike: `horaires` stands for `antihoraires` too, and deflections to the right
/// for those to the left.
std::vector<hypotheseAngulaire> hypothesesAngulaires(const resultatPolygonaleFermee& r);
