#pragma once

#include <cstdint>

/// Identifiers of setups and of points to stake out: one series for both, for the whole process.
using identifiantImplantation = std::uint32_t;

/// All bits set: no identifier ever.
inline constexpr identifiantImplantation aucunIdentifiant = UINT32_MAX;

identifiantImplantation nouvelIdentifiant();

/// The one that follows in a series whose counter is `compteur`. A counter of all ones begins anew at `secondes`, the
/// time, cut to 32 bits; all ones is never given.
identifiantImplantation identifiantSuivant(identifiantImplantation& compteur, std::int64_t secondes);
