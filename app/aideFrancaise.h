#pragma once

#include <string>

namespace CLI {
class App;
class ParseError;
} // namespace CLI

/// Heading of the commands in the help. The library sets a colon behind it, and French a space before that.
inline constexpr const char* groupeCommandes = "Commandes ";

// What several commands say of their arguments.
inline constexpr const char* aideDessin = "Dessin (DXF ou DWG)";
inline constexpr const char* aideTable = "Table de points (la table courante sans elle)";
inline constexpr const char* aideJson = "Donne tout en JSON, et rien d'autre";
inline constexpr const char* aideRapport = "Écrit le rapport de calcul";
/// @param dessin the one that is replaced unless another is named
std::string aideEnregistrer(const std::string& dessin);

/// Makes the argument library speak French: headings of the help, and the option that asks for it.
/// To be called before commands are added: they take over what is set here.
void parlerFrancais(CLI::App& programme);

/// @param mot what stands where a command should
std::string commandeInconnue(const std::string& mot);

/// What is wrong with the arguments that `programme` was given, in French.
std::string messageFrancais(const CLI::App& programme, const CLI::ParseError& erreur);
