#include "traitementPoints.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <iostream>
#include <numeric>

#include "codification/codificationDuModule.h"
#include "exchange/exportTable.h"
#include "exchange/lecteurPoints.h"
#include "exchange/placerPoints.h"
#include "platform/CodePage.h"
#include "points/projetsTopo.h"
#include "services/codages.h"

#include "erreurProgramme.h"
#include "fichierDessin.h"
#include "fichiersDemandes.h"
#include "sessionHote.h"

namespace fs = std::filesystem;
using platform::utf8FromWide;
using platform::wideFromUtf8;

namespace {

std::string nomDe(const listePointsDuDessin& table)
{
    return utf8FromWide(table.getNomTable().GetString());
}

/// The table of that name, the current one for an empty name; null without one.
listePointsDuDessin* tableNommee(const std::string& nom)
{
    projetsTopo& projet = projetDuDessin();
    if (nom.empty())
        return projet.currTable();
    for (int i = 0; i < projet.nbTables(); ++i)
        if (nomDe(*projet.getTable(i)) == nom)
            return projet.getTable(i);
    return nullptr;
}

const listePointsDuDessin& tableExistante(const std::string& nom)
{
    if (const listePointsDuDessin* const table = tableNommee(nom))
        return *table;
    throw erreurProgramme("le dessin n'a pas de table « " + nom + " ».");
}

listePointsDuDessin& tableOuNouvelle(const std::string& nom)
{
    if (listePointsDuDessin* const table = tableNommee(nom))
        return *table;
    projetsTopo& projet = projetDuDessin();
    projet.creerTablePoints(wideFromUtf8(nom).c_str());
    return *projet.getTable(projet.nbTables() - 1);
}

/// Why a file is refused: its first line that gave no point; when none did, what is wrong with all of it.
/// @param phrases of its problems, in their order
std::string raisonRefus(const std::string& fichier, const pointsLus& lus, const std::vector<std::string>& phrases)
{
    const auto mauvaise = std::ranges::find_if(
        lus.problemes, [&lus](const problemeLecture& p) { return p.ecartee || (lus.points.empty() && p.ligne == 0); });
    if (mauvaise != lus.problemes.end())
        return phrases[static_cast<std::size_t>(mauvaise - lus.problemes.begin())];
    return fichier + (lus.ecartees == 0 ? " : aucun point dans ce fichier."
                                        : " : " + std::to_string(lus.ecartees) + " ligne(s) écartée(s).");
}

pointsLus lireFichier(const importPoints& demande, suitesImportPoints& suites)
{
    const fs::path fichier = cheminNatif(demande.fichier);
    if (std::error_code illisible; !fs::exists(fichier, illisible) && !illisible)
        throw erreurProgramme(demande.fichier + " : fichier introuvable.");
    pointsLus lus = lirePoints(fichier, nullptr, demande.code);
    for (const std::wstring& phrase : phrasesProblemes(wideFromUtf8(demande.fichier), lus))
        suites.avertissements.push_back(utf8FromWide(phrase));
    if (lus.points.empty())
        throw erreurProgramme(raisonRefus(demande.fichier, lus, suites.avertissements));
    if (demande.strict && (lus.ecartees > 0 || !lus.lisible))
        throw erreurProgramme(raisonRefus(demande.fichier, lus, suites.avertissements) + " Rien n'est importé.");
    return lus;
}

void verifierNoms(const importPoints& demande)
{
    exigerExtensionDxf(dessinAEcrire(demande));
    refuserMemeFichier(demande.enregistrer, demande.fichier);
}

void placer(listePointsDuDessin& table, int premiere, observationsEnAttente& observations, suitesImportPoints& suites)
{
    std::vector<int> places(static_cast<std::size_t>(suites.ajoutes));
    std::iota(places.begin(), places.end(), premiere);
    const bilanPlacement bilan = placerPoints(table, places, observations);
    suites.dessines = bilan.dessines;
    for (const std::wstring& phrase : phrasesNonPlaces(bilan))
        suites.avertissements.push_back(utf8FromWide(phrase));
}

/// Reads "1,5-9" as ranges of codes.
std::vector<std::pair<int, int>> plagesDe(const std::string& codes)
{
    std::vector<std::pair<int, int>> plages;
    const char* p = codes.data();
    const char* const fin = p + codes.size();
    const auto entier = [&](int& valeur) {
        const auto lu = std::from_chars(p, fin, valeur);
        p = lu.ptr;
        return lu.ec == std::errc();
    };
    while (p != fin) {
        int premier = 0, dernier = 0;
        bool lu = entier(premier);
        dernier = premier;
        if (lu && p != fin && *p == '-') {
            ++p;
            lu = entier(dernier);
        }
        if (!lu || (p != fin && *p++ != ','))
            throw erreurProgramme("--codes : « " + codes + " » n'est pas une liste de codes, comme 1,5-9.");
        if (dernier < premier)
            throw erreurProgramme("--codes : la plage " + std::to_string(premier) + '-' + std::to_string(dernier) +
                                  " va à rebours ; écrivez " + std::to_string(dernier) + '-' + std::to_string(premier) +
                                  ".");
        plages.emplace_back(premier, dernier);
    }
    return plages;
}

std::vector<int> placesDesCodes(const listePointsDuDessin& table, const std::string& codes)
{
    const auto plages = plagesDe(codes);
    std::vector<int> places;
    for (int i = 0; i < table.nbPoint(); ++i) {
        const int code = table.getData(i)->getCode();
        if (plages.empty() || std::ranges::any_of(plages, [code](const auto& plage) {
                return code >= plage.first && code <= plage.second;
            }))
            places.push_back(i);
    }
    return places;
}

} // namespace

