#include "services/registre.h"

#include <algorithm>

#include "services/Uncopyable.h"

namespace {

/// Closes the key at its end.
class cleOuverte : Uncopyable {
public:
    explicit cleOuverte(HKEY ouverte) : m_cle(ouverte) {}
    ~cleOuverte() { RegCloseKey(m_cle); }

private:
    HKEY m_cle;
};

} // namespace

std::optional<valeurRegistre> lireRegistre(HKEY racine, const wchar_t* cle, const wchar_t* nom, REGSAM acces)
{
    HKEY ouverte = nullptr;
    if (RegOpenKeyExW(racine, cle, 0, acces, &ouverte) != ERROR_SUCCESS)
        return std::nullopt;
    const cleOuverte garde(ouverte);
    valeurRegistre valeur;
    DWORD taille = 0;
    if (RegQueryValueExW(ouverte, nom, nullptr, &valeur.type, nullptr, &taille) != ERROR_SUCCESS)
        return std::nullopt;
    valeur.octets.resize(taille);
    if (RegQueryValueExW(ouverte, nom, nullptr, &valeur.type, valeur.octets.data(), &taille) != ERROR_SUCCESS)
        return std::nullopt;
    return valeur;
}

std::optional<std::wstring> lireTexteRegistre(HKEY racine, const wchar_t* cle, const wchar_t* nom, REGSAM acces)
{
    const auto valeur = lireRegistre(racine, cle, nom, acces);
    if (!valeur || valeur->type != REG_SZ)
        return std::nullopt;
    std::vector<wchar_t> texte(valeur->octets.size() / sizeof(wchar_t) + 1, L'\0');
    std::copy(valeur->octets.begin(), valeur->octets.end(), reinterpret_cast<BYTE*>(texte.data()));
    return std::wstring(texte.data()); // up to its first zero
}

bool ecrireTexteRegistre(const wchar_t* cle, const wchar_t* nom, const std::wstring& texte)
{
    HKEY ouverte = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, cle, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_WRITE, nullptr, &ouverte,
                        nullptr) != ERROR_SUCCESS)
        return false;
    const cleOuverte garde(ouverte);
    const auto taille = static_cast<DWORD>((texte.size() + 1) * sizeof(wchar_t));
    return RegSetValueExW(ouverte, nom, 0, REG_SZ, reinterpret_cast<const BYTE*>(texte.c_str()), taille) ==
           ERROR_SUCCESS;
}
