#include "implantation/rapportImplantation.h"

#include "implantation/svgDessin.h"
#include "implantation/traceImplantation.h"
#include "reports/classesRapport.h"
#include "reports/htmlText.h"
#include "services/codages.h"
#include "services/nombreFixe.h"

namespace {

constexpr int pixelsPlan = 640;    // of its longer side
constexpr double cotePlan = 100.0; // of the small plan, before it is scaled to pixels
constexpr char celluleEnTete[] = "class=celgris align=center";

void ajouterTexte(htmlDocument& document, std::string octets, const char* classe = "class=petit")
{
    document.append(htmlText(std::move(octets), classe).render());
}

htmlTable tableau(std::initializer_list<std::wstring_view> enTetes)
{
    htmlTable table = tableauRapport();
    table.beginRow();
    for (const std::wstring_view enTete : enTetes)
        table.addCell(versAnsi(enTete), celluleEnTete);
    return table;
}

void ajouterNombre(htmlTable& table, double valeur)
{
    table.addCell(valeur == inconnu ? celluleVide : nombreFixe(valeur, decimalesImplantation), celluleNombre);
}

void ajouterCellule(htmlTable& table, const std::wstring& texte, const char* classe)
{
    table.addCell(texte.empty() ? celluleVide : htmlEscaped(versAnsi(texte)), classe);
}

void rapporterBloc(const blocStation& bloc, const resultatImplantation& resultat, const reglagesImplantation& reglages,
                   htmlDocument& document)
{
    const lieuNomme& s = bloc.station.station;
    ajouterTexte(document, "Station: <b>" + htmlEscaped(versAnsi(s.nom)) +
                               "</b>  (X=" + nombreFixe(s.x, decimalesImplantation) +
                               "Y=" + nombreFixe(s.y, decimalesImplantation) + ")");
    ajouterTexte(document, descriptionHtml(bloc.station));
    htmlTable table = tableau({L"Point", L"X", L"Y", L"Z", L"Angle (gr)", L"Distance", L"Distance suivant la pente",
                               L"Dénivelée", L"Visibilité"});
    for (const pointImplante& p : bloc.points) {
        const ligneImplantation cellules = ligneDe(p, &bloc.station);
        table.beginRow();
        ajouterCellule(table, p.nom, celluleNomGauche);
        for (const auto colonne : {colX, colY, colZ, colAngle, colDistance})
            ajouterCellule(table, cellules[colonne], celluleNombre);
        ajouterNombre(table, distanceSuivantPente(bloc.station, p));
        ajouterNombre(table, deniveleeVers(bloc.station, p));
        ajouterCellule(table, phraseDuPoint(p, &bloc.station, resultat.hauteurMin), celluleNomGauche);
    }
    document.append(table.render());
    document.append(svgDe(planReduit(bloc, cotePlan, resultat.verification, reglages), pixelsPlan));
}

void rapporterSansStation(const std::vector<pointImplante>& points, htmlDocument& document)
{
    ajouterTexte(document, "<b>Points sans mise en station</b>");
    htmlTable table = tableau({L"Point", L"X", L"Y", L"Z"});
    for (const pointImplante& p : points) {
        table.beginRow();
        ajouterCellule(table, p.nom, celluleNomGauche);
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
    declarerClassesRapport(document);
    ajouterTexte(document, "Implantations", "class=grand");
    ajouterTexte(document, versAnsi(L"Angles en grades ; distances, dénivelées et coordonnées en mètres."));
    if (resultat.verification)
        ajouterTexte(document, versAnsi(L"Hauteur de l'appareil et de la cible : ") +
                                   nombreFixe(resultat.hauteurStation, 2) +
                                   versAnsi(L" m. Un point est vu quand rien ne dépasse de la visée de plus de ") +
                                   nombreFixe(resultat.hauteurMin, 2) + " m.");
    if (resultat.terrainPerime)
        ajouterTexte(document, "<b>" + versAnsi(phraseTerrainPerime) + "</b>");
    for (const blocStation& bloc : resultat.blocs)
        rapporterBloc(bloc, resultat, reglages, document);
    if (!resultat.sansStation.empty())
        rapporterSansStation(resultat.sansStation, document);
}
