#include "calculs/lignesCollees.h"

#include <algorithm>

#include "services/reelDeTexte.h"

namespace {

constexpr wchar_t espaceInsecable = 0x00A0;
constexpr wchar_t espaceFine = 0x202F;

std::wstring sansBords(std::wstring_view texte)
{
    constexpr std::wstring_view bords = L" \t\r\u00A0\u202F";
    const std::size_t debut = texte.find_first_not_of(bords);
    if (debut == std::wstring_view::npos)
        return {};
    return std::wstring(texte.substr(debut, texte.find_last_not_of(bords) + 1 - debut));
}

bool estNombre(const std::wstring& cellule)
{
    bool entier = false;
    reelDeTexte(cellule, &entier);
    return entier;
}

} // namespace

std::wstring nombreColle(std::wstring cellule)
{
    std::erase_if(cellule, [](wchar_t c) { return c == L' ' || c == espaceInsecable || c == espaceFine; });
    if (std::count(cellule.begin(), cellule.end(), L',') == 1 && cellule.find(L'.') == std::wstring::npos)
        std::replace(cellule.begin(), cellule.end(), L',', L'.');
    return cellule;
}

std::vector<std::wstring> cellulesCollees(std::wstring_view ligne)
{
    const wchar_t separateur = ligne.find(L'\t') != std::wstring_view::npos ? L'\t' : L';';
    std::vector<std::wstring> cellules;
    for (std::size_t debut = 0; debut <= ligne.size();) {
        const std::size_t fin = std::min(ligne.find(separateur, debut), ligne.size());
        cellules.push_back(sansBords(ligne.substr(debut, fin - debut)));
        debut = fin + 1;
    }
    return cellules;
}

collage lignesCollees(std::wstring_view texte)
{
    collage colle;
    for (std::size_t debut = 0; debut < texte.size();) {
        const std::size_t fin = std::min(texte.find(L'\n', debut), texte.size());
        const std::wstring_view ligne = texte.substr(debut, fin - debut);
        debut = fin + 1;
        std::vector<std::wstring> cellules = cellulesCollees(ligne);
        cellules.resize(std::max<std::size_t>(cellules.size(), 4));
        const std::wstring angle = nombreColle(cellules[1]), distance = nombreColle(cellules[2]);
        if (estNombre(angle) && estNombre(distance)) {
            const std::wstring altitude = nombreColle(cellules[3]);
            colle.lignes.push_back({cellules[0], angle, distance, altitude.empty() ? L"0" : altitude});
        } else if (std::wstring vue = sansBords(ligne); !vue.empty() && colle.laissees++ == 0) {
            std::ranges::replace(vue, L'\t', L' ');
            colle.premiere = std::move(vue);
        }
    }
    return colle;
}

std::wstring remarqueCollage(const collage& colle)
{
    if (colle.laissees == 0)
        return {};
    return L"Collage : " + std::to_wstring(colle.lignes.size()) + L" ligne(s) reprise(s), " +
           std::to_wstring(colle.laissees) + L" laissée(s) sans angle ou distance lisible, dont « " + colle.premiere +
           L" ».";
}

std::wstring texteDesLignes(const std::vector<ligneObservation>& lignes)
{
    std::wstring texte;
    for (const ligneObservation& l : lignes)
        texte += l.station + L'\t' + l.angle + L'\t' + l.distance + L'\t' + l.altitude + L'\n';
    return texte;
}
