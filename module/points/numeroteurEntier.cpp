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

numeroteurEntier::numeroteurEntier(const CString& lePrefixe, int premier, const CString& leSuffixe, int lIncrement) :
    numeroteur(lePrefixe, leSuffixe),
    courant(premier),
    increment(lIncrement),
    depart(premier)
{
}

CString numeroteurEntier::nomSuivant()
{
    CString nom;
    nom.Format(L"%s%d%s", prefixe.GetString(), courant, suffixe.GetString());
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
