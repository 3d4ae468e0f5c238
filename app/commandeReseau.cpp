#include <memory>

#include <CLI/CLI.hpp>

#include "aideFrancaise.h"
#include "commandes.h"
#include "traitementReseau.h"

namespace {

constexpr char suite[] =
    "FICHIER : un réseau « .mc », un réseau gama-local « .gkf », ou une polygonale « .obs ».\n"
    "JSON : longueurs en mètres, angles en grades ; sx, sy, sz, les demi-axes a et b des ellipses,\n"
    "l'erreur détectable et l'effet des longueurs en mm, a posteriori (a priori sans redondance, s0 est alors\n"
    "null, ou si le fichier le veut) ; s0 dans l'unité de l'écart-type de l'unité de poids du fichier ;\n"
    "residu = compensee - mesure ; x, y, z d'un « .gkf » dans ses axes.";

void declarerOptions(CLI::App& commande, demandeReseau& demande)
{
    commande.add_option("FICHIER", demande.fichier, "Réseau « .mc » ou « .gkf », ou polygonale « .obs »")
        ->type_name("")
        ->required();
    commande.add_option("--rapport", demande.rapport, aideRapport)->type_name("R.html");
    commande.add_flag("--robuste{huber}", demande.robuste,
                      "Estimation robuste : de Huber, ou redescendante avec « --robuste=tukey »");
    commande.add_flag("--libre", demande.libre, "Réseau libre : aucun point n'est tenu, tous portent le réseau");
    commande.add_flag("--json", demande.json, aideJson);
    commande.add_flag("--placer", demande.placer, "Place les points compensés dans la table courante du dessin");
    commande.add_flag("--ellipses", demande.ellipses, "Dessine les ellipses d'erreur et les vecteurs de déplacement");
    const auto avecDessin = [](CLI::Option* option, const char* valeur) {
        option->group("Options du dessin, avec --placer ou --ellipses")->option_text(valeur);
    };
    avecDessin(commande.add_option("--dessin", demande.dessin, "Dessin à compléter (sans lui, un neuf)"), "A.dxf");
    avecDessin(commande.add_option("--enregistrer", demande.enregistrer, aideEnregistrer("A.dxf")), "B.dxf");
    avecDessin(commande.add_option("--code", demande.code, "Code des points, 1 à 9999 (100 sinon)"), "N");
    avecDessin(
        commande.add_option("--echelle", demande.echelle, "Agrandissement des ellipses (choisi selon le réseau sinon)"),
        "E");
}

} // namespace

void ajouterCommandeReseau(CLI::App& programme)
{
    CLI::App& commande = *programme.add_subcommand("reseau", "Compense un réseau par moindres carrés");
    commande.group(groupeCommandes);
    commande.footer(suite);
    const auto demande = std::make_shared<demandeReseau>();
    declarerOptions(commande, *demande);
    commande.callback([demande] {
        const traitementReseau traitement = traiterReseau(*demande);
        if (demande->json)
            afficherJson(*demande, traitement);
        else
            afficherTexte(*demande, traitement);
    });
}
