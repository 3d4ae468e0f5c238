#pragma once

#include <string>

#include <nlohmann/json.hpp>

/// Its members stay in the order of writing.
using objetJson = nlohmann::ordered_json;

/// As text, with that many decimals: "inconnu" for the unknown value (1e38), "non défini" for one that is not finite.
std::string nombreTexte(double valeur, int decimales);

/// As JSON, in full; null where a text would say "inconnu" or "non défini".
objetJson nombreJson(double valeur);

/// The name of a file that was written; null when none was.
objetJson fichierJson(const std::string& nom);

/// Prints a JSON value, on lines, as UTF-8; bytes that are no characters become U+FFFD.
void ecrireJson(const objetJson& json);
