#include "services/lireNombre.h"

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

} // namespace

int lireNombre(const char* texte, double& valeur)
{
    if (!texte)
        return 0;
    const char* debut = texte;
    while (*debut == ' ')
        ++debut;
    const char* fin = debut;
    etat e = etat::depart;
    while (*fin != '\0' && *fin != ' ' && *fin != '\t' && *fin != '\n' && *fin != '\r' && e != etat::refus)
        e = suivant(e, *fin++);
    const char* reste = fin;
    while (*reste == ' ')
        ++reste;
    if (*reste != '\0' || !estFinal(e))
        return 0;
    const double lue = valeurDe({debut, static_cast<std::size_t>(fin - debut)});
    if (!std::isfinite(lue))
        return 0;
    valeur = lue;
    return 1;
}

int lireNombre(const wchar_t* texte, double& valeur)
{
    return texte ? lireNombre(versAnsi(texte).c_str(), valeur) : 0;
}
