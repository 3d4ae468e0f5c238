#include "traitementImplantation.h"

#include <cmath>
#include <fstream>
#include <iostream>
#include <numbers>

#include "ap/DocumentList.h"
#include "implantation/fichiersAppareil.h"
#include "implantation/implantationEnLigne.h"
#include "platform/CodePage.h"
#include "services/reelDeTexte.h"

#include "erreurProgramme.h"
#include "fichierDessin.h"
#include "fichiersDemandes.h"
#include "nombres.h"
#include "sessionHote.h"
#include "tableTexte.h"

using cote = tableTexte::cote;
using platform::utf8FromWide;
using platform::wideFromUtf8;

namespace {

/// "nord", "gisement=G" (grades) or the name of a point.
void lireReference(const std::string& texte, demandeImplantation& demande)
{
    constexpr std::string_view gisement = "gisement=";
    if (texte.empty() || texte == "nord" || texte == "NORD" || texte == "Nord")
        return;
    if (!texte.starts_with(gisement)) {
        demande.reference = wideFromUtf8(texte);
        return;
    }
    bool entierement = false;
    const double grades = reelDeTexte(wideFromUtf8(texte.substr(gisement.size())), &entierement);
    // More than a turn is a slip of the keyboard, and far beyond it no digit of the angle would be left.
    if (!entierement || !(std::abs(grades) <= 400.0))
        throw erreurProgramme("« " + texte +
                              " » : le gisement est un nombre de grades, entre -400 et 400, comme gisement=157.25.");
    demande.v0 = grades * std::numbers::pi / 200.0;
}

demandeImplantation demandeDe(const demandeProgrammeImplantation& d)
{
    if (d.station.empty() && d.stations.empty())
        throw erreurProgramme(utf8FromWide(stationManquante));
    if (d.points.empty() && !d.code && d.table.empty())
        throw erreurProgramme("dites quels points implanter : --points, --code ou --table.");
    demandeImplantation m;
    m.station = wideFromUtf8(d.station);
    for (const std::string& nom : d.stations)
        m.stations.push_back(wideFromUtf8(nom));
    lireReference(d.reference, m);
    m.points = wideFromUtf8(d.points);
    m.code = d.code;
    m.table = wideFromUtf8(d.table);
    m.repartir = d.repartir;
    m.repartition = {d.portee.value_or(inconnu), d.equilibrer};
    m.verifier = d.verifier;
    if (!std::isfinite(d.hauteur) || !std::isfinite(d.seuil))
        throw erreurProgramme("--hauteur et --seuil sont des nombres.");
    if (const double portee = d.portee.value_or(1.0); !std::isfinite(portee) || portee <= 0.0)
        throw erreurProgramme("--portee : une distance positive est attendue.");
    m.hauteur = d.hauteur;
    m.seuil = d.seuil;
    m.dessiner = d.dessiner;
    return m;
}

void verifierNoms(const demandeProgrammeImplantation& d)
{
    if (d.dessiner)
        exigerExtensionDxf(dessinAEcrire(d));
    refuserMemeFichier(d.rapport, d.dessin);
    if (d.dessiner)
        refuserRapportSurDessin(d.rapport, dessinAEcrire(d));
}

void ecrireRapport(const std::string& fichier, const std::string& octets)
{
    std::ofstream flux(cheminNatif(fichier), std::ios::binary);
    flux.write(octets.data(), static_cast<std::streamsize>(octets.size()));
    exigerRapportEcrit(static_cast<bool>(flux.flush()), fichier);
}

void afficherPoints(const resultatImplantation& r)
{
    tableTexte table({cote::gauche, cote::gauche, cote::gauche, cote::droite, cote::droite, cote::gauche});
    table.ajouter({"Point", "Station", "Référence", "Angle (gr)", "Distance", "Visibilité"});
    const auto ligne = [&](const pointImplante& p, const donneesStation* s) {
        const ligneImplantation cellules = ligneDe(p, s);
        table.ajouter({utf8FromWide(p.nom), utf8FromWide(cellules[colStation]), utf8FromWide(cellules[colRef]),
                       utf8FromWide(cellules[colAngle]), utf8FromWide(cellules[colDistance]),
                       utf8FromWide(phraseDuPoint(p, s, r.hauteurMin))});
    };
    for (const blocStation& b : r.blocs)
        for (const pointImplante& p : b.points)
            ligne(p, &b.station);
    for (const pointImplante& p : r.sansStation)
        ligne(p, nullptr);
    table.ecrire(std::cout, "");
}

} // namespace

traitementImplantation traiterImplantation(const demandeProgrammeImplantation& demande)
{
    verifierNoms(demande);
    refuserNomDeDessin(demande.rapport, ".html");
    const demandeImplantation voulue = demandeDe(demande);
    traitementImplantation t;
    sessionHote session(std::cerr);
    Document& document = session.ouvrir(demande.dessin);
    avertirDesProblemes(*document.database());
    t.suites = implanterEnLigne(voulue);
    if (!t.suites.erreur.empty())
        throw erreurProgramme(demande.dessin + " : " + utf8FromWide(t.suites.erreur));
    for (const std::wstring& phrase : t.suites.avertissements)
        t.avertissements.push_back(utf8FromWide(phrase));
    if (!demande.rapport.empty()) {
        ecrireRapport(demande.rapport, t.suites.rapport);
        t.rapport = demande.rapport;
    }
    if (demande.dessiner) {
        t.dessin = dessinAEcrire(demande);
        t.ancienDessin = session.enregistrer(document, t.dessin);
    }
    return t;
}

void montrerImplantation(const demandeProgrammeImplantation& demande, const traitementImplantation& t)
{
    for (const std::string& avertissement : t.avertissements)
        avertir(avertissement);
    std::cout << "Implantation : " << demande.dessin << "\n\n";
    afficherPoints(t.suites.resultat);
    if (!t.suites.nonVus.empty())
        std::cout << "\nPoints vus d'aucune station\n";
    for (const auto& [nom, refus] : t.suites.nonVus)
        std::cout << "  " << utf8FromWide(nom) << " : " << utf8FromWide(phraseRefus(refus)) << '\n';
    if (!t.rapport.empty())
        std::cout << "\nRapport : " << t.rapport << '\n';
    if (!t.dessin.empty())
        std::cout << "\nDessin : " << t.dessin << '\n';
    direAncienDessin(t.ancienDessin);
}

void montrerImplantationJson(const traitementImplantation& t)
{
    auto json = objetJson::parse(jsonImplantation(t.suites.resultat));
    auto& nonVus = json["nonVus"] = objetJson::array();
    for (const auto& [nom, refus] : t.suites.nonVus)
        nonVus.push_back({{"nom", utf8FromWide(nom)},
                          {"manque", nombreJson(refus.manque)},
                          {"raison", utf8FromWide(phraseRefus(refus))}});
    json["terrainPerime"] = t.suites.resultat.terrainPerime;
    json["avertissements"] = t.avertissements;
    const auto fichier = [](const std::string& nom) { return nom.empty() ? objetJson(nullptr) : objetJson(nom); };
    json["rapport"] = fichier(t.rapport);
    json["dessin"] = fichier(t.dessin);
    json["ancienDessin"] = fichier(t.ancienDessin);
    ecrireJson(json);
}
