#include "traitementReseau.h"

#include <cmath>
#include <iostream>

#include "calculs/placerPolygonale.h"
#include "calculs/reseau/compensation.h"
#include "calculs/reseau/placerReseau.h"
#include "calculs/reseau/rapportReseau.h"
#include "codification/regleCode.h"
#include "platform/CodePage.h"
#include "points/projetsTopo.h"

#include "erreurProgramme.h"
#include "fichierDessin.h"
#include "fichiersDemandes.h"
#include "sessionHote.h"

using platform::utf8FromWide;

namespace {

std::string phraseLecture(const std::string& fichier, const remarqueLecture& remarque)
{
    return fichier + (remarque.numero > 0 ? ", ligne " + std::to_string(remarque.numero) : "") + " : " +
           utf8FromWide(remarque.phrase);
}

void lire(const demandeReseau& demande, traitementReseau& t)
{
    reseauLu lu = chargerReseau(cheminNatif(demande.fichier));
    if (!lu.lisible)
        throw erreurProgramme(lu.remarques.empty() ? demande.fichier + " : illisible."
                                                   : phraseLecture(demande.fichier, lu.remarques.front()));
    for (const remarqueLecture& remarque : lu.remarques)
        t.avertissements.push_back(phraseLecture(demande.fichier, remarque));
    t.r = std::move(lu.r);
}

optionsCompensation optionsDe(const demandeReseau& demande)
{
    optionsCompensation options;
    options.libre = demande.libre;
    if (demande.robuste == "tukey")
        options.methode = estimateur::tukey;
    else if (demande.robuste == "huber")
        options.methode = estimateur::huber;
    else if (!demande.robuste.empty())
        throw erreurProgramme("--robuste : « " + demande.robuste + " » n'est ni « huber » ni « tukey ».");
    return options;
}

bool dessine(const demandeReseau& demande)
{
    return demande.placer || demande.ellipses;
}

void verifierNombres(const demandeReseau& demande)
{
    if (demande.code && !codeValable(*demande.code))
        throw erreurProgramme("--code : un code de 1 à 9999 est attendu.");
    if (demande.echelle && !(std::isfinite(*demande.echelle) && *demande.echelle > 0.0))
        throw erreurProgramme("--echelle : un agrandissement positif est attendu.");
    if (!dessine(demande) && (demande.code || demande.echelle))
        throw erreurProgramme("--code et --echelle vont avec --placer ou --ellipses.");
}

void verifierNoms(const demandeReseau& demande)
{
    refuserMemeFichier(demande.rapport, demande.fichier);
    refuserMemeFichier(demande.rapport, demande.dessin);
    refuserMemeFichier(demande.enregistrer, demande.fichier);
    if (!dessine(demande)) {
        if (!demande.dessin.empty() || !demande.enregistrer.empty())
            throw erreurProgramme("que faire du dessin ? Ajoutez --placer, --ellipses ou les deux.");
        return;
    }
    if (dessinAEcrire(demande).empty())
        throw erreurProgramme(
            "pour placer ou dessiner, nommez un dessin (--dessin) ou, pour un dessin neuf, le fichier "
            "à écrire (--enregistrer).");
    exigerExtensionDxf(dessinAEcrire(demande));
    refuserRapportSurDessin(demande.rapport, dessinAEcrire(demande));
}

void ecrireRapport(const demandeReseau& demande, traitementReseau& t)
{
    htmlDocument document;
    rapporterReseau(t.r, t.resultat, document);
    document.setFileName(cheminNatif(demande.rapport));
    exigerRapportEcrit(document.write(), demande.rapport);
    t.rapport = demande.rapport;
}

void dessiner(const demandeReseau& demande, traitementReseau& t)
{
    sessionHote session(std::cerr);
    Document& document = demande.dessin.empty() ? session.creer() : session.ouvrir(demande.dessin);
    avertirDesProblemes(*document.database());
    if (demande.placer)
        t.table = utf8FromWide(projetDuDessin().currTable()->getNomTable().GetString());
    placementReseau placement;
    placement.code = codeDesStations(demande.code.value_or(0));
    placement.points = demande.placer;
    placement.ellipses = demande.ellipses;
    t.pointsPlaces = placerReseau(t.r, t.resultat, figureDe(t.r, t.resultat, demande.echelle.value_or(0.0)), placement);
    t.dessin = dessinAEcrire(demande);
    t.ancienDessin = session.enregistrer(document, t.dessin);
}

} // namespace

traitementReseau traiterReseau(const demandeReseau& demande)
{
    traitementReseau t;
    const optionsCompensation options = optionsDe(demande);
    verifierNombres(demande);
    verifierNoms(demande);
    refuserNomDeDessin(demande.rapport, ".html");
    lire(demande, t);
    try {
        t.resultat = compenser(t.r, options);
    } catch (const erreurReseau& faute) {
        for (const std::string& avertissement : t.avertissements)
            avertir(avertissement); // why an observation is missing
        throw erreurProgramme(demande.fichier + " : " + utf8FromWide(faute.phrase()));
    }
    if (!demande.rapport.empty())
        ecrireRapport(demande, t);
    if (dessine(demande))
        dessiner(demande, t);
    return t;
}
