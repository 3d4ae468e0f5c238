#include <algorithm>
#include <cmath>
#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>

#include "platform/Paths.h"

#include "aideFrancaise.h"
#include "casPublies.h"
#include "commandes.h"
#include "erreurProgramme.h"
#include "nombres.h"
#include "tableTexte.h"

namespace {

struct bilanVerification {
    int cas = 0, valeurs = 0, ecartees = 0;
};

/// One more than the tolerance has.
int decimalesPour(double tolerance)
{
    return tolerance > 0.0 ? std::clamp(static_cast<int>(std::ceil(-std::log10(tolerance))) + 1, 0, 9) : 0;
}

void comparer(const casPublie::attendu& attendu, const std::vector<double>& calculees, tableTexte& table,
              bilanVerification& bilan)
{
    const int decimales = decimalesPour(attendu.tolerance);
    for (std::size_t i = 0; i < attendu.valeurs.size(); ++i) {
        const double publiee = attendu.valeurs[i];
        const double ecart = i < calculees.size() ? calculees[i] - publiee : std::nan("");
        const bool tenu = std::abs(ecart) <= attendu.tolerance;
        ++bilan.valeurs;
        bilan.ecartees += tenu ? 0 : 1;
        table.ajouter({attendu.grandeur + (attendu.valeurs.size() > 1 ? " " + std::to_string(i + 1) : ""),
                       nombreTexte(publiee, decimales),
                       i < calculees.size() ? nombreTexte(calculees[i], decimales) : "absent",
                       nombreTexte(ecart, decimales), nombreTexte(attendu.tolerance, decimales), tenu ? "" : "ÉCART"});
    }
}

void verifier(const casPublie& cas, bilanVerification& bilan)
{
    std::cout << "\n" << cas.nom << " (" << cas.calcul << ")\n  " << cas.source << '\n';
    for (const std::string& note : cas.notes)
        std::cout << "  " << note << '\n';
    ++bilan.cas;
    if (cas.attendus.empty())
        throw erreurProgramme("cas « " + cas.nom + " » : aucune ligne « attendu ».");
    const auto calculees = calculerCas(cas);
    using enum tableTexte::cote;
    tableTexte table({gauche, droite, droite, droite, droite, gauche});
    table.ajouter({"", "publié", "calculé", "écart", "admis", ""});
    for (const casPublie::attendu& attendu : cas.attendus) {
        const auto calculee = calculees.find(attendu.grandeur);
        if (calculee == calculees.end())
            throw erreurProgramme("cas « " + cas.nom + " » : « " + attendu.grandeur +
                                  " » n'est pas une grandeur de ce calcul.");
        comparer(attendu, calculee->second, table, bilan);
    }
    table.ecrire(std::cout, "  ");
}

void verifierTous(const std::string& chemin)
{
    bilanVerification bilan;
    for (const casPublie& cas : lireCasPublies(chemin.empty() ? platform::documentationFolder() / "examples/publies"
                                                              : std::filesystem::path(chemin)))
        verifier(cas, bilan);
    std::cout << '\n' << bilan.cas << " cas, " << bilan.valeurs << " valeurs publiées : ";
    if (bilan.ecartees == 0)
        std::cout << "toutes retrouvées.\n";
    else
        std::cout << bilan.ecartees << " hors de ce qui est admis.\n";
    if (bilan.ecartees > 0)
        throw erreurProgramme("des résultats publiés ne sont pas retrouvés sur cette machine.");
}

} // namespace

void ajouterCommandeVerifier(CLI::App& programme)
{
    CLI::App& commande = *programme.add_subcommand(
        "verifier", "Refait sur cette machine des calculs publiés et met le publié en face du calculé");
    commande.group(groupeCommandes);
    commande.footer("L'état est 1 quand une valeur s'écarte du publié de plus que ce qui est admis.");
    const auto chemin = std::make_shared<std::string>();
    commande
        .add_option("CAS", *chemin, "Fichier de cas, ou dossier de tels fichiers (sans lui, ceux de l'installation)")
        ->type_name("");
    commande.callback([chemin] { verifierTous(*chemin); });
}
