#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>

#include "aideFrancaise.h"
#include "commandes.h"
#include "erreurProgramme.h"
#include "inventaireDessin.h"
#include "sessionHote.h"

namespace {

struct choixInfo {
    std::string dessin;
    bool json = false;
    bool strict = false;
};

} // namespace

void ajouterCommandeInfo(CLI::App& programme)
{
    CLI::App& commande = *programme.add_subcommand("info", "Dit ce qu'un dessin contient");
    commande.group(groupeCommandes);
    const auto choix = std::make_shared<choixInfo>();
    commande.add_option("DESSIN", choix->dessin, aideDessin)->type_name("")->required();
    commande.add_flag("--json", choix->json, aideJson);
    commande.add_flag("--strict", choix->strict,
                      "Se termine avec l'état 1 quand le dessin n'a pas pu être repris tel quel");
    commande.callback([choix] {
        sessionHote session(std::cerr);
        const inventaireDessin inventaire = inventorier(session.ouvrir(choix->dessin), choix->dessin);
        (choix->json ? static_cast<void (*)(const inventaireDessin&)>(afficherJson) : afficherTexte)(inventaire);
        if (choix->strict && !inventaire.sain)
            throw erreurProgramme("« " + choix->dessin + " » n'a pas pu être repris tel quel.");
    });
}
