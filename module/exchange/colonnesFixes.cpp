#include "exchange/colonnesFixes.h"

#include <array>
#include <charconv>

void ajouterTexteADroite(std::string& ligne, std::string_view texte, std::size_t largeur)
{
    if (texte.size() < largeur)
        ligne.append(largeur - texte.size(), ' ');
    ligne += texte;
}

void ajouterNombreADroite(std::string& ligne, double valeur, int decimales, std::size_t largeur)
{
    std::array<char, 400> chiffres; // sign, the 309 digits of the largest double, point, decimals
    const auto fin =
        std::to_chars(chiffres.data(), chiffres.data() + chiffres.size(), valeur, std::chars_format::fixed, decimales);
    ajouterTexteADroite(ligne, {chiffres.data(), static_cast<std::size_t>(fin.ptr - chiffres.data())}, largeur);
}
