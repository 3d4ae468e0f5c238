#include "implantation/resultatImplantation.h"

#include "services/codages.h"
#include "services/nombreFixe.h"

double deniveleeVers(const donneesStation& station, const pointImplante& point)
{
    return (grandeur(point.z) - station.station.z).valeur();
}

double distanceSuivantPente(const donneesStation& station, const pointImplante& point)
{
    return hypot(grandeur(distanceVers(station, point.x, point.y)), deniveleeVers(station, point)).valeur();
}

std::wstring phraseVisibilite(const pointImplante& point, double hauteurMin)
{
    const etatVisibilite etat = etatDe(point, hauteurMin);
    if (etat == etatVisibilite::nonVerifie)
        return L"non vérifié";
    if (!point.pire)
        return L"vu";
    const auto metres = [](double valeur) { return depuisAnsi(nombreFixe(valeur, 2)); };
    return (etat == etatVisibilite::visible ? L"vu malgré " : L"caché par ") + point.cause + L" : " +
           metres(point.pire->depassement) + L" au-dessus de la visée, à " + metres(point.pire->distance) +
           L" de la station";
}
