#include <algorithm>
#include <cmath>
#include <optional>

#include "calculs/reseau/equationsObservation.h"
#include "calculs/reseau/suspectsReseau.h"
#include "services/codages.h"
#include "services/nombreFixe.h"

namespace {

/// What is more than that away has another cause than the one tried, whatever the precision.
constexpr double toleranceLongueur = 0.02, toleranceAngle = 0.01 * gradeEnRadians;

std::wstring nombre(double valeur, int decimales)
{
    std::string texte = nombreFixe(valeur, decimales);
    if (texte.find('.') != std::string::npos)
        texte.erase(texte.find_last_not_of('0') + 1);
    if (texte.back() == '.')
        texte.pop_back();
    return depuisAnsi(texte);
}

/// A slip of one digit: n units of a decimal place from 0.1 up, n from 1 to 9.
std::optional<double> chiffreFaux(double faute, double tolerance)
{
    for (double unite = 1000.0; unite > 0.05; unite /= 10.0) {
        const double fois = std::round(std::abs(faute) / unite);
        if (fois >= 1.0 && fois <= 9.0 && tolerance < 0.2 * unite &&
            std::abs(std::abs(faute) - fois * unite) < tolerance)
            return std::copysign(fois * unite, faute);
    }
    return std::nullopt;
}

std::wstring causeAngulaire(const reseau& r, const observationReseau& o, double faute, double tolerance)
{
    const auto pres = [&](double angle) { return std::abs(ecartAngulaire(angle)) < tolerance; };
    const double vraie = o.mesure - faute;
    if (pres(faute - pi))
        return L"un demi-tour (200 gr) : visée retournée, ou cercle à droite pour cercle à gauche";
    if (o.genre != genreObservation::zenithal && std::abs(ecartAngulaire(2.0 * o.mesure)) > 10.0 * tolerance &&
        pres(o.mesure + vraie))
        return L"mauvais sens : l'angle est compté dans l'autre sens";
    if (o.genre == genreObservation::zenithal && pres(2.0 * pi - o.mesure - vraie))
        return L"cercle à droite : 400 gr moins la mesure";
    if (pres(faute - 0.5 * pi) || pres(faute + 0.5 * pi))
        return L"un quart de tour (100 gr)";
    if (const auto chiffre = chiffreFaux(ecartAngulaire(faute) / gradeEnRadians, tolerance / gradeEnRadians))
        return L"un chiffre faux : " + nombre(r.axes.angle(*chiffre), 4) + L" gr de trop";
    return {};
}

std::wstring causeLineaire(const observationReseau& o, double faute, double tolerance)
{
    const double vraie = o.mesure - faute;
    if (o.genre == genreObservation::denivelee && std::abs(o.mesure) > 10.0 * tolerance &&
        std::abs(o.mesure + vraie) < tolerance)
        return L"mauvais signe de la dénivelée";
    if (const auto chiffre = chiffreFaux(faute, tolerance))
        return L"un chiffre faux : " + nombre(*chiffre, 3) + L" m de trop";
    return {};
}

/// The one other point that would make the measure right in the place of `vers` (or `vers2`).
int autrePoint(const reseau& r, const resultatReseau& resultat, const observationReseau& o, bool second,
               const coordonneesReseau& c, double tolerance)
{
    int seul = -1;
    for (std::size_t p = 0; p < r.points.size(); ++p) {
        const int candidat = static_cast<int>(p);
        if (candidat == o.de || candidat == o.vers || candidat == o.vers2)
            continue;
        const pointCompense& rendu = resultat.points[p];
        if ((estPlanimetrique(o.genre) && !estConnue(rendu.x)) || (estAltimetrique(o.genre) && !estConnue(rendu.z)))
            continue;
        observationReseau essai = o;
        (second ? essai.vers2 : essai.vers) = candidat;
        const equationObservation e = equationDe(essai, c);
        if (!e.possible || std::abs(e.ecart) > tolerance)
            continue;
        if (seul >= 0)
            return -1;
        seul = candidat;
    }
    return seul;
}

std::wstring causeNom(const reseau& r, const resultatReseau& resultat, const observationReseau& o,
                      const coordonneesReseau& c, double tolerance)
{
    if (o.vers < 0)
        return {};
    for (const bool second : {false, true}) {
        if (second && o.vers2 < 0)
            break;
        if (const int p = autrePoint(r, resultat, o, second, c, tolerance); p >= 0)
            return L"un nom échangé : la mesure va vers « " + r.points[static_cast<std::size_t>(p)].nom + L" »";
    }
    return {};
}

} // namespace

std::wstring causeProbable(const reseau& r, const resultatReseau& resultat, const observationReseau& o,
                           const coordonneesReseau& c, double faute, double tolerance)
{
    const bool angulaire = estAngulaire(o.genre);
    const double bornee = std::min(tolerance, angulaire ? toleranceAngle : toleranceLongueur);
    std::wstring cause = angulaire ? causeAngulaire(r, o, faute, bornee) : causeLineaire(o, faute, bornee);
    // A fault as small as the noise fits any point nearby.
    if (cause.empty() && std::abs(faute) > 10.0 * bornee)
        cause = causeNom(r, resultat, o, c, bornee);
    return cause;
}
