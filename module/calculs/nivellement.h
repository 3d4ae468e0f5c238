#pragma once

#include <vector>

/// Index of the levelling mode, as the dialogs' list and the files number it. Any other index counts as
/// `nivellementAucun`.
enum modeNivellement : int {
    nivellementAucun = 0,
    nivellementSimple = 1,
    nivellementDistance = 2,
    nivellementRacine = 3
};

/// Word of the mode in files: "aucun", "simple", "distance" or "racine".
const wchar_t* motNivellement(int mode);

/// Mode whose word begins with `lettre`, in either case; `nivellementAucun` for any other letter.
int nivellementDe(wchar_t lettre);

/// What one leg receives of the levelling closure.
struct deniveleeCompensee {
    double poids;      ///< share of the leg: 1, its length or the square root of it, by mode
    double correction; ///< to subtract from the observed height difference
    double dz;         ///< corrected height difference
    double z;          ///< altitude reached
};

/// Altitudes along a traverse, with the closure shared among its legs. Sums are over all legs.
struct nivellementCompense {
    double fermeture = 0.0; ///< sum of the observed height differences minus the known one
    double sommeDz = 0.0;
    double sommePoids = 0.0;
    double sommeCorrections = 0.0;
    double sommeDzCorriges = 0.0;
    std::vector<deniveleeCompensee> denivelees;
};

/// Shares the levelling closure: correction = poids·fermeture / sommePoids, z = previous z + dz − correction.
/// In mode `nivellementAucun` nothing is corrected and every weight is 0.
/// @param zDepart altitude of the departure, drawing units
/// @param deniveleeConnue altitude of the arrival minus that of the departure; 0 for a loop
/// @param dz observed height difference of each leg; one that is unknown leaves every corrected altitude unknown
/// @param distances horizontal length of each leg between corrected stations; all zero, the results are not finite
nivellementCompense compenserNivellement(int mode, double zDepart, double deniveleeConnue,
                                         const std::vector<double>& dz, const std::vector<double>& distances);
