#include "calculs/rapportPolygonale.h"

#include "calculs/nivellement.h"
#include "reports/htmlText.h"
#include "services/codages.h"
#include "services/grandeur.h"

namespace rapportPolygonale {

namespace {

constexpr char classeGrand[] = "class=grand";
constexpr char classeTitre[] = "CLASS=titre";
constexpr char classePetit[] = "class=petit";

void ajouterTexte(htmlDocument& document, std::string octets, const char* classe)
{
    document.append(htmlText(std::move(octets), classe).render());
}

} // namespace

void ajouterEnTetes(htmlDocument& document)
{
    document.addHeadLine(htmlHeadWindows1252);
    document.addHeadLine("<title>Corrections de fermeture polygonale</title>\n");
}

void ouvrirRapport(htmlDocument& document)
{
    ajouterTexte(document, versAnsi(L"Corrections de fermeture polygonale"), classeGrand);
    ajouterTitre(document, L"Données");
}

void ajouterTitre(htmlDocument& document, std::wstring_view texte)
{
    ajouterTexte(document, versAnsi(texte), classeTitre);
}

void ajouterParagraphe(htmlDocument& document, std::string octets)
{
    ajouterTexte(document, std::move(octets), classePetit);
}

void ajouterParagraphe(htmlDocument& document, std::wstring_view texte)
{
    ajouterParagraphe(document, htmlEscaped(versAnsi(texte)));
}

bool ajouterTitreNivellement(htmlDocument& document, int mode)
{
    std::wstring_view regle;
    switch (mode) {
    case nivellementSimple:
        // Intended spelling: users compare reports.
        regle = L"Correction simple, erreur de fermeture répartie uniformèment";
        break;
    case nivellementDistance:
        regle = L"Correction proportionnelle aux distances";
        break;
    case nivellementRacine:
        regle = L"Correction proportionnelle aux racines distances";
        break;
    default:
        ajouterTitre(document, L"Pas de correction de nivellement");
        return false;
    }
    ajouterTitre(document, L"Correction des altitudes");
    ajouterTitre(document, regle);
    return true;
}

htmlTable tableau(std::initializer_list<std::wstring_view> enTetes)
{
    htmlTable table = tableauRapport();
    table.beginRow();
    for (const std::wstring_view enTete : enTetes)
        ajouterEnTete(table, enTete);
    return table;
}

void ajouterEnTete(htmlTable& table, std::wstring_view texte)
{
    table.addCell(versAnsi(texte), celluleEnTete);
}

void ajouterNombre(htmlTable& table, double valeur)
{
    table.addCell(valeur, decimalesRapport, celluleNombre);
}

void ajouterNombre(htmlTable& table, double valeur, int decimales)
{
    if (estConnue(valeur))
        table.addCell(valeur, decimales, celluleNombre);
    else
        table.addCell(celluleVide, celluleNombre);
}

void ajouterVides(htmlTable& table, int nombre)
{
    for (int i = 0; i < nombre; ++i)
        table.addCell(celluleVide, celluleNombre);
}

bool ajouterEnTetesNivellement(htmlTable& table, int mode)
{
    const bool avecPoids = mode == nivellementDistance || mode == nivellementRacine;
    if (avecPoids)
        ajouterEnTete(table, mode == nivellementDistance ? L"Distance" : L"Racine.dist");
    for (const std::wstring_view enTete : {L"Correction", L"d.Z Corrigé", L"Z"})
        ajouterEnTete(table, enTete);
    return avecPoids;
}

void ajouterDenivelee(htmlTable& table, const deniveleeCompensee& denivelee, bool avecPoids)
{
    if (avecPoids)
        ajouterNombre(table, denivelee.poids);
    for (const double valeur : {denivelee.correction, denivelee.dz, denivelee.z})
        ajouterNombre(table, valeur);
}

void ajouterSommesNivellement(htmlTable& table, const nivellementCompense& nivellement, bool avecPoids)
{
    ajouterNombre(table, nivellement.sommeDz);
    if (avecPoids)
        ajouterNombre(table, nivellement.sommePoids);
    ajouterNombre(table, nivellement.sommeCorrections);
    ajouterNombre(table, nivellement.sommeDzCorriges);
    ajouterVides(table, 1);
}

void ajouterCoordonnees(htmlDocument& document, const std::vector<stationCorrigee>& stations)
{
    htmlTable table = tableau({L"Station", L"X", L"Y", L"Z"});
    for (const stationCorrigee& s : stations) {
        table.beginRow();
        table.addCell(nomHtml(s.nom), celluleNomGauche);
        for (const double valeur : {s.x, s.y, s.z})
            ajouterNombre(table, valeur);
    }
    document.append(table.render());
}

std::string nomHtml(std::wstring_view nom)
{
    return htmlEscaped(versAnsi(nom));
}

} // namespace rapportPolygonale