suitesImportPoints importer(const importPoints& demande)
{
    verifierNoms(demande);
    suitesImportPoints suites;
    pointsLus lus = lireFichier(demande, suites);
    sessionHote session(std::cerr);
    Document& document = session.ouvrir(demande.dessin);
    avertirDesProblemes(*document.database());
    listePointsDuDessin& table = tableOuNouvelle(demande.table);
    const int premiere = table.nbPoint();
    observationsEnAttente observations;
    const bilanAjout bilan = ajouterPoints(table, std::move(lus.points), nomsExistants::ajouter, observations);
    suites.ajoutes = bilan.ajoutes;
    suites.table = nomDe(table);
    for (const std::wstring& phrase : phrasesNoms(bilan))
        suites.avertissements.push_back(utf8FromWide(phrase));
    if (demande.placer)
        placer(table, premiere, observations, suites);
    else if (!observations.empty())
        suites.avertissements.push_back(std::to_string(observations.size()) +
                                        " observation(s) non gardée(s) : seul un symbole en porte (--placer).");
    suites.dessin = dessinAEcrire(demande);
    suites.ancienDessin = session.enregistrer(document, suites.dessin);
    return suites;
}

suitesExportPoints exporter(const exportPointsDemande& demande)
{
    refuserMemeFichier(demande.fichier, demande.dessin);
    const fs::path fichier = cheminNatif(demande.fichier);
    refuserNomDeDessin(demande.fichier, ".xyz");
    if (estCarte(fichier) && demande.projection.empty())
        throw erreurProgramme("une carte demande la projection du dessin (--projection EPSG:2154, par exemple).");
    sessionHote session(std::cerr);
    session.ouvrir(demande.dessin);
    const listePointsDuDessin& table = tableExistante(demande.table);
    const std::vector<int> places = placesDesCodes(table, demande.codes);
    const issueExport issue = exporterTable(table, places, codificationDuModule(), fichier, demande.projection, [] {});
    if (issue.issue != issueEcriture::ecrit)
        throw erreurProgramme(utf8FromWide(issue.raison));
    return {static_cast<int>(places.size()) - issue.sansPlace, utf8FromWide(phraseSansPlace(issue))};
}

std::vector<pointListe> lister(const std::string& dessin, const std::string& nom)
{
    sessionHote session(std::cerr);
    session.ouvrir(dessin);
    const listePointsDuDessin& table = tableExistante(nom);
    std::vector<pointListe> points;
    points.reserve(static_cast<std::size_t>(table.nbPoint()));
    for (int i = 0; i < table.nbPoint(); ++i) {
        const pointDuDessin& p = *table.getData(i);
        points.push_back({versUtf8(depuisAnsi(p.getNomPoint())), p.getX(), p.getY(), p.getZ(), p.getCode()});
    }
    return points;
}
