#include "calculs/reseau/editionReseau.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <vector>

#include "calculs/lignesCollees.h"
#include "services/codages.h"
#include "services/lettres.h"
#include "services/reelDeTexte.h"

namespace {

using enum genreObservation;

constexpr genreObservation genres[] = {direction, angle,     gisement,    distance,    distanceInclinee,
                                       zenithal,  denivelee, coordonneeX, coordonneeY, coordonneeZ};

std::wstring court(double valeur)
{
    char tampon[64];
    const auto fin = std::to_chars(tampon, tampon + sizeof tampon, valeur, std::chars_format::fixed, 5).ptr;
    std::string texte(tampon, fin);
    texte.erase(texte.find_last_not_of('0') + 1);
    if (texte.back() == '.')
        texte.pop_back();
    return depuisAnsi(texte);
}

std::wstring nomDe(const reseau& r, int point)
{
    return point < 0 ? std::wstring() : r.points[static_cast<std::size_t>(point)].nom;
}

bool lire(std::wstring_view texte, double& valeur)
{
    bool entier = false;
    const double lu = reelDeTexte(texte, &entier);
    if (!entier || !std::isfinite(lu) || sansBlancs(texte, L" \t").empty())
        return false;
    valeur = lu;
    return true;
}

constexpr const wchar_t* nomManquant = L"il manque un nom.";

std::wstring pasUnGenre(std::wstring_view texte)
{
    return L"« " + std::wstring(texte) + L" » n'est pas un genre d'observation.";
}

double uniteEcart(const observationReseau& o)
{
    return estAngulaire(o.genre) ? dmgrEnRadians : milli;
}

/// The set that a new direction of a station joins: the last one there.
int serieDe(reseau& r, int station)
{
    for (std::size_t k = r.observations.size(); k-- > 0;)
        if (r.observations[k].genre == direction && r.observations[k].de == station && r.observations[k].serie >= 0)
            return r.observations[k].serie;
    return r.series++;
}

bool genreDe(std::wstring_view texte, genreObservation& genre)
{
    std::wstring mot = enMinuscules(std::wstring(sansBlancs(texte, L" \t")));
    for (wchar_t& c : mot)
        if (c == L'é' || c == L'è')
            c = L'e';
    for (const std::wstring_view devant : {L"distance ", L"angle "}) // as the table shows them
        if (mot.starts_with(devant))
            mot.erase(0, devant.size());
    auto trouve = std::ranges::find(genres, mot, motObservation); // "z" is not the beginning of "zenithal"
    if (trouve == std::end(genres))
        trouve = std::ranges::find_if(genres, [&](genreObservation g) {
            return !mot.empty() && std::wstring_view(motObservation(g)).starts_with(mot);
        });
    if (trouve == std::end(genres))
        return false;
    genre = *trouve;
    return true;
}

bool deCoordonnee(genreObservation g)
{
    return g == coordonneeX || g == coordonneeY || g == coordonneeZ;
}

/// What keeps an observation from being one.
std::wstring defaut(const observationReseau& o)
{
    if (o.de < 0 || (o.vers < 0 && !deCoordonnee(o.genre)) || (o.genre == angle && o.vers2 < 0))
        return L"il manque un point.";
    if (o.vers == o.de || o.vers2 == o.de || (o.genre == angle && o.vers == o.vers2))
        return L"un point ne se vise pas lui-même.";
    if ((o.genre == distance || o.genre == distanceInclinee) && !(o.mesure > 0.0))
        return L"une distance est positive.";
    return {};
}

std::wstring mesurer(const reseau& r, observationReseau& o, std::wstring_view texte)
{
    double v = 0.0;
    if (!lire(texte, v))
        return pasUnNombre(texte);
    if (o.genre == coordonneeX || o.genre == coordonneeY) { // typed in the file's axes, as they are shown
        const bool premiere = (o.genre == coordonneeX) == r.axes.premiereEstX();
        double x = 0.0, y = 0.0;
        r.axes.versTerrain(premiere ? v : 0.0, premiere ? 0.0 : v, x, y);
        o.mesure = o.genre == coordonneeX ? x : y;
    } else if (o.genre == zenithal) {
        o.mesure = v * gradeEnRadians;
    } else {
        o.mesure = estAngulaire(o.genre) ? r.axes.angle(v * gradeEnRadians) : v;
    }
    return {};
}

std::wstring peser(observationReseau& o, std::wstring_view texte)
{
    double v = 0.0;
    if (sansBlancs(texte, L" \t").empty()) {
        o.ecart = 0.0;
        return {};
    }
    if (!lire(texte, v) || !(v > 0.0))
        return L"un écart-type est un nombre positif, ou rien.";
    o.ecart = v * uniteEcart(o);
    return {};
}

std::wstring nomSaisi(std::wstring_view texte)
{
    return std::wstring(sansBlancs(texte, L" \t"));
}

/// The network as it would be; kept when the observation is one.
std::wstring essayer(reseau& r, int observation, const observationReseau& essai)
{
    const std::wstring faute = defaut(essai);
    if (faute.empty())
        r.observations[static_cast<std::size_t>(observation)] = essai;
    return faute;
}

bool tenueDe(std::wstring_view texte, tenue& t)
{
    const std::wstring mot = enMinuscules(nomSaisi(texte));
    for (const tenue candidate : {tenue::fixe, tenue::appui, tenue::libre, tenue::ignoree})
        if (mot == nomTenue(candidate)) {
            t = candidate;
            return true;
        }
    return false;
}

/// Takes back the points that a refused row has made.
void oublierPoints(reseau& r, std::size_t gardes)
{
    if (r.points.size() == gardes)
        return;
    r.points.resize(gardes);
    r.indexer();
}

/// Calls `prendre` with the cells of each row; it says why one is refused.
template <class Prendre>
std::wstring chaqueLigne(std::wstring_view texte, Prendre prendre)
{
    int numero = 0, prises = 0, refusees = 0;
    std::wstring premiere;
    while (!texte.empty()) {
        ++numero;
        const std::size_t fin = texte.find(L'\n');
        const std::wstring_view ligne = texte.substr(0, fin);
        texte.remove_prefix(fin == texte.npos ? texte.size() : fin + 1);
        const std::vector<std::wstring> cellules = cellulesCollees(ligne);
        if (std::ranges::all_of(cellules, &std::wstring::empty))
            continue;
        const std::wstring faute = prendre(cellules);
        if (faute.empty()) {
            ++prises;
        } else if (++refusees == 1) {
            premiere = L" Ligne " + std::to_wstring(numero) + L" : " + faute;
        }
    }
    std::wstring phrase = std::to_wstring(prises) + L" ligne(s) collée(s)";
    return refusees == 0 ? phrase + L"." : phrase + L", " + std::to_wstring(refusees) + L" laissée(s)." + premiere;
}

} // namespace

