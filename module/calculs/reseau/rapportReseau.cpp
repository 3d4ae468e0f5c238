#include "calculs/reseau/rapportReseau.h"

#include <cmath>

#include "calculs/rapportPolygonale.h"
#include "calculs/reseau/figurePlane.h"
#include "reports/htmlText.h"
#include "services/codages.h"
#include "services/formatNombres.h"
#include "services/nombreFixe.h"

using namespace rapportPolygonale;

namespace {

constexpr int largeurCroquis = 640;
constexpr int decimalesAngle = 5, decimalesMetres = 4;

void celluleMm(htmlTable& table, double metres)
{
    ajouterNombre(table, estConnue(metres) ? metres / milli : inconnu, 1);
}

std::string nomDe(const reseau& r, int point)
{
    return point < 0 ? celluleVide : nomHtml(r.points[static_cast<std::size_t>(point)].nom);
}

/// Coordinates in the file's axes.
void cellulesPlan(const reseau& r, htmlTable& table, double x, double y)
{
    double a = inconnu, b = inconnu;
    if (estConnue(x) && estConnue(y))
        r.axes.versFichier(x, y, a, b);
    ajouterNombre(table, a, decimalesMetres);
    ajouterNombre(table, b, decimalesMetres);
}

/// The first cells of an observation's row: kind, station, points sighted.
void ouvrirObservation(const reseau& r, const observationReseau& o, htmlTable& table)
{
    table.beginRow();
    table.addCell(versAnsi(nomGenre(o.genre)), celluleNomGauche);
    for (const int point : {o.de, o.vers, o.vers2})
        table.addCell(nomDe(r, point), celluleNomCentre);
}

int decimalesDe(const observationReseau& o)
{
    return estAngulaire(o.genre) ? decimalesAngle : decimalesMetres;
}

void rapporterDonnees(const reseau& r, const resultatReseau& resultat, htmlDocument& document)
{
    document.append(htmlText(versAnsi(L"Compensation de réseau par moindres carrés"), "class=grand").render());
    if (!r.titre.empty())
        ajouterParagraphe(document, r.titre);
    ajouterTitre(document, L"Données");
    ajouterParagraphe(document, L"Écart-type de l'unité de poids : " + formaterFixe(r.sigma, 3) +
                                    L" ; confiance des tests : " + formaterFixe(100.0 * r.confiance, 1) +
                                    L" % ; estimation : " + nomEstimateur(resultat.methode) +
                                    (resultat.libre ? L" ; réseau libre, placé sur ses points d'appui" : L"") + L".");
    for (const auto& [mot, formule] :
         {std::pair{L"angles", &r.formules.angles}, std::pair{L"gisements", &r.formules.gisements},
          std::pair{L"distances", &r.formules.distances}})
        if (!formule->empty())
            ajouterParagraphe(document, std::wstring(L"Poids des ") + mot + L" : " + depuisAnsi(*formule));
    htmlTable table = tableau({L"Point", L"X", L"Y", L"Z", L"En plan", L"En altitude"});
    for (const pointReseau& p : r.points) {
        table.beginRow();
        table.addCell(nomHtml(p.nom), celluleNomGauche);
        cellulesPlan(r, table, p.x, p.y);
        ajouterNombre(table, p.z, decimalesMetres);
        table.addCell(versAnsi(nomTenue(p.plan)), celluleNomCentre);
        table.addCell(versAnsi(nomTenue(p.altitude)), celluleNomCentre);
    }
    document.append(table.render());
}

void rapporterObservations(const reseau& r, const resultatReseau& resultat, htmlDocument& document)
{
    ajouterTitre(document, L"Observations et poids");
    ajouterParagraphe(document, L"Angles en grades, longueurs en mètres ; écarts-types en dmgr et en mm.");
    const bool robuste = resultat.methode != estimateur::moindresCarres;
    htmlTable table = tableau({L"Genre", L"Station", L"Visé", L"2e visé", L"Mesure", L"Écart-type", L"Poids"});
    if (robuste)
        ajouterEnTete(table, L"Facteur");
    for (std::size_t k = 0; k < r.observations.size(); ++k) {
        const observationReseau& o = r.observations[k];
        const observationCompensee& m = resultat.mesures[k];
        ouvrirObservation(r, o, table);
        ajouterNombre(table, mesureAffichee(r, o, o.mesure), decimalesDe(o));
        if (!m.retenue) {
            table.addCell(htmlEscaped(versAnsi(L"hors calcul : " + m.raison)),
                          robuste ? "class=celnorm colspan=3" : "class=celnorm colspan=2");
            continue;
        }
        ajouterNombre(table, m.ecart / (estAngulaire(o.genre) ? dmgrEnRadians : milli), 2);
        ajouterNombre(table, m.poids, 5);
        if (robuste)
            ajouterNombre(table, m.facteurRobuste, 3);
    }
    document.append(table.render());
}

void rapporterQualite(const reseau& r, const resultatReseau& resultat, htmlDocument& document)
{
    ajouterTitre(document, L"Qualité d'ensemble");
    ajouterParagraphe(document,
                      std::to_wstring(resultat.observations) + L" observations, " +
                          std::to_wstring(resultat.inconnues) + L" inconnues" +
                          (resultat.defaut > 0 ? L" (défaut de rang " + std::to_wstring(resultat.defaut) + L")" : L"") +
                          L", " + std::to_wstring(resultat.degresDeLiberte) + L" degrés de liberté, " +
                          std::to_wstring(resultat.iterations) + L" itérations.");
    ajouterParagraphe(document, phraseTestGlobal(r, resultat));
    for (const std::wstring& message : resultat.messages)
        ajouterParagraphe(document, message);
}

void rapporterSuspects(const reseau& r, const resultatReseau& resultat, htmlDocument& document)
{
    ajouterTitre(document, L"Observations suspectes");
    if (estConnue(resultat.s0) && resultat.s0 < resultat.s0Bas)
        return ajouterParagraphe(document,
                                 L"L'ensemble s'accorde mieux qu'annoncé : aucune observation n'est suspectée.");
    if (resultat.suspects.empty())
        return ajouterParagraphe(document, L"Aucune observation ne se distingue des autres.");
    ajouterParagraphe(document,
                      L"Chacune est jugée sans celles qui la précèdent, de la plus probable à la moins probable.");
    for (const suspectReseau& s : resultat.suspects)
        ajouterParagraphe(document, phraseSuspect(r, s));
}

void rapporterPoints(const reseau& r, const resultatReseau& resultat, htmlDocument& document)
{
    ajouterTitre(document, L"Coordonnées compensées");
    ajouterParagraphe(document,
                      std::wstring(L"Écarts-types et demi-axes des ellipses (probabilité 39 %) en mm, ") +
                          (estConnue(resultat.s0) && !r.ecartsAPriori ? L"d'après s0" : L"d'après ce qui est annoncé") +
                          L" ; gisements en grades.");
    htmlTable table =
        tableau({L"Point", L"X", L"Y", L"Z", L"sX", L"sY", L"sZ", L"a", L"b", L"Gisement", L"dX", L"dY", L"dZ"});
    for (std::size_t i = 0; i < r.points.size(); ++i) {
        const pointCompense& p = resultat.points[i];
        table.beginRow();
        table.addCell(nomHtml(r.points[i].nom), celluleNomGauche);
        cellulesPlan(r, table, p.x, p.y);
        ajouterNombre(table, p.z, decimalesMetres);
        celluleMm(table, r.axes.premiereEstX() ? p.sx : p.sy);
        celluleMm(table, r.axes.premiereEstX() ? p.sy : p.sx);
        celluleMm(table, p.sz);
        celluleMm(table, p.planCherche ? p.ellipse.a : inconnu);
        celluleMm(table, p.planCherche ? p.ellipse.b : inconnu);
        ajouterNombre(table, p.planCherche ? p.ellipse.gisement / gradeEnRadians : inconnu, 1);
        const bool deplace = p.planCherche && r.points[i].enPlan();
        cellulesPlan(r, table, deplace ? p.x - r.points[i].x : inconnu, deplace ? p.y - r.points[i].y : inconnu);
        ajouterNombre(table, p.altitudeCherchee && estConnue(r.points[i].z) ? p.z - r.points[i].z : inconnu,
                      decimalesMetres);
    }
    document.append(table.render());
}

void rapporterResidus(const reseau& r, const resultatReseau& resultat, htmlDocument& document)
{
    ajouterTitre(document, L"Observations compensées");
    ajouterParagraphe(
        document,
        L"Résidu = compensée - mesure, en dmgr et en mm ; redondance : part contrôlée par les autres observations ; "
        L"erreur détectable avec une chance de 80 % au risque de 0,1 % ; effet : déplacement des points de "
        L"l'observation par une telle erreur, en mm.");
    htmlTable table = tableau({L"Genre", L"Station", L"Visé", L"2e visé", L"Compensée", L"Résidu", L"Redondance",
                               L"Résidu normé", L"Erreur détectable", L"Effet", L"s0 sans elle"});
    for (std::size_t k = 0; k < r.observations.size(); ++k) {
        const observationReseau& o = r.observations[k];
        const observationCompensee& m = resultat.mesures[k];
        if (!m.retenue)
            continue;
        const double unite = estAngulaire(o.genre) ? gradeEnRadians / dmgrEnRadians : 1.0 / milli;
        ouvrirObservation(r, o, table);
        ajouterNombre(table, mesureAffichee(r, o, m.compensee), decimalesDe(o));
        ajouterNombre(table, residuAffiche(r, o, m.residu) * unite, 1);
        ajouterNombre(table, m.redondance, 2);
        table.addCell(estConnue(m.normalise) ? nombreFixe(m.normalise, 2) : std::string(celluleVide),
                      m.suspecte ? celluleEnTete : celluleNombre);
        ajouterNombre(table,
                      estConnue(m.erreurDetectable)
                          ? m.erreurDetectable / (estAngulaire(o.genre) ? dmgrEnRadians : milli)
                          : inconnu,
                      1);
        celluleMm(table, m.effet);
        ajouterNombre(table, m.s0Sans, 3);
    }
    document.append(table.render());
}

} // namespace

