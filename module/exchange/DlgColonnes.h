#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "exchange/colonnesSeparees.h"

/// "Colonnes du fichier": the first lines of a file with separated columns, and what each column holds, as guessed or
/// as the user chose for a file of the same make before. @return nothing when the user gives up
std::optional<formatColonnes> choisirColonnes(const std::wstring& fichier, std::string_view debut);
