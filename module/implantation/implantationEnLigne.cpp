#include "implantation/implantationEnLigne.h"

#include <algorithm>
#include <map>

#include "implantation/persistanceImplantation.h"
#include "implantation/pointsDuProjet.h"
#include "implantation/sortiesImplantation.h"
#include "implantation/terrainDuDessin.h"
#include "points/nomsVoulus.h"
#include "points/projetDansDessin.h"
#include "services/CAcadUndoGroup.h"
#include "services/formatNombres.h"
#include "services/lettres.h"

#include "dbapserv.h"

namespace {

/// A sentence for the user.
struct refus {
    std::wstring phrase;
};

std::wstring pointAbsent(const std::wstring& nom)
{
    return L"le point « " + nom + L" » n'est dans aucune table de points du dessin.";
}

lieuNomme pointExige(const std::wstring& nom)
{
    if (auto lieu = pointNomme(nom)) {
        if (lieu->planConnu())
            return *lieu;
        throw refus{L"le point « " + nom + L" » n'a pas de coordonnées."};
    }
    throw refus{pointAbsent(nom)};
}

const listePointsDuDessin& tableDemandee(const demandeImplantation& demande)
{
    const listePointsDuDessin* const courante = tableCourante();
    if (!courante)
        throw refus{projetAbsent};
    if (demande.table.empty())
        return *courante;
    for (int i = 0; i < tablesPoints->nbTables(); ++i)
        if (const listePointsDuDessin& table = *tablesPoints->getTable(i);
            enMinuscules(std::wstring(table.getNomTable())) == enMinuscules(demande.table))
            return table;
    throw refus{L"le dessin n'a pas de table de points « " + demande.table + L" »."};
}

/// The points asked for, but those that are stations: nobody stakes out the station he stands on.
void prendrePoints(const demandeImplantation& demande, travailImplantation& travail, suitesImplantation& suites)
{
    const listePointsDuDessin& table = tableDemandee(demande);
    const std::optional<nomsVoulus> voulus =
        demande.points.empty() ? std::nullopt : std::optional<nomsVoulus>(demande.points);
    const auto estStation = [&](const std::wstring& nom) {
        return std::ranges::any_of(travail.stations,
                                   [&](const auto& s) { return enMinuscules(s->lieu.nom) == enMinuscules(nom); });
    };
    for (int i = 0; i < table.nbPoint(); ++i) {
        const pointDuDessin& point = *table.getData(i);
        const lieuNomme lieu = lieuDe(point);
        const bool voulu =
            (!voulus || voulus->contient(lieu.nom)) && (!demande.code || point.getCode() == *demande.code);
        if (!voulu)
            continue;
        if (!estStation(lieu.nom))
            travail.ajouterPoint(lieu);
        else if (voulus)
            suites.avertissements.push_back(L"Le point « " + lieu.nom + L" » est une station : il n'est pas implanté.");
    }
    if (travail.points.empty())
        throw refus{L"aucun point à implanter ne répond à la demande."};
}

/// Names, as ranges and patterns may well find nothing.
void signalerAbsents(const demandeImplantation& demande, suitesImplantation& suites)
{
    std::wstring_view reste = demande.points;
    while (!reste.empty()) {
        const std::size_t virgule = std::min(reste.find(L','), reste.size());
        const std::wstring nom(sansBlancs(reste.substr(0, virgule), L" \t"));
        reste.remove_prefix(std::min(virgule + 1, reste.size()));
        if (!nom.empty() && nom.find_first_of(L"*?#@.[~`-") == std::wstring::npos && !pointNomme(nom))
            suites.avertissements.push_back(pointAbsent(nom));
    }
}

lieuNomme referenceExigee(const std::wstring& nom, const lieuNomme& station)
{
    lieuNomme reference = pointExige(nom);
    if (memePlace(reference, station))
        throw refus{L"la référence « " + nom + L" » est à la place de la station « " + station.nom +
                    L" » : elle n'oriente rien."};
    return reference;
}

void mettreEnStation(const demandeImplantation& demande, travailImplantation& travail)
{
    std::vector<std::wstring> noms = demande.stations;
    if (!demande.station.empty())
        noms.insert(noms.begin(), demande.station);
    if (noms.empty())
        throw refus{stationManquante};
    for (const std::wstring& nom : noms) {
        const lieuNomme station = pointExige(nom);
        if (std::ranges::any_of(travail.stations, [&](const auto& s) { return memePlace(s->lieu, station); }))
            continue; // named twice, it would get twice its share
        if (demande.v0)
            travail.stations.push_back(std::make_unique<observationMiseEnStationOrientee>(station, *demande.v0));
        else if (demande.reference.empty())
            travail.stations.push_back(creerMiseEnStation(station, {}, miseEnStationNord));
        else
            travail.stations.push_back(
                creerMiseEnStation(station, referenceExigee(demande.reference, station), miseEnStationPoint));
    }
}

void repartirOuAffecter(const demandeImplantation& demande, travailImplantation& travail, suitesImplantation& suites)
{
    const travailImplantation::positions tous = travail.toutes();
    if (!demande.repartir)
        return travail.affecter(tous, travail.stations.front()->identifiant);
    const auto bilan = travail.repartirPoints(tous, demande.repartition);
    if (bilan.sansTerrain && !demande.verifier)
        suites.avertissements.push_back(
            L"Sans modèle de terrain, les points sont répartis d'après les seules distances.");
    for (const auto& [point, refus] : bilan.nonVus)
        suites.nonVus.push_back({travail.points[point].nom, refus});
}

/// Sights that nobody knows, by why; one sentence each.
void signalerNonVerifies(const travailImplantation& travail, suitesImplantation& suites)
{
    std::map<std::wstring, std::vector<std::wstring>> parCause;
    for (const pointDuTravail& p : travail.points) {
        const observationMiseEnStation* const s = travail.station(p.station);
        if (!p.verifie && !p.cause.empty() && !(s && sousLaStation(p, s->donnees()))) // those were told
            parCause[p.cause].push_back(p.nom);
    }
    for (const auto& [cause, noms] : parCause)
        suites.avertissements.push_back(L"Visibilité non vérifiée, " + cause + L" : " + enumererNoms(noms) + L".");
}

void signalerSousLaStation(const travailImplantation& travail, suitesImplantation& suites)
{
    if (const std::wstring phrase = travail.phraseSousLeurStation(); !phrase.empty())
        suites.avertissements.push_back(phrase + L".");
}

void verifierVisees(travailImplantation& travail, suitesImplantation& suites)
{
    if (!terrainDuDessin()) {
        suites.avertissements.push_back(
            L"Aucun modèle de terrain dans ce dessin, ou pas de module de terrain : la visibilité n'est pas vérifiée.");
        return;
    }
    travail.verifierVisibilite(travail.toutes());
    signalerNonVerifies(travail, suites);
}

/// As the dialog takes it, but told.
double hauteurDemandee(const wchar_t* nom, double hauteur, suitesImplantation& suites)
{
    const double admise = hauteurAdmise(hauteur);
    if (admise != hauteur)
        suites.avertissements.push_back(std::wstring(nom) + L" est impossible : " + formaterFixe(admise, 2) +
                                        L" m est pris.");
    return admise;
}

void garder(travailImplantation& travail)
{
    const CAcadUndoGroup groupe;
    dessinerResultats(travail);
    if (AcDbDatabase* const dessin = acdbHostApplicationServices()->workingDatabase();
        !dessin || !garderTravail(*dessin, travail))
        throw refus{L"le travail n'a pas pu être gardé dans le dessin."};
}

} // namespace

suitesImplantation implanterEnLigne(const demandeImplantation& demande)
{
    suitesImplantation suites;
    try {
        reglagesDuProcessus().hauteur = hauteurDemandee(L"Le seuil", demande.seuil, suites);
        travailImplantation travail;
        travail.hauteurStation = hauteurDemandee(L"La hauteur", demande.hauteur, suites);
        travail.verifier = demande.verifier;
        mettreEnStation(demande, travail);
        prendrePoints(demande, travail, suites);
        signalerAbsents(demande, suites);
        repartirOuAffecter(demande, travail, suites);
        signalerSousLaStation(travail, suites);
        if (demande.verifier)
            verifierVisees(travail, suites);
        suites.resultat = travail.resultat();
        std::vector<std::wstring> aucun;
        suites.rapport = contenuFichier(travail, formeFichier::html, aucun);
        if (demande.dessiner)
            garder(travail);
    } catch (const refus& r) {
        suites.erreur = r.phrase;
    }
    return suites;
}
