#include "implantation/choixStation.h"

#include <set>

#include "implantation/pointsDuProjet.h"
#include "points/altitudeDuSol.h"
#include "services/lettres.h"
#include "services/motSaisi.h"
#include "services/selection.h"

#include "aced.h"
#include "dbads.h"

namespace {

constexpr double versLeNord = 10000.0; // where the reference of a setup on the north stands

bool memeMot(const std::wstring& a, const std::wstring& b)
{
    return enMinuscules(a) == enMinuscules(b);
}

/// The point of a symbol that the user picks, or, where texts are taken, of a name.
std::optional<lieuNomme> designerPoint(const wchar_t* message, bool nomAccepte)
{
    ads_name entite;
    ads_point place;
    acedInitGet(nomAccepte ? RSG_OTHER : 0, nullptr);
    const int statut = acedEntSel(message, entite, place);
    AcDbObjectId id;
    std::optional<lieuNomme> trouve;
    if (statut == RTKWORD)
        trouve = pointNomme(motSaisi());
    else if (statut == RTNORM && acdbGetObjectId(id, entite) == Acad::eOk)
        trouve = pointDuBloc(id);
    else
        return std::nullopt;
    if (!trouve)
        acutPrintf(L"\nCe n'est pas un point des tables");
    return trouve;
}

std::optional<lieuNomme> pointProche()
{
    ads_point clic;
    if (acedGetPoint(nullptr, L"\nCliquer \u00e0 proximit\u00e9 de la station \u00e0 utiliser", clic) != RTNORM)
        return std::nullopt;
    return pointLePlusProche({clic[0], clic[1]});
}

/// The points of the job whose symbols the user selects.
std::optional<travailImplantation::positions> restreindre(travailImplantation& travail)
{
    travail.effacerApercu();
    acutPrintf(L"\nSelectionnez les points a implanter");
    const std::vector<AcDbObjectId> ids = demanderSelection(L"\nChoix des objets", L"INSERT");
    if (ids.empty())
        return std::nullopt;
    const pointsParBloc pointDe;
    std::set<std::wstring> noms;
    for (const AcDbObjectId& id : ids)
        if (const auto lieu = pointDe(id))
            noms.insert(lieu->nom);
    travailImplantation::positions gardes;
    for (std::size_t i = 0; i < travail.points.size(); ++i)
        if (noms.contains(travail.points[i].nom))
            gardes.push_back(i);
    return gardes;
}

struct referenceChoisie {
    lieuNomme lieu;
    int genre;
};

std::optional<referenceChoisie> choisirReference(const lieuNomme& station)
{
    const ads_point base{station.x, station.y, 0.0};
    ads_point place;
    acedInitGet(RSG_OTHER, L"Nord Designer "); // another word ends the dialogue
    const int statut = acedGetPoint(base, L"\nReference [Nord / Designer] <Nord>:", place);
    if (statut == RTNORM)
        return referenceChoisie{{L"", place[0], place[1], inconnu}, miseEnStationPosition};
    const std::wstring mot = statut == RTKWORD ? motSaisi() : std::wstring();
    if (statut == RTNONE || memeMot(mot, L"NORD"))
        return referenceChoisie{{L"", station.x, station.y + versLeNord, inconnu}, miseEnStationNord};
    if (!memeMot(mot, L"Designer"))
        return std::nullopt;
    const auto point = designerPoint(L"Selectionnez la station de r\u00e9f\u00e9rence ou alors saisir son Nom ", true);
    if (!point)
        return std::nullopt;
    return referenceChoisie{*point, miseEnStationPoint};
}

void mettreEnStation(travailImplantation& travail, const travailImplantation::positions& choisis,
                     const lieuNomme& station)
{
    if (!station.planConnu())
        return;
    const auto reference = choisirReference(station);
    if (!reference)
        return;
    if (memePlace(station, reference->lieu)) {
        acutPrintf(L"\nLa r\u00e9f\u00e9rence est \u00e0 la place de la station : elle n'oriente rien");
        return;
    }
    travail.effacerApercu();
    const identifiantImplantation identifiant = travail.ajouterStation(station, reference->lieu, reference->genre);
    travail.affecter(choisis, identifiant);
    travail.verifierVisibilite(choisis);
    travail.dessinerApercu(travail.toutes());
    acedUpdateDisplay();
}

} // namespace

void choisirMiseEnStation(travailImplantation& travail, travailImplantation::positions& choisis)
{
    ads_point place;
    acedInitGet(RSG_OTHER, L"Designer Proche  Restreindre Annuler");
    const int statut = acedGetPoint(nullptr, L"\nIndiquer la station ou [Restreindre/Designer/Proche/Annuler]", place);
    if (statut == RTNORM) {
        const point2 libre{place[0], place[1]};
        return mettreEnStation(travail, choisis,
                               {travail.nomDeStation(), libre.x, libre.y, altitudeDuSol(libre.x, libre.y)});
    }
    if (statut != RTKWORD)
        return;
    const std::wstring mot = motSaisi();
    if (memeMot(mot, L"Annuler"))
        return travail.annulerStations(choisis);
    if (memeMot(mot, L"Restreindre")) {
        if (auto gardes = restreindre(travail))
            choisis = std::move(*gardes);
        return;
    }
    std::optional<lieuNomme> station;
    if (memeMot(mot, L"Proche"))
        station = pointProche();
    else if (memeMot(mot, L"Designer"))
        station = designerPoint(L"\nBlock Point:", false);
    else if (station = pointNomme(mot); !station)
        acutPrintf(L"\nLe point %s n'est pas dans les tables", mot.c_str());
    if (station)
        mettreEnStation(travail, choisis, *station);
}
