#include "implantation/donneesStation.h"

#include <cmath>
#include <numbers>

#include "reports/htmlText.h"
#include "services/codages.h"
#include "services/gisementPlan.h"
#include "services/nombreFixe.h"

namespace {

constexpr double tour = 2.0 * std::numbers::pi;
std::string nombre(double valeur)
{
    return nombreFixe(valeur, decimalesImplantation);
}

/// The same in a wide text: digits, sign and period only.
std::wstring nombreLarge(double valeur)
{
    return depuisAnsi(nombre(valeur));
}

} // namespace

bool memePlace(const lieuNomme& a, const lieuNomme& b)
{
    constexpr double tolerance = 1e-4;
    return std::abs(a.x - b.x) < tolerance && std::abs(a.y - b.y) < tolerance;
}

double enGrades(double radians)
{
    return radians == inconnu ? inconnu : radians * 200.0 / std::numbers::pi;
}

double gisementVers(const donneesStation& station, double x, double y)
{
    return gisementPlan(station.station.x, station.station.y, x, y);
}

double angleVers(const donneesStation& station, double x, double y)
{
    const grandeur gisement = gisementVers(station, x, y);
    if (!station.visee)
        return (gisement + station.v0).valeur();
    const grandeur angle = gisement - gisementVers(station, station.reference.x, station.reference.y);
    return angle.valeur() < 0.0 ? angle.valeur() + tour : angle.valeur();
}

double distanceVers(const donneesStation& station, double x, double y)
{
    return hypot(grandeur(x) - station.station.x, grandeur(y) - station.station.y).valeur();
}

std::wstring texteOrientation(double v0)
{
    constexpr double tolerance = 1e-6; // grade
    struct cardinal {
        double grades;
        const wchar_t* texte;
    };
    // The letter O, not the digit: see the header.
    constexpr cardinal cardinaux[] = {
        {0.0, L"NORD (O gr)"}, {100.0, L"EST (10O gr)"}, {200.0, L"SUD (20O gr)"}, {300.0, L"OUEST (30O gr)"}};
    const double grades = enGrades(v0);
    for (const cardinal& c : cardinaux)
        if (std::abs(grades - c.grades) < tolerance)
            return c.texte;
    return nombreLarge(grades) + L" gr";
}

std::wstring texteReference(const donneesStation& station)
{
    if (station.visee)
        return station.reference.nom;
    return station.v0 == 0.0 ? L"NORD" : L"V0=" + nombreLarge(enGrades(station.v0)) + L" gr";
}

std::string descriptionHtml(const donneesStation& station)
{
    const lieuNomme& s = station.station;
    std::string html = "<br><u> Station :</u> " + htmlEscaped(versAnsi(s.nom)) + " ";
    if (s.x != inconnu)
        html += "<b> x </b> = " + nombre(s.x);
    if (s.y != inconnu)
        html += "<b> y </b>= " + nombre(s.y);
    if (s.z != inconnu)
        html += "<b> z </b>= " + nombre(s.z) + (station.visee ? " \n" : "");
    html += "<br><u> Reference </u>";
    if (station.visee)
        return html + "<b>" + htmlEscaped(versAnsi(station.reference.nom)) + "</b>";
    return html + versAnsi(texteOrientation(station.v0));
}

std::wstring descriptionTexte(const donneesStation& station)
{
    const lieuNomme& s = station.station;
    std::wstring texte = L"%%uStation :%%u " + s.nom;
    if (s.x != inconnu)
        texte += L" x  = " + nombreLarge(s.x);
    if (s.y != inconnu)
        texte += L" y = " + nombreLarge(s.y);
    if (s.z != inconnu)
        texte += L" z = " + nombreLarge(s.z);
    texte += L"%%uReference:%%u ";
    return texte + (station.visee ? station.reference.nom : texteOrientation(station.v0));
}
