#include "aideFrancaise.h"

#include <array>
#include <memory>
#include <string_view>
#include <vector>

#include <CLI/CLI.hpp>

namespace {

/// The same message in two languages. "%1" and "%2" stand for what is quoted, in the order of the English text.
struct traduction {
    std::string_view avant;  // English text before the first quotation
    std::string_view milieu; // between the two; the first runs to the end of the message when this is empty
    std::string_view apres;  // after the second, or after the first when `milieu` is empty
    std::string_view francais;
};

constexpr std::string_view commandeManquante = "A subcommand is required";
constexpr std::string_view sansValeur = "l'option %1 ne prend pas de valeur";
constexpr std::string_view uneFois = "%1 ne peut être donné qu'une fois";

constexpr std::array traductions{
    traduction{commandeManquante, "", "", "il faut une commande"},
    traduction{"", "", " is required", "« %1 » est obligatoire"},
    traduction{"The following argument was not expected: ", "", "", "argument inattendu : %1"},
    traduction{"The following arguments were not expected: ", "", "", "arguments inattendus : %1"},
    traduction{"Could not convert: ", " = ", "", "« %2 » ne convient pas à l'option %1"},
    traduction{"The value ", " is not an allowed value for ", "", "« %1 » ne convient pas à l'option %2"},
    traduction{"", ": Value ", " not in range 1 to 9999",
               "« %2 » ne convient pas à l'option %1 : un nombre de 1 à 9999"},
    traduction{"", ": 1 required ", " missing", "l'option %1 demande une valeur"},
    traduction{"Expected exactly 1 arguments to ", ", got ", "", uneFois},
    traduction{"", ": At Most 1 required but received ", "", uneFois},
    traduction{"", " requires ", "", "l'option %1 ne va pas sans %2"},
    traduction{"", " excludes ", "", "les options %1 et %2 ne vont pas ensemble"},
    traduction{"", ": too many inputs for a flag", "", sansValeur},
    traduction{"", " was given a disallowed flag override", "", sansValeur},
    traduction{"", ": Should be true/false or a number", "", sansValeur},
};

/// Options under headings, one blank line before each.
class aideEnFrancais : public CLI::Formatter {
public:
    std::string make_group(std::string titre, bool arguments, std::vector<const CLI::Option*> options) const override
    {
        std::string texte = "\n" + titre + " :\n";
        for (const CLI::Option* option : options)
            texte += make_option(option, arguments);
        return texte;
    }
    std::string make_help(const CLI::App* commande, std::string nom, CLI::AppFormatMode mode) const override
    {
        return CLI::detail::find_and_replace(CLI::Formatter::make_help(commande, nom, mode), "\n\n\n", "\n\n");
    }
};

std::string remplacer(std::string texte, std::string_view marque, std::string_view valeur)
{
    if (const auto place = texte.find(marque); place != std::string::npos)
        texte.replace(place, marque.size(), valeur);
    return texte;
}

/// The French text, or an empty one when the message is another.
std::string traduire(const traduction& t, std::string_view message)
{
    if (!message.starts_with(t.avant) || !message.ends_with(t.apres) ||
        message.size() < t.avant.size() + t.apres.size())
        return {};
    message = message.substr(t.avant.size(), message.size() - t.avant.size() - t.apres.size());
    const auto coupure = t.milieu.empty() ? message.size() : message.find(t.milieu);
    if (coupure == std::string_view::npos)
        return {};
    const std::string_view premier = message.substr(0, coupure);
    const std::string_view second = t.milieu.empty() ? "" : message.substr(coupure + t.milieu.size());
    return remplacer(remplacer(std::string(t.francais), "%1", premier), "%2", second);
}

} // namespace

std::string aideEnregistrer(const std::string& dessin)
{
    return "Dessin à écrire (sans lui, " + dessin + " est remplacé ; l'ancien est gardé en « .bak »)";
}

void parlerFrancais(CLI::App& programme)
{
    const auto aide = std::make_shared<aideEnFrancais>();
    aide->label("Usage", "Utilisation "); // French sets a space before the colon that follows
    aide->label("OPTIONS", "options");
    aide->label("SUBCOMMAND", "commande");
    aide->label("Positionals", "Arguments");
    aide->label("Excludes", "pas avec ");
    aide->label("REQUIRED", "(obligatoire)");
    aide->column_width(34);
    programme.formatter(aide);
    programme.set_help_flag("-h,--aide,--help", "Affiche cette aide");
}

std::string commandeInconnue(const std::string& mot)
{
    return "commande inconnue : " + mot;
}

std::string messageFrancais(const CLI::App& programme, const CLI::ParseError& erreur)
{
    // The library only says that a command is missing, whatever stands in its place.
    const std::vector<std::string> restants = programme.remaining(true);
    if (commandeManquante == erreur.what() && !restants.empty())
        return commandeInconnue(restants.front());
    for (const traduction& t : traductions)
        if (std::string texte = traduire(t, erreur.what()); !texte.empty())
            return texte;
    return std::string("ligne de commande incorrecte : ") + erreur.what();
}
