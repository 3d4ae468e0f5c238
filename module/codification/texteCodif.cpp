#include <algorithm>
#include <istream>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "codification/codifPoint.h"
#include "codification/regleCode.h"
#include "services/codages.h"
#include "services/entierDeTexte.h"
#include "services/formatNombres.h"
#include "services/lettres.h"
#include "services/reelDeTexte.h"

/// The text form of one code.

namespace {

constexpr std::wstring_view debutBloc = L"Code {";
constexpr std::wstring_view finBloc = L"}";

void lireCouleur(int& couleur, std::wstring_view valeur)
{
    const int lue = entierDeTexte(valeur);
    couleur = lue < 0 || lue > 256 ? 7 : lue;
}

void lireTaille(codifPoint& codif, std::wstring_view valeur)
{
    const double lue = reelDeTexte(valeur);
    codif.tailleBlock = lue <= 0.0 ? 1.0 : lue;
}

/// One line of the block: its keyword, and how it is read and written.
struct ligneTexte {
    std::wstring_view motCle;
    void (*lire)(codifPoint&, std::wstring_view);
    std::wstring (*ecrire)(const codifPoint&);
};

template <emplacementCalque E>
constexpr ligneTexte ligneCalque(std::wstring_view motCle)
{
    return {motCle, [](codifPoint& c, std::wstring_view v) { c.layers[E] = v; },
            [](const codifPoint& c) { return c.layers[E]; }};
}

template <emplacementCalque E>
constexpr ligneTexte ligneCouleur(std::wstring_view motCle)
{
    return {motCle, [](codifPoint& c, std::wstring_view v) { lireCouleur(c.couleurs[E], v); },
            [](const codifPoint& c) { return std::to_wstring(c.couleurs[E]); }};
}

/// In the order of writing. No keyword begins another: the order does not count for reading.
const ligneTexte lignes[] = {
    {L"CODE:", [](codifPoint& c, std::wstring_view v) { c.code = std::clamp(entierDeTexte(v), 1, 9999); },
     [](const codifPoint& c) { return std::to_wstring(c.code); }},
    {L"LIBELLE:", [](codifPoint& c, std::wstring_view v) { c.libelle = v; },
     [](const codifPoint& c) { return c.libelle; }},
    {L"CHEMIN:", [](codifPoint& c, std::wstring_view v) { c.chemin = v; },
     [](const codifPoint& c) { return c.chemin; }},
    {L"BLKTAILLE:", lireTaille, [](const codifPoint& c) { return formaterFixe(c.tailleBlock, 6); }},
    {L"PRECISIONALTITUDES:",
     [](codifPoint& c, std::wstring_view v) { c.precisionAltitudes = std::clamp(entierDeTexte(v), 0, 8); },
     [](const codifPoint& c) { return std::to_wstring(c.precisionAltitudes); }},
    ligneCalque<calqueBlock>(L"LAYBLOCK:"),
    ligneCalque<calqueAltitudes>(L"LAYALTITUDES:"),
    ligneCalque<calqueNumero>(L"LAYNUMERO:"),
    ligneCalque<calqueObs>(L"LAYOBSERVATIONS:"),
    ligneCalque<calqueCode>(L"LAYCODE:"),
    ligneCouleur<calqueBlock>(L"COULLAYBLOCK:"),
    ligneCouleur<calqueAltitudes>(L"COULLAYALTI:"),
    ligneCouleur<calqueNumero>(L"COULLAYNUM:"),
    ligneCouleur<calqueObs>(L"COULLAYOBS:"),
    ligneCouleur<calqueCode>(L"COULLAYCODE:"),
};

/// The next line without what surrounds it; nothing at the end of the stream.
std::optional<std::wstring> ligneSuivante(std::istream& flux)
{
    std::string octets;
    if (!std::getline(flux, octets))
        return std::nullopt;
    if (octets.ends_with('\r'))
        octets.pop_back();
    const std::wstring ligne = depuisAnsi(octets.c_str()); // up to a zero
    return std::wstring(sansBlancs(ligne, blancsSaisie));
}

bool commencePar(std::wstring_view ligne, std::wstring_view motCle)
{
    return memesLettres(ligne.substr(0, motCle.size()), motCle);
}

void appliquer(codifPoint& codif, std::wstring_view ligne)
{
    const auto* const trouvee = std::find_if(std::begin(lignes), std::end(lignes),
                                             [&](const ligneTexte& l) { return commencePar(ligne, l.motCle); });
    if (trouvee == std::end(lignes))
        return;
    ligne.remove_prefix(trouvee->motCle.size());
    trouvee->lire(codif, sansBlancs(ligne, blancsSaisie));
}

} // namespace

int codifPoint::lireTexte(std::istream& flux)
{
    auto ligne = ligneSuivante(flux);
    while (ligne && !memesLettres(*ligne, debutBloc))
        ligne = ligneSuivante(flux);
    while (ligne && (ligne = ligneSuivante(flux))) {
        if (commencePar(*ligne, debutBloc))
            return 0;
        if (commencePar(*ligne, finBloc)) {
            reparerCalques(*this);
            return 1;
        }
        appliquer(*this, *ligne);
    }
    return 0;
}

int codifPoint::ecrireTexte(std::ostream& flux) const
{
    std::wstring texte = L"\n" + std::wstring(debutBloc);
    for (const ligneTexte& ligne : lignes)
        texte += L"\n\t" + std::wstring(ligne.motCle) + L" " + ligne.ecrire(*this);
    flux << versAnsi(texte + L"\n" + std::wstring(finBloc));
    return flux.good() ? 1 : 0;
}
