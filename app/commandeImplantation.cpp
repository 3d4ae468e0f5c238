#include <memory>

#include <CLI/CLI.hpp>

#include "aideFrancaise.h"
#include "commandes.h"
#include "traitementImplantation.h"

namespace {

struct choixImplantation {
    demandeProgrammeImplantation demande;
    bool json = false;
};

void declarerStation(CLI::App& commande, demandeProgrammeImplantation& demande)
{
    commande.add_option("--station", demande.station, "Point où se met l'appareil")->type_name("NOM");
    commande
        .add_option("--reference", demande.reference,
                    "Zéro de l'appareil : nord (sans elle), le nom d'un point, ou gisement=G en grades")
        ->type_name("nord|NOM|gisement=G");
    CLI::Option* const stations =
        commande.add_option("--stations", demande.stations, "Stations entre lesquelles répartir les points");
    stations->delimiter(',');
    CLI::Option* const repartir =
        commande.add_flag("--repartir", demande.repartir, "Donne chaque point à la station la plus proche qui le voit");
    stations->needs(repartir)->option_text("A,B,C");
    commande.add_option("--portee", demande.portee, "Distance que nul point ne dépasse")
        ->needs(repartir)
        ->option_text("D");
    commande.add_flag("--equilibrer", demande.equilibrer, "Donne autant de points à chaque station")
        ->needs(repartir)
        ->option_text(" ");
}

void declarerPoints(CLI::App& commande, demandeProgrammeImplantation& demande)
{
    commande.add_option("--points", demande.points, "Points à implanter : noms, plages et motifs, « 1-20,B* »")
        ->type_name("LISTE");
    commande.add_option("--code", demande.code, "Points de ce code")->type_name("N");
    commande.add_option("--table", demande.table, "Points de cette table (sans elle, la table courante)")
        ->type_name("NOM");
}

void declarerSorties(CLI::App& commande, choixImplantation& c)
{
    commande.add_flag("--verifier", c.demande.verifier,
                      "Vérifie que la station voit les points, sur le terrain du dessin");
    commande.add_option("--hauteur", c.demande.hauteur, "Hauteur de l'appareil et de la cible (1 sinon)")
        ->type_name("H");
    commande.add_option("--seuil", c.demande.seuil, "Ce qui peut dépasser de la visée sans cacher le point (1 sinon)")
        ->type_name("S");
    commande.add_option("--rapport", c.demande.rapport, "Écrit le rapport")->type_name("R.html");
    commande.add_flag("--json", c.json, aideJson);
    CLI::Option* const dessiner =
        commande.add_flag("--dessiner", c.demande.dessiner, "Dessine les résultats et garde le travail dans le dessin");
    commande.add_option("--enregistrer", c.demande.enregistrer, aideEnregistrer("DESSIN"))
        ->needs(dessiner)
        ->option_text("B.dxf");
}

} // namespace

void ajouterCommandeImplantation(CLI::App& programme)
{
    CLI::App& commande =
        *programme.add_subcommand("implantation", "Calcule ce qu'un appareil lit pour implanter des points");
    commande.group(groupeCommandes);
    const auto choisi = std::make_shared<choixImplantation>();
    commande.add_option("DESSIN", choisi->demande.dessin, "Dessin qui tient les points")->type_name("")->required();
    declarerStation(commande, choisi->demande);
    declarerPoints(commande, choisi->demande);
    declarerSorties(commande, *choisi);
    commande.callback([choisi] {
        const traitementImplantation traitement = traiterImplantation(choisi->demande);
        if (choisi->json)
            montrerImplantationJson(traitement);
        else
            montrerImplantation(choisi->demande, traitement);
    });
}
