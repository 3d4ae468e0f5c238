#include "exchange/celluleLue.h"

#include <algorithm>
#include <charconv>

#include "services/codages.h"

namespace {

bool estBlanc(char c)
{
    return c == ' ' || c == '\t';
}

/// Skips blanks, but not the tab that separates.
std::size_t passerBlancs(std::string_view ligne, std::size_t i, char separateur)
{
    while (i < ligne.size() && estBlanc(ligne[i]) && ligne[i] != separateur)
        ++i;
    return i;
}

std::string_view sansPlus(std::string_view cellule)
{
    const bool plus = cellule.size() > 1 && cellule[0] == '+' && cellule[1] != '-';
    return cellule.substr(plus ? 1 : 0);
}

} // namespace

bool decouperCellules(std::string_view ligne, char separateur, std::vector<std::string>& cellules)
{
    const bool parBlancs = separateur == ' ';
    const auto separe = [=](char c) { return parBlancs ? estBlanc(c) : c == separateur; };
    bool fermes = true;
    std::size_t nombre = 0, i = 0;
    const auto nouvelle = [&]() -> std::string& {
        if (nombre == cellules.size())
            cellules.emplace_back();
        cellules[nombre].clear(); // its memory serves the next line
        return cellules[nombre++];
    };
    while (true) {
        i = passerBlancs(ligne, i, parBlancs ? '\0' : separateur);
        if (parBlancs && i == ligne.size())
            break;
        std::string& cellule = nouvelle();
        if (i < ligne.size() && ligne[i] == '"') {
            for (++i; i < ligne.size() && (ligne[i] != '"' || (i + 1 < ligne.size() && ligne[i + 1] == '"')); ++i) {
                cellule += ligne[i];
                i += ligne[i] == '"' ? 1 : 0;
            }
            fermes = fermes && i < ligne.size();
            i = std::min(i + 1, ligne.size());
        }
        const std::size_t debut = i;
        while (i < ligne.size() && !separe(ligne[i]))
            ++i;
        cellule.append(ligne, debut, i - debut);
        while (i > debut && !cellule.empty() && estBlanc(cellule.back()))
            cellule.pop_back();
        if (i == ligne.size())
            break;
        ++i;
    }
    cellules.resize(nombre);
    return fermes;
}

std::optional<double> nombreDeCellule(std::string_view cellule)
{
    constexpr std::size_t plusLong = 64;
    cellule = sansPlus(cellule);
    const auto estDuNombre = [](char c) {
        return (c >= '0' && c <= '9') || std::string_view("+-.,eE").find(c) != std::string_view::npos;
    };
    if (cellule.empty() || cellule.size() > plusLong || !std::ranges::all_of(cellule, estDuNombre))
        return std::nullopt;
    char chiffres[plusLong];
    std::ranges::replace_copy(cellule, chiffres, ',', '.');
    double valeur = 0.0;
    const char* const fin = chiffres + cellule.size();
    const auto [arret, erreur] = std::from_chars(chiffres, fin, valeur);
    return arret == fin && erreur == std::errc() ? std::optional(valeur) : std::nullopt;
}

std::optional<int> entierDeCellule(std::string_view cellule)
{
    cellule = sansPlus(cellule);
    int valeur = 0;
    const char* const fin = cellule.data() + cellule.size();
    const auto [arret, erreur] = std::from_chars(cellule.data(), fin, valeur);
    return !cellule.empty() && arret == fin && erreur == std::errc() ? std::optional(valeur) : std::nullopt;
}

std::wstring texteDeCellule(std::string_view octets, bool utf8)
{
    return utf8 || sembleUtf8(octets) ? depuisUtf8(octets) : depuisAnsi(octets);
}

void ajouterMots(std::wstring& texte, std::wstring_view mots)
{
    if (!texte.empty() && !mots.empty())
        texte += L' ';
    texte += mots;
}

std::string nomDePoint(std::wstring_view nom, std::wstring& remarque)
{
    bool entier = true;
    std::string garde = versAnsi(nom, &entier);
    if (!entier)
        ajouterMots(remarque, L"nom avec des caractères hors de la page de codes Windows-1252, remplacés par « ? ».");
    return garde;
}
