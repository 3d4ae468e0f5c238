#pragma once

#include <string>

#include <nlohmann/json.hpp>

/// As text, with that many decimals: "inconnu" for the unknown value (1e38), "non défini" for one that is not finite.
std::string nombreTexte(double valeur, int decimales);

/// As JSON, in full; null where a text would say "inconnu" or "non défini".
nlohmann::ordered_json nombreJson(double valeur);

/// The name of a file that was written; null when none was.
nlohmann::ordered_json fichierJson(const std::string& nom);

/// Prints a JSON value, on lines, as UTF-8; bytes that are no characters become U+FFFD.
void ecrireJson(const nlohmann::ordered_json& json);
