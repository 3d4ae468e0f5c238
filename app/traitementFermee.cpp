#include "traitementFermee.h"

#include "calculs/avertissementsPolygonale.h"
#include "calculs/fichierPolygonale.h"
#include "calculs/placerPolygonale.h"
#include "calculs/rapportPolygonaleFermee.h"
#include "erreurProgramme.h"
#include "fichierDessin.h"
#include "platform/CodePage.h"
#include "platform/Paths.h"
#include "points/projetDansDessin.h"
#include "reports/htmlDocument.h"
#include "sessionHote.h"

#include <filesystem>
#include <iostream>

namespace fs = std::filesystem;

namespace {

fs::path cheminNatif(const std::string& chemin)
{
    return platform::nativePath(platform::wideFromUtf8(chemin));
}

void avertir(traitementFermee& traitement, const std::vector<std::wstring>& phrases)
{
    for (const std::wstring& phrase : phrases)
        traitement.avertissements.push_back(platform::utf8FromWide(phrase));
}

donneesPolygonaleFermee lireDonnees(const demandeFermee& demande, traitementFermee& traitement)
{
    donneesPolygonaleFermee donnees;
    const bilanLecture bilan = chargerPolygonale(cheminNatif(demande.observations), donnees);
    const auto phrases = avertissementsLecture(platform::wideFromUtf8(demande.observations), bilan);
    if (!bilan.lisible)
        throw erreurProgramme(platform::utf8FromWide(phrases.front()));
    avertir(traitement, phrases);
    if (donnees.lignes.size() < 2)
        throw erreurProgramme(demande.observations + " : données insuffisantes, il faut au moins deux observations.");
    return donnees;
}

/// A result never takes the place of the data it comes from.
void refuserMemeFichier(const std::string& resultat, const std::string& source)
{
    std::error_code absent;
    if (!resultat.empty() && !source.empty() && fs::equivalent(cheminNatif(resultat), cheminNatif(source), absent))
        throw erreurProgramme("« " + resultat + " » est un fichier de données : choisissez un autre nom.");
}

const std::string& dessinAEcrire(const demandeFermee& demande)
{
    return demande.enregistrer.empty() ? demande.dessin : demande.enregistrer;
}

void verifierNoms(const demandeFermee& demande)
{
    refuserMemeFichier(demande.rapport, demande.observations);
    refuserMemeFichier(demande.rapport, demande.dessin);
    refuserMemeFichier(demande.enregistrer, demande.observations);
    if (!demande.placer)
        return;
    if (demande.dessin.empty() && demande.enregistrer.empty())
        throw erreurProgramme("pour placer les stations, nommez un dessin (--dessin) ou, pour un dessin neuf, le "
                              "fichier à écrire (--enregistrer).");
    exigerExtensionDxf(dessinAEcrire(demande));
}

void ecrireRapport(const demandeFermee& demande, traitementFermee& traitement)
{
    htmlDocument document;
    document.addHeadLine(htmlHeadWindows1252);
    rapporterPolygonaleFermee(traitement.resultat, document);
    document.setFileName(cheminNatif(demande.rapport));
    if (!document.write())
        throw erreurProgramme(demande.rapport + " : le rapport n'a pas pu être écrit.");
    traitement.rapport = demande.rapport;
}

/// Names that the point table is to cut, and stations that have no place.
void avertirPlacement(traitementFermee& traitement)
{
    const std::vector<stationCorrigee>& stations = traitement.resultat.stations;
    for (const stationCorrigee& station : stations)
        if (station.nom.size() > pointDuDessin::longueurNom)
            traitement.avertissements.push_back("Le nom « " + platform::utf8FromWide(station.nom) + " » est coupé à " +
                                                std::to_string(pointDuDessin::longueurNom) +
                                                " caractères dans la table de points.");
    const auto manquantes = stations.size() - static_cast<std::size_t>(traitement.pointsPlaces);
    if (manquantes > 0)
        traitement.avertissements.push_back(std::to_string(manquantes) +
                                            " station(s) sans coordonnées finies : non placées.");
}

void placer(const demandeFermee& demande, const donneesPolygonaleFermee& donnees, traitementFermee& traitement)
{
    const resultatPolygonaleFermee& resultat = traitement.resultat;
    std::vector<tracePolygonale> traces;
    if (demande.originale)
        traces.push_back(tracePolygonaleOriginelle(donnees.depart, donnees.unite, observationsDe(donnees.lignes)));
    if (demande.compensee)
        traces.push_back(tracePolygonaleCompensee(resultat));

    sessionHote session(std::cerr);
    Document& document = demande.dessin.empty() ? session.creer() : session.ouvrir(demande.dessin);
    if (!tablesPoints)
        throw erreurProgramme("le dessin n'a pas de projet topographique : le module principal n'est pas chargé.");
    traitement.pointsPlaces = placerPolygonale(resultat.stations, {traitement.code, demande.altitudes}, traces);
    if (traitement.pointsPlaces == 0)
        throw erreurProgramme("aucune station n'a pu être placée : les coordonnées ne sont pas finies.");
    traitement.table = platform::utf8FromWide(tablesPoints->currTable()->getNomTable().GetString());
    avertirPlacement(traitement);

    traitement.dessin = dessinAEcrire(demande);
    const bool remplace = fs::exists(cheminNatif(traitement.dessin));
    session.enregistrer(document, traitement.dessin);
    if (remplace)
        traitement.ancienDessin = nomAncienDessin(traitement.dessin);
}

} // namespace

traitementFermee traiterPolygonaleFermee(const demandeFermee& demande)
{
    verifierNoms(demande);
    traitementFermee traitement;
    const donneesPolygonaleFermee donnees = lireDonnees(demande, traitement);
    avertir(traitement, avertissementsObservations(donnees.lignes));
    traitement.resultat =
        compenserPolygonaleFermee(donnees.depart, donnees.nivellement, donnees.unite, observationsDe(donnees.lignes));
    avertir(traitement, avertissementsPolygonaleFermee(traitement.resultat));
    const bool codeValable = demande.code >= 1 && demande.code <= 9999;
    traitement.code = codeValable ? demande.code : 100;
    if (!codeValable)
        traitement.avertissements.push_back("Le code " + std::to_string(demande.code) +
                                            " n'est pas compris entre 1 et 9999 : le code 100 est pris.");
    if (!demande.rapport.empty())
        ecrireRapport(demande, traitement);
    if (demande.placer)
        placer(demande, donnees, traitement);
    return traitement;
}
