#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>

#include "aideFrancaise.h"
#include "commandes.h"
#include "fichierDessin.h"
#include "lignesConsole.h"
#include "nombres.h"
#include "tableTexte.h"
#include "traitementPoints.h"

namespace {

constexpr int decimalesListe = 4; // as lists of points are exported

void afficherImport(const importPoints& demande, const suitesImportPoints& suites)
{
    for (const std::string& avertissement : suites.avertissements)
        avertir(avertissement);
    std::cout << demande.fichier << " : " << suites.ajoutes << " point(s) ajouté(s) à la table « " << suites.table
              << " »";
    if (demande.placer)
        std::cout << ", " << suites.dessines << " dessiné(s)";
    std::cout << "\nDessin enregistré : " << suites.dessin << '\n';
    direAncienDessin(suites.ancienDessin);
}

void ajouterImporter(CLI::App& points)
{
    CLI::App& commande = *points.add_subcommand("importer", "Ajoute les points d'un fichier à une table d'un dessin");
    commande.group(groupeCommandes);
    const auto d = std::make_shared<importPoints>();
    commande.add_option("DESSIN", d->dessin, aideDessin)->type_name("")->required();
    commande
        .add_option("FICHIER", d->fichier, "Points : .xyz, .txt, colonnes séparées, LandXML, coordonnées d'appareil")
        ->type_name("")
        ->required();
    commande.add_option("--table", d->table, "Table de points, créée s'il le faut (la table courante sans elle)")
        ->type_name("NOM");
    commande.add_option("--code", d->code, "Code des lignes qui n'en ont pas, 1 à 9999 (1)")
        ->type_name("N")
        ->check(CLI::Range(1, 9999).description(""));
    commande.add_flag("--placer", d->placer, "Dessine les symboles des points");
    commande.add_option("--enregistrer", d->enregistrer, aideEnregistrer("DESSIN"))->type_name("B.dxf");
    commande.add_flag("--strict", d->strict, "N'écrit rien quand une ligne du fichier est mauvaise");
    commande.callback([d] { afficherImport(*d, importer(*d)); });
}

void ajouterExporter(CLI::App& points)
{
    CLI::App& commande = *points.add_subcommand("exporter", "Écrit les points d'une table dans un fichier");
    commande.group(groupeCommandes);
    const auto d = std::make_shared<exportPointsDemande>();
    commande.add_option("DESSIN", d->dessin, aideDessin)->type_name("")->required();
    commande
        .add_option("-o,--fichier", d->fichier,
                    "Fichier à écrire : .xyz ou .txt, .html, .xml (LandXML), .geojson, .gpkg, .kml, .shp")
        ->type_name("FICHIER")
        ->required();
    commande.add_option("--table", d->table, aideTable)->type_name("NOM");
    commande.add_option("--codes", d->codes, "Codes voulus : 1,5-9 (tous sans elle)")->type_name("LISTE");
    commande.add_option("--projection", d->projection, "Ce que sont les coordonnées du dessin, pour une carte")
        ->type_name("EPSG:n");
    commande.callback([d] {
        const suitesExportPoints suites = exporter(*d);
        if (!suites.avertissement.empty())
            avertir(suites.avertissement);
        std::cout << d->fichier << " : " << suites.ecrits << " point(s) exporté(s)\n";
    });
}

void afficherListe(const std::vector<pointListe>& points)
{
    using cote = tableTexte::cote;
    tableTexte table({cote::gauche, cote::droite, cote::droite, cote::droite, cote::droite});
    table.ajouter({"N°", "X", "Y", "Z", "Code"});
    for (const pointListe& p : points)
        table.ajouter({p.nom, nombreTexte(p.x, decimalesListe), nombreTexte(p.y, decimalesListe),
                       nombreTexte(p.z, decimalesListe), std::to_string(p.code)});
    table.ecrire(std::cout, "");
}

void afficherJsonPoints(const std::vector<pointListe>& points)
{
    auto liste = objetJson::array();
    for (const pointListe& p : points)
        liste.push_back(
            {{"nom", p.nom}, {"x", nombreJson(p.x)}, {"y", nombreJson(p.y)}, {"z", nombreJson(p.z)}, {"code", p.code}});
    ecrireJson({{"points", std::move(liste)}});
}

void ajouterLister(CLI::App& points)
{
    struct choix {
        std::string dessin, table;
        bool json = false;
    };
    CLI::App& commande = *points.add_subcommand("lister", "Montre les points d'une table");
    commande.group(groupeCommandes);
    const auto c = std::make_shared<choix>();
    commande.add_option("DESSIN", c->dessin, aideDessin)->type_name("")->required();
    commande.add_option("--table", c->table, aideTable)->type_name("NOM");
    commande.add_flag("--json", c->json, aideJson);
    commande.callback([c] {
        const std::vector<pointListe> listes = lister(c->dessin, c->table);
        c->json ? afficherJsonPoints(listes) : afficherListe(listes);
    });
}

} // namespace

void ajouterCommandePoints(CLI::App& programme)
{
    CLI::App& commande = *programme.add_subcommand("points", "Importe, exporte ou montre les points d'un dessin");
    commande.group(groupeCommandes);
    commande.require_subcommand(1);
    ajouterImporter(commande);
    ajouterExporter(commande);
    ajouterLister(commande);
}
