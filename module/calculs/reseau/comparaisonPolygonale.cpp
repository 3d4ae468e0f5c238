#include "calculs/reseau/comparaisonPolygonale.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "calculs/phrasesConseil.h"
#include "calculs/rapportPolygonale.h"
#include "calculs/reseau/compensation.h"
#include "calculs/reseau/rapportReseau.h"
#include "reports/htmlText.h"
#include "services/codages.h"
#include "services/formatNombres.h"

using namespace rapportPolygonale;

namespace {

constexpr int decimalesMetres = 4;
/// Across a bearing that is held an ellipse has no width, and nothing can be measured by it.
constexpr double ellipseLaPlusMince = 0.1 * milli;

double difference(double a, double b)
{
    return estConnue(a) && estConnue(b) && std::isfinite(a) ? a - b : inconnu;
}

stationComparee comparerStation(const stationCorrigee& s, const pointReseau& point, const pointCompense& p)
{
    stationComparee c;
    c.nom = s.nom;
    c.x = p.x;
    c.y = p.y;
    c.z = p.z;
    c.dx = difference(s.x, p.x);
    c.dy = difference(s.y, p.y);
    c.dz = difference(s.z, p.z);
    c.connue = point.plan == tenue::fixe;
    if (!p.planCherche)
        return c;
    c.ellipse = p.ellipse;
    const double determinant = p.sx * p.sx * p.sy * p.sy - p.cxy * p.cxy;
    if (c.ellipse.b > ellipseLaPlusMince && determinant > 0.0 && estConnue(c.dx) && estConnue(c.dy))
        c.norme = std::sqrt((c.dx * c.dx * p.sy * p.sy - 2.0 * c.dx * c.dy * p.cxy + c.dy * c.dy * p.sx * p.sx) /
                            determinant);
    return c;
}

void celluleMm(htmlTable& table, double metres)
{
    constexpr double zero = 0.05 * milli; // has no sign
    ajouterNombre(table, !estConnue(metres) ? inconnu : std::abs(metres) < zero ? 0.0 : metres / milli, 1);
}

void rapporterPoids(const comparaisonPolygonale& c, htmlDocument& document)
{
    ajouterParagraphe(
        document, L"Mêmes observations, avec les écarts-types " + formaterFixe(dmgrUsuels, 0) +
                      L" dmgr pour un angle ou un gisement, " + formaterFixe(millimetresUsuels, 0) + L" mm + " +
                      formaterFixe(millimetresParKmUsuels, 0) + L" mm/km pour une distance et " +
                      formaterFixe(deniveleeUsuelle, 0) +
                      L" mm par racine de km pour une dénivelée ; les stations connues sont tenues, et le gisement du "
                      L"premier côté d'une polygonale fermée.");
    ajouterParagraphe(document, phraseTestGlobal(c.r, c.resultat));
    for (const suspectReseau& s : c.resultat.suspects)
        ajouterParagraphe(document, phraseSuspect(c.r, s));
    for (const std::wstring& message : c.resultat.messages)
        ajouterParagraphe(document, message);
}

void rapporterStations(const comparaisonPolygonale& c, htmlDocument& document)
{
    ajouterTitre(document, L"Station par station");
    ajouterParagraphe(document, phraseComparaison(c));
    ajouterParagraphe(document,
                      L"Coordonnées par moindres carrés. Écart = polygonale - moindres carrés, en mm ; a, b et "
                      L"gisement (en grades) : l'ellipse d'erreur, probabilité 39 %, en mm ; écart normé : l'écart "
                      L"rapporté à l'ellipse dans sa direction, sur elle il vaut 1 (vide si elle est sans largeur).");
    htmlTable table =
        tableau({L"Station", L"X", L"Y", L"Z", L"dX", L"dY", L"dZ", L"Écart", L"a", L"b", L"Gisement", L"Écart normé"});
    for (const stationComparee& s : c.stations) {
        table.beginRow();
        table.addCell(nomHtml(s.nom), celluleNomGauche);
        for (const double valeur : {s.x, s.y, s.z})
            ajouterNombre(table, valeur, decimalesMetres);
        if (s.connue) {
            table.addCell("connue", "class=celnorm align=center colspan=8");
            continue;
        }
        for (const double valeur : {s.dx, s.dy, s.dz, s.ecart()})
            celluleMm(table, valeur);
        celluleMm(table, s.ellipse.a > 0.0 ? s.ellipse.a : inconnu);
        celluleMm(table, s.ellipse.a > 0.0 ? s.ellipse.b : inconnu);
        ajouterNombre(table, s.ellipse.a > 0.0 ? s.ellipse.gisement / gradeEnRadians : inconnu, 1);
        ajouterNombre(table, s.norme, 2);
    }
    document.append(table.render());
}

} // namespace

double stationComparee::ecart() const
{
    return estConnue(dx) && estConnue(dy) ? std::hypot(dx, dy) : inconnu;
}

comparaisonPolygonale comparer(const cheminement& resultat, polygonaleEnReseau observations)
{
    comparaisonPolygonale c;
    c.r = std::move(observations.r);
    c.resultat = compenser(c.r);
    const std::size_t nombreStations = std::min(resultat.stations.size(), observations.stations.size());
    for (std::size_t k = 0; k < nombreStations; ++k) {
        const auto place = static_cast<std::size_t>(observations.stations[k]);
        c.stations.push_back(comparerStation(resultat.stations[k], c.r.points[place], c.resultat.points[place]));
    }
    return c;
}

std::wstring phraseComparaison(const comparaisonPolygonale& c)
{
    const stationComparee* plusLoin = nullptr;
    for (const stationComparee& s : c.stations)
        if (!s.connue && estConnue(s.ecart()) && (!plusLoin || s.ecart() > plusLoin->ecart()))
            plusLoin = &s;
    std::wstring phrase = L"Moindres carrés : ";
    phrase += estConnue(c.resultat.s0) ? L"s0 = " + formaterFixe(c.resultat.s0, 2) : L"aucune redondance";
    if (!plusLoin)
        return phrase + L" ; aucune station à comparer.";
    return phrase + L" ; le plus grand écart à la polygonale est de " + formaterFixe(plusLoin->ecart() / milli, 1) +
           L" mm, à la station " + cite(plusLoin->nom) + L" (ellipse " + formaterFixe(plusLoin->ellipse.a / milli, 1) +
           L" × " + formaterFixe(plusLoin->ellipse.b / milli, 1) + L" mm).";
}

void rapporterComparaison(const comparaisonPolygonale& c, htmlDocument& document)
{
    document.addHeadLine(htmlHeadWindows1252);
    document.addHeadLine("<title>" + versAnsi(L"Polygonale et moindres carrés") + "</title>\n");
    declarerClassesRapport(document);
    document.append(htmlText(versAnsi(L"Comparaison de la polygonale et des moindres carrés"), "class=grand").render());
    rapporterPoids(c, document);
    rapporterStations(c, document);
    rapporterCroquis(c.r, c.resultat, document);
}