void rapporterCroquis(const reseau& r, const resultatReseau& resultat, htmlDocument& document)
{
    const figurePlane figure = figureDe(r, resultat);
    const std::string svg = svgDe(figure, largeurCroquis);
    if (svg.empty())
        return;
    ajouterTitre(document, L"Croquis");
    ajouterParagraphe(document, L"Nord en haut ; triangles : points connus ; ellipses agrandies " +
                                    formaterFixe(figure.echelle, 0) + L" fois ; en rouge, les observations suspectes.");
    document.append("<div>" + svg + "</div>\n");
}

double residuAffiche(const reseau& r, const observationReseau& o, double residu)
{
    if (estAngulaire(o.genre))
        return (o.genre == genreObservation::zenithal ? residu : r.axes.angle(residu)) / gradeEnRadians;
    return mesureAffichee(r, o, residu);
}

std::wstring phraseTestGlobal(const reseau& r, const resultatReseau& resultat)
{
    if (!estConnue(resultat.s0))
        return L"s0 n'est pas défini : aucune redondance.";
    std::wstring phrase = L"s0 = " + formaterFixe(resultat.s0, 4) + L", annoncé " + formaterFixe(r.sigma, 4) + L" : ";
    phrase += resultat.horsTolerance ? L"refusé, hors de " : L"admis, entre ";
    phrase += formaterFixe(resultat.s0Bas, 4) + L" et " + formaterFixe(resultat.s0Haut, 4) + L".";
    if (resultat.horsTolerance)
        phrase +=
            resultat.s0 > resultat.s0Haut
                ? L" Les observations s'accordent moins bien qu'annoncé : une faute, ou des écarts-types trop petits."
                : L" Les observations s'accordent mieux qu'annoncé : les écarts-types sont trop grands.";
    return phrase;
}