std::wstring texteObservation(const reseau& r, int observation, colonneObservation colonne)
{
    const observationReseau& o = r.observations[static_cast<std::size_t>(observation)];
    switch (colonne) {
    case colonneObservation::genre:
        return nomGenre(o.genre);
    case colonneObservation::station:
        return nomDe(r, o.de);
    case colonneObservation::vise:
        return nomDe(r, o.vers);
    case colonneObservation::secondVise:
        return nomDe(r, o.vers2);
    case colonneObservation::mesure:
        return court(mesureAffichee(r, o, o.mesure));
    case colonneObservation::ecart:
        return o.ecart > 0.0 ? court(o.ecart / uniteEcart(o)) : std::wstring();
    }
    return {};
}

std::wstring changerObservation(reseau& r, int observation, colonneObservation colonne, std::wstring_view texte)
{
    observationReseau o = r.observations[static_cast<std::size_t>(observation)];
    const std::size_t avant = r.points.size();
    std::wstring faute;
    switch (colonne) {
    case colonneObservation::genre: {
        const std::wstring mesure = texteObservation(r, observation, colonneObservation::mesure);
        const std::wstring ecart = texteObservation(r, observation, colonneObservation::ecart);
        if (!genreDe(texte, o.genre))
            return pasUnGenre(texte);
        faute = mesurer(r, o, mesure); // the figures typed stay, in the unit of the new kind
        if (faute.empty())
            faute = peser(o, ecart);
        o.vers2 = o.genre == angle ? o.vers2 : -1;
        o.serie = o.genre == direction ? serieDe(r, o.de) : -1;
        break;
    }
    case colonneObservation::station:
    case colonneObservation::vise:
    case colonneObservation::secondVise: {
        const std::wstring nom = nomSaisi(texte);
        if (nom.empty())
            return nomManquant;
        const bool station = colonne == colonneObservation::station;
        (station ? o.de : colonne == colonneObservation::vise ? o.vers : o.vers2) = r.point(nom);
        if (station && o.genre == direction)
            o.serie = serieDe(r, o.de);
        break;
    }
    case colonneObservation::mesure:
        faute = mesurer(r, o, texte);
        break;
    case colonneObservation::ecart:
        faute = peser(o, texte);
        break;
    }
    if (faute.empty())
        faute = essayer(r, observation, o);
    if (!faute.empty())
        oublierPoints(r, avant);
    return faute;
}

