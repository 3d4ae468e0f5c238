#include <array>
#include <cmath>
#include <cstdio>

#include "sol/semisTerrain.h"

namespace {

std::wstring nombre(double valeur)
{
    std::array<char, 400> texte{};
    const int longueur = std::snprintf(texte.data(), texte.size(), "%.3f", valeur);
    return {texte.data(), texte.data() + longueur};
}

} // namespace

std::wstring texteIncident(const incidentSol& incident)
{
    const std::wstring lieu = L" en " + nombre(incident.lieu.x) + L", " + nombre(incident.lieu.y);
    const std::wstring altitudes = nombre(incident.z1) + L" et " + nombre(incident.z2);
    const std::wstring plusHaute = L" : altitudes " + altitudes + L", la plus haute est gard\u00e9e";
    switch (incident.nature) {
    case incidentSol::genre::confondus:
        return L"Points confondus" + lieu + plusHaute;
    case incidentSol::genre::ecart:
        return L"Ligne de rupture sur un point" + lieu + L" : altitudes " + altitudes +
               L", celle du point est gard\u00e9e";
    case incidentSol::genre::croisement:
        break;
    }
    const std::wstring croisement = L"Lignes de rupture qui se croisent" + lieu;
    if (incident.z1 == incident.z2)
        return croisement + L", \u00e0 l'altitude " + nombre(incident.z1);
    return croisement + plusHaute;
}
