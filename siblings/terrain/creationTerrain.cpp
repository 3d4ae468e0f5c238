#include "creationTerrain.h"

#include <algorithm>
#include <exception>

#include "points/projetDansDessin.h"
#include "services/lettres.h"
#include "services/selection.h"
#include "sol/triangulation.h"

#include "aced.h"
#include "acutads.h"
#include "acutmem.h"
#include "dbads.h"
#include "raisonFaute.h"
#include "recolteTerrain.h"
#include "terrainsOuverts.h"

namespace {

/// Many lines of one kind tell no more than the first of them.
void direIncidents(const std::vector<incidentSol>& incidents)
{
    constexpr std::size_t montres = 20;
    for (std::size_t i = 0; i < std::min(incidents.size(), montres); ++i)
        acutPrintf(L"\n%s", texteIncident(incidents[i]).c_str());
    if (incidents.size() > montres)
        acutPrintf(L"\n... et %d autres", static_cast<int>(incidents.size() - montres));
}

AcDbObjectId creer(const std::wstring& nom, const sourcesTerrain& sources)
{
    terrainsDuDessin* const dessin = terrainsEnSession() ? terrainsEnSession()->courants() : nullptr;
    if (!dessin)
        return {};
    if (!nomDeModele(nom)) {
        acutPrintf(L"\nCe nom de mod\u00e8le ne convient pas : %s", nom.c_str());
        return {};
    }
    recolteTerrain recolte = recolter(sources);
    acutPrintf(L"%s", recolte.texte().c_str());
    const solTriangule fait = trianguler(recolte.semis);
    direIncidents(fait.incidents);
    if (fait.maillage.nombreDedans() == 0) {
        acutPrintf(L"\nAucun triangle : il faut trois points d'altitude connue, non align\u00e9s, dans les limites.");
        return {};
    }
    modeleRange modele{std::move(recolte.semis), sources, 0};
    modele.empreinte = empreinte(modele.semis);
    const AcDbObjectId id = rangerModele(dessin->base(), nom, modele);
    if (id.isNull() || !choisirModele(dessin->base(), id)) {
        acutPrintf(L"\nLe dessin a refus\u00e9 le mod\u00e8le %s.", nom.c_str());
        return {};
    }
    acutPrintf(L"\nMod\u00e8le %s : %d sommets, %d triangles, altitudes de %.3f \u00e0 %.3f", nom.c_str(),
               static_cast<int>(fait.maillage.sommets().size()), fait.maillage.nombreDedans(),
               fait.maillage.altitudeMin(), fait.maillage.altitudeMax());
    return id;
}

/// Nothing when cancelled.
std::optional<std::wstring> demanderNom()
{
    const std::wstring propose = nomLibre();
    ACHAR* texte = nullptr;
    if (acedGetFullString(0, (L"\nNom du mod\u00e8le <" + propose + L"> :").c_str(), texte) != RTNORM)
        return std::nullopt;
    const std::wstring nom(sansBlancs(std::wstring_view(texte), L" \t"));
    acutDelString(texte);
    return nom.empty() ? propose : nom;
}

} // namespace

AcDbObjectId creerModele(const std::wstring& nom, const sourcesTerrain& sources)
{
    try {
        return creer(nom, sources);
    } catch (const std::exception& faute) {
        acutPrintf(L"\nLe mod\u00e8le %s ne peut pas \u00eatre construit : %s.", nom.c_str(), raisonDe(faute).c_str());
        return {};
    }
}

std::wstring nomLibre()
{
    terrainsDuDessin* const dessin = terrainsEnSession() ? terrainsEnSession()->courants() : nullptr;
    const modelesRanges modeles = dessin ? modelesDuDessin(dessin->base()) : modelesRanges();
    for (int n = 1;; ++n) {
        const std::wstring nom = L"MNT" + std::to_wstring(n);
        if (std::none_of(modeles.begin(), modeles.end(), [&nom](const auto& m) {
                return memesLettres(std::wstring_view(m.first), std::wstring_view(nom));
            }))
            return nom;
    }
}

void commandeMntScript()
{
    const auto nom = demanderNom();
    if (!nom)
        return;
    sourcesTerrain sources;
    sources.objets = demanderSelection(
        L"\nPoints, textes et lignes de rupture, ou Entr\u00e9e pour les points de la table courante :", L"*");
    if (sources.objets.empty() && tablesPoints)
        sources.tables.emplace_back(tablesPoints->currTable()->getNomTable().GetString());
    if (creerModele(*nom, sources).isNull())
        acdbFail((L"le mod\u00e8le de terrain \u00ab " + *nom + L" \u00bb n'est pas fait").c_str());
}
