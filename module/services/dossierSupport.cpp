#include "services/dossierSupport.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <optional>
#include <vector>

namespace {

constexpr const wchar_t* cleRegistre = L"Software\\Ostrakon\\Quarvel5";
constexpr int longueurDossier = 2047;
constexpr std::size_t tailleChemin = 4096;

struct fermetureCle {
    explicit fermetureCle(HKEY ouverte) : cle(ouverte) {}
    fermetureCle(const fermetureCle&) = delete;
    fermetureCle& operator=(const fermetureCle&) = delete;
    ~fermetureCle() { RegCloseKey(cle); }
    HKEY cle;
};

struct valeurBrute {
    DWORD type = 0;
    std::vector<BYTE> octets;
};

std::optional<valeurBrute> lireValeur(const wchar_t* nom, REGSAM acces)
{
    HKEY ouverte = nullptr;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, cleRegistre, 0, acces, &ouverte) != ERROR_SUCCESS)
        return std::nullopt;
    const fermetureCle garde(ouverte);
    valeurBrute valeur;
    DWORD taille = 0;
    if (RegQueryValueExW(ouverte, nom, nullptr, &valeur.type, nullptr, &taille) != ERROR_SUCCESS)
        return std::nullopt;
    valeur.octets.resize(taille);
    if (RegQueryValueExW(ouverte, nom, nullptr, &valeur.type, valeur.octets.data(), &taille) != ERROR_SUCCESS)
        return std::nullopt;
    return valeur;
}

std::optional<CString> lireTexte(const wchar_t* nom, REGSAM acces)
{
    const auto valeur = lireValeur(nom, acces);
    if (!valeur || valeur->type != REG_SZ)
        return std::nullopt;
    std::vector<wchar_t> texte(valeur->octets.size() / sizeof(wchar_t) + 1, L'\0');
    std::copy(valeur->octets.begin(), valeur->octets.end(), reinterpret_cast<BYTE*>(texte.data()));
    return CString(texte.data());
}

/// Looked up once, whatever the outcome.
const CString& dossierSupport()
{
    static const CString dossier = lireTexte(L"chemin", KEY_READ).value_or(CString()).Left(longueurDossier);
    return dossier;
}

} // namespace

const wchar_t* cheminSupport(const wchar_t* fichier, const wchar_t* sousDossier)
{
    static std::array<wchar_t, tailleChemin> tampon;
    CString chemin = dossierSupport();
    chemin.TrimRight(L'\\');
    if (sousDossier && *sousDossier)
        (chemin += L'\\') += sousDossier;
    (chemin += L'\\') += fichier;
    const CString tenu = chemin.Left(static_cast<int>(tailleChemin) - 1);
    std::wmemcpy(tampon.data(), tenu, static_cast<std::size_t>(tenu.GetLength()) + 1);
    return tampon.data();
}

int lireValeurRegistre(const wchar_t* nom, CString& valeur)
{
    const auto lue = lireTexte(nom, KEY_ALL_ACCESS);
    if (!lue)
        return 0;
    valeur = *lue;
    return 1;
}

int lireValeurRegistre(const wchar_t* nom, DWORD& valeur)
{
    const auto lue = lireValeur(nom, KEY_ALL_ACCESS);
    if (!lue || lue->type != REG_DWORD || lue->octets.size() != sizeof valeur)
        return 0;
    std::copy(lue->octets.begin(), lue->octets.end(), reinterpret_cast<BYTE*>(&valeur));
    return 1;
}
