#pragma once

#include <string>

namespace CLI {
class App;
class ParseError;
} // namespace CLI

/// Heading of the commands in the help. The library sets a colon behind it, and French a space before that.
inline constexpr const char* groupeCommandes = "Commandes ";

/// Makes the argument library speak French: headings of the help, and the option that asks for it.
/// To be called before commands are added: they take over what is set here.
void parlerFrancais(CLI::App& programme);

/// What is wrong with the arguments that `programme` was given, in French.
std::string messageFrancais(const CLI::App& programme, const CLI::ParseError& erreur);
