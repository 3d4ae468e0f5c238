#include "services/nombreFixe.h"

#include <algorithm>
#include <charconv>

std::string nombreFixe(double valeur, int decimales)
{
    const int precision = std::max(decimales, 0);
    // Sign, the 309 digits of the largest double, the point.
    constexpr std::size_t partieEntiere = 311;
    std::string texte(partieEntiere + static_cast<std::size_t>(precision), '\0');
    const auto fin =
        std::to_chars(texte.data(), texte.data() + texte.size(), valeur, std::chars_format::fixed, precision).ptr;
    texte.resize(static_cast<std::size_t>(fin - texte.data()));
    return texte;
}
