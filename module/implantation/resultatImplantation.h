#pragma once

#include <vector>

#include "implantation/pointImplante.h"
#include "implantation/repartition.h"

/// A job as values, for its reports, drawings and files.

/// A setup and the points staked out from it, in the order of the job.
struct blocStation {
    donneesStation station;
    std::vector<pointImplante> points;
};

struct resultatImplantation {
    std::vector<blocStation> blocs;
    std::vector<pointImplante> sansStation;
    bool verification = true; ///< whether sights are checked
    double hauteurMin = 0.0;  ///< see etatDe
    double hauteurStation = 0.0;
    bool terrainPerime = false; ///< the ground asked is older than what it was made from
};

/// Difference in height and distance along the slope from station to point; unknown when an altitude is.
double deniveleeVers(const donneesStation& station, const pointImplante& point);
double distanceSuivantPente(const donneesStation& station, const pointImplante& point);

/// Whether the station of a point stands on it: a distance of 0 and an angle that means nothing.
bool sousLaStation(const pointImplante& point, const donneesStation& station);
/// What there is to say of a point: that its station stands on it, else how its sight is (phraseVisibilite).
/// @param station null when the point has none
std::wstring phraseDuPoint(const pointImplante& point, const donneesStation* station, double hauteurMin);
/// Sentence on a sight: "vu", "caché par ... : 0.35 au-dessus de la visée, à 12.40 de la station"; "non vérifié".
std::wstring phraseVisibilite(const pointImplante& point, double hauteurMin);
inline constexpr const wchar_t* phraseTerrainPerime =
    L"Le modèle de terrain n'est plus à jour : ce dont il est fait a changé. Altitudes et visées d'après lui sont à "
    L"vérifier (MNT, Actualiser).";
/// "A, B, C"; of many the first dozen.
std::wstring enumererNoms(const std::vector<std::wstring>& noms);
/// Why no station serves a point: "hors de portée", "il manque 0.35"...
std::wstring phraseRefus(const repartition::refus& refus);
