#include <algorithm>
#include <istream>
#include <optional>
#include <ostream>
#include <string>

#include "codification/codifPoint.h"
#include "codification/regleCode.h"
#include "services/nombresTexte.h"
#include "services/reelDeTexte.h"

/// The text form of one code.

namespace {

constexpr const wchar_t* debutBloc = L"Code {";
constexpr const wchar_t* finBloc = L"}";

void lireCouleur(int& couleur, const CString& valeur)
{
    const int lue = entierDeTexte(valeur);
    couleur = lue < 0 || lue > 256 ? 7 : lue;
}

void lireTaille(codifPoint& codif, const CString& valeur)
{
    const double lue = reelDeTexte(valeur.GetString());
    codif.tailleBlock = lue <= 0.0 ? 1.0 : lue;
}

/// One line of the block: its keyword, and how it is read and written.
struct ligneTexte {
    const wchar_t* motCle;
    void (*lire)(codifPoint&, const CString&);
    CString (*ecrire)(const codifPoint&);
};

template <emplacementCalque E>
constexpr ligneTexte ligneCalque(const wchar_t* motCle)
{
    return {motCle, [](codifPoint& c, const CString& v) { c.layers[E] = v; },
            [](const codifPoint& c) { return c.layers[E]; }};
}

template <emplacementCalque E>
constexpr ligneTexte ligneCouleur(const wchar_t* motCle)
{
    return {motCle, [](codifPoint& c, const CString& v) { lireCouleur(c.couleurs[E], v); },
            [](const codifPoint& c) { return texteEntier(c.couleurs[E]); }};
}

/// In the order of writing. No keyword begins another: the order does not count for reading.
const ligneTexte lignes[] = {
    {L"CODE:", [](codifPoint& c, const CString& v) { c.code = std::clamp(entierDeTexte(v), 1, 9999); },
     [](const codifPoint& c) { return texteEntier(c.code); }},
    {L"LIBELLE:", [](codifPoint& c, const CString& v) { c.libelle = v; },
     [](const codifPoint& c) { return c.libelle; }},
    {L"CHEMIN:", [](codifPoint& c, const CString& v) { c.chemin = v; }, [](const codifPoint& c) { return c.chemin; }},
    {L"BLKTAILLE:", lireTaille,
     [](const codifPoint& c) {
         CString texte;
         texte.Format(L"%f", c.tailleBlock);
         return texte;
     }},
    {L"PRECISIONALTITUDES:",
     [](codifPoint& c, const CString& v) { c.precisionAltitudes = std::clamp(entierDeTexte(v), 0, 8); },
     [](const codifPoint& c) { return texteEntier(c.precisionAltitudes); }},
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
std::optional<CString> ligneSuivante(std::istream& flux)
{
    std::string octets;
    if (!std::getline(flux, octets))
        return std::nullopt;
    if (octets.ends_with('\r'))
        octets.pop_back();
    CString ligne(octets.c_str());
    return ligne.Trim(blancsSaisie);
}

bool commencePar(const CString& ligne, const wchar_t* motCle)
{
    return ligne.Left(CString(motCle).GetLength()).CompareNoCase(motCle) == 0;
}

void appliquer(codifPoint& codif, const CString& ligne)
{
    const auto* const trouvee = std::find_if(std::begin(lignes), std::end(lignes),
                                             [&](const ligneTexte& l) { return commencePar(ligne, l.motCle); });
    if (trouvee == std::end(lignes))
        return;
    CString valeur = ligne.Mid(CString(trouvee->motCle).GetLength());
    trouvee->lire(codif, valeur.TrimLeft(blancsSaisie));
}

} // namespace

int codifPoint::lireTexte(std::istream& flux)
{
    auto ligne = ligneSuivante(flux);
    while (ligne && ligne->CompareNoCase(debutBloc) != 0)
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
    const auto ecrire = [&flux](const CString& texte) { flux << CStringA(texte).GetString(); };
    ecrire(CString(L"\n") + debutBloc);
    for (const ligneTexte& ligne : lignes)
        ecrire(CString(L"\n\t") + ligne.motCle + L" " + ligne.ecrire(*this));
    ecrire(CString(L"\n") + finBloc);
    return flux.good() ? 1 : 0;
}
