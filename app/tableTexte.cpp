#include "tableTexte.h"

#include <algorithm>
#include <ostream>

namespace {

/// Characters of a UTF-8 text: bytes that do not continue one.
std::size_t largeur(const std::string& texte)
{
    return static_cast<std::size_t>(
        std::count_if(texte.begin(), texte.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

} // namespace

void tableTexte::ecrire(std::ostream& flux, const std::string& marge) const
{
    std::vector<std::size_t> largeurs(colonnes.size(), 0);
    for (const auto& ligne : lignes)
        for (std::size_t i = 0; i < colonnes.size(); ++i)
            largeurs[i] = std::max(largeurs[i], largeur(ligne[i]));
    for (const auto& ligne : lignes) {
        std::string texte = marge;
        for (std::size_t i = 0; i < colonnes.size(); ++i) {
            const std::string blancs(largeurs[i] - largeur(ligne[i]), ' ');
            texte += i == 0 ? "" : "  ";
            texte += colonnes[i] == cote::droite ? blancs + ligne[i] : ligne[i] + blancs;
        }
        texte.erase(texte.find_last_not_of(' ') + 1);
        flux << texte << '\n';
    }
}
