#pragma once

#include <optional>
#include <string>

#include "adesk.h"

/// Colours by index, and the names of the first seven.

/// "1 (rouge)", "DuCalque", "DuBloc", "30".
std::wstring colorText(Adesk::UInt16 index);
/// A number, a name, DuCalque or DuBloc, in French or as common to all languages; nothing for another text.
std::optional<Adesk::UInt16> colorFrom(const std::wstring& typed);
/// Nothing when what is typed is no colour.
std::optional<Adesk::UInt16> askColor(const std::wstring& prompt);
