#include "traitementPolygonale.h"

#include <algorithm>
#include <cmath>
#include <iostream>

#include "calculs/avertissementsPolygonale.h"
#include "calculs/fermeturePolygonale.h"
#include "calculs/fichierPolygonale.h"
#include "calculs/placerPolygonale.h"
#include "calculs/rapportPolygonale.h"
#include "calculs/rapportPolygonaleFermee.h"
#include "calculs/rapportPolygonaleOuverte.h"
#include "platform/CodePage.h"
#include "points/projetsTopo.h"
#include "reports/htmlDocument.h"

#include "erreurProgramme.h"
#include "fichierDessin.h"
#include "fichiersDemandes.h"
#include "sessionHote.h"

namespace {

void avertir(suitesPolygonale& suites, const std::vector<std::wstring>& phrases)
{
    for (const std::wstring& phrase : phrases)
        suites.avertissements.push_back(platform::utf8FromWide(phrase));
}

template <class Donnees>
Donnees lireDonnees(const demandePolygonale& demande, suitesPolygonale& suites)
{
    Donnees donnees;
    const bilanLecture bilan = chargerPolygonale(cheminNatif(demande.observations), donnees);
    const auto phrases = avertissementsLecture(platform::wideFromUtf8(demande.observations), bilan);
    if (!bilan.lisible)
        throw erreurProgramme(platform::utf8FromWide(phrases.front()));
    if (bilan.stations == 0 && bilan.ignorees > 0)
        throw erreurProgramme(demande.observations + " : aucune station de départ lisible (nom, X, Y, Z, gisement) : "
                                                     "ce n'est pas un fichier de polygonale, ou ce nom est vide.");
    avertir(suites, phrases);
    if (donnees.lignes.size() < 2)
        throw erreurProgramme(demande.observations + " : données insuffisantes, il faut au moins deux observations.");
    return donnees;
}

void verifierNoms(const demandePolygonale& demande)
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
    refuserRapportSurDessin(demande.rapport, dessinAEcrire(demande));
}

template <class Resultat>
void ecrireRapport(const demandePolygonale& demande, const Resultat& resultat, suitesPolygonale& suites)
{
    htmlDocument document;
    rapportPolygonale::ajouterEnTetes(document);
    rapporterPolygonale(resultat, document);
    document.setFileName(cheminNatif(demande.rapport));
    exigerRapportEcrit(document.write(), demande.rapport);
    suites.rapport = demande.rapport;
}

/// The stations that happen to be finite come from the same spoilt computation: half a traverse in a drawing looks like
/// a whole one to whoever opens it next.
void refuserNonFinies(const demandePolygonale& demande, const std::vector<stationCorrigee>& stations)
{
    const auto nonFinies = std::ranges::count_if(stations, [&](const stationCorrigee& s) {
        return !std::isfinite(s.x) || !std::isfinite(s.y) || (demande.altitudes && !std::isfinite(s.z));
    });
    if (nonFinies > 0)
        throw erreurProgramme(demande.observations + " : " + std::to_string(nonFinies) + " station(s) sur " +
                              std::to_string(stations.size()) +
                              " sans coordonnées finies : vérifiez les distances et les angles. Rien n'est placé.");
}

template <class Resultat>
std::vector<tracePolygonale> tracesDemandees(const demandePolygonale& demande, const Resultat& resultat)
{
    std::vector<tracePolygonale> traces;
    if (demande.originale)
        traces.push_back(tracePolygonaleOriginelle(resultat));
    if (demande.compensee)
        traces.push_back(tracePolygonaleCompensee(resultat));
    return traces;
}

