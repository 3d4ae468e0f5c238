#include "implantation/rapportImplantation.h"

#include "implantation/svgDessin.h"
#include "implantation/traceImplantation.h"
#include "reports/htmlStyle.h"
#include "reports/htmlTable.h"
#include "reports/htmlText.h"
#include "services/codages.h"
#include "services/nombreFixe.h"

namespace {

constexpr int decimales = 4;
constexpr int largeurPlan = 480;   // pixels
constexpr double cotePlan = 100.0; // of the small plan, before it is scaled to pixels
constexpr char celluleNombre[] = "class=celnorm align=right";
constexpr char celluleNom[] = "class=celnorm align='left'";
constexpr char celluleEnTete[] = "class=celgris align=center";
constexpr char vide[] = "&nbsp;";

void declarerClasses(htmlDocument& document)
{
    htmlStyle style;
    style.setFontFamily("Arial");
    style.setGenericFamily("sans-serif");
    style.setFontSize({10, htmlSize::pt});
    document.addStyle(".petit", style.text());
    style.setFontSize({18, htmlSize::pt});
    document.addStyle(".grand", style.text());
    style.setFontSize({10, htmlSize::pt});
    style.setBorderStyles(htmlBorderStyle(htmlBorderStyle::solid));
    style.setBorderWidths({1, htmlSize::px});
    style.setBorderColors({0, 0, 0});
    style.setPaddings({4, htmlSize::px});
    document.addStyle(".celnorm", style.text());
    style.setBackgroundColor({239, 239, 239});
    document.addStyle(".celgris", style.text());
}

void ajouterTexte(htmlDocument& document, std::string octets, const char* classe = "class=petit")
{
    document.append(htmlText(std::move(octets), classe).render());
}

htmlTable tableau(std::initializer_list<std::wstring_view> enTetes)
{
    htmlTable table;
    table.setBorder(0);
    table.setCellPadding(2);
    table.setCellSpacing(0);
    table.beginRow();
    for (const std::wstring_view enTete : enTetes)
        table.addCell(versAnsi(enTete), celluleEnTete);
    return table;
}

void ajouterNombre(htmlTable& table, double valeur)
{
    table.addCell(valeur == inconnu ? vide : nombreFixe(valeur, decimales), celluleNombre);
}

void ajouterCellule(htmlTable& table, const std::wstring& texte, const char* classe)
{
    table.addCell(texte.empty() ? vide : htmlEscaped(versAnsi(texte)), classe);
}

void rapporterBloc(const blocStation& bloc, const resultatImplantation& resultat, const reglagesImplantation& reglages,
                   htmlDocument& document)
{
    const lieuNomme& s = bloc.station.station;
    ajouterTexte(document, "Station: <b>" + htmlEscaped(versAnsi(s.nom)) + "</b>  (X=" + nombreFixe(s.x, decimales) +
                               "Y=" + nombreFixe(s.y, decimales) + ")");
    ajouterTexte(document, descriptionHtml(bloc.station));
    htmlTable table = tableau({L"Point", L"X", L"Y", L"Z", L"Angle (gr)", L"Distance", L"Distance suivant la pente",
                               L"Dénivelée", L"Visibilité"});
    for (const pointImplante& p : bloc.points) {
        const ligneImplantation cellules = ligneDe(p, &bloc.station);
        table.beginRow();
        ajouterCellule(table, p.nom, celluleNom);
        for (const auto colonne : {colX, colY, colZ, colAngle, colDistance})
            ajouterCellule(table, cellules[colonne], celluleNombre);
        ajouterNombre(table, distanceSuivantPente(bloc.station, p));
        ajouterNombre(table, deniveleeVers(bloc.station, p));
        ajouterCellule(table, phraseVisibilite(p, resultat.hauteurMin), celluleNom);
    }
    document.append(table.render());
    document.append(svgDe(planReduit(bloc, cotePlan, resultat.verification, reglages), largeurPlan));
}

void rapporterSansStation(const std::vector<pointImplante>& points, htmlDocument& document)
{
    ajouterTexte(document, "<b>Points sans mise en station</b>");
    htmlTable table = tableau({L"Point", L"X", L"Y", L"Z"});
    for (const pointImplante& p : points) {
        table.beginRow();
        ajouterCellule(table, p.nom, celluleNom);
        for (const double valeur : {p.x, p.y, p.z})
            ajouterNombre(table, valeur);
    }
    document.append(table.render());
}

} // namespace

void rapporterImplantation(const resultatImplantation& resultat, const reglagesImplantation& reglages,
                           htmlDocument& document)
{
    document.addHeadLine(htmlHeadWindows1252);
    document.addHeadLine("<title>Implantations</title>\n");
    declarerClasses(document);
    ajouterTexte(document, "Implantations", "class=grand");
    if (resultat.verification)
        ajouterTexte(document, versAnsi(L"Hauteur de l'appareil et de la cible : ") +
                                   nombreFixe(resultat.hauteurStation, 2) +
                                   versAnsi(L". Un point est vu quand rien ne dépasse de la visée de plus de ") +
                                   nombreFixe(resultat.hauteurMin, 2) + ".");
    for (const blocStation& bloc : resultat.blocs)
        rapporterBloc(bloc, resultat, reglages, document);
    if (!resultat.sansStation.empty())
        rapporterSansStation(resultat.sansStation, document);
}
