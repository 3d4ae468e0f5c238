#include "points/numeroteurEntier.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace {

int sommeTenue(int a, int b)
{
    using limites = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<std::int64_t>(std::int64_t{a} + b, limites::min(), limites::max()));
}

} // namespace

numeroteurEntier::numeroteurEntier(std::wstring lePrefixe, int premier, std::wstring leSuffixe, int lIncrement) :
    numeroteur(std::move(lePrefixe), std::move(leSuffixe)),
    courant(premier),
    increment(lIncrement),
    depart(premier)
{
}

std::wstring numeroteurEntier::nomSuivant()
{
    std::wstring nom = prefixe + std::to_wstring(courant) + suffixe;
    courant = sommeTenue(courant, increment);
    return nom;
}

int numeroteurEntier::serieSuffixeSuivante()
{
    numeroteur::serieSuffixeSuivante();
    return courant = depart;
}

int numeroteurEntier::seriePrefixeSuivante()
{
    numeroteur::seriePrefixeSuivante();
    return courant = depart;
}

void numeroteurEntier::avancer()
{
    courant = sommeTenue(courant, 1);
}

int numeroteurEntier::prendreNumero(int avance)
{
    const int numero = courant;
    if (avance)
        avancer();
    return numero;
}