void placer(const demandePolygonale& demande, const std::vector<stationCorrigee>& stations,
            const std::vector<tracePolygonale>& traces, suitesPolygonale& suites)
{
    sessionHote session(std::cerr);
    Document& document = demande.dessin.empty() ? session.creer() : session.ouvrir(demande.dessin);
    avertirDesProblemes(*document.database());
    projetsTopo& projet = projetDuDessin();
    suites.pointsPlaces = placerPolygonale(stations, {suites.code, demande.altitudes}, traces);
    suites.table = platform::utf8FromWide(projet.currTable()->getNomTable().GetString());
    avertir(suites, avertissementsPlacement(stations)); // names that the point table cuts

    suites.dessin = dessinAEcrire(demande);
    suites.ancienDessin = session.enregistrer(document, suites.dessin);
}

void choisirCode(const demandePolygonale& demande, suitesPolygonale& suites)
{
    suites.code = codeDesStations(demande.code);
    if (suites.code != demande.code)
        suites.avertissements.push_back("Le code " + std::to_string(demande.code) +
                                        " n'est pas compris entre 1 et 9999 : le code 100 est pris.");
}

template <class Resultat>
void refuserHorsTolerance(const demandePolygonale& demande, const Resultat& resultat)
{
    std::wstring remarque = remarqueFermeture(resultat);
    if (remarque.empty() && !fermetureAdmise(resultat))
        remarque = L"La fermeture ne peut pas être calculée : vérifiez les distances et les angles.";
    if (remarque.empty() && demande.precisionAngle > 0.0)
        remarque = remarqueTolerance(resultat, demande.precisionAngle);
    if (demande.strict && !remarque.empty())
        throw erreurProgramme(demande.observations + " : " + platform::utf8FromWide(remarque) +
                              (demande.placer ? " Rien n'est placé." : ""));
}

/// Where the dialog asks, the program wants the answer beforehand.
template <class Resultat>
void refuserHorsPratique(const demandePolygonale& demande, const Resultat& resultat)
{
    const std::wstring remarque = remarqueFermeture(resultat), conseil = conseilPolygonale(resultat);
    if (remarque.empty() || demande.quandMeme)
        return;
    throw erreurProgramme(demande.observations + " : " + platform::utf8FromWide(remarque) +
                          (conseil.empty() ? "" : " " + platform::utf8FromWide(conseil)) +
                          " Rien n'est placé ; pour placer ces stations quand même, ajoutez --quand-meme.");
}

template <class Donnees, class Resultat>
traitementPolygonale<Resultat> traiter(const demandePolygonale& demande)
{
    verifierNoms(demande);
    refuserNomDeDessin(demande.rapport, ".html");
    if (!(demande.precisionAngle >= 0.0) || !std::isfinite(demande.precisionAngle))
        throw erreurProgramme("--precision-angle : un écart type positif est attendu.");
    traitementPolygonale<Resultat> t;
    const auto donnees = lireDonnees<Donnees>(demande, t);
    avertir(t, avertissementsObservations(donnees.lignes));
    t.resultat = compenserPolygonale(donnees);
    avertir(t, avertissementsPolygonale(t.resultat));
    if (const std::wstring remarque = remarqueTolerance(t.resultat, demande.precisionAngle);
        demande.precisionAngle > 0.0 && !remarque.empty())
        avertir(t, {remarque});
    choisirCode(demande, t);
    if (!demande.rapport.empty())
        ecrireRapport(demande, t.resultat, t);
    refuserHorsTolerance(demande, t.resultat);
    if (demande.placer) {
        refuserHorsPratique(demande, t.resultat);
        refuserNonFinies(demande, t.resultat.stations);
        placer(demande, t.resultat.stations, tracesDemandees(demande, t.resultat), t);
    }
    return t;
}

} // namespace

traitementFermee traiterPolygonaleFermee(const demandePolygonale& demande)
{
    return traiter<donneesPolygonaleFermee, resultatPolygonaleFermee>(demande);
}

traitementOuverte traiterPolygonaleOuverte(const demandePolygonale& demande)
{
    return traiter<donneesPolygonaleOuverte, resultatPolygonaleOuverte>(demande);
}
