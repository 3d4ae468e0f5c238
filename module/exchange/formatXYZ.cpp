#include "exchange/formatXYZ.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <utility>

#include "exchange/celluleLue.h"
#include "exchange/colonnesFixes.h"
#include "exchange/lecteurLignes.h"
#include "services/codages.h"
#include "services/grandeur.h"
#include "services/lettres.h"
#include "services/lireNombre.h"
#include "services/reelDeTexte.h"

namespace {

/// Takes the next token off the line; empty at its end.
std::string_view jetonSuivant(std::string_view& ligne)
{
    const char* p = ligne.data();
    const char* const fin = p + ligne.size();
    while (p != fin && (*p == ' ' || *p == '\t'))
        ++p;
    const char* const debut = p;
    while (p != fin && *p != ' ' && *p != '\t')
        ++p;
    ligne = {p, static_cast<std::size_t>(fin - p)};
    return {debut, static_cast<std::size_t>(p - debut)};
}

/// Text that is no number reads as 0. @param remarque receives what is to be told of it
double altitudeLue(std::string_view jeton, std::wstring& remarque)
{
    double z = 0.0;
    const char premier = jeton[jeton[0] == '-' && jeton.size() > 1 ? 1 : 0];
    const char* const fin = jeton.data() + jeton.size();
    if (premier >= '0' && premier <= '9')
        if (const auto [arret, erreur] = std::from_chars(jeton.data(), fin, z); arret == fin && erreur == std::errc())
            return z;
    const std::wstring texte = depuisAnsi(jeton);
    ajouterMots(remarque, texte == L"." ? L"Z inconnu, « . », lu 0 par ce format." : remarqueNombre(L"Z", texte));
    return reelDeTexte(texte);
}

/// Leading digits count; beyond 32 bits the limit stands. @param remarque receives what is to be told of it
int codeLu(std::string_view jeton, std::wstring& remarque)
{
    const std::string_view entier = jeton;
    if (jeton.size() > 1 && jeton[0] == '+' && jeton[1] != '-')
        jeton.remove_prefix(1);
    int code = 0;
    const auto [arret, erreur] = std::from_chars(jeton.data(), jeton.data() + jeton.size(), code);
    if (erreur == std::errc::result_out_of_range)
        code = jeton[0] == '-' ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
    code = code == 0 ? 1 : code;
    if (arret != jeton.data() + jeton.size())
        ajouterMots(remarque, L"code " + entreGuillemets(depuisAnsi(entier)) + L" qui n'est pas un nombre entier : " +
                                  std::to_wstring(code) + L" est pris.");
    return code;
}

std::wstring observationLue(std::string_view reste)
{
    std::string observation;
    for (std::string_view jeton; !(jeton = jetonSuivant(reste)).empty();) {
        if (!observation.empty())
            observation += ' ';
        observation += jeton;
    }
    return depuisAnsi(observation);
}

/// @param suite a further piece of a line that is too long
/// @param refusee the last line that was: its other pieces are not told again
void lireLigne(std::string_view ligne, std::size_t numero, bool suite, pointsLus& lus, std::size_t& refusee)
{
    std::string_view reste = ligne.substr(0, ligne.find('\0')); // where text files end a line
    const std::string_view nom = jetonSuivant(reste);
    if (nom.empty())
        return;
    const std::string_view x = jetonSuivant(reste), y = jetonSuivant(reste);
    double xLu = 0.0, yLu = 0.0;
    const bool xEstNombre = lireNombre(x, xLu) != 0;
    if (!xEstNombre || lireNombre(y, yLu) == 0) {
        if (std::exchange(refusee, numero) != numero)
            lus.ecarter(numero, depuisAnsi(ligne), xEstNombre ? L"Y absent ou illisible." : L"X absent ou illisible.");
        return;
    }
    pointXYZ& point = lus.points.emplace_back();
    point.nom = nom;
    point.x = xLu;
    point.y = yLu;
    std::wstring remarque;
    if (const std::string_view z = jetonSuivant(reste); !z.empty())
        point.z = altitudeLue(z, remarque);
    const std::string_view code = jetonSuivant(reste);
    point.code = code.empty() ? lus.codeAbsent : codeLu(code, remarque);
    if (!reste.empty())
        point.observation = observationLue(reste);
    ajouterMots(remarque, remarquesSur(point));
    if (!remarque.empty() && !suite) // of its pieces as such, one thing is told for all
        lus.remarquer(numero, depuisAnsi(ligne), std::move(remarque));
}

/// Memory for about as many points as there are lines, so that a long file's points do not move as they come. Where
/// the beginning misleads, what is kept too much is never touched.
void prevoirPoints(sourceOctets& source, std::vector<pointXYZ>& points)
{
    constexpr std::size_t plusPrevus = 1 << 20;
    const std::string_view debut = source.debut();
    if (debut.empty())
        return;
    const auto lignes = static_cast<std::size_t>(std::ranges::count(debut, '\n')) + 1;
    points.reserve(points.size() + std::min(plusPrevus, lignes + source.resteEstime() / debut.size() * lignes));
}

/// Intended: such files are read as lines of Windows-1252 all the same, a mark being part of the first name.
void signalerNature(std::string_view debut, pointsLus& lus)
{
    if (sembleUtf8(debut.substr(0, debut.rfind('\n')))) // the last line may be cut amid a character
        lus.remarquer(0, {},
                      L"texte en UTF-8, lu en Windows-1252 comme tout .xyz ou .txt : ses accents sont altérés, et "
                      L"son premier nom s'il commence par une marque UTF-8. Enregistrez-le en Windows-1252 "
                      L"(ANSI), ou donnez-lui l'extension .csv.");
    if (debut.starts_with("\xFF\xFE") || debut.starts_with("\xFE\xFF"))
        lus.remarquer(0, {},
                      L"texte en UTF-16, qu'un .xyz ou .txt n'est jamais. Enregistrez-le en Windows-1252 (ANSI), ou "
                      L"donnez-lui l'extension .csv.");
    if (finDeLigne(debut) == '\r')
        lus.remarquer(0, {},
                      L"seuls des retours chariot y séparent les lignes : un .xyz ou .txt est alors lu comme une seule "
                      L"ligne. Donnez-lui l'extension .csv.");
}

} // namespace

