#include "calculs/reseau/motsGkf.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>

#include "services/lettres.h"

std::string_view rogner(std::string_view texte)
{
    return sansBlancs(texte, " \t\r\n");
}

std::optional<double> reelXml(std::string_view texte)
{
    texte = rogner(texte);
    if (texte.starts_with('+'))
        texte.remove_prefix(1);
    double valeur = 0.0;
    const auto [fin, faute] = std::from_chars(texte.data(), texte.data() + texte.size(), valeur);
    if (faute != std::errc() || fin != texte.data() + texte.size() || !std::isfinite(valeur))
        return std::nullopt;
    return valeur;
}

std::optional<double> degresDeTexte(std::string_view texte)
{
    texte = rogner(texte);
    const bool negatif = texte.starts_with('-');
    if (negatif)
        texte.remove_prefix(1);
    const std::size_t a = texte.find('-'), b = a == texte.npos ? a : texte.find('-', a + 1);
    if (b == texte.npos)
        return std::nullopt;
    const auto d = reelXml(texte.substr(0, a)), m = reelXml(texte.substr(a + 1, b - a - 1)),
               s = reelXml(texte.substr(b + 1));
    if (!d || !m || !s || *d < 0.0 || *m < 0.0 || *m >= 60.0 || *s < 0.0 || *s >= 60.0)
        return std::nullopt;
    const double degres = *d + *m / 60.0 + *s / 3600.0;
    return negatif ? -degres : degres;
}

std::optional<std::vector<double>> reelsXml(std::string_view texte)
{
    std::vector<double> nombres;
    for (;;) {
        texte = rogner(texte);
        if (texte.empty())
            return nombres;
        const std::size_t fin = std::min(texte.find_first_of(" \t\r\n"), texte.size());
        const auto v = reelXml(texte.substr(0, fin));
        if (!v)
            return std::nullopt;
        nombres.push_back(*v);
        texte.remove_prefix(fin);
    }
}

const axesFichier* axesNommes(std::string_view nom)
{
    struct systeme {
        std::string_view nom;
        axesFichier axes;
    };
    static constexpr systeme systemes[] = {
        {"ne", {0, 1, 1, 0}}, {"sw", {0, -1, -1, 0}}, {"es", {1, 0, 0, -1}}, {"wn", {-1, 0, 0, 1}},
        {"en", {1, 0, 0, 1}}, {"nw", {0, -1, 1, 0}},  {"se", {0, 1, -1, 0}}, {"ws", {-1, 0, 0, -1}},
    };
    const auto* const connu = std::ranges::find(systemes, nom, &systeme::nom);
    return connu == std::end(systemes) ? nullptr : &connu->axes;
}

const std::vector<std::string_view>* attributsConnus(std::string_view element)
{
    static const std::map<std::string_view, std::vector<std::string_view>> elements{
        {"gama-local", {"xmlns", "version", "xmlns:xsi", "xsi:schemaLocation"}},
        {"gama-xml", {"version"}},
        {"network", {"axes-xy", "angles", "epoch"}},
        {"parameters",
         {"sigma-apr", "conf-pr", "tol-abs", "sigma-act", "update-constrained-coordinates", "algorithm", "language",
          "encoding", "angles", "angular", "latitude", "ellipsoid", "cov-band", "iterations"}},
        {"points-observations",
         {"direction-stdev", "angle-stdev", "zenith-angle-stdev", "azimuth-stdev", "distance-stdev"}},
        {"description", {}},
        {"point", {"id", "x", "y", "z", "fix", "adj"}},
        {"obs", {"from", "orientation", "from_dh"}},
        {"height-differences", {}},
        {"coordinates", {}},
        {"vectors", {}},
        {"cov-mat", {"dim", "band"}},
        {"direction", {"from", "to", "val", "stdev", "from_dh", "to_dh", "extern"}},
        {"distance", {"from", "to", "val", "stdev", "from_dh", "to_dh", "extern"}},
        {"angle", {"from", "bs", "fs", "val", "stdev", "from_dh", "bs_dh", "fs_dh", "extern"}},
        {"s-distance", {"from", "to", "val", "stdev", "from_dh", "to_dh", "extern"}},
        {"z-angle", {"from", "to", "val", "stdev", "from_dh", "to_dh", "extern"}},
        {"azimuth", {"from", "to", "val", "stdev", "from_dh", "to_dh", "extern"}},
        {"dh", {"from", "to", "val", "stdev", "dist", "from_dh", "to_dh", "extern"}},
        {"vec", {"from", "to", "dx", "dy", "dz", "from_dh", "to_dh", "extern"}},
    };
    const auto connu = elements.find(element);
    return connu == elements.end() ? nullptr : &connu->second;
}

bool lireBande(std::string_view texte, std::size_t bande, const std::vector<double>& unites,
               std::vector<double>& matrice)
{
    const auto nombres = reelsXml(texte);
    const std::size_t n = unites.size();
    std::size_t attendus = 0;
    for (std::size_t i = 0; i < n; ++i)
        attendus += std::min(bande, n - 1 - i) + 1;
    if (!nombres || nombres->size() != attendus)
        return false;
    matrice.assign(n * n, 0.0);
    std::size_t suivant = 0;
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t j = i; j <= std::min(i + bande, n - 1); ++j)
            matrice[i * n + j] = matrice[j * n + i] = (*nombres)[suivant++] * unites[i] * unites[j];
    return true;
}
