#include "script.h"

std::vector<ligneScript> lignesDuScript(std::string_view contenu)
{
    constexpr std::string_view marqueUtf8 = "\xEF\xBB\xBF";
    constexpr std::string_view blancs = " \t\r";
    if (contenu.starts_with(marqueUtf8))
        contenu.remove_prefix(marqueUtf8.size());
    std::vector<ligneScript> lignes;
    for (std::size_t numero = 1; !contenu.empty(); ++numero) {
        const auto fin = contenu.find('\n');
        std::string_view ligne = contenu.substr(0, fin);
        contenu.remove_prefix(fin == std::string_view::npos ? contenu.size() : fin + 1);
        const auto debut = ligne.find_first_not_of(blancs);
        if (debut == std::string_view::npos || ligne[debut] == ';')
            continue;
        ligne = ligne.substr(debut, ligne.find_last_not_of(blancs) + 1 - debut);
        lignes.push_back({numero, std::string(ligne)});
    }
    return lignes;
}
