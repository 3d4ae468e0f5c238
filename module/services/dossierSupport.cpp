#include "services/dossierSupport.h"

#include <algorithm>
#include <array>
#include <cwchar>

#include "services/registre.h"

#include "acutads.h"
#include "io.h"
#include "shellapi.h"
#include "shlobj.h"

namespace {

constexpr const wchar_t* cleModule = L"Software\\Ostrakon\\Quarvel5";
constexpr const wchar_t* valeurDossier = L"chemin";
constexpr std::size_t longueurDossier = 2047;
constexpr std::size_t tailleChemin = 4096;

/// A personal folder that someone cleared away, or on a disk that is not there, leaves its place to the installed one.
std::wstring dossierDuRegistre()
{
    const auto personnel = lireTexteRegistre(HKEY_CURRENT_USER, cleModule, valeurDossier);
    if (personnel && _waccess(personnel->c_str(), 0) == 0)
        return personnel->substr(0, longueurDossier);
    const auto installe = lireTexteRegistre(HKEY_LOCAL_MACHINE, cleModule, valeurDossier);
    if (personnel && installe)
        acutPrintf(L"\nVotre dossier de codes et de blocs, [%ls], n'est plus là : celui de l'installation, [%ls], est "
                   L"pris.",
                   personnel->c_str(), installe->c_str());
    return (installe ? installe : personnel).value_or(L"").substr(0, longueurDossier);
}

/// Looked up once, whatever the outcome.
std::wstring& dossierSupport()
{
    static std::wstring dossier = dossierDuRegistre();
    return dossier;
}

std::wstring sansBarreFinale(std::wstring chemin)
{
    chemin.resize(chemin.find_last_not_of(L'\\') + 1);
    return chemin;
}

/// The first of "support", "support-2"... that is free in the module's folder among the user's files; empty when the
/// platform tells of none.
std::wstring dossierPersonnelLibre()
{
    constexpr int plusGrandNumero = 100;
    std::array<wchar_t, MAX_PATH> donnees{};
    if (SHGetFolderPathW(nullptr, CSIDL_APPDATA | CSIDL_FLAG_CREATE, nullptr, SHGFP_TYPE_CURRENT, donnees.data()) !=
        S_OK)
        return {};
    for (int numero = 1; numero <= plusGrandNumero; ++numero) {
        std::wstring dossier = std::wstring(donnees.data()) + L"\\Quarvel5\\support";
        if (numero > 1)
            dossier += L"-" + std::to_wstring(numero);
        if (_waccess(dossier.c_str(), 0) != 0)
            return dossier;
    }
    return {};
}

/// Both names end with a second zero: the call takes lists.
bool copierDossier(const std::wstring& de, const std::wstring& vers)
{
    const std::wstring source = de + L'\0', copie = vers + L'\0';
    SHFILEOPSTRUCTW operation{};
    operation.wFunc = FO_COPY;
    operation.pFrom = source.c_str();
    operation.pTo = copie.c_str();
    operation.fFlags = FOF_NO_UI;
    return SHFileOperationW(&operation) == 0 && !operation.fAnyOperationsAborted;
}

} // namespace

const wchar_t* cheminSupport(const wchar_t* fichier, const wchar_t* sousDossier)
{
    static std::array<wchar_t, tailleChemin> tampon;
    std::wstring chemin = sansBarreFinale(dossierSupport());
    if (sousDossier && *sousDossier)
        (chemin += L'\\') += sousDossier;
    (chemin += L'\\') += fichier;
    chemin.resize(std::min(chemin.size(), tailleChemin - 1));
    std::wmemcpy(tampon.data(), chemin.c_str(), chemin.size() + 1);
    return tampon.data();
}

bool copierDossierSupport()
{
    const std::wstring installe = sansBarreFinale(dossierSupport());
    const std::wstring copie = dossierPersonnelLibre();
    if (installe.empty() || copie.empty() || !copierDossier(installe, copie))
        return false;
    dossierSupport() = copie;
    ecrireTexteRegistre(cleModule, valeurDossier, copie);
    return true;
}

int lireValeurRegistre(const wchar_t* nom, std::wstring& valeur)
{
    const auto lue = lireTexteRegistre(HKEY_LOCAL_MACHINE, cleModule, nom, KEY_ALL_ACCESS);
    if (!lue)
        return 0;
    valeur = *lue;
    return 1;
}

int lireValeurRegistre(const wchar_t* nom, DWORD& valeur)
{
    const auto lue = lireRegistre(HKEY_LOCAL_MACHINE, cleModule, nom, KEY_ALL_ACCESS);
    if (!lue || lue->type != REG_DWORD || lue->octets.size() != sizeof valeur)
        return 0;
    std::copy(lue->octets.begin(), lue->octets.end(), reinterpret_cast<BYTE*>(&valeur));
    return 1;
}
