#include "implantation/pointImplante.h"

#include "services/formatNombres.h"

namespace {

constexpr int decimalesHauteur = 2;

std::wstring texte(double valeur, int nombreDecimales = decimalesImplantation)
{
    return valeur == inconnu ? std::wstring() : formaterFixe(valeur, nombreDecimales);
}

/// The bearing stands in for an angle that has no known zero.
std::wstring texteAngle(const donneesStation& station, double x, double y)
{
    const double angle = angleVers(station, x, y);
    if (angle != inconnu)
        return texte(enGrades(angle));
    const double gisement = gisementVers(station, x, y);
    return gisement == inconnu ? L"-" : L"g= " + texte(enGrades(gisement));
}

} // namespace

etatVisibilite etatDe(const pointImplante& point, double hauteurMin)
{
    if (!point.verifie || point.hauteurVisible == inconnu)
        return etatVisibilite::nonVerifie;
    return point.hauteurVisible <= hauteurMin ? etatVisibilite::visible : etatVisibilite::nonVisible;
}

ligneImplantation ligneDe(const pointImplante& point, const donneesStation* station)
{
    ligneImplantation ligne;
    ligne[colNum] = point.nom;
    ligne[colX] = texte(point.x);
    ligne[colY] = texte(point.y);
    ligne[colZ] = texte(point.z);
    ligne[colAngle] = L"-";
    ligne[colVisible] = point.verifie ? texte(point.hauteurVisible, decimalesHauteur) : L"*";
    if (!station)
        return ligne;
    ligne[colStation] = station->station.nom;
    ligne[colRef] = texteReference(*station);
    ligne[colAngle] = texteAngle(*station, point.x, point.y);
    ligne[colDistance] = texte(distanceVers(*station, point.x, point.y));
    return ligne;
}