std::wstring textePoint(const reseau& r, int point, colonnePoint colonne)
{
    const pointReseau& p = r.points[static_cast<std::size_t>(point)];
    double a = inconnu, b = inconnu; // one may be known before the other
    r.axes.versFichier(estConnue(p.x) ? p.x : 0.0, estConnue(p.y) ? p.y : 0.0, a, b);
    if (!estConnue(p.x))
        (r.axes.premiereEstX() ? a : b) = inconnu;
    if (!estConnue(p.y))
        (r.axes.premiereEstX() ? b : a) = inconnu;
    const auto nombre = [](double v) { return estConnue(v) ? court(v) : std::wstring(); };
    switch (colonne) {
    case colonnePoint::nom:
        return p.nom;
    case colonnePoint::x:
        return nombre(a);
    case colonnePoint::y:
        return nombre(b);
    case colonnePoint::z:
        return nombre(p.z);
    case colonnePoint::plan:
        return nomTenue(p.plan);
    case colonnePoint::altitude:
        return nomTenue(p.altitude);
    }
    return {};
}

std::wstring changerPoint(reseau& r, int point, colonnePoint colonne, std::wstring_view texte)
{
    pointReseau& p = r.points[static_cast<std::size_t>(point)];
    if (colonne == colonnePoint::nom) {
        const std::wstring nom = nomSaisi(texte);
        if (nom.empty() || (nom != p.nom && r.chercher(nom) >= 0))
            return nom.empty() ? nomManquant : L"« " + nom + L" » est déjà un point.";
        p.nom = nom;
        r.indexer();
        return {};
    }
    if (colonne == colonnePoint::plan || colonne == colonnePoint::altitude)
        return tenueDe(texte, colonne == colonnePoint::plan ? p.plan : p.altitude)
                   ? std::wstring()
                   : std::wstring(L"« fixe », « appui », « libre » ou « - ».");
    double v = inconnu;
    if (!sansBlancs(texte, L" \t").empty() && !lire(texte, v))
        return pasUnNombre(texte);
    if (colonne == colonnePoint::z) {
        p.z = v;
        return {};
    }
    // Axes of a file lie along those of the ground, either way round: each coordinate is one of the point's.
    const bool premiere = colonne == colonnePoint::x, estX = premiere == r.axes.premiereEstX();
    double x = inconnu, y = inconnu;
    if (estConnue(v))
        r.axes.versTerrain(premiere ? v : 0.0, premiere ? 0.0 : v, x, y);
    (estX ? p.x : p.y) = estX ? x : y;
    return {};
}

