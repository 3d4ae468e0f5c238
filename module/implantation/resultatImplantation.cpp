#include "implantation/resultatImplantation.h"

#include <algorithm>

#include "services/formatNombres.h"

double deniveleeVers(const donneesStation& station, const pointImplante& point)
{
    return (grandeur(point.z) - station.station.z).valeur();
}

double distanceSuivantPente(const donneesStation& station, const pointImplante& point)
{
    return hypot(grandeur(distanceVers(station, point.x, point.y)), deniveleeVers(station, point)).valeur();
}

namespace {

std::wstring metres(double valeur)
{
    return formaterFixe(valeur, 2);
}

} // namespace

bool sousLaStation(const pointImplante& point, const donneesStation& station)
{
    return point.planConnu() && memePlace(point, station.station);
}

std::wstring phraseDuPoint(const pointImplante& point, const donneesStation* station, double hauteurMin)
{
    if (station && sousLaStation(point, *station))
        return L"à la place de sa station : aucun angle ne l'implante";
    return phraseVisibilite(point, hauteurMin);
}

std::wstring phraseVisibilite(const pointImplante& point, double hauteurMin)
{
    constexpr double negligeable = 0.005; // nothing that two decimals would show
    const etatVisibilite etat = etatDe(point, hauteurMin);
    if (etat == etatVisibilite::nonVerifie)
        return L"non vérifié" + (point.cause.empty() ? L"" : L" : " + point.cause);
    const std::wstring reserve =
        point.sansSol > negligeable ? L" (terrain inconnu sur " + metres(point.sansSol) + L" de la visée)" : L"";
    if (!point.pire)
        return L"vu" + reserve;
    return (etat == etatVisibilite::visible ? L"vu malgré " : L"caché par ") + point.cause + L" : " +
           metres(point.pire->depassement) + L" au-dessus de la visée, à " + metres(point.pire->distance) +
           L" de la station" + reserve;
}

std::wstring enumererNoms(const std::vector<std::wstring>& noms)
{
    constexpr std::size_t montres = 12;
    std::wstring texte;
    for (std::size_t i = 0; i < std::min(noms.size(), montres); ++i)
        texte += (i == 0 ? L"" : L", ") + noms[i];
    return noms.size() > montres ? texte + L"..." : texte;
}

std::wstring phraseRefus(const repartition::refus& refus)
{
    switch (refus.pourquoi) {
    case refusStation::memeLieu:
        return L"seule une station est à portée, et elle est à sa place";
    case refusStation::sansSol:
        return L"hors du terrain";
    case refusStation::obstruee:
        return L"il manque " + metres(refus.manque);
    case refusStation::horsDePortee:
        break;
    }
    return L"hors de portée";
}
