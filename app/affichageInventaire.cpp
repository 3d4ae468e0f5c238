#include <iostream>

#include "fichierDessin.h"
#include "inventaireDessin.h"
#include "nombres.h"
#include "tableTexte.h"

using cote = tableTexte::cote;

namespace {

constexpr int decimalesEtendue = 3;

std::string pointTexte(const AcGePoint3d& p)
{
    return nombreTexte(p.x, decimalesEtendue) + " ; " + nombreTexte(p.y, decimalesEtendue) + " ; " +
           nombreTexte(p.z, decimalesEtendue);
}

std::string etendueTexte(const std::optional<AcDbExtents>& etendue, const char* sansElle)
{
    return etendue ? pointTexte(etendue->minPoint()) + "  à  " + pointTexte(etendue->maxPoint()) : sansElle;
}

void afficherComptes(const char* titre, const std::map<std::string, std::size_t>& comptes)
{
    if (comptes.empty())
        return;
    tableTexte table({cote::gauche, cote::droite});
    for (const auto& [nom, nombre] : comptes)
        table.ajouter({nom, std::to_string(nombre)});
    std::cout << '\n' << titre << '\n';
    table.ecrire(std::cout, "  ");
}

void afficherBlocs(const std::vector<inventaireDessin::bloc>& blocs)
{
    if (blocs.empty())
        return;
    tableTexte table({cote::gauche, cote::droite, cote::droite});
    table.ajouter({"Nom", "Entités", "Insertions"});
    for (const auto& bloc : blocs)
        table.ajouter({bloc.nom, std::to_string(bloc.entites), std::to_string(bloc.insertions)});
    std::cout << "\nBlocs\n";
    table.ecrire(std::cout, "  ");
}

void afficherTables(const std::vector<inventaireDessin::table>& tables)
{
    tableTexte lignes({cote::gauche, cote::droite, cote::gauche});
    for (const auto& table : tables)
        lignes.ajouter({table.nom, std::to_string(table.points), table.courante ? "courante" : ""});
    std::cout << "\nTables de points\n";
    lignes.ecrire(std::cout, "  ");
}

objetJson etendueJson(const std::optional<AcDbExtents>& etendue)
{
    if (!etendue)
        return nullptr;
    const auto point = [](const AcGePoint3d& p) {
        return objetJson::array({nombreJson(p.x), nombreJson(p.y), nombreJson(p.z)});
    };
    return {{"min", point(etendue->minPoint())}, {"max", point(etendue->maxPoint())}};
}

objetJson comptesJson(const std::map<std::string, std::size_t>& comptes)
{
    auto json = objetJson::object();
    for (const auto& [nom, nombre] : comptes)
        json[nom] = nombre;
    return json;
}

} // namespace

void afficherTexte(const inventaireDessin& inventaire)
{
    tableTexte resume({cote::gauche, cote::gauche});
    resume.ajouter(
        {"Version",
         "AC" + std::to_string(inventaire.versionFichier) + " (" + nomVersion(inventaire.versionFichier) + ")" +
             (inventaire.version == inventaire.versionFichier ? "" : ", lue comme " + nomVersion(inventaire.version))});
    resume.ajouter(
        {"Forme", std::string(inventaire.binaire ? "DXF binaire" : "DXF texte") + ", " + inventaire.encodage});
    resume.ajouter({"Étendue calculée", etendueTexte(inventaire.etendueCalculee, "vide")});
    resume.ajouter({"Étendue d'en-tête", etendueTexte(inventaire.etendueEntete, "non calculée")});
    resume.ajouter({"Entités", std::to_string(inventaire.entitesObjet) + " dans l'espace objet, " +
                                   std::to_string(inventaire.entitesPapier) + " dans les présentations"});
    std::cout << inventaire.fichier << '\n';
    resume.ecrire(std::cout, "  ");
    afficherComptes("Entités par classe", inventaire.parClasse);
    afficherComptes("Entités par calque", inventaire.parCalque);
    afficherBlocs(inventaire.blocs);
    afficherComptes("Objets d'autres classes, gardés tels quels", inventaire.autresClasses);
    afficherComptes("Entités qui ne sont pas dessinées", inventaire.nonDessinees);
    if (!inventaire.presentations.empty())
        std::cout << "\nPrésentations\n";
    for (const std::string& presentation : inventaire.presentations)
        std::cout << "  " << presentation << '\n';
    afficherTables(inventaire.tables);
    if (!inventaire.problemes.empty())
        std::cout << "\nProblèmes\n";
    for (const std::string& probleme : inventaire.problemes)
        std::cout << "  " << probleme << '\n';
}

void afficherJson(const inventaireDessin& inventaire)
{
    objetJson json{{"fichier", inventaire.fichier},
                   {"version", "AC" + std::to_string(inventaire.versionFichier)},
                   {"versionEnMemoire", "AC" + std::to_string(inventaire.version)},
                   {"binaire", inventaire.binaire},
                   {"encodage", inventaire.encodage},
                   {"etendueCalculee", etendueJson(inventaire.etendueCalculee)},
                   {"etendueEntete", etendueJson(inventaire.etendueEntete)},
                   {"entitesEspaceObjet", inventaire.entitesObjet},
                   {"entitesPresentations", inventaire.entitesPapier},
                   {"entitesParClasse", comptesJson(inventaire.parClasse)},
                   {"entitesParCalque", comptesJson(inventaire.parCalque)},
                   {"autresClasses", comptesJson(inventaire.autresClasses)},
                   {"nonDessinees", comptesJson(inventaire.nonDessinees)},
                   {"presentations", inventaire.presentations}};
    auto& blocs = json["blocs"] = objetJson::array();
    for (const auto& bloc : inventaire.blocs)
        blocs.push_back({{"nom", bloc.nom}, {"entites", bloc.entites}, {"insertions", bloc.insertions}});
    auto& tables = json["tablesPoints"] = objetJson::array();
    for (const auto& table : inventaire.tables)
        tables.push_back({{"nom", table.nom}, {"points", table.points}, {"courante", table.courante}});
    json["problemes"] = inventaire.problemes;
    ecrireJson(json);
}