bool lecteurXYZ::reconnait(std::wstring_view extension, std::string_view) const
{
    return extension == L".xyz" || extension == L".txt";
}

void lecteurXYZ::lire(sourceOctets& source, pointsLus& lus) const
{
    constexpr std::size_t longueurLigne = 1024;
    prevoirPoints(source, lus.points);
    signalerNature(source.debut(), lus);
    std::size_t refusee = 0, morcelee = 0; // lines that were told of
    bool suite = false;                    // of a long line
    for (lecteurLignes lignes(source, longueurLigne); lignes.suivante(); suite = lignes.coupee()) {
        const std::size_t avant = lus.points.size();
        lireLigne(lignes.ligne(), lignes.numero(), suite, lus, refusee);
        if (suite && lus.points.size() > avant && std::exchange(morcelee, lignes.numero()) != lignes.numero())
            lus.remarquer(morcelee, depuisAnsi(lignes.ligne()),
                          L"plus de " + std::to_wstring(longueurLigne) +
                              L" caractères : lue par morceaux, chacun comme une ligne.");
    }
}

std::string contenuXYZ(std::span<const pointXYZ> points)
{
    std::string contenu;
    for (const pointXYZ& p : points) {
        contenu += '\n';
        ajouterTexteADroite(contenu, p.nom, 10);
        for (const double valeur : {p.x, p.y, p.z}) {
            contenu += '\t';
            ajouterNombreADroite(contenu, valeur, 6, 14);
        }
        contenu += '\t';
        ajouterTexteADroite(contenu, std::to_string(p.code), 6);
        if (!p.observation.empty())
            contenu.append(1, '\t').append(versAnsi(p.observation));
    }
    return contenu;
}

std::wstring cheminPointsElague(std::wstring_view chemin)
{
    return std::wstring(sansBlancs(chemin, blancsSaisie));
}

std::wstring cheminAvecXYZ(std::wstring_view chemin)
{
    constexpr std::wstring_view extension = L".xyz";
    return std::wstring(chemin) += enMinuscules(std::wstring(chemin)).ends_with(extension) ? L"" : extension;
}
