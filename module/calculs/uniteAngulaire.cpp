#include "calculs/uniteAngulaire.h"

#include <cmath>
#include <numbers>

namespace {

struct definitionUnite {
    double tour;
    double versRadians;
    const wchar_t* mot;
    const wchar_t* symbole;
};

constexpr definitionUnite unites[] = {
    {400.0, std::numbers::pi / 200.0, L"grades", L"gr"},
    {360.0, std::numbers::pi / 180.0, L"degres", L"°"},
    {2.0 * std::numbers::pi, 1.0, L"radians", L"rad"},
};

const definitionUnite& definition(int unite)
{
    return unites[unite == uniteDegres || unite == uniteRadians ? unite : uniteGrades];
}

} // namespace

double tourComplet(int unite)
{
    return definition(unite).tour;
}

double facteurRadians(int unite)
{
    return definition(unite).versRadians;
}

const wchar_t* motUniteAngulaire(int unite)
{
    return definition(unite).mot;
}

const wchar_t* symboleUniteAngulaire(int unite)
{
    return definition(unite).symbole;
}

int uniteAngulaireDe(wchar_t lettre)
{
    switch (lettre) {
    case L'D':
    case L'd':
        return uniteDegres;
    case L'R':
    case L'r':
        return uniteRadians;
    default:
        return uniteGrades;
    }
}

double normaliser(double angle, double tour)
{
    if (tour == 0.0)
        return angle;
    const double reste = angle - std::floor(angle / tour) * tour;
    return reste < 0.0 ? reste + tour : reste;
}

grandeur normaliser(grandeur angle, double tour)
{
    return angle.connue() ? grandeur(normaliser(angle.valeur(), tour)) : angle;
}
