#include "calculs/reseau/reseau.h"

#include <algorithm>
#include <cmath>
#include <iterator>

bool estAngulaire(genreObservation genre)
{
    using enum genreObservation;
    return genre == direction || genre == angle || genre == gisement || genre == zenithal;
}

bool estAltimetrique(genreObservation genre)
{
    using enum genreObservation;
    return genre == distanceInclinee || genre == zenithal || genre == denivelee || genre == coordonneeZ;
}

bool estPlanimetrique(genreObservation genre)
{
    return genre != genreObservation::denivelee && genre != genreObservation::coordonneeZ;
}

namespace {

constexpr const wchar_t* motsObservations[] = {L"direction", L"angle",     L"gisement", L"distance", L"inclinee",
                                               L"zenithal",  L"denivelee", L"x",        L"y",        L"z"};
constexpr const wchar_t* motsTenues[] = {L"ignore", L"libre", L"appui", L"fixe"};

/// The value whose word stands at the same place of a table.
template <class Valeur, std::size_t N>
std::optional<Valeur> valeurDuMot(const wchar_t* const (&mots)[N], std::wstring_view mot)
{
    const auto trouve = std::ranges::find(mots, mot);
    if (trouve == std::end(mots))
        return std::nullopt;
    return static_cast<Valeur>(trouve - std::begin(mots));
}

} // namespace

const wchar_t* motObservation(genreObservation genre)
{
    return motsObservations[static_cast<int>(genre)];
}

std::optional<genreObservation> genreDuMot(std::wstring_view mot)
{
    return valeurDuMot<genreObservation>(motsObservations, mot);
}

const wchar_t* motTenue(tenue t)
{
    return motsTenues[static_cast<int>(t)];
}

const wchar_t* nomTenue(tenue t)
{
    return t == tenue::ignoree ? L"-" : motTenue(t);
}

std::optional<tenue> tenueDuMot(std::wstring_view mot)
{
    return valeurDuMot<tenue>(motsTenues, mot);
}

const wchar_t* nomGenre(genreObservation genre)
{
    constexpr const wchar_t* noms[] = {L"direction",      L"angle",     L"gisement", L"distance", L"distance inclinée",
                                       L"angle zénithal", L"dénivelée", L"X",        L"Y",        L"Z"};
    return noms[static_cast<int>(genre)];
}

void axesFichier::versTerrain(double premiere, double seconde, double& x, double& y) const
{
    x = estX * premiere + estY * seconde;
    y = nordX * premiere + nordY * seconde;
}

void axesFichier::versFichier(double x, double y, double& premiere, double& seconde) const
{
    // Their matrix is orthogonal.
    premiere = estX * x + nordX * y;
    seconde = estY * x + nordY * y;
}

int reseau::point(const std::wstring& nom)
{
    const auto [place, neuf] = m_index.emplace(nom, static_cast<int>(points.size()));
    if (neuf)
        points.emplace_back().nom = nom;
    return place->second;
}

int reseau::chercher(const std::wstring& nom) const
{
    const auto place = m_index.find(nom);
    return place == m_index.end() ? -1 : place->second;
}

void reseau::indexer()
{
    m_index.clear();
    for (std::size_t i = 0; i < points.size(); ++i)
        m_index.emplace(points[i].nom, static_cast<int>(i));
}

double ecartAngulaire(double angle)
{
    return std::remainder(angle, 2.0 * pi);
}

double angleReduit(double angle)
{
    const double a = std::fmod(angle, 2.0 * pi);
    return a < 0.0 ? a + 2.0 * pi : a;
}

double gisementDe(double dx, double dy)
{
    return angleReduit(std::atan2(dx, dy));
}

double mesureAffichee(const reseau& r, const observationReseau& o, double valeur)
{
    using enum genreObservation;
    if (o.genre == zenithal)
        return valeur / gradeEnRadians;
    if (estAngulaire(o.genre)) {
        const double grades = angleReduit(r.axes.angle(valeur)) / gradeEnRadians;
        return grades >= 400.0 - 1e-9 ? 0.0 : grades; // a hair below a full turn reads as 0
    }
    if (o.genre == coordonneeX || o.genre == coordonneeY) {
        const bool premiere = (o.genre == coordonneeX) == r.axes.premiereEstX();
        double a = 0.0, b = 0.0;
        r.axes.versFichier(o.genre == coordonneeX ? valeur : 0.0, o.genre == coordonneeY ? valeur : 0.0, a, b);
        return premiere ? a : b;
    }
    return valeur;
}

std::wstring nomObservation(const reseau& r, const observationReseau& o)
{
    const auto nom = [&](int p) { return p < 0 ? std::wstring(L"?") : r.points[static_cast<std::size_t>(p)].nom; };
    std::wstring texte = nomGenre(o.genre);
    texte += L" " + nom(o.de);
    if (o.genre == genreObservation::angle)
        texte += L" : " + nom(o.vers) + L", " + nom(o.vers2);
    else if (o.vers >= 0)
        texte += L" - " + nom(o.vers);
    return texte;
}
