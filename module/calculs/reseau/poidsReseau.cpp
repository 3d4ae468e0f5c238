#include "calculs/reseau/poidsReseau.h"

#include <cmath>

#include "calculs/formules/formule.h"
#include "services/codages.h"

namespace {

double longueur(const coordonneesReseau& c, int a, int b)
{
    if (a < 0 || b < 0)
        return 0.0;
    const auto i = static_cast<std::size_t>(a), j = static_cast<std::size_t>(b);
    return std::hypot(c.x[j] - c.x[i], c.y[j] - c.y[i]);
}

double ecartParDefaut(const reseau& r, const observationReseau& o, double metres)
{
    using enum genreObservation;
    const precisionsParDefaut& p = r.precisions;
    switch (o.genre) {
    case direction:
        return p.direction;
    case angle:
        return p.angle;
    case gisement:
        return p.gisement;
    case zenithal:
        return p.zenithal;
    case distance:
    case distanceInclinee:
        return p.distance + p.distanceKm * std::pow(metres / 1000.0, p.distanceExposant);
    case denivelee:
        return o.longueur > 0.0 ? p.denivelee * std::sqrt(o.longueur) : p.denivelee;
    default:
        return 0.0;
    }
}

/// A formula parsed once for all observations of its kind.
struct formuleLue {
    formule f;
    bool presente = false;
};

} // namespace

tableVariables variablesDe(const valeursFormule& v, const tableVariables& utilisateur)
{
    tableVariables table;
    for (const auto& [nom, valeur] :
         {std::pair{"distance", v.d1}, std::pair{"d1", v.d1}, std::pair{"d2", v.d2}, std::pair{"d3", v.d3},
          std::pair{"angle", v.angle}, std::pair{"gisement", v.gisement}})
        table.definir({nom, valeur, {}});
    for (const variableFormule& autre : utilisateur.variables())
        table.definir(autre);
    return table;
}

valeursFormule valeursDe(const reseau& r, const observationReseau& o, const coordonneesReseau& c)
{
    valeursFormule v;
    v.d1 = o.genre == genreObservation::distance || o.genre == genreObservation::distanceInclinee
               ? o.mesure
               : longueur(c, o.de, o.vers);
    v.d2 = o.vers2 >= 0 ? longueur(c, o.de, o.vers2) : v.d1;
    v.d3 = o.vers2 >= 0 ? longueur(c, o.vers, o.vers2) : v.d1;
    const bool tourne = estAngulaire(o.genre) && o.genre != genreObservation::gisement;
    v.angle = tourne ? mesureAffichee(r, o, o.mesure) : 0.0;
    if (o.vers >= 0) {
        const auto a = static_cast<std::size_t>(o.de), b = static_cast<std::size_t>(o.vers);
        v.gisement = gisementDe(c.x[b] - c.x[a], c.y[b] - c.y[a]) / gradeEnRadians;
    }
    return v;
}

const std::string* formuleDe(const reseau& r, genreObservation genre)
{
    using enum genreObservation;
    const std::string* f = nullptr;
    if (genre == direction || genre == angle || genre == zenithal)
        f = &r.formules.angles;
    else if (genre == gisement)
        f = &r.formules.gisements;
    else if (genre == distance || genre == distanceInclinee)
        f = &r.formules.distances;
    return f && !f->empty() ? f : nullptr;
}

std::wstring defautDeFormule(const std::string& formule, const tableVariables& utilisateur)
{
    class formule lue;
    if (!lue.analyser(formule))
        return L"formule « " + depuisAnsi(formule) + L" » qui ne se comprend pas : les écarts-types sont gardés.";
    const tableVariables connues = variablesDe({}, utilisateur);
    for (const noeudFormule& n : lue.noeuds())
        if ((n.genre == genreNoeud::variable || n.genre == genreNoeud::variableOpposee) && connues.indice(n.nom) < 0)
            return L"formule « " + depuisAnsi(formule) + L" » : la variable « " + depuisAnsi(n.nom) +
                   L" » n'est pas définie et vaut 0.";
    return {};
}

std::vector<double> ecartsDesObservations(const reseau& r, const coordonneesReseau& c)
{
    formuleLue lues[3];
    const std::string* textes[] = {&r.formules.angles, &r.formules.gisements, &r.formules.distances};
    for (int i = 0; i < 3; ++i)
        lues[i].presente = !textes[i]->empty() && lues[i].f.analyser(*textes[i]);
    std::vector<double> ecarts(r.observations.size(), 0.0);
    for (std::size_t k = 0; k < ecarts.size(); ++k) {
        const observationReseau& o = r.observations[k];
        const std::string* const texte = formuleDe(r, o.genre);
        const formuleLue* lue = nullptr;
        for (int i = 0; i < 3; ++i)
            if (texte == textes[i] && lues[i].presente)
                lue = &lues[i];
        if (lue) {
            const double poids = lue->f.evaluer(variablesDe(valeursDe(r, o, c), r.formules.variables));
            const double unite = estAngulaire(o.genre) ? dmgrEnRadians : milli;
            ecarts[k] = poids > 0.0 && std::isfinite(poids) ? r.sigma / std::sqrt(poids) * unite : 0.0;
        } else {
            const double metres = estAngulaire(o.genre) ? 0.0 : o.mesure;
            ecarts[k] = o.ecart > 0.0 ? o.ecart : ecartParDefaut(r, o, metres);
        }
    }
    return ecarts;
}
