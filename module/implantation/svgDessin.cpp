#include "implantation/svgDessin.h"

#include <numbers>

#include "reports/htmlText.h"
#include "services/codages.h"
#include "services/nombreFixe.h"

namespace {

/// On white paper: what is white on a screen is black here, and bright colours are darkened to be seen.
const char* teinte(int couleur)
{
    switch (couleur) {
    case 1:
        return "#d00000";
    case 2:
        return "#a08000";
    case 3:
        return "#008000";
    case 4:
        return "#0080a0";
    case 5:
        return "#0000d0";
    case 6:
        return "#a000a0";
    case 7:
    case 0:
    case 256:
        return "#000000";
    case 34:
        return "#804000";
    default:
        return "#606060";
    }
}

constexpr double plusHautesLettres = 24.0; // pixels

std::string pixels(double valeur)
{
    return nombreFixe(valeur, 2);
}

} // namespace

std::string svgDe(const dessinPlan& dessin, int cote)
{
    boite b = dessin.etendue();
    if (b.vide())
        return {};
    b = b.elargie(0.03 * std::max({b.xMax - b.xMin, b.yMax - b.yMin, 1e-6}));
    double echelle = cote / std::max(b.xMax - b.xMin, b.yMax - b.yMin);
    for (const auto& t : dessin.textes) // a picture of little else is no poster
        echelle = std::min(echelle, plusHautesLettres / t.hauteur);
    const auto x = [&](point2 p) { return pixels((p.x - b.xMin) * echelle); };
    const auto y = [&](point2 p) { return pixels((b.yMax - p.y) * echelle); };
    std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + pixels((b.xMax - b.xMin) * echelle) +
                      "\" height=\"" + pixels((b.yMax - b.yMin) * echelle) + "\" font-family=\"Arial\">\n";
    const auto ligne = [&](point2 de, point2 vers, int couleur) {
        svg += "<line x1=\"" + x(de) + "\" y1=\"" + y(de) + "\" x2=\"" + x(vers) + "\" y2=\"" + y(vers) +
               "\" stroke=\"" + teinte(couleur) + "\"/>\n";
    };
    for (const auto& c : dessin.croix) {
        const point2 bras{c.taille / 2.0, 0.0};
        ligne(c.centre - bras, c.centre + bras, c.couleur);
        ligne(c.centre - droiteDe(bras), c.centre + droiteDe(bras), c.couleur);
    }
    for (const auto& t : dessin.traits)
        ligne(t.de, t.vers, t.couleur);
    for (const auto& t : dessin.triangles)
        svg += "<polygon points=\"" + x(t.coins[0]) + "," + y(t.coins[0]) + " " + x(t.coins[1]) + "," + y(t.coins[1]) +
               " " + x(t.coins[2]) + "," + y(t.coins[2]) + "\" fill=\"" + teinte(t.couleur) + "\"/>\n";
    for (const auto& t : dessin.textes) {
        svg += "<text x=\"" + x(t.place) + "\" y=\"" + y(t.place) + "\" font-size=\"" + pixels(t.hauteur * echelle) +
               "\" fill=\"" + teinte(t.couleur) + "\" stroke=\"#ffffff\" stroke-width=\"3\" paint-order=\"stroke\"";
        if (t.ancre != dessinPlan::calage::debut)
            svg += t.ancre == dessinPlan::calage::milieu ? " text-anchor=\"middle\"" : " text-anchor=\"end\"";
        if (t.angle != 0.0)
            svg += " transform=\"rotate(" + pixels(-t.angle * 180.0 / std::numbers::pi) + " " + x(t.place) + " " +
                   y(t.place) + ")\"";
        svg += ">" + htmlEscaped(versAnsi(t.contenu)) + "</text>\n";
    }
    return svg + "</svg>\n";
}
