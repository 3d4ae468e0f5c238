#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "adesk.h"

/// Colours by index: 1 to 255, or that of the layer or of the block. What they look like: gi/AciPalette.

inline constexpr Adesk::UInt16 colorByBlock = 0, contrastingColor = 7, colorByLayer = 256;

/// "rouge", "DuCalque", "134".
std::wstring colorName(int index);
/// As a list shows it: "1 (rouge)", "DuCalque", "134".
std::wstring colorText(int index);
/// As a drawing keeps it: "1", "BYLAYER".
std::wstring storedColor(int index);

/// A number, a name, DuCalque or DuBloc, in French or as common to all languages; nothing for another text.
std::optional<Adesk::UInt16> colorNamed(std::wstring_view typed);
