#pragma once

#include <optional>
#include <string_view>

/// An angle as a user types it, in radians, as it stands: neither turned nor brought into one turn.
/// `unit` is that of AUNITS, which counts where the text does not tell its own: 0 degrees, 1 degrees with minutes and
/// seconds, 2 grads, 3 radians, 4 surveyor's units. Marks: 45d30'15.5" or 45°30', 50g, 0.785r. Bearings N45d30'E, S10W
/// and N, S, E, W (or O, as in French) are angles from the east, in every unit.
std::optional<double> typedAngle(std::wstring_view text, int unit);
