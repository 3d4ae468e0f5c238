#include "services/lireNombre.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>
#include <string_view>

#include "services/codages.h"
#include "services/reelDeTexte.h"

namespace {

enum class etat {
    depart,
    signe,
    entierSansSigne,
    entier,
    point,
    fraction,
    exposant,
    signeExposant,
    chiffresExposant,
    pointEnTete,
    refus,
};

bool estChiffre(char c)
{
    return c >= '0' && c <= '9';
}
bool estSigne(char c)
{
    return c == '+' || c == '-';
}

etat suivant(etat e, char c)
{
    switch (e) {
    case etat::depart:
        return estChiffre(c) ? etat::entierSansSigne
               : estSigne(c) ? etat::signe
               : c == '.'    ? etat::pointEnTete
                             : etat::refus;
    case etat::signe:
        return estChiffre(c) ? etat::entier : etat::refus;
    case etat::entierSansSigne:
    case etat::entier:
        return estChiffre(c) ? etat::entier : c == '.' ? etat::point : etat::refus;
    case etat::point:
    case etat::fraction:
        return estChiffre(c) ? etat::fraction : c == 'E' ? etat::exposant : etat::refus;
    case etat::exposant:
        return estChiffre(c) ? etat::chiffresExposant : estSigne(c) ? etat::signeExposant : etat::refus;
    case etat::signeExposant:
    case etat::chiffresExposant:
        return estChiffre(c) ? etat::chiffresExposant : etat::refus;
    case etat::pointEnTete: // a leading point never makes a number, whatever follows
        return estChiffre(c) ? etat::pointEnTete : etat::refus;
    case etat::refus:
        break;
    }
    return etat::refus;
}

bool estFinal(etat e)
{
    return e == etat::entierSansSigne || e == etat::entier || e == etat::fraction || e == etat::chiffresExposant;
}

double valeurDe(std::string_view nombre)
{
    const std::string_view sansPlus = nombre.substr(nombre.front() == '+' ? 1 : 0);
    double valeur = 0.0;
    if (std::from_chars(sansPlus.data(), sansPlus.data() + sansPlus.size(), valeur).ec == std::errc())
        return valeur;
    return reelDeTexte(std::wstring(nombre.begin(), nombre.end())); // beyond a double: infinite, or 0
}

/// Plain decimal numbers, which nearly all are, at the price of from_chars: digits on both sides of the point, if any.
bool lireDecimal(std::string_view texte, double& valeur)
{
    const std::size_t premier = !texte.empty() && texte.front() == '-' ? 1 : 0;
    if (premier == texte.size() || !estChiffre(texte[premier]) || !estChiffre(texte.back()))
        return false;
    double lue = 0.0;
    const char* const fin = texte.data() + texte.size();
    const auto [arret, erreur] = std::from_chars(texte.data(), fin, lue, std::chars_format::fixed);
    if (arret != fin || erreur != std::errc())
        return false;
    valeur = lue;
    return true;
}

} // namespace

int lireNombre(std::string_view texte, double& valeur)
{
    if (lireDecimal(texte, valeur))
        return 1;
    const std::size_t debut = std::min(texte.find_first_not_of(' '), texte.size());
    std::size_t fin = debut;
    etat e = etat::depart;
    while (fin < texte.size() && texte[fin] != ' ' && texte[fin] != '\t' && texte[fin] != '\n' && texte[fin] != '\r' &&
           e != etat::refus)
        e = suivant(e, texte[fin++]);
    if (texte.find_first_not_of(' ', fin) != std::string_view::npos || !estFinal(e))
        return 0;
    const double lue = valeurDe(texte.substr(debut, fin - debut));
    if (!std::isfinite(lue))
        return 0;
    valeur = lue;
    return 1;
}

int lireNombre(const wchar_t* texte, double& valeur)
{
    return texte ? lireNombre(versAnsi(texte), valeur) : 0;
}
