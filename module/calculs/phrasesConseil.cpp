#include "calculs/phrasesConseil.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "calculs/fermeturePolygonale.h"
#include "calculs/uniteAngulaire.h"
#include "services/nombreFixe.h"

int demiToursProches(const cheminement& c)
{
    // A twentieth of a half turn (10 gr): far more than any observation error, but for very long traverses.
    const double demiTour = tourComplet(c.unite) / 2.0;
    const double tolerance = std::max(1.0 / 20.0, ecartAngulaireAdmis(c.unite, c.cotes.size() + 1) / demiTour);
    const double demis = c.erreurAngulaire / demiTour;
    const double entiers = std::round(demis);
    // The bound also leaves out what is unknown or not finite.
    if (!(std::abs(entiers) < 1e6) || std::abs(demis - entiers) > tolerance)
        return 0;
    return static_cast<int>(entiers);
}

std::vector<observationPolygonale> observationsDuCheminement(const cheminement& c)
{
    std::vector<observationPolygonale> lignes;
    lignes.reserve(c.cotes.size());
    for (const cotePolygonale& cote : c.cotes)
        lignes.push_back(cote.observation);
    return lignes;
}

std::wstring saisi(double angle)
{
    constexpr int decimales = 8;
    std::string texte = nombreFixe(angle, decimales);
    texte.erase(texte.find_last_not_of('0') + 1);
    if (texte.ends_with('.'))
        texte.pop_back();
    return texte == "-0" ? L"0" : std::wstring(texte.begin(), texte.end());
}

std::wstring auLieuDe(double nouveau, double ancien)
{
    return saisi(nouveau) + L" au lieu de " + saisi(ancien);
}

std::wstring aLaLigne(std::size_t rang, bool dernierAngle)
{
    return dernierAngle ? L" comme dernier angle" : L" à la ligne " + std::to_wstring(rang + 1);
}

std::wstring complements(double angle)
{
    return L"saisissez " + saisi(angle) + L" moins chaque angle";
}

std::wstring cite(const std::wstring& texte)
{
    return L"« " + texte + L" »";
}

std::wstring constatAngulaire(int demiTours, int unite)
{
    const int n = std::abs(demiTours);
    std::wstring nombre;
    if (n == 0)
        return L"La polygonale ne se ferme pas : ";
    if (n == 1)
        nombre = L"un demi-tour";
    else if (n == 2)
        nombre = L"un tour entier";
    else if (n % 2 == 0)
        nombre = std::to_wstring(n / 2) + L" tours entiers";
    else
        nombre = n == 3 ? L"un tour et demi" : std::to_wstring(n / 2) + L" tours et demi";
    const wchar_t* const espace = unite == uniteDegres ? L"" : L" ";
    return L"L'erreur angulaire vaut " + nombre + L" (" + saisi(demiTours * tourComplet(unite) / 2.0) + espace +
           symboleUniteAngulaire(unite) + L") : ";
}

std::wstring angleRetourne(const std::wstring& station, std::size_t rang)
{
    return L"l'angle " +
           (station.empty() ? L"de la ligne " + std::to_wstring(rang + 1) : L"mesuré à la station " + cite(station)) +
           L" semble lu à un demi-tour près (cercle droite pour cercle gauche) ; saisissez ";
}

std::wstring direExplications(const std::vector<std::wstring>& explications)
{
    constexpr std::size_t dites = 4;
    if (explications.size() == 1)
        return explications.front() + L".";
    std::wstring texte = L"plusieurs explications se valent.";
    for (std::size_t i = 0; i < std::min(dites, explications.size()); ++i)
        texte += L" Soit " + explications[i] + L".";
    if (explications.size() > dites)
        texte += L" D'autres encore : " + std::to_wstring(explications.size() - dites) + L".";
    return texte;
}
