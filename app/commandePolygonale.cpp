#include <memory>

#include <CLI/CLI.hpp>

#include "aideFrancaise.h"
#include "commandes.h"
#include "traitementPolygonale.h"

namespace {

/// These stand in the help under a heading that says what they need.
void declarerPlacement(CLI::App& commande, demandePolygonale& demande)
{
    CLI::Option* const placer =
        commande.add_flag("--placer", demande.placer, "Place les stations dans la table de points courante du dessin");
    const auto avecPlacer = [placer](CLI::Option* option, const char* valeur) {
        option->needs(placer)->group("Options de placement, avec --placer")->option_text(valeur);
    };
    avecPlacer(commande.add_option("--dessin", demande.dessin, "Dessin où placer les stations (sans lui, un neuf)"),
               "D.dxf");
    avecPlacer(commande.add_option("--enregistrer", demande.enregistrer, aideEnregistrer("D.dxf")), "S.dxf");
    avecPlacer(commande.add_option("--code", demande.code, "Code des stations, 1 à 9999 (100 sinon)"), "N");
    avecPlacer(commande.add_flag("--altitudes", demande.altitudes, "Place aussi les altitudes"), " ");
    avecPlacer(commande.add_flag("--originale", demande.originale, "Dessine la polygonale observée (rouge)"), " ");
    avecPlacer(commande.add_flag("--compensee", demande.compensee, "Dessine la polygonale compensée (vert)"), " ");
    avecPlacer(commande.add_flag("--quand-meme", demande.quandMeme,
                                 "Place même des stations dont la fermeture est hors de toute pratique"),
               " ");
}

/// One kind of traverse: what it is called, and the function that treats it.
template <class Traitement>
void ajouterGenre(CLI::App& polygonale, const char* nom, const char* description,
                  Traitement (*traiter)(const demandePolygonale&))
{
    struct choix {
        demandePolygonale demande;
        bool json = false;
    };
    CLI::App& commande = *polygonale.add_subcommand(nom, description);
    commande.group(groupeCommandes);
    const auto choisi = std::make_shared<choix>();
    commande.add_option("FICHIER", choisi->demande.observations, "Fichier de polygonale (« .obs »)")
        ->type_name("")
        ->required();
    commande.add_option("--rapport", choisi->demande.rapport, aideRapport)->type_name("F.html");
    commande.add_flag("--strict", choisi->demande.strict,
                      "Échoue (état 1) quand la fermeture est hors de pratique ou de tolérance");
    commande
        .add_option("--precision-angle", choisi->demande.precisionAngle,
                    "Écart type s d'un angle, dans l'unité du fichier : la tolérance est 2,7 s √(n+1) pour n côtés")
        ->type_name("S");
    declarerPlacement(commande, choisi->demande);
    commande.add_flag("--json", choisi->json, aideJson);
    commande.callback([choisi, traiter] {
        const Traitement traitement = traiter(choisi->demande);
        if (choisi->json)
            afficherJson(choisi->demande, traitement);
        else
            afficherTexte(choisi->demande, traitement);
    });
}

} // namespace

void ajouterCommandePolygonale(CLI::App& programme)
{
    CLI::App& commande = *programme.add_subcommand("polygonale", "Calcule et compense une polygonale");
    commande.group(groupeCommandes);
    commande.require_subcommand(1);
    ajouterGenre(commande, "fermee", "Polygonale fermée : une boucle qui revient au départ", traiterPolygonaleFermee);
    ajouterGenre(commande, "ouverte", "Polygonale ouverte : d'une station connue à une autre",
                 traiterPolygonaleOuverte);
}
