#include "exchange/pointsLus.h"

#include <algorithm>
#include <cmath>

#include "points/codeValable.h"

namespace {

std::wstring montrable(std::wstring_view texte, std::size_t longueur = 120)
{
    std::wstring montre(texte.substr(0, longueur));
    std::replace_if(
        montre.begin(), montre.end(), [](wchar_t c) { return c < 0x20 || (c >= 0x7F && c < 0xA0); }, L'.');
    return texte.size() > longueur ? montre + L"…" : montre;
}

void noter(std::vector<problemeLecture>& problemes, problemeLecture probleme)
{
    if (problemes.size() < pointsLus::problemesGardes)
        problemes.push_back(std::move(probleme));
}

} // namespace

void pointsLus::ecarter(std::size_t ligne, std::wstring_view texte, std::wstring raison)
{
    ++ecartees;
    noter(problemes, {ligne, montrable(texte), std::move(raison), true});
}

void pointsLus::remarquer(std::size_t ligne, std::wstring_view texte, std::wstring raison)
{
    ++remarquees;
    noter(problemes, {ligne, montrable(texte), std::move(raison), false});
}

void pointsLus::refuser(std::wstring raison, std::size_t ligne)
{
    lisible = false;
    // Never left out of a full list: it says why the file ends early.
    problemes.push_back({ligne, {}, std::move(raison), true});
}

std::wstring entreGuillemets(std::wstring_view texte)
{
    constexpr std::size_t longueur = 40;
    return L"« " + montrable(texte, longueur) + L" »";
}

std::wstring codeEnLettres(std::wstring_view code)
{
    return L"code " + entreGuillemets(code) + L" qui n'est pas un nombre : gardé comme observation, code 1.";
}

std::wstring remarquesSur(const pointXYZ& point)
{
    constexpr double pasUnLeve = 1e9; // a million kilometres
    const auto demesure = [](double v) { return std::abs(v) > pasUnLeve; };
    std::wstring remarques;
    if (!codeValable(point.code))
        remarques = L"code " + std::to_wstring(point.code) + L" hors de 1 à 9999 : gardé tel quel.";
    if (demesure(point.x) || demesure(point.y) || (point.z != inconnu && demesure(point.z)))
        remarques.append(remarques.empty() ? L"" : L" ").append(L"coordonnée démesurée : gardée telle quelle.");
    return remarques;
}

std::vector<std::wstring> phrasesProblemes(std::wstring_view fichier, const pointsLus& lus)
{
    std::vector<std::wstring> phrases;
    for (const problemeLecture& p : lus.problemes) {
        std::wstring phrase(fichier);
        if (p.ligne > 0)
            phrase += L", ligne " + std::to_wstring(p.ligne);
        phrase += L" : " + p.raison;
        if (!p.texte.empty())
            phrase += (p.ecartee ? L" Ligne écartée : « " : L" Ligne : « ") + p.texte + L" »";
        phrases.push_back(std::move(phrase));
    }
    const std::size_t nombre = lus.ecartees + lus.remarquees;
    if (nombre > pointsLus::problemesGardes)
        phrases.push_back(std::wstring(fichier) + L" : et " + std::to_wstring(nombre - pointsLus::problemesGardes) +
                          L" autres lignes.");
    return phrases;
}
