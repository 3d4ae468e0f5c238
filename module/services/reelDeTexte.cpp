#include "services/reelDeTexte.h"

#include <charconv>
#include <limits>
#include <locale>
#include <sstream>
#include <string>

#include "services/lettres.h"

namespace {

bool estBlanc(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

bool estChiffre(char c)
{
    return c >= '0' && c <= '9';
}

/// std::from_chars does not say whether an out-of-range number is too large or too small; a stream does.
double horsLimites(const std::string& nombre)
{
    std::istringstream flux(nombre);
    flux.imbue(std::locale::classic());
    double valeur = 0.0;
    flux >> valeur;
    return valeur < 1.0 ? 0.0 : std::numeric_limits<double>::infinity();
}

bool estNombre(std::wstring_view texte)
{
    bool nombre = false;
    reelDeTexte(texte, &nombre);
    return nombre;
}

std::wstring conseilVirgule(std::wstring_view texte)
{
    return texte.find(L',') == std::wstring_view::npos ? L"" : L" Le séparateur décimal est le point.";
}

} // namespace

double reelDeTexte(std::wstring_view texte, bool* entierement)
{
    // Only ASCII can belong to a number.
    std::string ascii;
    for (const wchar_t c : texte)
        ascii += c > 0 && c < 0x80 ? static_cast<char>(c) : '?';

    std::size_t i = 0;
    while (i < ascii.size() && estBlanc(ascii[i]))
        ++i;
    const bool negatif = i < ascii.size() && ascii[i] == '-';
    if (negatif || (i < ascii.size() && ascii[i] == '+'))
        ++i;

    double valeur = 0.0;
    const char* const debut = ascii.data() + i;
    const char* const borne = ascii.data() + ascii.size();
    const char* fin = debut;
    // "inf", "nan" and a second sign are refused here.
    if (debut != borne && (estChiffre(*debut) || *debut == '.')) {
        const auto [arret, erreur] = std::from_chars(debut, borne, valeur);
        fin = arret;
        if (erreur == std::errc::result_out_of_range)
            valeur = horsLimites(std::string(debut, arret));
    }
    if (entierement) {
        const char* reste = fin;
        while (reste != borne && estBlanc(*reste))
            ++reste;
        *entierement = fin != debut && reste == borne;
    }
    return negatif ? -valeur : valeur;
}

std::wstring pasUnNombre(std::wstring_view texte)
{
    return L"« " + std::wstring(texte) + L" » n'est pas un nombre.";
}

std::wstring refusNombre(std::wstring_view nomme, std::wstring_view texte)
{
    if (estNombre(texte))
        return {};
    std::wstring phrase = std::wstring(nomme) + L" : " + pasUnNombre(texte) + conseilVirgule(texte);
    phrase.front() = majuscule(phrase.front());
    return phrase;
}

std::wstring remarqueNombre(std::wstring_view nomme, std::wstring_view texte)
{
    if (estNombre(texte))
        return {};
    return std::wstring(nomme) + L" « " + std::wstring(texte) +
           L" » n'est pas un nombre ; seul ce qui précède la faute est lu, ou 0." + conseilVirgule(texte);
}
