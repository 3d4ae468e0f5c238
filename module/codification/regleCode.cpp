#include "codification/regleCode.h"

#include "codification/tableCodification.h"
#include "services/nombresTexte.h"

#include "acutads.h"
#include "io.h"

namespace {

constexpr const wchar_t* caracteresRefuses = L"<>/\\\":;?*|,=`";
constexpr int longueurNomCalque = 255;

bool caractereRefuse(wchar_t c)
{
    return c < L' ' || CString(caracteresRefuses).Find(c) >= 0;
}

/// "C:bloc" is not: it would be read from where the drive happens to stand.
bool estComplet(const CString& chemin)
{
    const int debut = chemin.GetLength() > 2 && chemin[1] == L':' ? 2 : 0;
    return !chemin.IsEmpty() && (chemin[debut] == L'\\' || chemin[debut] == L'/');
}

/// As "../bloc" does, which would become complete without its full stops.
bool partDIci(const CString& saisi)
{
    CString chemin = saisi;
    return chemin.TrimLeft(L" \t").Left(1) == L".";
}

} // namespace

const wchar_t* const regleNomsCalques =
    L"Un nom de calque a 255 caractères au plus, sans < > / \\ \" : ; ? * | , = ni `.";

bool tailleValable(double taille)
{
    return taille >= 1e-6 && taille <= 1e6;
}

bool calqueValable(const CString& nom)
{
    CString utile = nom;
    utile.Trim(blancsSaisie);
    if (utile.GetLength() > longueurNomCalque)
        return false;
    for (int i = 0; i < utile.GetLength(); ++i)
        if (caractereRefuse(utile[i]))
            return false;
    return true;
}

void reparerCalques(codifPoint& code, const CString& fichier)
{
    for (CString& nom : code.layers) {
        if (calqueValable(nom))
            continue;
        const CString avant = nom;
        nom.Trim(blancsSaisie);
        nom = nom.Left(longueurNomCalque);
        for (int i = 0; i < nom.GetLength(); ++i)
            if (caractereRefuse(nom[i]))
                nom.SetAt(i, L'_');
        acutPrintf(L"\n%s%scode %d : le nom de calque « %s » est impossible, « %s » est pris.", fichier.GetString(),
                   fichier.IsEmpty() ? L"" : L", ", code.code, avant.GetString(), nom.GetString());
    }
}

std::optional<CString> cheminDeBloc(const CString& saisi)
{
    if (partDIci(saisi))
        return std::nullopt;
    CString chemin = saisi;
    chemin.Trim(blancsSaisie);
    if (chemin.Right(4).CompareNoCase(L".dxf") == 0)
        chemin = chemin.Left(chemin.GetLength() - 4) + L".dwg";
    if (chemin.IsEmpty() || estComplet(chemin))
        return chemin;
    CString stem = chemin.Right(4).CompareNoCase(L".dwg") == 0 ? chemin.Left(chemin.GetLength() - 4) : chemin;
    stem = cheminBiblio(stem);
    for (const wchar_t* const extension : {L".dwg", L".dxf"})
        if (_waccess(stem + extension, 0) == 0)
            return stem + L".dwg";
    return std::nullopt;
}

avisCode validerCode(const CString& saisie, const tableCodification& table, bool creation)
{
    CString texte = saisie;
    if (texte.Trim(blancsSaisie) == L"?") {
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
