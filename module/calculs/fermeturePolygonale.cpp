#include "calculs/fermeturePolygonale.h"

#include <cmath>

#include "calculs/uniteAngulaire.h"
#include "services/grandeur.h"
#include "services/nombreFixe.h"

namespace {

constexpr wchar_t nonDefinie[] = L"non définie";

constexpr double ecartParAngle = 0.5 / 400.0;         // of a turn
constexpr double fermetureRelativeAdmise = 1.0 / 200; // of the length
constexpr int decimalesAngle = 5;

bool anglesAdmis(const cheminement& c)
{
    return std::abs(c.erreurAngulaire) <= ecartAngulaireAdmis(c.unite, c.cotes.size());
}

bool positionAdmise(const cheminement& c)
{
    return c.fermeturePlanimetrique <= ecartPlanimetriqueAdmis(c.longueur);
}

std::wstring texteNombre(double valeur, int decimales)
{
    if (valeur == inconnu)
        return L"inconnue";
    if (!std::isfinite(valeur))
        return nonDefinie;
    std::string texte = nombreFixe(valeur, decimales);
    if (texte.find_first_of("123456789") == std::string::npos && texte.front() == '-')
        texte.erase(0, 1); // zero has no sign
    return {texte.begin(), texte.end()};
}

std::wstring texteErreurAngulaire(const cheminement& c)
{
    return texteNombre(c.erreurAngulaire, decimalesAngle) + L" " + symboleUniteAngulaire(c.unite);
}

} // namespace

double ecartAngulaireAdmis(int unite, std::size_t angles)
{
    return ecartParAngle * tourComplet(unite) * std::sqrt(static_cast<double>(angles));
}

double ecartPlanimetriqueAdmis(double longueur)
{
    return longueur * fermetureRelativeAdmise;
}

bool fermetureAdmise(const cheminement& c)
{
    return estConnue(c.erreurAngulaire) && estConnue(c.fermeturePlanimetrique) && anglesAdmis(c) && positionAdmise(c);
}

std::wstring remarqueFermeture(const cheminement& c)
{
    std::wstring ecarts;
    if (estConnue(c.erreurAngulaire) && !anglesAdmis(c))
        ecarts = L"erreur angulaire de " + texteErreurAngulaire(c);
    if (estConnue(c.fermeturePlanimetrique) && !positionAdmise(c))
        ecarts +=
            (ecarts.empty() ? L"" : L", ") + (L"fermeture relative " + texteFermetureRelative(c.fermetureRelative));
    if (ecarts.empty())
        return {};
    return L"La fermeture est hors de toute pratique (" + ecarts +
           L") : une donnée au moins est fausse, les stations calculées le sont aussi.";
}

double toleranceAngulaire(double precision, std::size_t cotes)
{
    return 2.7 * precision * std::sqrt(static_cast<double>(cotes) + 1.0);
}

std::wstring remarqueTolerance(const cheminement& c, double precision)
{
    const double tolerance = toleranceAngulaire(precision, c.cotes.size());
    if (!estConnue(c.erreurAngulaire) || std::abs(c.erreurAngulaire) <= tolerance)
        return {};
    return L"L'erreur angulaire de " + texteErreurAngulaire(c) + L" dépasse la tolérance de " +
           texteNombre(tolerance, decimalesAngle) + L" " + symboleUniteAngulaire(c.unite) + L" (2,7 s √(n+1) pour " +
           std::to_wstring(c.cotes.size()) + L" côtés).";
}

std::wstring texteFermetureRelative(double fermetureRelative)
{
    if (std::isnan(fermetureRelative) || fermetureRelative == inconnu)
        return nonDefinie;
    // What misses by less is the rounding of the machine: a micron over a thousand kilometres.
    constexpr double fermetureNulle = 1e12;
    if (fermetureRelative > fermetureNulle)
        return L"nulle";
    if (fermetureRelative < 1.0)
        return L"supérieure à 1";
    const std::string chiffres = nombreFixe(fermetureRelative, 0);
    std::wstring texte(chiffres.begin(), chiffres.end());
    for (std::size_t place = texte.size(); place > 3; place -= 3)
        texte.insert(place - 3, L" ");
    return L"1/" + texte;
}

std::wstring resumePolygonale(const cheminement& c)
{
    return L"Erreur angulaire : " + texteErreurAngulaire(c) + L" ; fermeture : " +
           texteNombre(c.fermeturePlanimetrique, 4) + L" pour " + texteNombre(c.longueur, 3) + L" (" +
           texteFermetureRelative(c.fermetureRelative) + L") ; en altitude : " +
           texteNombre(c.nivellement.fermeture, 4);
}