std::wstring collerObservations(reseau& r, std::wstring_view texte)
{
    return chaqueLigne(texte, [&](const std::vector<std::wstring>& c) -> std::wstring {
        observationReseau o;
        if (!genreDe(c[0], o.genre))
            return pasUnGenre(c[0]);
        if (c.size() < 5)
            return L"il faut genre, station, visé, second visé, mesure.";
        std::wstring faute = mesurer(r, o, nombreColle(c[4]));
        if (faute.empty() && c.size() > 5)
            faute = peser(o, nombreColle(c[5]));
        if (!faute.empty())
            return faute;
        const std::size_t avant = r.points.size();
        const auto point = [&](const std::wstring& nom) { return nom.empty() ? -1 : r.point(nom); };
        o.de = point(c[1]);
        o.vers = deCoordonnee(o.genre) ? -1 : point(c[2]);
        o.vers2 = o.genre == angle ? point(c[3]) : -1;
        faute = defaut(o);
        if (!faute.empty()) {
            oublierPoints(r, avant);
            return faute;
        }
        o.serie = o.genre == direction ? serieDe(r, o.de) : -1;
        r.observations.push_back(o);
        return {};
    });
}

std::wstring collerPoints(reseau& r, std::wstring_view texte)
{
    return chaqueLigne(texte, [&](const std::vector<std::wstring>& c) -> std::wstring {
        if (c[0].empty())
            return nomManquant;
        const int deja = r.chercher(c[0]);
        pointReseau lu = deja < 0 ? pointReseau() : r.points[static_cast<std::size_t>(deja)];
        lu.nom = c[0];
        double valeurs[3] = {inconnu, inconnu, inconnu};
        for (std::size_t i = 0; i < 3 && i + 1 < c.size(); ++i)
            if (!c[i + 1].empty() && !lire(nombreColle(c[i + 1]), valeurs[i]))
                return pasUnNombre(c[i + 1]);
        if (estConnue(valeurs[0]) && estConnue(valeurs[1]))
            r.axes.versTerrain(valeurs[0], valeurs[1], lu.x, lu.y);
        if (estConnue(valeurs[0]) != estConnue(valeurs[1]))
            return L"il faut X et Y, ou aucun des deux.";
        if (estConnue(valeurs[2]))
            lu.z = valeurs[2];
        if (c.size() > 4 && !c[4].empty()) {
            if (!tenueDe(c[4], lu.plan))
                return L"« " + c[4] + L" » n'est ni « fixe », ni « appui », ni « libre ».";
            lu.altitude = estConnue(lu.z) ? lu.plan : tenue::libre;
        }
        r.points[static_cast<std::size_t>(r.point(lu.nom))] = lu;
        return {};
    });
}

void retirerObservation(reseau& r, int observation)
{
    r.observations.erase(r.observations.begin() + observation);
    // What is correlated with it stands one place lower; its own rows go.
    std::erase_if(r.covariances, [&](blocCovariance& b) {
        bool touche = false;
        for (int& k : b.observations) {
            touche |= k == observation;
            k -= k > observation ? 1 : 0;
        }
        return touche;
    });
}

std::wstring retirerPoint(reseau& r, int point)
{
    const bool vise = std::ranges::any_of(r.observations, [point](const observationReseau& o) {
        return o.de == point || o.vers == point || o.vers2 == point;
    });
    if (vise)
        return L"« " + nomDe(r, point) + L" » a des observations : enlevez-les d'abord.";
    r.points.erase(r.points.begin() + point);
    for (observationReseau& o : r.observations)
        for (int* const p : {&o.de, &o.vers, &o.vers2})
            *p -= *p > point ? 1 : 0;
    r.indexer();
    return {};
}
