#include "services/reglages.h"

#include <vector>

#include "windows.h"

namespace {

constexpr const wchar_t* cleReglages = L"Software\\Ostrakon\\Quarvel5\\Reglages";

/// The key of the user's settings, closed with it.
class cleOuverte {
public:
    explicit cleOuverte(HKEY cle) : m_cle(cle) {}
    ~cleOuverte() { RegCloseKey(m_cle); }
    cleOuverte(const cleOuverte&) = delete;
    cleOuverte& operator=(const cleOuverte&) = delete;

private:
    HKEY m_cle;
};

} // namespace

std::wstring lireReglage(const wchar_t* nom, const wchar_t* defaut)
{
    HKEY cle = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, cleReglages, 0, KEY_READ, &cle) != ERROR_SUCCESS)
        return defaut;
    const cleOuverte garde(cle);
    DWORD type = 0, taille = 0;
    std::wstring valeur(defaut);
    if (RegQueryValueExW(cle, nom, nullptr, &type, nullptr, &taille) == ERROR_SUCCESS && type == REG_SZ) {
        std::vector<wchar_t> texte(taille / sizeof(wchar_t) + 1, L'\0');
        if (RegQueryValueExW(cle, nom, nullptr, &type, reinterpret_cast<BYTE*>(texte.data()), &taille) == ERROR_SUCCESS)
            valeur = texte.data();
    }
    return valeur;
}

void garderReglage(const wchar_t* nom, const std::wstring& valeur)
{
    HKEY cle = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, cleReglages, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_WRITE, nullptr, &cle,
                        nullptr) != ERROR_SUCCESS)
        return;
    const cleOuverte garde(cle);
    RegSetValueExW(cle, nom, 0, REG_SZ, reinterpret_cast<const BYTE*>(valeur.c_str()),
                   static_cast<DWORD>((valeur.size() + 1) * sizeof(wchar_t)));
}
