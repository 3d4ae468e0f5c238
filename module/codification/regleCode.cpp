#include "codification/regleCode.h"

#include <algorithm>
#include <array>

#include "codification/tableCodification.h"
#include "services/entierDeTexte.h"
#include "services/lettres.h"

#include "acedads.h"
#include "acutads.h"
#include "io.h"

namespace {

constexpr std::wstring_view caracteresRefuses = L"<>/\\\":;?*|,=`";
constexpr std::size_t longueurNomCalque = 255;

bool caractereRefuse(wchar_t c)
{
    return c < L' ' || caracteresRefuses.find(c) != std::wstring_view::npos;
}

/// "C:bloc" is not: it would be read from where the drive happens to stand.
bool estComplet(std::wstring_view chemin)
{
    if (chemin.size() > 2 && chemin[1] == L':')
        chemin.remove_prefix(2);
    return !chemin.empty() && (chemin[0] == L'\\' || chemin[0] == L'/');
}

/// As "../bloc" does, which would become complete without its full stops.
bool partDIci(std::wstring_view saisi)
{
    const auto debut = saisi.find_first_not_of(L" \t");
    return debut != std::wstring_view::npos && saisi[debut] == L'.';
}

/// Takes the extension off. @return whether there was one, in any letter case.
bool oterExtension(std::wstring& chemin, std::wstring_view extension)
{
    if (chemin.size() < extension.size() ||
        !memesLettres(std::wstring_view(chemin).substr(chemin.size() - extension.size()), extension))
        return false;
    chemin.resize(chemin.size() - extension.size());
    return true;
}

/// The drawing file of that stem; empty when there is none.
std::wstring dessinPresent(const std::wstring& stem)
{
    for (const wchar_t* const extension : {L".dwg", L".dxf"})
        if (_waccess((stem + extension).c_str(), 0) == 0)
            return stem + extension;
    return {};
}

} // namespace

const wchar_t* const regleNomsCalques =
    L"Un nom de calque a 255 caractères au plus, sans < > / \\ \" : ; ? * | , = ni `.";

bool tailleValable(double taille)
{
    return taille >= tailleMin && taille <= tailleMax;
}

bool calqueValable(std::wstring_view nom)
{
    const std::wstring_view utile = sansBlancs(nom, blancsSaisie);
    return utile.size() <= longueurNomCalque && std::ranges::none_of(utile, caractereRefuse);
}

void reparerCalques(codifPoint& code, const std::wstring& fichier)
{
    for (std::wstring& nom : code.layers) {
        if (calqueValable(nom))
            continue;
        const std::wstring avant = nom;
        nom = sansBlancs(avant, blancsSaisie).substr(0, longueurNomCalque);
        std::ranges::replace_if(nom, caractereRefuse, L'_');
        acutPrintf(L"\n%s%scode %d : le nom de calque « %s » est impossible, « %s » est pris.", fichier.c_str(),
                   fichier.empty() ? L"" : L", ", code.code, avant.c_str(), nom.c_str());
    }
}

std::optional<std::wstring> cheminDeBloc(std::wstring_view saisi)
{
    if (partDIci(saisi))
        return std::nullopt;
    std::wstring chemin(sansBlancs(saisi, blancsSaisie));
    if (oterExtension(chemin, L".dxf"))
        chemin += L".dwg";
    if (chemin.empty() || estComplet(chemin))
        return chemin;
    oterExtension(chemin, L".dwg");
    const std::wstring stem = cheminBiblio(chemin.c_str());
    return dessinPresent(stem).empty() ? std::nullopt : std::optional(stem + L".dwg");
}

std::wstring fichierDuBloc(const std::wstring& chemin)
{
    std::array<wchar_t, 2048> fichier{};
    for (std::wstring stem : {chemin, codifPoint().chemin}) {
        oterExtension(stem, L".dwg");
        const std::wstring present = dessinPresent(stem);
        if (!present.empty() && acedFindFile(present.c_str(), fichier.data(), fichier.size()) == RTNORM)
            return fichier.data();
    }
    return {};
}

avisCode validerCode(std::wstring_view saisie, const tableCodification& table, bool creation)
{
    const std::wstring_view texte = sansBlancs(saisie, blancsSaisie);
    if (texte == L"?") {
        const int libre = table.plusPetitNumeroLibre();
        return {libre == 0 ? verdictCode::aucunLibre : verdictCode::propose, libre};
    }
    const int code = entierDeTexte(texte);
    if (!codeValable(code))
        return {verdictCode::horsBornes};
    if (creation && table.indexCode(code) >= 0)
        return {verdictCode::dejaExistant};
    return {verdictCode::accepte, code};
}