std::wstring phraseSuspect(const reseau& r, const suspectReseau& s)
{
    const observationReseau& o = r.observations[static_cast<std::size_t>(s.observation)];
    const bool angulaire = estAngulaire(o.genre);
    std::wstring phrase = nomObservation(r, o) + (o.ligne > 0 ? L" (ligne " + std::to_wstring(o.ligne) + L")" : L"") +
                          L" : faute probable de " + formaterFixe(residuAffiche(r, o, s.faute), angulaire ? 4 : 3) +
                          (angulaire ? L" gr" : L" m") +
                          (estConnue(s.s0Sans) ? L" ; s0 sans elle " + formaterFixe(s.s0Sans, 3) : L"");
    if (!s.cause.empty())
        phrase += L" ; " + s.cause;
    return phrase + L".";
}

void rapporterReseau(const reseau& r, const resultatReseau& resultat, htmlDocument& document)
{
    document.addHeadLine(htmlHeadWindows1252);
    document.addHeadLine("<title>" + versAnsi(L"Compensation de réseau") + "</title>\n");
    declarerClassesRapport(document);
    rapporterDonnees(r, resultat, document);
    rapporterObservations(r, resultat, document);
    rapporterQualite(r, resultat, document);
    rapporterSuspects(r, resultat, document);
    rapporterPoints(r, resultat, document);
    rapporterResidus(r, resultat, document);
    rapporterCroquis(r, resultat, document);
}
